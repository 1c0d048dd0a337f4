// The format descriptor, the table of format types, and formats as text.
#ifndef IOCV_FORMAT_H
#define IOCV_FORMAT_H

#include <iocv/base.h>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

// What a conversion needs beside its value: a format type, a field width in bytes and a number of
// decimals. A plain value of four bytes.
class IOCV_API VELT_Format {
 public:
  // The numbers are the interface; 40..45 have no meaning of their own.
  enum FormatType : int {
    A = 1,
    AHEX,
    COMMA,
    DOLLAR,
    F,
    IB,
    PIBHEX,
    P,
    PIB,
    PK,
    RB,
    RBHEX,
    T,
    X,
    Z,
    N,
    E,
    MULT_PUN,
    UNAL_PIB,
    DATE,
    TIME,
    DATETIME,
    ADATE,
    JDATE,
    DTIME,
    WKDAY,
    MONTH,
    MOYR,
    QYR,
    WKYR,
    PCT,
    DOT,
    CCA,
    CCB,
    CCC,
    CCD,
    CCE,
    EDATE,
    SDATE,
    UNUSED40,
    UNUSED41,
    UNUSED42,
    UNUSED43,
    UNUSED44,
    UNUSED45
  };

  // The widest field of a format that is no string.
  static constexpr unsigned short kWidestNumber = 40;

  // Narrows the arguments to the setters' types and calls the setters: type, width, decimals.
  // Example: (F, 50, 2) has width 40, (A, 50, 0) width 50.
  VELT_Format(FormatType type, int width, int decimals);

  void Type(FormatType type);        // any code is stored
  void Width(unsigned short width);  // cut to 40 unless the type is A or AHEX
  void Decimals(unsigned char decimals);

  int TypeEx() const;
  unsigned short Width() const;
  unsigned char Decimals() const;
  bool IsString() const;  // A or AHEX

 private:
  std::uint16_t width_;
  std::uint8_t type_;
  std::uint8_t decimals_;
};

namespace iocv {

enum class FormatKind { string, numeric, binary, date, time, date_part, none };

// A row of the table of format types.
struct FormatInfo {
  int code;
  std::string_view name;  // without the blanks that pad it to eight bytes
  FormatKind kind;
  bool reads;   // text to value
  bool writes;  // value to text
};

// The 45 types in the order of their codes.
IOCV_API std::span<const FormatInfo> format_table() noexcept;

// The row of a code, or null outside 1..45.
IOCV_API const FormatInfo* format_info(int code) noexcept;

// "string", "numeric", "binary", "date", "time", "date part" or "none".
IOCV_API std::string_view format_kind_name(FormatKind kind) noexcept;

// A format read from text, or the reason why the text is none; error is empty on success.
struct FormatReading {
  VELT_Format format;
  std::string error;
  explicit operator bool() const noexcept { return error.empty(); }
};

// Reads a name in any case, a width and, after a point, decimals; a type without a name of its own
// is written as its code and a colon. Widths run from 1 to 40, for strings to 32767; decimals from
// 0 to 40, strings have none. On failure the format is F8.2 and error says what is wrong.
// Example: "dollar10.2" -> DOLLAR, width 10, decimals 2; "40:12.2" -> code 40, width 12,
// decimals 2.
IOCV_API FormatReading format_from_text(std::string_view text);

// The text that format_from_text reads back: "F8.2", "A20", "40:12.2". Decimals appear when they
// are not 0.
IOCV_API std::string format_to_text(const VELT_Format& format);

}  // namespace iocv

#endif
