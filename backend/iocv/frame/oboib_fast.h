// The fast paths of IB and PIB for ordinary numbers.
//
// They answer for 1 to 8 columns, 0 to 6 decimals and a value other than the system-missing number
// that, scaled by the decimals and with a half added (away from zero), is in the range of the width
// and of 64-bit integers, for PIB not below zero. The plain paths take the bytes of that number's
// whole part off one by one, which is exact; a 64-bit integer has the same ones, in two's
// complement.
#pragma once

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "frame/settings.h"

namespace iocv {

struct BinaryTables {
  std::array<double, 7> powers = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};
  // 256^width / 2, and 256^width as far as it is in range.
  std::array<double, 9> half_ranges = {0.5,    0x1p7,  0x1p15, 0x1p23, 0x1p31,
                                       0x1p39, 0x1p47, 0x1p55, 0x1p63};
  std::array<double, 9> ranges = {1, 0x1p8, 0x1p16, 0x1p24, 0x1p32, 0x1p40, 0x1p48, 0x1p56, 0x1p63};
};

inline constexpr BinaryTables kBinaryTables;

// The first width bytes, [1, 8], of a little-endian number.
inline void store_low_bytes(char* first, std::uint64_t width, std::uint64_t number) noexcept {
  const auto store = [first](std::uint64_t at, auto part) {
    std::memcpy(first + at, &part, sizeof part);
  };
  if (width == 8) return store(0, number);
  if (width >= 4) {
    store(0, static_cast<std::uint32_t>(number));
    store(width - 4, static_cast<std::uint32_t>(number >> (8 * width - 32)));
  } else if (width >= 2) {
    store(0, static_cast<std::uint16_t>(number));
    store(width - 2, static_cast<std::uint16_t>(number >> (8 * width - 16)));
  } else {
    *first = static_cast<char>(number);
  }
}

// Writes numbers of one format under the settings at its making, a column of them as well as one.
template <bool kSigned>
class BinaryWriter {
 public:
  // False when it writes nothing of such a format.
  template <class Source>
  [[gnu::always_inline]] static bool make(std::int64_t columns, std::int64_t places,
                                          Source settings, BinaryWriter& writer) noexcept {
    if constexpr (std::endian::native != std::endian::little) return false;
    const auto width = static_cast<std::uint64_t>(columns);
    const auto decimals = static_cast<std::uint64_t>(places);
    if (width - 1 >= 8 || decimals > 6) return false;
    writer.width_ = width;
    writer.power_ = kBinaryTables.powers[decimals];
    writer.range_ = kSigned ? kBinaryTables.half_ranges[width] : kBinaryTables.ranges[width];
    writer.system_missing_ = settings().system_missing;
    return true;
  }

  // False, with the field as it was, when the number is not an ordinary one.
  [[gnu::always_inline]] bool operator()(char* field, double value) const noexcept {
    if (value == system_missing_) return false;
    const double number = value * power_;
    // A sum that is the range itself only after its truncation is the plain path's.
    const double rounded = number + (kSigned ? std::copysign(0.5, number) : 0.5);
    const bool in_range = kSigned ? std::fabs(rounded) < range_ : number >= 0 && rounded < range_;
    if (!in_range) return false;
    store_low_bytes(field, width_, static_cast<std::uint64_t>(static_cast<std::int64_t>(rounded)));
    return true;
  }

 private:
  std::uint64_t width_;
  double power_;
  double range_;
  double system_missing_;
};

}  // namespace iocv
