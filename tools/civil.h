// Civil dates of the proleptic Gregorian calendar as days, counted from 14 October 1582, where the
// stored seconds of every date begin: the value of a date is its day times 86400.
#pragma once

#include <cstdint>

namespace iocv::tool {

inline constexpr std::int64_t kSecondsPerDay = 86400;

struct CivilDate {
  std::int64_t year;
  int month;  // 1..12
  int day;    // 1..31
};

// Days from 1 March of year 0 to 14 October 1582. Years that begin in March have their leap day
// last, and 400 of them are always 146097 days.
inline constexpr std::int64_t kDaysBeforeOrigin = 578040;

// The day of an existing date, |year| up to 10^12.
constexpr std::int64_t day_number(CivilDate date) noexcept {
  const std::int64_t year = date.year - (date.month <= 2 ? 1 : 0);
  const std::int64_t era = (year >= 0 ? year : year - 399) / 400;
  const std::int64_t year_of_era = year - era * 400;                      // [0, 399]
  const int month = date.month > 2 ? date.month - 3 : date.month + 9;     // March is 0
  const std::int64_t day_of_year = (153 * month + 2) / 5 + date.day - 1;  // [0, 365]
  const std::int64_t day_of_era =
      year_of_era * 365 + year_of_era / 4 - year_of_era / 100 + day_of_year;  // [0, 146096]
  return era * 146097 + day_of_era - kDaysBeforeOrigin;
}

// The date of a day, |day| up to 10^14.
constexpr CivilDate civil_date(std::int64_t day) noexcept {
  const std::int64_t days = day + kDaysBeforeOrigin;
  const std::int64_t era = (days >= 0 ? days : days - 146096) / 146097;
  const std::int64_t day_of_era = days - era * 146097;  // [0, 146096]
  const std::int64_t year_of_era =
      (day_of_era - day_of_era / 1460 + day_of_era / 36524 - day_of_era / 146096) / 365;
  const std::int64_t day_of_year =
      day_of_era - (365 * year_of_era + year_of_era / 4 - year_of_era / 100);  // [0, 365]
  const std::int64_t march_month = (5 * day_of_year + 2) / 153;                // [0, 11]
  const int month = static_cast<int>(march_month < 10 ? march_month + 3 : march_month - 9);
  return {year_of_era + era * 400 + (month <= 2 ? 1 : 0), month,
          static_cast<int>(day_of_year - (153 * march_month + 2) / 5 + 1)};
}

// Whether the calendar has the date.
constexpr bool exists(CivilDate date) noexcept {
  if (date.month < 1 || date.month > 12 || date.day < 1) return false;
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = (date.year % 4 == 0 && date.year % 100 != 0) || date.year % 400 == 0;
  return date.day <= kDays[date.month - 1] + (leap && date.month == 2 ? 1 : 0);
}

static_assert(day_number({1582, 10, 14}) == 0);
static_assert(day_number({2000, 1, 1}) * kSecondsPerDay == 13166064000);

}  // namespace iocv::tool
