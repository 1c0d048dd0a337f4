// The fast way of dates as input: the words of a field of usual width, tested and converted whole,
// and a walk over any other field (cursor_fast.h).
//
// Words are those of dd-MMM-yyyy, mm/dd/yyyy, dd.mm.yyyy and yyyy/mm/dd that fill their field; the
// first byte may be blank, which it is before a number of one digit, but not before a year. The
// walk takes days and months of one digit or two, months by name, years of two digits or four,
// delimiters of several bytes, blanks around the date, and a blank field. Both take each of ",-./"
// as a delimiter, which it is under either decimal character. The first number has four digits at
// most, too few for the reader without delimiters, or it is one of eight digits behind one blank at
// most, which that reader takes for the whole date. The year lies in [1583, 9999] and the day is
// one that its month has. A negative system-missing number is none of the parts; under any other
// all is the plain way's.
#pragma once

#include <array>

#include "datetime/calendar.h"
#include "datetime/cursor_fast.h"
#include "datetime/date_formats.h"
#include "datetime/names.h"
#include "datetime/read_words.h"
#include "frame/constants.h"
#include "frame/outlined.h"

namespace iocv::fast {

inline constexpr std::uint32_t kFirstYearRead = kFirstYear + 1;  // 1582 has no January

// What a month adds to a date in years from 1 March.
struct Month {
  std::uint16_t days_before;
  std::uint8_t length;  // in every year; 0: no such month
  std::uint8_t in_next_year;
};

inline constexpr std::array<Month, 20> kMonthOfNumber = [] {
  std::array<Month, 20> table = {};
  std::int64_t before = 0;
  for (std::int64_t i = 0; i < kMonths; ++i) {
    const std::int64_t month = (i + 2) % kMonths + 1;
    table[static_cast<std::size_t>(month)] = {static_cast<std::uint16_t>(before),
                                              static_cast<std::uint8_t>(month_length(1999, month)),
                                              static_cast<std::uint8_t>(month <= 2 ? 1 : 0)};
    before += month_length(2000, month);
  }
  return table;
}();

struct NamedMonth {
  std::uint32_t name;  // "JAN"
  Month month;
};

// The factor is the least that tells the twelve names apart.
constexpr std::size_t place_of_name(std::uint32_t name) noexcept { return name * 26576 >> 28; }

inline constexpr std::array<NamedMonth, 16> kMonthOfName = [] {
  std::array<NamedMonth, 16> table = {};
  for (std::int64_t month = 1; month <= kMonths; ++month) {
    const auto name = static_cast<std::uint32_t>(word_of(month_letters(month)));
    table[place_of_name(name)] = {name, kMonthOfNumber[static_cast<std::size_t>(month)]};
  }
  return table;
}();

// The month of a name; one of no days when it is none.
inline Month month_named(std::uint32_t name) noexcept {
  const NamedMonth& named = kMonthOfName[place_of_name(name)];
  return named.name == name ? named.month : Month{};
}

// The number of a day that its month has.
inline std::uint32_t number_of_day(std::uint32_t year, Month month, std::uint32_t day) noexcept {
  const std::uint32_t y = year - month.in_next_year;
  const std::uint32_t century = y / 100;
  return y * 1461 / 4 - century + century / 4 + month.days_before + day -
         static_cast<std::uint32_t>(kDaysBeforeOrigin);
}

// What readers answer when there is no day number: kNotOfWords lets a walk try, kNoDay is for the
// plain way to judge.
inline constexpr std::uint32_t kNotOfWords = 0;
inline constexpr std::uint32_t kNoDay = kNone;

constexpr bool is_day(std::uint32_t number) noexcept { return number - 1 < kNoDay - 1; }

inline std::uint32_t ordinary_day(std::uint32_t year, Month month, std::uint32_t day) noexcept {
  if (year < kFirstYearRead) return kNoDay;
  if (day - 1 >= month.length && !(day == 29 && month.length == 28 && is_leap(year))) return kNoDay;
  return number_of_day(year, month, day);
}

// The year that two digits mean; 0 for one that the plain way is to judge.
inline std::uint32_t year_in_century(std::uint32_t two_digits,
                                     std::int64_t century_begin) noexcept {
  if (century_begin < kFirstYearRead || century_begin > kLastFourDigitYear - 99) return 0;
  const auto begin = static_cast<std::uint32_t>(century_begin);
  const std::uint32_t year = begin / 100 * 100 + two_digits;
  return year < begin ? year + 100 : year;
}

// How the year of a date is written: in full, or as two digits of the hundred years from begin.
struct FullYear {
  static constexpr std::size_t kDigits = 4;
  std::uint32_t operator()(std::uint32_t number) const noexcept { return number; }
};
struct ShortYear {
  static constexpr std::size_t kDigits = 2;
  std::int64_t begin;
  std::uint32_t operator()(std::uint32_t number) const noexcept {
    return year_in_century(number, begin);
  }
};

inline constexpr std::uint64_t kTwoZeros = word_of("00");

// Four bytes and the year behind them, a short one as 00yy.
template <class Year>
inline std::uint64_t before_year(const char* text) noexcept {
  if constexpr (Year::kDigits == 4) return load<std::uint64_t>(text);
  return load<std::uint32_t>(text) | kTwoZeros << 32 |
         std::uint64_t{load<std::uint16_t>(text + 4)} << 48;
}

// A year, in the same way, and the four bytes behind it.
template <class Year>
inline std::uint64_t from_year(const char* text) noexcept {
  if constexpr (Year::kDigits == 4) return load<std::uint64_t>(text);
  return kTwoZeros | std::uint64_t{load<std::uint16_t>(text)} << 16 |
         std::uint64_t{load<std::uint32_t>(text + 2)} << 32;
}

inline std::uint32_t number_at(std::uint64_t year_in_pairs, int at) noexcept {
  return 100 * byte(year_in_pairs, at) + byte(year_in_pairs, at + 2);
}

template <class Year>
inline std::uint32_t read_date(const char* text, Year year) noexcept {  // dd-MMM-yyyy
  constexpr Limits kLimits("00,,0000", "39//9999");
  constexpr std::uint32_t kName = 0xFF'FFFF;
  constexpr std::uint32_t kUpperCase = 0xDF'DFDF;
  const std::uint64_t rest = before_year<Year>(text + 3);  // MMM-yyyy
  const std::uint64_t bytes = (load<std::uint32_t>(text) & kName) | (rest & ~std::uint64_t{kName});
  const std::uint64_t digits = (bytes | zero_for_blank(text[0])) - kLimits.least;
  const std::uint32_t name = static_cast<std::uint32_t>(rest) & kUpperCase;
  const NamedMonth& named = kMonthOfName[place_of_name(name)];
  if ((excess(digits, kLimits) & kTopBits) != 0 || named.name != name) return kNotOfWords;
  const std::uint64_t parts = pairs(digits);
  return ordinary_day(year(number_at(parts, 4)), named.month, byte(parts, 0));
}

template <class Year>
inline std::uint32_t read_month_first(const char* text, Year year) noexcept {  // mm/dd/yyyy
  constexpr Limits kHead("00", "19");
  constexpr Limits kRest(",00,0000", "/39/9999");
  const std::uint64_t head = (load<std::uint16_t>(text) | zero_for_blank(text[0])) - kHead.least;
  const std::uint64_t rest = before_year<Year>(text + 2) - kRest.least;
  if (((excess(head, kHead) | excess(rest, kRest)) & kTopBits) != 0) return kNotOfWords;
  const std::uint64_t parts = pairs(rest);
  return ordinary_day(year(number_at(parts, 4)), kMonthOfNumber[byte(pairs(head), 0)],
                      byte(parts, 1));
}

template <class Year>
inline std::uint32_t read_day_first(const char* text, Year year) noexcept {  // dd.mm.yyyy
  constexpr Limits kHead("00", "39");
  constexpr Limits kRest(",00,0000", "/19/9999");
  const std::uint64_t head = (load<std::uint16_t>(text) | zero_for_blank(text[0])) - kHead.least;
  const std::uint64_t rest = before_year<Year>(text + 2) - kRest.least;
  if (((excess(head, kHead) | excess(rest, kRest)) & kTopBits) != 0) return kNotOfWords;
  const std::uint64_t parts = pairs(rest);
  return ordinary_day(year(number_at(parts, 4)), kMonthOfNumber[byte(parts, 1)],
                      byte(pairs(head), 0));
}

template <class Year>
inline std::uint32_t read_year_first(const char* text, Year year) noexcept {  // yyyy/mm/dd
  constexpr Limits kHead("0000,00,", "9999/19/");
  constexpr Limits kTail("00", "39");
  const std::uint64_t head = from_year<Year>(text) - kHead.least;
  const std::uint64_t tail = load<std::uint16_t>(text + Year::kDigits + 4) - kTail.least;
  if (((excess(head, kHead) | excess(tail, kTail)) & kTopBits) != 0) return kNotOfWords;
  const std::uint64_t parts = pairs(head);
  return ordinary_day(year(number_at(parts, 0)), kMonthOfNumber[byte(parts, 5)],
                      byte(pairs(tail), 0));
}

// The bytes of the words with a full year.
template <FormatCode kCode>
inline constexpr std::int64_t kDateWords = 10;
template <>
inline constexpr std::int64_t kDateWords<FormatCode::date> = 11;
template <>
inline constexpr std::int64_t kDateWords<FormatCode::datetime> = 11;

template <FormatCode kCode, class Year = FullYear>
inline std::uint32_t read_date_words(const char* text, Year year = {}) noexcept {
  constexpr DateOrder kOrder = date_format(kCode).order;
  if constexpr (kOrder == DateOrder::month_day_year) {
    return read_month_first(text, year);
  } else if constexpr (kOrder == DateOrder::year_month_day) {
    return read_year_first(text, year);
  } else if constexpr (kCode == FormatCode::edate) {
    return read_day_first(text, year);
  } else {
    return read_date(text, year);
  }
}

// Eight digits without delimiters, such as yyyymmdd.
template <DateOrder kOrder>
std::uint32_t read_eight_digits(const char* text) noexcept {
  constexpr std::string_view kLast = kOrder == DateOrder::year_month_day   ? "99991939"
                                     : kOrder == DateOrder::month_day_year ? "19399999"
                                                                           : "39199999";
  constexpr Limits kLimits("00000000", kLast);
  constexpr int kYear = kOrder == DateOrder::year_month_day ? 0 : 4;
  constexpr int kMonth = kOrder == DateOrder::year_month_day   ? 4
                         : kOrder == DateOrder::month_day_year ? 0
                                                               : 2;
  constexpr int kDay = kOrder == DateOrder::year_month_day   ? 6
                       : kOrder == DateOrder::month_day_year ? 2
                                                             : 0;
  const std::uint64_t digits = load<std::uint64_t>(text) - kLimits.least;
  if ((excess(digits, kLimits) & kTopBits) != 0) return kNotOfWords;
  const std::uint64_t parts = pairs(digits);
  return ordinary_day(number_at(parts, kYear), kMonthOfNumber[byte(parts, kMonth)],
                      byte(parts, kDay));
}

// A year as written; 0 for one that the plain way is to judge.
[[gnu::always_inline]] inline std::uint32_t year_at(Cursor& cursor,
                                                    std::int64_t century_begin) noexcept {
  const std::uint32_t year = cursor.four_digits();
  if (year != kNone) return year >= kFirstYearRead ? year : 0;
  const std::uint32_t two_digits = cursor.two_digits();
  return two_digits == kNone ? 0 : year_in_century(two_digits, century_begin);
}

[[gnu::always_inline]] inline Month month_at(Cursor& cursor) noexcept {
  const std::uint32_t number = cursor.number();
  if (number == kNone) return month_named(cursor.word());
  return number <= kMonths ? kMonthOfNumber[number] : Month{};
}

// The day number of the date that the cursor walks over, or kNoDay.
template <FormatCode kCode>
[[gnu::always_inline]] inline std::uint32_t walk_date(Cursor& cursor,
                                                      std::int64_t century_begin) noexcept {
  if (cursor.left() > kDateWords<kCode>) {
    const std::uint32_t day = read_date_words<kCode>(cursor.at());
    if (day != kNotOfWords) {
      cursor.skip(kDateWords<kCode>);
      return day;
    }
  }
  constexpr DateOrder kOrder = date_format(kCode).order;
  constexpr int kFirstDelimiter = kOrder == DateOrder::year_month_day ? 4 : 2;
  if (cursor.left() >= 8 && is_digit(cursor.at()[kFirstDelimiter]) && cursor.walked() <= 1) {
    const std::uint32_t day = read_eight_digits<kOrder>(cursor.at());
    if (day != kNotOfWords) {
      cursor.skip(8);
      return day;
    }
  }
  Month month;
  std::uint32_t day;
  std::uint32_t year;
  if constexpr (kOrder == DateOrder::year_month_day) {
    year = year_at(cursor, century_begin);
    if (!cursor.date_delimiter()) return kNoDay;
    month = month_at(cursor);
    if (!cursor.date_delimiter()) return kNoDay;
    day = cursor.number();
  } else {
    if constexpr (kOrder == DateOrder::month_day_year) {
      month = month_at(cursor);
      if (!cursor.date_delimiter()) return kNoDay;
      day = cursor.number();
    } else {
      day = cursor.number();
      if (!cursor.date_delimiter()) return kNoDay;
      month = month_at(cursor);
    }
    if (!cursor.date_delimiter()) return kNoDay;
    year = year_at(cursor, century_begin);
  }
  return ordinary_day(year, month, day);
}

// A walk's answer, as one bool and one double: an optional would go through memory.
inline bool store_day(std::uint32_t day, double& value) noexcept {
  value = static_cast<double>(std::int64_t{day} * kSecondsPerDay);
  return is_day(day);
}

// An attempt at fields of one format: made once, called for each.
template <FormatCode kCode>
struct DateInput {
  static constexpr std::int64_t kWordsWidth = kDateWords<kCode>;
  static constexpr std::int64_t kShortWidth = kWordsWidth - 2;  // with a year of two digits
  static constexpr std::int64_t kShortest = 6;                  // d/m/yy

