// The state machine that takes hours, minutes and seconds from the tokens of a time.
#pragma once

#include <array>
#include <cstdint>

#include "datetime/obdtps.h"

namespace iocv {

enum class TimeState : std::uint8_t {
  sign_or_hours = 1,
  hours,
  after_hours,
  minutes,
  after_minutes,
  seconds,
  after_seconds,
  fraction,
};

enum class TimeAction : std::uint8_t {
  take_sign = 1,
  skip,
  take_hours,
  take_minutes,
  take_seconds,
  take_fraction,
  end,
  trailing_blanks,  // nothing else may follow
  blanks_after_minutes,
  fail,
};

inline constexpr std::size_t kTimeStates = 8;

// One row a state, one column a token type, both from the first on.
inline constexpr std::array<std::array<TimeAction, kTokenTypes>, kTimeStates> kTimeActions = [] {
  constexpr auto sign = TimeAction::take_sign;
  constexpr auto skip = TimeAction::skip;
  constexpr auto hour = TimeAction::take_hours;
  constexpr auto mins = TimeAction::take_minutes;
  constexpr auto secs = TimeAction::take_seconds;
  constexpr auto frac = TimeAction::take_fraction;
  constexpr auto stop = TimeAction::end;
  constexpr auto trail = TimeAction::trailing_blanks;
  constexpr auto more = TimeAction::blanks_after_minutes;
  constexpr auto fail = TimeAction::fail;
  return std::array<std::array<TimeAction, kTokenTypes>, kTimeStates>{{
      // clang-format off
      // word  number decimal ":"   date  blanks other
      {{fail, hour,  fail,   fail, sign, skip,  sign}},  // sign_or_hours
      {{fail, hour,  fail,   fail, fail, fail,  fail}},  // hours
      {{fail, fail,  skip,   skip, fail, skip,  fail}},  // after_hours
      {{fail, mins,  fail,   fail, fail, fail,  fail}},  // minutes
      {{fail, fail,  skip,   skip, fail, more,  stop}},  // after_minutes
      {{fail, secs,  fail,   fail, fail, fail,  fail}},  // seconds
      {{fail, fail,  skip,   skip, fail, trail, stop}},  // after_seconds
      {{fail, frac,  fail,   fail, fail, trail, fail}},  // fraction
      // clang-format on
  }};
}();

constexpr TimeAction time_action(TimeState state, TokenType type) noexcept {
  return kTimeActions[static_cast<std::size_t>(state) - 1][static_cast<std::size_t>(type) - 1];
}

constexpr TimeState next_state(TimeState state) noexcept {
  return static_cast<TimeState>(static_cast<std::uint8_t>(state) + 1);
}

}  // namespace iocv
