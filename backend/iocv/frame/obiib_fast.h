// The ordinary binary integer field, IB and PIB.
//
// The attempts answer for a field of 1..8 bytes that holds a number of magnitude up to 2^53, under
// 0..32 decimals. The bytes fold to such a number exactly in doubles, the highest first, as no
// partial number is larger; then both divide it once by the same power of ten.
#pragma once

#include <cstddef>
#include <cstdint>

#include "frame/load.h"
#include "frame/settings.h"
#include "numeric/powers.h"

namespace iocv {

inline constexpr std::uint64_t kTwoTo53 = std::uint64_t{1} << 53;

// The bytes of IB when signed, those of PIB when not.
template <bool kSigned>
class BinaryReader {
 public:
  // False when it answers for no field of such a format.
  [[gnu::always_inline]] static bool make(std::int64_t width, std::int64_t decimals,
                                          const Settings&, BinaryReader& reader) noexcept {
    reader.width_ = width;
    reader.decimals_ = static_cast<std::size_t>(decimals);
    return kLittleEndian && width >= 1 && width <= 8 && reader.decimals_ < kSmallPowers.size();
  }

  // False, with any value, when the number is too large.
  [[gnu::always_inline]] bool operator()(const char* field, double& value) const noexcept {
    const std::uint64_t word = load_right_aligned(field, width_);
    const std::int64_t unused = 8 * (8 - width_);
    std::int64_t number;
    if constexpr (kSigned) {
      number = static_cast<std::int64_t>(word) >> unused;
      if (static_cast<std::uint64_t>(number) + kTwoTo53 > 2 * kTwoTo53) return false;
    } else {
      number = static_cast<std::int64_t>(word >> unused);
      if (static_cast<std::uint64_t>(number) > kTwoTo53) return false;
    }
    value = static_cast<double>(number) / kSmallPowers[decimals_];
    return true;
  }

 private:
  std::int64_t width_;
  std::size_t decimals_;
};

}  // namespace iocv
