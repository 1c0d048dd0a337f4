// The texts of ordinary values, eight digits at a time and without a branch on any digit: a branch
// that is mispredicted costs more than all of a number's arithmetic.
//
// Each function writes its text and tells the end, or answers null for a value that it does not
// know; then it has written nothing that counts. It may use all of kCommonRoom bytes. They answer
//  - numbers that are a count of ten-thousandths of at most fifteen digits. The count divided by
//    10000 gives back the very double, so its decimal reads back; and no other decimal of fifteen
//    digits is the same double, so without the zeros at its end it is the shortest that does;
//  - whole seconds of the stored calendar from its first day to the end of the year 9999, as
//    dates and as dates with their time, and times below 100 hours;
// on machines whose words have their first byte lowest.
#pragma once

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "civil.h"
#include "value_text.h"

namespace iocv::tool {

inline constexpr std::size_t kCommonRoom = 32;

namespace common {

inline constexpr bool kWordsAreTexts = std::endian::native == std::endian::little;

// The same byte in all places of a word.
constexpr std::uint64_t bytes_of(char byte) noexcept {
  return 0x0101010101010101U * static_cast<unsigned char>(byte);
}

template <class Word>
char* put(char* at, Word word) noexcept {
  std::memcpy(at, &word, sizeof word);
  return at + sizeof word;
}

// Digits 0..9, one a byte, the first in the lowest: a number is parted into numbers of four digits,
// those into two, those into one, all of a word at once by multiplication and shift.
constexpr std::uint64_t digits_of_twos(std::uint64_t twos) noexcept {  // below 100, in 16 bits each
  const std::uint64_t tens = twos * 103 >> 10 & 0x000F000F000F000F;
  return tens | (twos - tens * 10) << 8;
}
constexpr std::uint64_t digits_of_fours(std::uint64_t fours) noexcept {  // below 10^4, in 32 bits
  const std::uint64_t hundreds = fours * 5243 >> 19 & 0x0000007F0000007F;
  return digits_of_twos(hundreds | (fours - hundreds * 100) << 16);
}
constexpr std::uint64_t eight_digits(std::uint32_t number) noexcept {  // below 10^8
  return digits_of_fours(number / 10000 | std::uint64_t{number % 10000} << 32);
}

// How many of the lowest bytes are zero; at most seven.
inline int leading_zeros(std::uint64_t digits) noexcept {
  return std::countr_zero(digits | std::uint64_t{1} << 56) / 8;
}

// A number below 10^8.
inline char* put_short_whole(char* at, std::uint32_t number) noexcept {
  const std::uint64_t digits = eight_digits(number);
  const int skipped = leading_zeros(digits);
  put(at, (digits | bytes_of('0')) >> 8 * skipped);
  return at + 8 - skipped;
}

// A number below 10^16.
inline char* put_whole(char* at, std::uint64_t number) noexcept {
  constexpr std::uint64_t kEight = 100000000;
  if (number < kEight) return put_short_whole(at, static_cast<std::uint32_t>(number));
  at = put_short_whole(at, static_cast<std::uint32_t>(number / kEight));
  return put(at, eight_digits(static_cast<std::uint32_t>(number % kEight)) | bytes_of('0'));
}

// A decimal point and a number of ten-thousandths, below 10^4, without the zeros at its end;
// nothing for 0.
inline char* put_places(char* at, std::uint32_t number) noexcept {
  const std::uint64_t digits = digits_of_fours(number) << 8;  // behind the point's byte
  const int last = (63 - std::countl_zero(digits | 1)) / 8;   // [0, 4]
  put(at, (digits | bytes_of('0')) - ('0' - '.'));
  return at + last + (last > 0 ? 1 : 0);
}

inline char* put_clock(char* at, std::uint32_t seconds) noexcept {
  const std::uint32_t minutes = seconds / 60;
  const std::uint64_t digits = digits_of_twos(minutes / 60 | std::uint64_t{minutes % 60} << 16 |
                                              std::uint64_t{seconds % 60} << 32);
  const std::uint64_t apart =
      (digits & 0xFFFF) | (digits & 0xFFFF0000) << 8 | (digits & 0xFFFF00000000) << 16;
  return put(at, apart | 0x30303A30303A3030);  // 00:00:00
}

struct Date {
  std::uint32_t year, month, day;
};

// Days are counted from 1 March of the year 0. Years that begin in March end in their leap day, and
// each run of centuries, years or months of days rises by a constant on average, which a division
// with a remainder in units of that constant inverts.
constexpr Date date_of(std::uint32_t day) noexcept {
  const std::uint32_t quarters = 4 * day + 3;  // below 2^24
  const std::uint32_t century = quarters / 146097;
  const std::uint32_t of_century = quarters % 146097 | 3;     // quarters of a day
  const std::uint32_t year = of_century / 1461;               // [0, 99]
  const std::uint32_t day_of_year = of_century % 1461 / 4;    // [0, 365]
  const std::uint32_t month = (5 * day_of_year + 461) / 153;  // [3, 14]
  const std::uint32_t first = (153 * month - 457) / 5;        // of the month, from 1 March
  const std::uint32_t next_year = month > 12 ? 1 : 0;
  return {century * 100 + year + next_year, month - 12 * next_year, day_of_year - first + 1};
}

// A day of the stored calendar, from 0.
inline char* put_date(char* at, std::uint32_t day) noexcept {
  const Date date = date_of(day + static_cast<std::uint32_t>(kDaysBeforeOrigin));
  const std::uint64_t digits =
      digits_of_fours(date.year | std::uint64_t{date.month * 100 + date.day} << 32);
  const std::uint64_t apart = (digits & 0xFFFFFFFF) | (digits & 0xFFFF00000000) << 8;
  at = put(at, apart | 0x2D30302D30303030);  // 0000-00-
  return put(at, static_cast<std::uint16_t>(digits >> 48 | 0x3030));
}

}  // namespace common

inline char* put_common_number(char* at, double value) noexcept {
  constexpr double kUnits = 10000;
  const double magnitude = std::fabs(value);
  if (!common::kWordsAreTexts || !(magnitude < 1e11)) return nullptr;
  // Any rounding will do, for the division tells whether this is the count. [0, 10^15]
  const auto units =
      static_cast<std::int64_t>(magnitude * kUnits + 0.5);  // NOLINT(bugprone-incorrect-roundings)
  if (static_cast<double>(units) / kUnits != magnitude) return nullptr;
  *at = '-';
  at += std::signbit(value) ? 1 : 0;
  const auto count = static_cast<std::uint64_t>(units);
  at = common::put_whole(at, count / 10000);
  return common::put_places(at, static_cast<std::uint32_t>(count % 10000));
}

inline char* put_common_iso(char* at, double value, IsoForm form) noexcept {
  constexpr std::int64_t kEnd = day_number({10000, 1, 1}) * kSecondsPerDay;
  constexpr double kTimesEnd = 360000;
  const double end = form == IsoForm::time ? kTimesEnd : static_cast<double>(kEnd);
  if (!common::kWordsAreTexts || !(value >= 0 && value < end) || std::signbit(value))
    return nullptr;
  const auto seconds = static_cast<std::int64_t>(value);
  if (static_cast<double>(seconds) != value) return nullptr;
  switch (form) {
    case IsoForm::time: return common::put_clock(at, static_cast<std::uint32_t>(seconds));
    case IsoForm::date:
    case IsoForm::date_time: break;
    case IsoForm::duration:
    case IsoForm::none: return nullptr;
  }
  const auto count = static_cast<std::uint64_t>(seconds);
  constexpr auto kDay = static_cast<std::uint64_t>(kSecondsPerDay);
  const auto second_of_day = static_cast<std::uint32_t>(count % kDay);
  at = common::put_date(at, static_cast<std::uint32_t>(count / kDay));
  if (form == IsoForm::date && second_of_day == 0) return at;
  *at++ = 'T';
  return common::put_clock(at, second_of_day);
}

}  // namespace iocv::tool
