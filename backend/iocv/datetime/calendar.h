// Calendar arithmetic: dates to day numbers and stored values to their calendar fields.
//
// A stored date is a count of seconds since midnight at the start of 14 October 1582, so that
// 15 October 1582, the first day of the Gregorian calendar, is day 1.
#pragma once

#include <array>
#include <cstdint>

#include "frame/settings.h"
#include "frame/status.h"

namespace iocv {

inline constexpr std::int64_t kSecondsPerMinute = 60;
inline constexpr std::int64_t kSecondsPerHour = 3600;
inline constexpr std::int64_t kSecondsPerDay = 86400;
inline constexpr std::int64_t kHoursPerDay = 24;

// The smallest value that is a date: day 1.
inline constexpr double kFirstDate = 86400.0;

// Day number and stored value of 1 January 1970.
inline constexpr std::int64_t kUnixOriginDay = 141428;
inline constexpr std::int64_t kUnixOrigin = kUnixOriginDay * kSecondsPerDay;
static_assert(kUnixOrigin == 12219379200);

// 1 March of year 0, where the breakdown begins to count, is day 1 - kDaysBeforeOrigin.
inline constexpr std::int64_t kDaysBeforeOrigin = 578041;

// Years below 100 are two-digit years; the next ones up to 1581 have no dates.
inline constexpr std::int64_t kFirstYear = 1582;
inline constexpr std::int64_t kLastYear = 5867441;
inline constexpr std::int64_t kLastFourDigitYear = 9999;

// Magnitudes from here on are never taken apart: no field shows them.
inline constexpr double kTooLarge = 1e17;

constexpr bool is_leap(std::int64_t year) noexcept {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

inline constexpr std::array<std::int64_t, 12> kMonthLengths = {31, 28, 31, 30, 31, 30,
                                                               31, 31, 30, 31, 30, 31};

// The days of a month 1..12.
constexpr std::int64_t month_length(std::int64_t year, std::int64_t month) noexcept {
  return kMonthLengths[static_cast<std::size_t>(month - 1)] + (month == 2 && is_leap(year));
}

struct CalendarDate {
  std::int64_t year;
  std::int64_t month;
  std::int64_t day;
};

struct ClockTime {
  std::int64_t hour;
  std::int64_t minute;
  double seconds;
};

struct MonthDay {
  std::int64_t month;
  std::int64_t day;
};

struct Breakdown {
  double seconds;  // [0, 60), with the fraction
  std::int64_t year;
  std::int64_t month;
  std::int64_t day;
  std::int64_t hour;
  std::int64_t minute;
};

// The day number of a date; 608 and the system-missing number when there is none. Month 13 is
// January of the next year, day 0 the day before the first, and a day past the month's end runs on.
Read<double> day_number(double year, double month, double day, const Settings& settings) noexcept;

// A year of two digits (any up to 99) placed in the century window; every other year as it is.
std::int64_t full_year(std::int64_t year, const Settings& settings) noexcept;

// True when two digits name the year.
bool in_century(std::int64_t year, const Settings& settings) noexcept;

// Month and day of the day of a year, from 1; past the end of the year the months run on from 13.
MonthDay month_and_day(std::int64_t year, std::int64_t day_of_year) noexcept;

// 1..366 for a date that exists.
constexpr std::int64_t day_of_year(std::int64_t year, std::int64_t month,
                                   std::int64_t day) noexcept {
  const std::int64_t before = (month + 2) * 3055 / 100 - 91;  // as if February had 30 days
  const std::int64_t shortfall = month <= 2 ? 0 : (is_leap(year) ? 1 : 2);
  return before - shortfall + day;
}

// The fields of a stored value. Dates count from 1 March of year 0; before it and for magnitudes
// of 1e17 and more (not-a-number too) the fields mean nothing: a month may lie outside 1..12.
CalendarDate date_of(double value) noexcept;
ClockTime time_of(double value) noexcept;
Breakdown break_down(double value) noexcept;

// Leaves the fields of a date in the exported records, as every flat date writer does; the library
// never reads them back. Safe to call from many threads: the last one to store a field wins.
void record_breakdown(const Breakdown& fields) noexcept;

// The system-missing number has no fields: it replaces the seconds, the rest of the record stays.
void record_missing(double missing) noexcept;

}  // namespace iocv
