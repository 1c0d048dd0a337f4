// The fast way of dates as text, of an ordinary moment (moment_fast.h).
//
// DATE, ADATE, EDATE, SDATE, JDATE, MOYR, QYR and WKYR: a field that holds the text with a year of
// two digits or more. With four digits the text begins the field and blanks follow it; two digits
// name a year of the century window, and asterisks fill the field for any other year. The parts are
// those of the plain way's layouts at the same columns, each number having just as many digits as
// its columns.
//
// WKDAY and MONTH: the name begins the field, cut or followed by blanks. The plain way's quotient
// that tells the day of the week may round up in the last second of a day, which is left to it.
#pragma once

#include <cstddef>
#include <string_view>

#include "datetime/moment_fast.h"
#include "frame/constants.h"
#include "frame/format_code.h"

namespace iocv::fast {

enum class Year : unsigned { two_digits = 2, four_digits = 4 };

constexpr unsigned digits(Year year) noexcept { return static_cast<unsigned>(year); }

struct YearText {
  std::uint64_t century;
  std::uint64_t in_century;
};

inline YearText text_of_year(const Date& date) noexcept {
  const std::uint32_t century = century_of(date.year);
  const std::uint32_t begin = 100 * century;
  return {two_digits(century), two_digits(date.year - begin)};
}

template <Year kYear>
void put_year(char* text, const Date& date) noexcept {
  const YearText year = text_of_year(date);
  if constexpr (kYear == Year::two_digits) {
    put_word(text, static_cast<std::uint16_t>(year.in_century));
  } else {
    put_word(text, static_cast<std::uint32_t>(year.century | year.in_century << 16));
  }
}

// Each text with the columns that it has beside its year.

struct DateText {  // dd-MMM-yyyy
  static constexpr std::int64_t kColumns = 7;
  template <Year kYear>
  static void put(char* text, const Date& date) noexcept {
    put_word(text, kTables.day_and_letters[date.day_from_march]);  // the year over its blank
    put_year<kYear>(text + 7, date);
  }
};

struct MonthFirstText {  // mm/dd/yyyy
  static constexpr std::int64_t kColumns = 6;
  template <Year kYear>
  static void put(char* text, const Date& date) noexcept {
    put_word(text, kTables.slashed[date.day_from_march] >> 8);  // the year over its end
    put_year<kYear>(text + 6, date);
  }
};

template <char kDelimiter>
struct DayFirstText {  // dd.mm.yyyy, dd/mm/yyyy
  static constexpr std::int64_t kColumns = 6;
  template <Year kYear>
  static void put(char* text, const Date& date) noexcept {
    const std::uint64_t slashed = kTables.slashed[date.day_from_march];
    put_word(text, static_cast<std::uint16_t>(slashed >> 32));
    text[2] = kDelimiter;
    put_word(text + 3, static_cast<std::uint16_t>(slashed >> 8));
    text[5] = kDelimiter;
    put_year<kYear>(text + 6, date);
  }
};

struct YearFirstText {  // yyyy/mm/dd
  static constexpr std::int64_t kColumns = 6;
  template <Year kYear>
  static void put(char* text, const Date& date) noexcept {
    const YearText year = text_of_year(date);
    if constexpr (kYear == Year::four_digits) {
      put_word(text, static_cast<std::uint16_t>(year.century));
    }
    put_word(text + digits(kYear) - 2,
             year.in_century | kTables.slashed[date.day_from_march] << 16);
  }
};

struct DayOfYearText {  // yyyyjjj
  static constexpr std::int64_t kColumns = 3;
  template <Year kYear>
  static void put(char* text, const Date& date) noexcept {
    constexpr unsigned kBehind = digits(kYear);
    const std::uint32_t day = day_of_year(date);
    put_year<kYear>(text, date);
    text[kBehind] = static_cast<char>('0' + day / 100);
    put_two(text + kBehind + 1, day % 100);
  }
};

struct MonthText {  // MMM yyyy
  static constexpr std::int64_t kColumns = 4;
  template <Year kYear>
  static void put(char* text, const Date& date) noexcept {
    std::memcpy(text, &kTables.letters[date.month()], 4);
    put_year<kYear>(text + 4, date);
  }
};

struct QuarterText {  // q Q yyyy
  static constexpr std::int64_t kColumns = 4;
  template <Year kYear>
  static void put(char* text, const Date& date) noexcept {
    constexpr std::string_view kMark = " Q ";
    text[0] = static_cast<char>('0' + (date.month() + 2) / 3);
    std::memcpy(text + 1, kMark.data(), kMark.size());
    put_year<kYear>(text + 4, date);
  }
};

struct WeekText {  // ww WK yyyy
  static constexpr std::int64_t kColumns = 6;
  template <Year kYear>
  static void put(char* text, const Date& date) noexcept {
    const std::uint32_t week = (day_of_year(date) + 6) / 7;
    put_two(text, week);
    if (week < 10) text[0] = ' ';
    constexpr std::string_view kMark = " WK ";
    std::memcpy(text + 2, kMark.data(), kMark.size());
    put_year<kYear>(text + 6, date);
  }
};

// The text of a format type.
template <FormatCode kCode>
struct TextOf;
template <>
struct TextOf<FormatCode::date> : DateText {};
template <>
struct TextOf<FormatCode::adate> : MonthFirstText {};
template <>
struct TextOf<FormatCode::edate> : DayFirstText<'.'> {};
template <>
struct TextOf<FormatCode::sdate> : YearFirstText {};
template <>
struct TextOf<FormatCode::jdate> : DayOfYearText {};
template <>
struct TextOf<FormatCode::moyr> : MonthText {};
template <>
struct TextOf<FormatCode::qyr> : QuarterText {};
template <>
struct TextOf<FormatCode::wkyr> : WeekText {};

// An attempt at values under one format: made once, called for each.
template <FormatCode kCode>
struct DateFields {
  using Text = TextOf<kCode>;
  static constexpr std::int64_t kShort = Text::kColumns + digits(Year::two_digits);
  static constexpr std::int64_t kFull = Text::kColumns + digits(Year::four_digits);