  std::int64_t width;
  std::int64_t century_begin;
  double missing;

  // False when all fields of the format are the plain way's.
  static bool make(std::int64_t width, std::int64_t, const Settings& settings,
                   DateInput& input) noexcept {
    input = {width, settings.century_begin, settings.system_missing};
    return serves(settings.system_missing) && width > 0 && width <= kWidestField;
  }

  // False when the field is the plain way's.
  bool operator()(const char* field, double& value) const noexcept {
    return read_field(*this, field, value);
  }

  // False when all fields are the plain way's under that system-missing number.
  static bool serves(const double& missing) noexcept { return kReadsWords && missing < 0; }

  // Of a field of that width.
  [[gnu::always_inline]] static Words words(const char* field, double& value) noexcept {
    const std::uint32_t day = read_date_words<kCode>(field);
    if (store_day(day, value)) return Words::value;
    return day == kNoDay ? Words::plain : Words::neither;
  }

  // False when the plain way is to judge: letters begin only a date that begins with its month.
  static bool may_walk(const char* field, std::int64_t width,
                       std::int64_t shortest = kShortest) noexcept {
    const auto [first, left] = TextBegin(field, width);
    const bool may_begin =
        is_digit(first) ||
        (date_format(kCode).order == DateOrder::month_day_year && is_letter(first));
    return first == ' ' || (may_begin && left >= shortest);
  }

  [[gnu::always_inline]] bool walk(const char* field, double& value) const noexcept {
    if (width == kShortWidth) {
      const std::uint32_t day = read_date_words<kCode>(field, ShortYear{century_begin});
      if (day != kNotOfWords) return store_day(day, value);
    }
    Cursor cursor(field, width);
    if (cursor.only_blanks_left()) {
      value = missing;
      return true;
    }
    const std::uint32_t day = walk_date<kCode>(cursor, century_begin);
    return store_day(day, value) && cursor.only_blanks_left();
  }
};

}  // namespace iocv::fast
