// The ordinary binary integer field, IB and PIB.
//
// The attempts answer for a field of 1..8 bytes that holds a number of magnitude up to 2^53, under
// 0..32 decimals. The bytes fold to such a number exactly in doubles, the highest first, as no
// partial number is larger; then both divide it once by the same power of ten.
#pragma once

#include <cstdint>

#include "frame/format_code.h"
#include "frame/load.h"
#include "frame/settings.h"
#include "numeric/powers.h"

namespace iocv {

inline constexpr std::uint64_t kTwoTo53 = std::uint64_t{1} << 53;

inline bool try_ib(const char* field, std::int64_t width, std::int64_t decimals, FormatCode,
                   const Settings&, double& value) noexcept {
  if (!kLittleEndian || width < 1 || width > 8) return false;
  if (static_cast<std::uint64_t>(decimals) >= kSmallPowers.size()) return false;
  const auto word = static_cast<std::int64_t>(load_right_aligned(field, width));
  const std::int64_t number = word >> 8 * (8 - width);
  if (static_cast<std::uint64_t>(number) + kTwoTo53 > 2 * kTwoTo53) return false;
  value = static_cast<double>(number) / kSmallPowers[static_cast<std::size_t>(decimals)];
  return true;
}

inline bool try_pib(const char* field, std::int64_t width, std::int64_t decimals, FormatCode,
                    const Settings&, double& value) noexcept {
  if (!kLittleEndian || width < 1 || width > 8) return false;
  if (static_cast<std::uint64_t>(decimals) >= kSmallPowers.size()) return false;
  const std::uint64_t number = load_right_aligned(field, width) >> 8 * (8 - width);
  if (number > kTwoTo53) return false;
  value = static_cast<double>(static_cast<std::int64_t>(number));
  value /= kSmallPowers[static_cast<std::size_t>(decimals)];
  return true;
}

}  // namespace iocv
