// Numbers that more than one family needs, each with one name.
#pragma once

#include <bit>
#include <cstdint>
#include <limits>

namespace iocv {

// The most negative finite double stands for a missing value.
inline constexpr double kSystemMissing = -std::numeric_limits<double>::max();
static_assert(std::bit_cast<std::uint64_t>(kSystemMissing) == 0xFFEF'FFFF'FFFF'FFFF);

// No conversion sees a wider field.
inline constexpr std::int64_t kWidestField = 32767;

inline constexpr double kLargest = std::numeric_limits<double>::max();
inline constexpr double kSmallestNormal = std::numeric_limits<double>::min();
inline constexpr double kEpsilon = std::numeric_limits<double>::epsilon();

// From here on a double has no fraction.
inline constexpr double kTwoTo52 = 4503599627370496.0;

}  // namespace iocv
