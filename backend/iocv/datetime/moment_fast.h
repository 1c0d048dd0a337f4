// An ordinary moment taken apart, for the fast ways of dates as text.
//
// A moment is ordinary from 15 October 1582 to the end of 9999, unless it is the system-missing
// number. Its fields are the plain way's:
//  - Seconds are cut to whole ones before they are divided. The plain way's quotients of doubles by
//    86400, 3600 and 60 never round up to the next whole number below 2^57, so both ways cut to the
//    same days, hours and minutes.
//  - A quotient by 86400 is a product with its inverse of 64 bits, rounded up. Below 2^38 that
//    adds less than 2^-26 of a day, and to the next second it lacks 2^-17 or more. What is behind
//    the point is the time of day; 24, 60 and 60 times it are hours, minutes and seconds.
//  - Year and day follow from the day number as the plain way has them, but in one step for all
//    centuries: with the days that the calendar leaves out put back, every fourth year has 366
//    days. The division by 1461 is a multiplication by 2939745, about 2^32 / 1461, whose error
//    stays below a day up to the year 19730. The test walks every day.
//  - The seconds of the minute are the value less a whole number. That difference is exact, as each
//    of the plain way's remainders is: none has finer digits than the value, nor more of them.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>

#include "datetime/calendar.h"
#include "datetime/text_tables.h"
#include "frame/settings.h"
#include "numeric/powers.h"
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace iocv::fast {

inline constexpr std::uint64_t kLastDay = 3'074'324;  // 31 December 9999

// A value cut to a whole number; a number beyond any day for one that is no moment at all.
inline std::uint64_t whole_seconds(const double& value) noexcept {
#if defined(__SSE2__)  // the lowest integer for not-a-number and whatever is out of range
  return static_cast<std::uint64_t>(_mm_cvttsd_si64(_mm_load_sd(&value)));
#else
  const bool in_range = value >= 0 && value < 0x1p62;
  return in_range ? static_cast<std::uint64_t>(value) : ~std::uint64_t{0};
#endif
}

// By way of memory: what lies there need not go through a register for doubles.
inline std::uint64_t bits_of(const double& x) noexcept {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &x, sizeof bits);
  return bits;
}

// A number of 64 bits before the point and 64 behind it.
struct FixedPoint {
  std::uint64_t whole;
  std::uint64_t fraction;
};

inline FixedPoint times(std::uint64_t fraction, std::uint64_t n) noexcept {
  __extension__ using Product = unsigned __int128;
  const Product product = static_cast<Product>(fraction) * n;
  return {static_cast<std::uint64_t>(product >> 64), static_cast<std::uint64_t>(product)};
}

struct Moment {
  double value;
  std::uint64_t whole;   // seconds of the value, below 2^38
  std::uint64_t day;     // [1, kLastDay]
  std::uint64_t of_day;  // the part of the day that has gone, times 2^64
};

inline constexpr std::uint64_t kInverseOfDay = ~std::uint64_t{0} / kSecondsPerDay + 1;

// False when the value is no ordinary moment.
inline bool take_apart(const double& value, const double& missing, Moment& moment) noexcept {
  const std::uint64_t whole = whole_seconds(value);
  const FixedPoint days = times(kInverseOfDay, whole);
  moment = {value, whole, days.whole, days.fraction};
  return bits_of(value) != bits_of(missing) && days.whole - 1 < kLastDay;
}

struct Clock {
  std::uint32_t hour;
  std::uint32_t minute;
  std::uint32_t second;
};

// As most dates have it.
inline bool is_midnight(const Moment& moment) noexcept { return moment.of_day < kInverseOfDay; }

inline Clock clock_of(const Moment& moment) noexcept {
  if (is_midnight(moment)) return {0, 0, 0};
  const FixedPoint hours = times(moment.of_day, kHoursPerDay);
  const FixedPoint minutes = times(hours.fraction, 60);
  const FixedPoint seconds = times(minutes.fraction, 60);
  return {static_cast<std::uint32_t>(hours.whole), static_cast<std::uint32_t>(minutes.whole),
          static_cast<std::uint32_t>(seconds.whole)};
}

