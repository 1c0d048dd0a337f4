/* The custom currencies CCA..CCE: five patterns that decorate grouped numbers, with five save
 * slots.
 *
 * A pattern is four texts, separated by the grouping character: negative prefix, prefix, suffix,
 * negative suffix. The first "." or "," outside quotes becomes the grouping character, and the
 * other of the two the decimal character ("." without a separator). An apostrophe or double quote
 * is dropped and the byte behind it taken as it stands. Texts beyond the fourth are dropped.
 * "-,$,,CR" writes -1234.5 as "-$1,234.50CR" and 1234.5 as "$1,234.50".
 *
 * The patterns belong to the process. Setters, Save and Restore take a lock: any number of threads
 * may call them at once, and each pattern or set of five is afterwards one of those given, whole.
 * The getters and the output of CCA..CCE take none: any number of them may run at once, but
 * not while a currency changes. No other conversion looks at the currencies, and all may run
 * meanwhile: every other format, and input under CCA..CCE. */
#ifndef IOCV_CURRENCIES_H
#define IOCV_CURRENCIES_H

#include <iocv/base.h>

#ifdef __cplusplus
#include <string>
#endif

IOCV_BEGIN_C

/* Sets currency *n (1..5 for CCA..CCE) from all text_length bytes: trailing blanks belong to the
 * last text. True (-1) when the pattern is not the one that getcustomcurrency_ gave before; false
 * (0) also, with nothing changed, when *n lies outside 1..5.
 * Example: 1, "-,$,,CR" twice -> true, false. */
IOCV_API int64_t setcustomcurrency_(const int64_t* n, const char* text, int64_t text_length);

/* The same with the index 0..4 by value and a zero-terminated pattern; 1 when the pattern changed,
 * else 0, also for a bad index or a null pattern. */
IOCV_API int CSetCustomCurrency(int index, const char* text);

/* The same with a status: 0 when the pattern is stored, changed or not; 2, with nothing changed,
 * for an index outside 0..4 or a null pattern. */
IOCV_API int IocvSetCCFormat(int index, char* pattern);

/* Copies the pattern of currency *n (1..5), rebuilt from its texts without quotes, to buffer: at
 * most 256 bytes and at most buffer_length; the rest of the buffer stays. *count is the number of
 * bytes copied, 0 for a bad *n. True (-1) when it is at least 1.
 * Example: after "-.'.EUR.." -> "-..EUR..", 8. */
IOCV_API int64_t getcustomcurrency_(const int64_t* n, char* buffer, int64_t* count,
                                    int64_t buffer_length);

/* The same with an apostrophe before each apostrophe, double quote and grouping character that
 * belongs to a text.
 * Example: after "-.'.EUR.." -> "-.'.EUR..", 9. */
IOCV_API int64_t getcustomcurrencyescaped_(const int64_t* n, char* buffer, int64_t* count,
                                           int64_t buffer_length);

/* The lengths in bytes of the four texts of currency *n (1..5), all 0 for a bad *n. True (-1) when
 * its decimal character is "."; a bad *n answers for CCA.
 * Example: after "-,$,,CR" -> 1, 0, 1, 2, true. */
IOCV_API int64_t getcustomcurrencylengths_(const int64_t* n, int64_t* prefix, int64_t* suffix,
                                           int64_t* negative_prefix, int64_t* negative_suffix);

/* Copy all five currencies into save slot *slot (0..4), or the slot back over all five. A slot
 * never saved holds empty patterns. True (-1), or false (0) with nothing changed for a bad slot. */
IOCV_API int64_t savecustomcurrency_(const int64_t* slot);
IOCV_API int64_t restorecustomcurrency_(const int64_t* slot);

IOCV_END_C

#ifdef __cplusplus

// One pattern, taken apart. A new one is the empty pattern: no texts, decimal ".", no grouping.
class IOCV_API customCurrency {
 public:
  customCurrency();
  customCurrency(const customCurrency& other);
  customCurrency& operator=(const customCurrency& other);
  ~customCurrency();

  // Takes the pattern; true when it differs from what Get() gave before the call.
  bool Set(const std::string& pattern);

  // The four texts joined by the grouping character, without quotes.
  // Example: "a,b" gives "a,b,,".
  std::string Get() const;

  // The same with an apostrophe before each apostrophe, double quote and grouping character of a
  // text. Set reads it back, unless the "." or "," that is not the grouping character stands in the
  // texts before the first separator: it is not escaped, and would become the separator.
  std::string GetEscaped() const;

  const std::string& getPrefix() const noexcept;
  const std::string& getSuffix() const noexcept;
  const std::string& getNegativePrefix() const noexcept;
  const std::string& getNegativeSuffix() const noexcept;
  const std::string& getDecimal() const noexcept;  // "." or ","

 private:
  std::string prefix_;
  std::string suffix_;
  std::string negative_prefix_;
  std::string negative_suffix_;
  std::string decimal_;
  std::string grouping_;
};

// The process's five currencies (index 0..4 for CCA..CCE) and their save slots (0..4). The class
// has no state of its own.
class IOCV_API currencyFormat {
 public:
  static int getMaxCustomCurrencies();  // 5

  // customCurrency::Set under the lock; false for a bad index.
  static bool Set(int index, const std::string& pattern);

  // customCurrency's Get and GetEscaped; empty for a bad index.
  static std::string Get(int index);
  static std::string GetEscaped(int index);

  // The lengths of the four texts in bytes; all 0 for a bad index.
  static void GetLengths(int index, int& prefix, int& suffix, int& negativePrefix,
                         int& negativeSuffix);

  // The currency itself, valid until the next change; CCA for a bad index.
  static const customCurrency& GetCCX(int index);

  // Copy all five currencies into a slot or back, under the lock; false for a bad slot.
  static bool Save(int slot);
  static bool Restore(int slot);
};

#endif

#endif
