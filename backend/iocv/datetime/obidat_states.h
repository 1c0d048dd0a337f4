// The state machine that takes day, month and year from the tokens of a date.
#pragma once

#include <array>
#include <cstdint>

#include "datetime/date_formats.h"
#include "datetime/obdtps.h"

namespace iocv {

enum class DateState : std::uint8_t {
  done,
  before_day,
  day,
  before_month,
  month,
  before_year,
  year
};

enum class DateAction : std::uint8_t { take_month = 1, skip, take_day, take_year, fail };

inline constexpr std::size_t kDateStates = 6;  // without done

// One row a state from before_day on, one column a token type from word on.
inline constexpr std::array<std::array<DateAction, kTokenTypes>, kDateStates> kDateActions = [] {
  constexpr auto month = DateAction::take_month;
  constexpr auto skip = DateAction::skip;
  constexpr auto day = DateAction::take_day;
  constexpr auto year = DateAction::take_year;
  constexpr auto fail = DateAction::fail;
  return std::array<std::array<DateAction, kTokenTypes>, kDateStates>{{
      // clang-format off
      // word   number  decimal ":"   date  blanks other
      {{fail,  fail,   skip,   fail, skip, skip,  fail}},  // before_day
      {{fail,  day,    fail,   fail, fail, fail,  fail}},  // day
      {{fail,  fail,   skip,   fail, skip, skip,  fail}},  // before_month
      {{month, month,  fail,   fail, fail, fail,  fail}},  // month
      {{fail,  fail,   skip,   fail, skip, skip,  fail}},  // before_year
      {{fail,  year,   fail,   fail, fail, fail,  fail}},  // year
      // clang-format on
  }};
}();

// Where a date begins and how it goes on behind each of its parts.
struct DateRoad {
  DateState first;
  DateState after_day;
  DateState after_month;
  DateState after_year;
};

constexpr DateRoad date_road(DateOrder order) noexcept {
  using enum DateState;
  switch (order) {
    case DateOrder::month_day_year: return {month, before_year, before_day, done};
    case DateOrder::year_month_day: return {year, done, before_day, before_month};
    default: return {day, before_month, before_year, done};
  }
}

constexpr DateAction date_action(DateState state, TokenType type) noexcept {
  return kDateActions[static_cast<std::size_t>(state) - 1][static_cast<std::size_t>(type) - 1];
}

// A delimiter is followed by the part that it stands before.
constexpr DateState behind_delimiter(DateState state) noexcept {
  return static_cast<DateState>(static_cast<std::uint8_t>(state) + 1);
}
static_assert(behind_delimiter(DateState::before_day) == DateState::day);
static_assert(behind_delimiter(DateState::before_month) == DateState::month);
static_assert(behind_delimiter(DateState::before_year) == DateState::year);

}  // namespace iocv
