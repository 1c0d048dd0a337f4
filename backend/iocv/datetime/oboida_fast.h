// The fast way of DATE, ADATE, EDATE, SDATE and DATETIME as text: an ordinary moment in a field
// just as wide as its text, taken apart and written by some sixty multiplications, shifts, loads
// and stores.
//
// A moment is ordinary from 15 October 1582 to the end of 9999, unless it is the system-missing
// number. Its fields are the plain way's:
//  - Seconds are cut to whole ones before they are divided. The plain way's quotients of doubles by
//    86400, 3600 and 60 never round up to the next whole number below 2^57, so both ways cut to the
//    same days, hours and minutes.
//  - The seconds of the minute are the value less a whole number. That difference is exact, as each
//    of the plain way's remainders is: none has finer digits than the value, nor more of them.
//  - Year, month and day follow from the day number by the plain way's divisions, that by 1461 as a
//    multiplication by 2939745, about 2^32 / 1461. The test walks every day.
#pragma once

#include <array>
#include <atomic>
#include <bit>
#include <cstdint>
#include <cstring>

#include "datetime/calendar.h"
#include "datetime/names.h"

namespace iocv::fast {

// By way of memory: what lies there need not go through a register for doubles.
inline std::uint64_t bits_of(const double& x) noexcept {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &x, sizeof bits);
  return bits;
}

inline constexpr std::int64_t kLastDay = 3'074'324;  // 31 December 9999

// Numbers above 0 are ordered, and equal, as their bits are.
inline bool is_ordinary_moment(std::uint64_t value, const double& missing) noexcept {
  constexpr auto kFirst = std::bit_cast<std::uint64_t>(kFirstDate);
  constexpr auto kEnd =
      std::bit_cast<std::uint64_t>(static_cast<double>((kLastDay + 1) * kSecondsPerDay));
  return value - kFirst < kEnd - kFirst && value != bits_of(missing);
}

struct Moment {
  std::uint64_t whole;           // the value without its fraction, below 2^38
  std::uint32_t second_of_day;   // [0, 86399]
  std::uint32_t day_from_march;  // [0, 365], from 1 March
  std::uint32_t year;            // [1582, 9999]
};

inline Moment moment_of(double value) noexcept {
  constexpr std::uint32_t kDaySeconds = 86400;  // 675 * 2^7
  constexpr std::uint32_t kScale = 2'939'745;   // 1461 * kScale is 2^32 + 149
  constexpr std::uint32_t kNewYear = 306;       // days from 1 March to 1 January

  const auto whole = static_cast<std::uint64_t>(static_cast<std::int64_t>(value));
  const std::uint32_t day = static_cast<std::uint32_t>(whole >> 7) / (kDaySeconds >> 7);
  const std::uint32_t t = 4 * (day + static_cast<std::uint32_t>(kDaysBeforeOrigin)) - 1;
  const std::uint32_t century = t / 146097;                              // [15, 99]
  const std::uint64_t years = std::uint64_t{kScale} * (t % 146097 | 3);  // 32 bits of fraction
  const std::uint32_t day_from_march = static_cast<std::uint32_t>(years) / kScale / 4;
  const std::uint32_t year = 100 * century + static_cast<std::uint32_t>(years >> 32);
  return {.whole = whole,
          .second_of_day = static_cast<std::uint32_t>(whole) - day * kDaySeconds,
          .day_from_march = day_from_march,
          .year = year + (day_from_march >= kNewYear ? 1 : 0)};
}

struct Clock {
  std::uint32_t hour;
  std::uint32_t minute;
  std::uint32_t second;
};

inline Clock clock_of(std::uint32_t second_of_day) noexcept {
  const std::uint32_t minutes = second_of_day / 60;
  return {minutes / 60, minutes % 60, second_of_day % 60};
}

// What stands in the text for each number of two digits, and for each day of the year from 1 March,
// whose last one is 29 February.
struct Tables {
  static constexpr std::size_t kDays = 366;
  using TwoDigits = std::array<char, 2>;
  using DayAndMonth = std::array<char, 8>;  // "dd-MMM-", and a byte for the year to write over

