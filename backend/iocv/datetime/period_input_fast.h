// The fast way of JDATE, MONTH, MOYR, QYR, WKYR and DTIME as input: a walk (cursor_fast.h) over
// yyyyddd; a month, by number or name; a month and a year; q Q yyyy; ww WK yyyy; and days with a
// time of day (obitim_fast.h), each between blanks, and over a blank field. Years have four digits
// or two and lie in [1583, 9999]; of such a year the plain way takes any day up to 366 as it is,
// and counts its weeks from 1 January. A name has nine letters at most. A negative system-missing
// number is none of the parts; under any other all is the plain way's.
#pragma once

#include "datetime/moment_fast.h"
#include "datetime/obidat_fast.h"
#include "datetime/obitim_fast.h"

namespace iocv::fast {

// An attempt at fields of one format: made once, called for each.
template <FormatCode kCode>
struct PeriodInput {
  static constexpr std::int64_t kWordsWidth = 0;

  std::int64_t width;
  std::int64_t century_begin;
  double missing;
  char mark;

  // False when all fields of the format are the plain way's.
  static bool make(std::int64_t width, std::int64_t, const Settings& settings,
                   PeriodInput& input) noexcept {
    input = {width, settings.century_begin, settings.system_missing, decimal_mark(settings)};
    return kReadsWords && width > 0 && width <= kWidestField && settings.system_missing < 0;
  }

  // False when the field is the plain way's.
  bool operator()(const char* field, double& value) const noexcept {
    return read_field(*this, field, value);
  }

  static Words words(const char*, double&) noexcept { return Words::neither; }

  // False when the plain way is to judge.
  static bool may_walk(const char* field, std::int64_t width) noexcept {
    const char first = TextBegin(field, width).first;
    return first == ' ' || is_digit(first) ||
           ((kCode == FormatCode::month || kCode == FormatCode::moyr) && is_letter(first));
  }

  [[gnu::always_inline]] bool walk(const char* field, double& value) const noexcept {
    Cursor cursor(field, width);
    if (cursor.only_blanks_left()) {
      value = missing;
      return true;
    }
    return period(cursor, value) && cursor.only_blanks_left();
  }

 private:
  [[gnu::always_inline]] bool period(Cursor& cursor, double& value) const noexcept {
    if constexpr (kCode == FormatCode::dtime) {
      return days(cursor, value);
    } else if constexpr (kCode == FormatCode::month) {
      const Month month = month_of_name_or_number(cursor);
      if (month.length == 0) return false;
      value = kTables.month_and_day[month.days_before] & 0xFFFF;
      return true;
    } else if constexpr (kCode == FormatCode::jdate) {
      return store_day(day_of_year(cursor), value);
    } else if constexpr (kCode == FormatCode::moyr) {
      const Month month = month_of_name_or_number(cursor);
      if (month.length == 0 || !cursor.date_delimiter()) return false;
      return day_of(year_at(cursor, century_begin), month, 1, value);
    } else if constexpr (kCode == FormatCode::qyr) {
      const std::uint32_t quarter = cursor.number();
      cursor.blanks();
      if (quarter - 1 >= 4 || !cursor.take('Q')) return false;
      cursor.blanks();
      return day_of(year_at(cursor, century_begin), kMonthOfNumber[3 * quarter - 2], 1, value);
    } else {
      static_assert(kCode == FormatCode::wkyr);
      const std::uint32_t week = cursor.number();
      cursor.blanks();
      if (week - 1 >= 53 || !cursor.take('W') || !cursor.take('K')) return false;
      cursor.blanks();
      return day_of(year_at(cursor, century_begin), kMonthOfNumber[1], 7 * week - 6, value);
    }
  }

  // The day counted from the month's beginning.
  static bool day_of(std::uint32_t year, Month month, std::uint32_t day, double& value) noexcept {
    return store_day(year == 0 ? kNoDay : number_of_day(year, month, day), value);
  }

  [[gnu::always_inline]] static Month month_of_name_or_number(Cursor& cursor) noexcept {
    constexpr std::int64_t kLongestName = 9;
    const std::int64_t first = cursor.walked();
    const Month month = month_at(cursor);
    return cursor.walked() - first <= kLongestName ? month : Month{};
  }

  [[nodiscard, gnu::always_inline]] std::uint32_t day_of_year(Cursor& cursor) const noexcept {
    const Digits digits = cursor.digits();
    const std::uint32_t day = digits.value % 1000;
    std::uint32_t year = digits.value / 1000;
    if (digits.count == 5) {
      year = year_in_century(year, century_begin);
    } else if (digits.count != 7) {
      return kNoDay;
    }
    if (year < kFirstYearRead || day > 366) return kNoDay;
    return number_of_day(year, kMonthOfNumber[1], day);
  }

  [[gnu::always_inline]] bool days(Cursor& cursor, double& value) const noexcept {
    const Digits days = cursor.digits();
    if (days.count == 0 || days.count > 9) return false;
    value = static_cast<double>(std::int64_t{days.value} * kSecondsPerDay);
    if (cursor.at_end()) return true;
    if (!cursor.blanks()) return false;
    if (cursor.at_end()) return true;
    double time = 0;
    if (!walk_clock(cursor, mark, time) || time >= kSecondsPerDay) return false;
    value += time;
    return true;
  }
};

}  // namespace iocv::fast
