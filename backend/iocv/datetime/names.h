// The names of months and days. Each table is one text of blank-padded cells of equal size.
#pragma once

#include <cstdint>
#include <string_view>

namespace iocv {

inline constexpr std::int64_t kMonthCell = 4;
inline constexpr std::string_view kRomanMonths = "I   II  III IV  V   VI  VII VIIIIX  X   XI  XII ";
inline constexpr std::string_view kMonthAbbreviations =
    "JAN FEB MAR APR MAY JUN JUL AUG SEP OCT NOV DEC ";

inline constexpr std::int64_t kMonthLettersCell = 3;
inline constexpr std::string_view kMonthLetters = "JANFEBMARAPRMAYJUNJULAUGSEPOCTNOVDEC";

inline constexpr std::int64_t kNameCell = 9;
inline constexpr std::string_view kMonthNames =
    "JANUARY  "
    "FEBRUARY "
    "MARCH    "
    "APRIL    "
    "MAY      "
    "JUNE     "
    "JULY     "
    "AUGUST   "
    "SEPTEMBER"
    "OCTOBER  "
    "NOVEMBER "
    "DECEMBER ";
inline constexpr std::string_view kDayNames =
    "SUNDAY   "
    "MONDAY   "
    "TUESDAY  "
    "WEDNESDAY"
    "THURSDAY "
    "FRIDAY   "
    "SATURDAY ";

inline constexpr std::int64_t kMonths = 12;
inline constexpr std::int64_t kWeekdays = 7;
static_assert(kRomanMonths.size() == kMonths * kMonthCell);
static_assert(kMonthAbbreviations.size() == kMonths * kMonthCell);
static_assert(kMonthLetters.size() == kMonths * kMonthLettersCell);
static_assert(kMonthNames.size() == kMonths * kNameCell);
static_assert(kDayNames.size() == kWeekdays * kNameCell);

// Cell number (from 1) of a table of cells of that size; empty for a number that has none.
constexpr std::string_view name_cell(std::string_view table, std::int64_t size,
                                     std::int64_t number) noexcept {
  if (number < 1 || number > static_cast<std::int64_t>(table.size()) / size) return {};
  return table.substr(static_cast<std::size_t>((number - 1) * size),
                      static_cast<std::size_t>(size));
}

// "JAN".."DEC", empty outside 1..12.
constexpr std::string_view month_letters(std::int64_t month) noexcept {
  return name_cell(kMonthLetters, kMonthLettersCell, month);
}

}  // namespace iocv
