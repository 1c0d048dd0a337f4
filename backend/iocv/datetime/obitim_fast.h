// The fast way of times as input: hh:mm:ss, or a blank and h:mm:ss, as one word (read_words.h).
// Such a text has a colon, so that it is none without delimiters, and its tokens are three numbers
// and two colons, perhaps behind a blank, under any settings.
#pragma once

#include "datetime/read_words.h"

namespace iocv::fast {

inline constexpr std::int64_t kClockWidth = 8;
inline constexpr std::uint32_t kNoTime = 0xFFFF'FFFF;

// The seconds of the eight bytes, or kNoTime; hours run to 99.
inline std::uint32_t read_clock(const char* text) noexcept {
  constexpr Limits kLimits("00:00:00", "99:59:59");
  static_assert((' ' | 1 << 4) == '0');
  const std::uint64_t bytes = load<std::uint64_t>(text) | std::uint64_t{text[0] == ' '} << 4;
  const std::uint64_t digits = bytes - kLimits.least;
  if ((excess(digits, kLimits) & kTopBits) != 0) return kNoTime;
  const std::uint64_t parts = pairs(digits);
  return 3600 * byte(parts, 0) + 60 * byte(parts, 3) + byte(parts, 6);
}

}  // namespace iocv::fast
