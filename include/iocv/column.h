/* Whole columns: the conversions of <iocv/convert.h> over any number of fields at a time.
 *
 * A column is count fields that lie stride bytes apart and share one format. Each field becomes
 * what a conversion of its own would make of it, byte for byte and status for status, but type and
 * settings are looked at once. Nothing is allocated and nothing throws. The process's settings are
 * neither read nor changed, the date of the records included: settings come by argument. So any
 * number of threads may convert at once, under every format and under different settings, whatever
 * others set meanwhile. The one thing of the process that counts is the code page of its text
 * layer, for bytes above 127 in A and in the words of dates; a change of it is safe at any time,
 * and counts from some field on.
 *
 * Formats:
 *  - a width may be anything up to 32767, whatever the type. Below 1 it is an empty field, above
 *    only the first 32767 bytes are a field and the rest is left alone;
 *  - types are those that the library converts by itself: the table's, 40 on output, 85 both ways,
 *    86 on input. The custom currencies read as F, as FromString has it;
 *  - all other types are the host's: 1105 for every field, values and fields untouched. No
 *    registered extension is asked, and no Java machine, which alone can write 86. Only the
 *    system-missing number has its text under those types, too, as the extension hook writes it:
 *    its character, decimals columns left of the last one, status 0;
 *  - a number of a string type, or a string of a numeric one, is 1105 for every field, values and
 *    fields untouched.
 *
 * Arrays: values and fields must not overlap, nor must written fields (stride at least the width).
 * The bytes between fields and between string values keep what they hold. statuses, one for each
 * field, may be null. A status other than 0 counts as failed, also where the value was kept (1106,
 * 1158); <iocv/status.h> says what it means. */
#ifndef IOCV_COLUMN_H
#define IOCV_COLUMN_H

#include <iocv/base.h>
#include <stddef.h>

#ifdef __cplusplus
#include <iocv/currencies.h>
#include <iocv/format.h>

#include <cstddef>
#include <memory>
#include <string>
#endif

IOCV_BEGIN_C

/* The settings of conversions, on their own: a handle belongs to who made it. Conversions on any
 * number of threads may share one as long as nobody sets it meanwhile. */
typedef struct iocv_settings iocv_settings;

/* The process's settings as they are now, or null without memory. Like a conversion of
 * <iocv/convert.h> it may run on any number of threads while nobody changes the process's settings.
 * iocv_settings_free lets go of a handle; null is allowed. */
IOCV_API iocv_settings* iocv_settings_new(void);
IOCV_API void iocv_settings_free(iocv_settings* settings);

/* Set one of them; iocv::column::Settings below tells what each means. A decimal is '.' or ','. */
IOCV_API void iocv_settings_set_system_missing(iocv_settings* settings, double number);
IOCV_API void iocv_settings_set_blank_value(iocv_settings* settings, double number);
IOCV_API void iocv_settings_set_small(iocv_settings* settings, double threshold);
IOCV_API void iocv_settings_set_century_begin(iocv_settings* settings, int64_t year);
IOCV_API void iocv_settings_set_system_missing_char(iocv_settings* settings, char character);
IOCV_API void iocv_settings_set_decimal(iocv_settings* settings, char decimal);
IOCV_API void iocv_settings_set_elapsed_decimal(iocv_settings* settings, char decimal);
IOCV_API void iocv_settings_set_leading_zero(iocv_settings* settings, int shown);

/* Sets the currency of index 0..4 (CCA..CCE) from a zero-terminated pattern. Returns 1, or 0 with
 * nothing changed for a bad index, a null pattern, or without memory.
 * Example: 0, "-,$,,CR" -> 1; CCA12.2 of -1234.5 is "-$1,234.50CR". */
IOCV_API int iocv_settings_set_currency(iocv_settings* settings, int index, const char* pattern);

/* Text to numbers: reads the width bytes at fields, fields + stride, ... into values[0], values[1],
 * ... Returns how many failed; *first_failed, unless null, is the index of the first of them, count
 * when there is none. settings may be null: the library's initial ones.
 * Example: "   1.5     x  ", stride 7, count 2, type 5, width 6, decimals 0 -> 1; values 1.5 and
 * system-missing, statuses 0 and 1102, *first_failed 1. */
IOCV_API int64_t iocv_read_column(const char* fields, size_t stride, size_t count, int type,
                                  int64_t width, int64_t decimals, const iocv_settings* settings,
                                  double* values, int32_t* statuses, size_t* first_failed);

/* Text to strings (A and AHEX): the values lie value_stride bytes apart, at any address. One
 * occupies width bytes, (width + 1) / 2 for AHEX, rounded up to a multiple of 8; value_stride is
 * not less than that.
 * Example: "abcdef", stride 3, count 2, type 1, width 3 -> "abc     def     ". */