  std::array<TwoDigits, 100> two_digits;
  std::array<DayAndMonth, kDays> day_and_month;
  std::array<std::uint8_t, kDays> month;
  std::array<std::uint8_t, kDays> day;
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
    for (std::int64_t day = 1; day <= month_length(2000, month); ++day, ++at) {
      const Tables::TwoDigits digits = tables.two_digits[static_cast<std::size_t>(day)];
      tables.day_and_month[at] = {digits[0], digits[1], '-', name[0], name[1], name[2], '-', ' '};
      tables.month[at] = static_cast<std::uint8_t>(month);
      tables.day[at] = static_cast<std::uint8_t>(day);
    }
  }
  return tables;
}();

inline void put_two(char* text, std::size_t number) noexcept {
  std::memcpy(text, &kTables.two_digits[number], sizeof(Tables::TwoDigits));
}

inline void put_year(char* text, const Moment& moment) noexcept {
  put_two(text, moment.year / 100);
  put_two(text + 2, moment.year % 100);
}

inline void put_month(char* text, const Moment& moment) noexcept {
  put_two(text, kTables.month[moment.day_from_march]);
}

inline void put_day(char* text, const Moment& moment) noexcept {
  put_two(text, kTables.day[moment.day_from_march]);
}

struct DateText {  // dd-MMM-yyyy
  static constexpr std::int64_t kWidth = 11;
  static void put(char* text, const Moment& moment) noexcept {
    std::memcpy(text, &kTables.day_and_month[moment.day_from_march], sizeof(Tables::DayAndMonth));
    put_year(text + 7, moment);
  }
};

struct MonthFirstText {  // mm/dd/yyyy
  static constexpr std::int64_t kWidth = 10;
  static void put(char* text, const Moment& moment) noexcept {
    put_month(text, moment);
    text[2] = '/';
    put_day(text + 3, moment);
    text[5] = '/';
    put_year(text + 6, moment);
  }
};

template <char Delimiter>
struct DayFirstText {  // dd.mm.yyyy, dd/mm/yyyy
  static constexpr std::int64_t kWidth = 10;
  static void put(char* text, const Moment& moment) noexcept {
    put_day(text, moment);
    text[2] = Delimiter;
    put_month(text + 3, moment);
    text[5] = Delimiter;
    put_year(text + 6, moment);
  }
};

struct YearFirstText {  // yyyy/mm/dd
  static constexpr std::int64_t kWidth = 10;
  static void put(char* text, const Moment& moment) noexcept {
    put_year(text, moment);
    text[4] = '/';
    put_month(text + 5, moment);
    text[7] = '/';
    put_day(text + 8, moment);
  }
};

template <class T, class Part>
void store_relaxed(T& target, Part part) noexcept {
  std::atomic_ref(target).store(static_cast<T>(part), std::memory_order_relaxed);
}

// What every flat writer of dates leaves in the exported records: the date and the time of day.
inline void record_date(const Moment& moment) noexcept {
  store_relaxed(cmndtm_.year, moment.year);
  store_relaxed(cmndtm_.month, kTables.month[moment.day_from_march]);
  store_relaxed(cmndtm_.day, kTables.day[moment.day_from_march]);
  const Tables::DayAndMonth& text = kTables.day_and_month[moment.day_from_march];
  store_relaxed(cmadtm_.month[0], text[3]);
  store_relaxed(cmadtm_.month[1], text[4]);
  store_relaxed(cmadtm_.month[2], text[5]);
}

inline void record_time(const Moment& moment, const Clock& clock, double value) noexcept {
  const auto minute_begin = static_cast<std::int64_t>(moment.whole - clock.second);
  store_relaxed(cmndtm_.seconds, value - static_cast<double>(minute_begin));
  store_relaxed(cmndtm_.hour, clock.hour);
  store_relaxed(cmndtm_.minute, clock.minute);
}

}  // namespace iocv::fast
