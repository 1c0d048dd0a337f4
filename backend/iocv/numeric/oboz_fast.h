// The fast path of Z for ordinary numbers.
//
// It answers for 1 to 16 columns, 0 to 6 decimals and a value other than the system-missing number
// whose magnitude, scaled by the decimals, is below 2^39 and, with a half added, safely below the
// number that is a digit too long. The plain path then writes the whole part of that sum, moved up
// where the fraction is within 4096 units in the last place of 1, that is 2^-41: adding a hair less
// than 2^-41 moves just these to the next whole number; a sum below 1 is 0 in any case. The zone of
// the last digit shows the sign of a negative number, unless all digits are 0.
#pragma once

#include "numeric/encdcc_fast.h"
#include "numeric/powers.h"

namespace iocv {

struct ZonedTables {
  std::array<double, kFastDecimals + 1> powers = make_powers();
  std::array<double, kFastWidth + 1> limits = make_limits();  // of the scaled magnitude, by width
  std::array<std::uint8_t, 10> zones = make_zones();  // from a digit to its negative, less '0'

  static constexpr std::array<double, kFastDecimals + 1> make_powers() {
    std::array<double, kFastDecimals + 1> powers = {};
    for (std::size_t d = 0; d <= kFastDecimals; ++d) powers[d] = kSmallPowers[d];
    return powers;
  }
  static constexpr std::array<double, kFastWidth + 1> make_limits() {
    std::array<double, kFastWidth + 1> limits = {};
    for (std::size_t width = 0; width <= kFastWidth; ++width) {
      const double limit = kSmallPowers[width] - 0.5 - 0x1p-12;
      limits[width] = limit < 0x1p39 ? limit : 0x1p39;
    }
    return limits;
  }
  static constexpr std::array<std::uint8_t, 10> make_zones() {
    std::array<std::uint8_t, 10> zones = {};
    constexpr char kNegative[] = "}JKLMNOPQR";
    for (std::size_t digit = 0; digit < 10; ++digit) {
      zones[digit] = static_cast<std::uint8_t>(kNegative[digit] - '0');
    }
    return zones;
  }
};

inline constexpr ZonedTables kZonedTables;

// False, with the field as it was, when the number is not an ordinary one or beyond the reach.
template <Reach kReach, class Source>
[[gnu::always_inline]] inline bool write_zoned_fast(char* field, std::int64_t columns, double value,
                                                    std::int64_t places, Source settings) noexcept {
  if constexpr (!kHasFastPaths) return false;
  const auto width = static_cast<std::uint64_t>(columns);
  const auto decimals = static_cast<std::uint64_t>(places);
  if (!reaches(kReach, width) || decimals > kFastDecimals) return false;
  const ZonedTables& zoned = *in_register(&kZonedTables);
  const double scaled = std::fabs(value) * zoned.powers[decimals];
  if (!(scaled < zoned.limits[width]) || value == settings().system_missing) return false;
  constexpr double kAlmostTolerance = 0x1p-41 - 0x1p-55;
  const double sum = scaled + 0.5;
  const double almost = sum < 1 ? 0 : kAlmostTolerance;
  const auto number = static_cast<std::uint64_t>(static_cast<std::int64_t>(sum + almost));
  const FixedTables& tables = *in_register(&kFixedTables);
  Columns digits = {0, 0};
  if constexpr (kReach == Reach::eight_columns) {
    digits.right = tables.eight(static_cast<std::uint32_t>(number));
  } else {
    digits = tables.twelve(number);
  }
  // All ones for a negative number that does not show as zero.
  const std::uint64_t negative = 0 - ((std::bit_cast<std::uint64_t>(value) & (0 - number)) >> 63);
  const std::uint64_t zone = zoned.zones[digits.right >> 56] - (digits.right >> 56);
  const std::uint64_t right = digits.right + in_each_byte('0') + ((negative & zone) << 56);
  if constexpr (kReach == Reach::eight_columns) {
    store_narrow(field, width, right);
  } else {
    store_wide(field, width, {digits.left + in_each_byte('0'), right});
  }
  return true;
}

}  // namespace iocv
