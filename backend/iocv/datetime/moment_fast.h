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
#include <atomic>
#include <cstdint>
#include <cstring>

#include "datetime/calendar.h"
#include "datetime/names.h"
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
  return days.whole - 1 < kLastDay && bits_of(value) != bits_of(missing);
}

struct Clock {
  std::uint32_t hour;
  std::uint32_t minute;
  std::uint32_t second;
};

inline Clock clock_of(const Moment& moment) noexcept {
  if (moment.of_day < kInverseOfDay) return {0, 0, 0};  // as most dates have it
  const FixedPoint hours = times(moment.of_day, kHoursPerDay);
  const FixedPoint minutes = times(hours.fraction, 60);
  const FixedPoint seconds = times(minutes.fraction, 60);
  return {static_cast<std::uint32_t>(hours.whole), static_cast<std::uint32_t>(minutes.whole),
          static_cast<std::uint32_t>(seconds.whole)};
}

// What stands in the text for each number of two digits, for each month, and for each day of the
// year from 1 March, whose last one is 29 February.
struct Tables {
  static constexpr std::size_t kDays = 366;
  using TwoDigits = std::array<char, 2>;
  struct Month {
    std::array<char, 4> letters;  // "JAN "
    std::uint32_t in_next_year;   // 1 in January and February, else 0
  };

  std::array<TwoDigits, 100> two_digits;
  std::array<Month, kMonths + 1> months;
  std::array<std::uint8_t, kDays> month;
  std::array<std::uint8_t, kDays> day;
  std::array<std::array<char, 8>, kDays> day_and_letters;  // "dd-MMM-" and a blank
};

static_assert(sizeof(Tables) <= 4096);

inline constexpr Tables kTables = [] {
  Tables tables = {};
  for (std::size_t n = 0; n < tables.two_digits.size(); ++n) {
    tables.two_digits[n] = {static_cast<char>('0' + n / 10), static_cast<char>('0' + n % 10)};
  }
  std::size_t at = 0;
  for (std::int64_t i = 0; i < kMonths; ++i) {
    const std::int64_t month = (i + 2) % kMonths + 1;
    const std::string_view name = month_letters(month);
    tables.months[static_cast<std::size_t>(month)] = {{name[0], name[1], name[2], ' '},
                                                      i < kMonths - 2 ? 0U : 1U};
    for (std::int64_t day = 1; day <= month_length(2000, month); ++day, ++at) {
      tables.month[at] = static_cast<std::uint8_t>(month);
      tables.day[at] = static_cast<std::uint8_t>(day);
      const Tables::TwoDigits digits = tables.two_digits[static_cast<std::size_t>(day)];
      tables.day_and_letters[at] = {digits[0], digits[1], '-', name[0], name[1], name[2], '-', ' '};
    }
  }
  return tables;
}();

inline void put_two(char* text, std::size_t number) noexcept {
  std::memcpy(text, &kTables.two_digits[number], sizeof(Tables::TwoDigits));
}

struct Date {
  std::uint32_t year;            // [1582, 9999]
  std::uint32_t month;           // [1, 12]
  std::uint32_t day;             // [1, 31]
  std::uint32_t day_from_march;  // [0, 365], from 1 March
  std::uint32_t number;          // [1, kLastDay]
};

inline constexpr std::uint32_t kNewYear = 306;  // days from 1 March to 1 January

inline Date date_of(const Moment& moment) noexcept {
  const auto quarters =  // of a day from 1 March of year 0, and so of a century below
      static_cast<std::uint32_t>(4 * moment.day + 4 * std::uint64_t{kDaysBeforeOrigin} - 1);
  const std::uint32_t centuries = quarters / 146097;
  const std::uint32_t in_fourths = quarters + 4 * centuries - centuries / 4 * 4;
  const std::uint64_t years = std::uint64_t{2'939'745} * in_fourths;  // 32 bits of fraction
  const auto day = static_cast<std::uint32_t>(((years & 0xFFFF'FFFF) * 1461) >> 34);
  const std::uint32_t month = kTables.month[day];
  const auto year = static_cast<std::uint32_t>(years >> 32) + kTables.months[month].in_next_year;
  return {.year = year,
          .month = month,
          .day = kTables.day[day],
          .day_from_march = day,
          .number = static_cast<std::uint32_t>(moment.day)};
}

// 1..366, without a branch: dates of a year are as they come.
inline std::uint32_t day_of_year(const Date& date) noexcept {
  const std::uint32_t leap_years = date.year % 25 == 0 ? 16 : 4;  // so far apart
  const std::uint32_t before_march = 59 + (date.year % leap_years == 0);
  const std::uint32_t day = date.day_from_march + 1;
  return date.month <= 2 ? day - kNewYear : day + before_march;
}

template <class T, class Part>
void store_relaxed(T& target, Part part) noexcept {
  std::atomic_ref(target).store(static_cast<T>(part), std::memory_order_relaxed);
}

// What every flat writer of dates leaves in the exported records: the time of day and the date.
inline void record_time(const Moment& moment, const Clock& clock) noexcept {
  const auto minute_begin = static_cast<std::int64_t>(moment.whole - clock.second);
  store_relaxed(cmndtm_.seconds, moment.value - static_cast<double>(minute_begin));
  store_relaxed(cmndtm_.hour, clock.hour);
  store_relaxed(cmndtm_.minute, clock.minute);
}

inline void record_date(const Date& date) noexcept {
  const auto& letters = kTables.months[date.month].letters;
  store_relaxed(cmndtm_.year, date.year);
  store_relaxed(cmndtm_.month, date.month);
  store_relaxed(cmndtm_.day, date.day);
  store_relaxed(cmadtm_.month[0], letters[0]);
  store_relaxed(cmadtm_.month[1], letters[1]);
  store_relaxed(cmadtm_.month[2], letters[2]);
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
