// The fast way of dates with delimiters: a few words of the field, tested and converted whole.
//
// It answers for dd-MMM-yyyy (a month's three letters in any case), mm/dd/yyyy, dd.mm.yyyy and
// yyyy/mm/dd (each delimiter one of "-./") that fill their field, from 1583 on, of a day that its
// month has in every year: 29 February is left to the plain way, as is all else. Such a field holds
// no run of six characters for the reader without delimiters, its tokens are those of its layout
// under either decimal character, and its year is no two-digit one. A negative system-missing
// number is none of its parts; under any other all is the plain way's.
#pragma once

#include <array>

#include "datetime/calendar.h"
#include "datetime/names.h"
#include "datetime/read_words.h"

namespace iocv::fast {

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
  std::uint32_t name;  // "JAN-"
  Month month;
};

// The factor is the least that tells the twelve names apart.
constexpr std::size_t place_of_name(std::uint32_t name) noexcept { return name * 26576 >> 28; }

inline constexpr std::array<NamedMonth, 16> kMonthOfName = [] {
  std::array<NamedMonth, 16> table = {};
  for (std::int64_t month = 1; month <= kMonths; ++month) {
    const auto name =
        static_cast<std::uint32_t>(word_of(month_letters(month)) | std::uint32_t{'-'} << 24);
    table[place_of_name(name)] = {name, kMonthOfNumber[static_cast<std::size_t>(month)]};
  }
  return table;
}();

// The day number; 0, which no date here has, when the year or the day is not ordinary.
inline std::uint32_t day_number(std::uint32_t year, Month month, std::uint32_t day) noexcept {
  if (year <= kFirstYear || day - 1 >= month.length) return 0;
  const std::uint32_t y = year - month.in_next_year;
  const std::uint32_t century = y / 100;
  return y * 1461 / 4 - century + century / 4 + month.days_before + day -
         static_cast<std::uint32_t>(kDaysBeforeOrigin);
}

inline std::uint32_t day_number(std::uint64_t year_in_pairs, int at, Month month,
                                std::uint32_t day) noexcept {
  return day_number(100 * byte(year_in_pairs, at) + byte(year_in_pairs, at + 2), month, day);
}

// The day number of a date in each layout, or 0.

inline std::uint32_t read_date(const char* text) noexcept {  // dd-MMM-yyyy
  using namespace std::string_view_literals;
  constexpr Limits kLimits(
      "00-\0"
      "0000"sv,
      "39-\0"
      "9999"sv);
  constexpr std::uint32_t kUpperCase = 0xFFDF'DFDF;
  const std::uint64_t bytes =
      (load<std::uint32_t>(text) & 0xFF'FFFF) | std::uint64_t{load<std::uint32_t>(text + 7)} << 32;
  const std::uint64_t digits = bytes - kLimits.least;
  const std::uint32_t name = load<std::uint32_t>(text + 3) & kUpperCase;
  const NamedMonth& named = kMonthOfName[place_of_name(name)];
  if ((excess(digits, kLimits) & kTopBits) != 0 || named.name != name) return 0;
  const std::uint64_t parts = pairs(digits);
  return day_number(parts, 4, named.month, byte(parts, 0));
}

inline std::uint32_t read_month_first(const char* text) noexcept {  // mm/dd/yyyy
  constexpr Limits kHead("00", "19");
  constexpr Limits kRest("-00-0000", "/39/9999");
  const std::uint64_t head = load<std::uint16_t>(text) - kHead.least;
  const std::uint64_t rest = load<std::uint64_t>(text + 2) - kRest.least;
  if (((excess(head, kHead) | excess(rest, kRest)) & kTopBits) != 0) return 0;
  const std::uint64_t parts = pairs(rest);
  return day_number(parts, 4, kMonthOfNumber[byte(pairs(head), 0)], byte(parts, 1));
}

inline std::uint32_t read_day_first(const char* text) noexcept {  // dd.mm.yyyy
  constexpr Limits kHead("00", "39");
  constexpr Limits kRest("-00-0000", "/19/9999");
  const std::uint64_t head = load<std::uint16_t>(text) - kHead.least;
  const std::uint64_t rest = load<std::uint64_t>(text + 2) - kRest.least;
  if (((excess(head, kHead) | excess(rest, kRest)) & kTopBits) != 0) return 0;
  const std::uint64_t parts = pairs(rest);
  return day_number(parts, 4, kMonthOfNumber[byte(parts, 1)], byte(pairs(head), 0));
}

inline std::uint32_t read_year_first(const char* text) noexcept {  // yyyy/mm/dd
  constexpr Limits kHead("0000-00-", "9999/19/");
  constexpr Limits kTail("00", "39");
  const std::uint64_t head = load<std::uint64_t>(text) - kHead.least;
  const std::uint64_t tail = load<std::uint16_t>(text + 8) - kTail.least;
  if (((excess(head, kHead) | excess(tail, kTail)) & kTopBits) != 0) return 0;
  const std::uint64_t parts = pairs(head);
  return day_number(parts, 0, kMonthOfNumber[byte(parts, 5)], byte(pairs(tail), 0));
}

}  // namespace iocv::fast