struct Date {
  std::uint64_t year;            // [1582, 9999]
  std::uint32_t day_from_march;  // [0, 365], from 1 March
  std::uint32_t number;          // [1, kLastDay]

  [[nodiscard]] std::uint32_t month_and_day() const noexcept {
    return kTables.month_and_day[day_from_march];
  }
  [[nodiscard]] std::uint32_t month() const noexcept { return month_and_day() & 0xFFFF; }
  [[nodiscard]] std::uint32_t day() const noexcept { return month_and_day() >> 16; }
};

inline constexpr std::uint32_t kNewYear = 306;  // days from 1 March to 1 January

// What takes a year that begins on 1 March to the next whole one from 1 January on, in 2^-32.
inline constexpr std::uint64_t kToNewYear =
    (std::uint64_t{1} << 32) - ((std::uint64_t{kNewYear} << 34) / 1461 + 1);

inline Date date_of(const Moment& moment) noexcept {
  const auto quarters =  // of a day from 1 March of year 0, and so of a century below
      static_cast<std::uint32_t>(4 * moment.day + 4 * std::uint64_t{kDaysBeforeOrigin} - 1);
  const std::uint32_t centuries = quarters / 146097;
  const std::uint32_t in_fourths = quarters + 4 * centuries - centuries / 4 * 4;
  const std::uint64_t years = std::uint64_t{2'939'745} * in_fourths;  // 32 bits of fraction
  const auto day = static_cast<std::uint32_t>(((years & 0xFFFF'FFFF) * 1461) >> 34);
  return {.year = (years + kToNewYear) >> 32,
          .day_from_march = day,
          .number = static_cast<std::uint32_t>(moment.day)};
}

// A hundredth of a year of a date: its product with 5243 / 2^19.
constexpr std::uint32_t century_of(std::uint64_t year) noexcept {
  return static_cast<std::uint32_t>(year * 5243 >> 19);
}

static_assert([] {
  for (std::uint64_t year = 0; year <= 9999; ++year) {
    if (century_of(year) != year / 100) return false;
  }
  return true;
}());

// 1..366, without a branch: dates of a year are as they come.
inline std::uint32_t day_of_year(const Date& date) noexcept {
  const std::uint32_t leap_years = date.year % 25 == 0 ? 16 : 4;  // so far apart
  const std::uint32_t before_march = 59 + (date.year % leap_years == 0);
  const std::uint32_t day = date.day_from_march + 1;
  return date.month() <= 2 ? day - kNewYear : day + before_march;
}

// 0.5 * power_of_ten(-digits), in a few instructions where fractions have their usual digits.
inline double half_unit(std::int64_t digits) noexcept {
  const auto index = static_cast<std::size_t>(digits);
  return 0.5 * (index < kSmallPowers.size() ? 1 / kSmallPowers[index] : power_of_ten(-digits));
}

// The two parts of an attempt at values, for callers that keep them apart: fields of the text's own
// width, kFull, and others.

template <class Fields>
struct FullWidth {
  double missing;

  static bool make(std::int64_t width, std::int64_t, const Settings& settings,
                   FullWidth& fields) noexcept {
    fields.missing = settings.system_missing;
    return width == Fields::kFull;
  }

  [[gnu::always_inline]] bool operator()(char* field, double value) const noexcept {
    return Fields::write_full(field, value, missing);
  }
};

template <class Fields>
struct OtherWidth : Fields {
  static bool make(std::int64_t width, std::int64_t decimals, const Settings& settings,
                   OtherWidth& fields) noexcept {
    return width != Fields::kFull && Fields::make(width, decimals, settings, fields);
  }
};

// write_full of dates.
template <class Fields>
[[gnu::always_inline]] inline bool write_full_date(char* field, double value,
                                                   const double& missing) noexcept {
  Moment moment;
  if (!take_apart(value, missing, moment) || !Fields::takes(moment)) return false;
  Fields::put_full_time(field, clock_of(moment));
  Fields::put_full_date(field, date_of(moment));
  return true;
}

}  // namespace iocv::fast