  std::int64_t width;
  std::int64_t century_begin;
  double missing;

  // False when all fields of the format are the plain way's.
  static bool make(std::int64_t width, std::int64_t, const Settings& settings,
                   DateFields& fields) noexcept {
    fields = {width, settings.century_begin, settings.system_missing};
    return width >= kShort && width <= kWidestField;
  }

  // False, with the field as it was, when the value is the plain way's.
  [[gnu::always_inline]] bool operator()(char* field, double value) const noexcept {
    Moment moment;
    if (!take_apart(value, missing, moment)) return false;
    put_date(field, date_of(moment));
    return true;
  }

  // The same in a field of the text's own width.
  static bool write_full(char* field, double value, const double& missing) noexcept {
    return write_full_date<DateFields>(field, value, missing);
  }

  static bool takes(const Moment&) noexcept { return true; }

  // A date has no columns for its time.
  static void put_full_time(char*, const Clock&) noexcept {}
  static void put_time(char*, const Moment&, const Clock&) noexcept {}

  static void put_full_date(char* field, const Date& date) noexcept {
    Text::template put<Year::four_digits>(field, date);
  }

  void put_date(char* field, const Date& date) const noexcept {
    if (width >= kFull) {
      put_full_date(field, date);
      for (std::int64_t column = kFull; column < width; ++column) field[column] = ' ';
    } else if (in_century(date)) {
      Text::template put<Year::two_digits>(field, date);
      if (width > kShort) field[kShort] = ' ';
    } else {
      std::memset(field, '*', static_cast<std::size_t>(width));
    }
  }

 private:
  [[nodiscard]] bool in_century(const Date& date) const noexcept {
    return date.year - static_cast<std::uint64_t>(century_begin) < 100;
  }
};

// The same for names.
template <FormatCode kCode>
struct NameFields {
  static constexpr bool kWeekday = kCode == FormatCode::wkday;
  static constexpr std::int64_t kFull = kNameCell;

  std::int64_t width;
  double missing;

  // False when all fields of the format are the plain way's.
  static bool make(std::int64_t width, std::int64_t, const Settings& settings,
                   NameFields& fields) noexcept {
    fields = {width, settings.system_missing};
    return width > 0 && width <= kWidestField;
  }

  // False, with the field as it was, when the value is the plain way's.
  [[gnu::always_inline]] bool operator()(char* field, double value) const noexcept {
    Moment moment;
    if (!take_apart(value, missing, moment) || !takes(moment)) return false;
    put_date(field, date_of(moment));
    return true;
  }

  // The same in a field of the text's own width.
  static bool write_full(char* field, double value, const double& missing) noexcept {
    return write_full_date<NameFields>(field, value, missing);
  }

  static bool takes(const Moment& moment) noexcept {
    return !kWeekday || moment.of_day < (kSecondsPerDay - 1) * kInverseOfDay;
  }

  static void put_full_time(char*, const Clock&) noexcept {}
  static void put_time(char*, const Moment&, const Clock&) noexcept {}

  static void put_full_date(char* field, const Date& date) noexcept {
    std::memcpy(field, name(date), static_cast<std::size_t>(kNameCell));
  }

  void put_date(char* field, const Date& date) const noexcept {
    if (width < kFull) {
      const char* const letters = name(date);
      for (std::int64_t column = 0; column < width; ++column) field[column] = letters[column];
    } else {
      put_full_date(field, date);
      for (std::int64_t column = kFull; column < width; ++column) field[column] = ' ';
    }
  }

 private:
  static const char* name(const Date& date) noexcept {
    return kWeekday ? kDayNames.data() + kNameCell * ((date.number + 4) % 7)
                    : kMonthNames.data() + kNameCell * (date.month() - 1);
  }
};

}  // namespace iocv::fast