IOCV_API int64_t iocv_read_string_column(const char* fields, size_t stride, size_t count, int type,
                                         int64_t width, const iocv_settings* settings, char* values,
                                         size_t value_stride, int32_t* statuses,
                                         size_t* first_failed);

/* Numbers to text: writes exactly width bytes at fields, fields + stride, ...
 * Example: {1.5, -2}, type 5, width 6, decimals 2, stride 6 -> "  1.50 -2.00", 0. */
IOCV_API int64_t iocv_write_column(const double* values, size_t count, int type, int64_t width,
                                   int64_t decimals, const iocv_settings* settings, char* fields,
                                   size_t stride, int32_t* statuses, size_t* first_failed);

/* Strings to text (A and AHEX); never fails for these types.
 * Example: "abc     def     ", value_stride 8, count 2, type 1, width 3, stride 3 -> "abcdef". */
IOCV_API int64_t iocv_write_string_column(const char* values, size_t value_stride, size_t count,
                                          int type, int64_t width, const iocv_settings* settings,
                                          char* fields, size_t stride, int32_t* statuses,
                                          size_t* first_failed);

IOCV_END_C

#ifdef __cplusplus

namespace iocv {

struct Currencies;

namespace column {

// What all fields of a column share. Unlike VELT_Format it cuts no width: numbers may be wider than
// 40 bytes.
struct Format {
  constexpr Format(int type_code, std::int64_t field_width,
                   std::int64_t number_decimals = 0) noexcept
      : type(type_code), width(field_width), decimals(number_decimals) {}
  Format(const VELT_Format& format)
      : type(format.TypeEx()), width(format.Width()), decimals(format.Decimals()) {}

  int type;
  std::int64_t width;
  std::int64_t decimals;
};

// Five custom currencies of their own. Copies share them until one is set; the process's may change
// meanwhile.
class CustomCurrencies {
 public:
  IOCV_API CustomCurrencies() noexcept;  // five empty patterns
  CustomCurrencies(const CustomCurrencies&) = default;
  CustomCurrencies& operator=(const CustomCurrencies&) = default;
  IOCV_API static CustomCurrencies current();  // the process's; may throw std::bad_alloc

  // Index 0..4 for CCA..CCE. False, with nothing changed, for another; may throw std::bad_alloc.
  IOCV_API bool set(int index, const std::string& pattern);

  // The pattern of an index, CCA's for a bad one; valid until the next change.
  IOCV_API const customCurrency& operator[](int index) const noexcept;

 private:
  friend const Currencies& all_of(const CustomCurrencies& currencies) noexcept;

  std::shared_ptr<const Currencies> all_;
};

// What conversions consult, as a value. A new one has the library's initial settings in a locale
// with a decimal point.
// Example: Settings{.decimal = ','}.
struct Settings {
  // The process's settings as they are now, from the library's own records. It may run on any
  // number of threads while nobody changes these settings; may throw std::bad_alloc.
  IOCV_API static Settings current();

  double system_missing = -1.7976931348623157e308;  // stands for a missing number
  double blank_value = -1.7976931348623157e308;     // what a blank numeric field reads as
  double small = 0.0001;              // code 40 writes an exponent below this magnitude
  std::int64_t century_begin = 1900;  // first year of the hundred that two digits name
  char system_missing_char = '.';     // shows a missing number
  char decimal = '.';                 // '.' or ','
  char elapsed_decimal = '.';  // of code 85 on input: the numeric locale's, not the library's
  bool leading_zero = false;   // a 0 stands before the decimal character of a value below 1
  CustomCurrencies currencies = {};
};

struct Result {
  std::size_t failed;        // fields with a status other than 0
  std::size_t first_failed;  // the index of the first of them, count when there is none

  friend constexpr bool operator==(const Result&, const Result&) = default;
};

// The bytes that one value of A or AHEX occupies: the least value_stride.
// Example: A, width 9 -> 16; AHEX, width 16 -> 8.
IOCV_API std::size_t string_value_size(const Format& format) noexcept;

// iocv_read_column and its siblings above tell what each does, with examples.
IOCV_API Result read(const char* fields, std::size_t stride, std::size_t count,
                     const Format& format, const Settings& settings, double* values,
                     std::int32_t* statuses = nullptr) noexcept;

IOCV_API Result read_strings(const char* fields, std::size_t stride, std::size_t count,
                             const Format& format, const Settings& settings, char* values,
                             std::size_t value_stride, std::int32_t* statuses = nullptr) noexcept;

IOCV_API Result write(const double* values, std::size_t count, const Format& format,
                      const Settings& settings, char* fields, std::size_t stride,
                      std::int32_t* statuses = nullptr) noexcept;

IOCV_API Result write_strings(const char* values, std::size_t value_stride, std::size_t count,
                              const Format& format, const Settings& settings, char* fields,
                              std::size_t stride, std::int32_t* statuses = nullptr) noexcept;

}  // namespace column
}  // namespace iocv

#endif

#endif
