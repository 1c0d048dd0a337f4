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

// False, with the field as it was, when the number is not an ordinary one.
template <bool kSigned, class Source>
[[gnu::always_inline]] inline bool write_binary_fast(char* field, std::int64_t columns,
                                                     double value, std::int64_t places,
                                                     Source settings) noexcept {
  if constexpr (std::endian::native != std::endian::little) return false;
  const auto width = static_cast<std::uint64_t>(columns);
  const auto decimals = static_cast<std::uint64_t>(places);
  if (width - 1 >= 8 || decimals > 6 || value == settings().system_missing) return false;
  const double number = value * kBinaryTables.powers[decimals];
  if constexpr (kSigned) {
    // A sum that is the range itself only after its truncation is the plain path's.
    const double rounded = number + std::copysign(0.5, number);
    if (!(std::fabs(rounded) < kBinaryTables.half_ranges[width])) return false;
    store_low_bytes(field, width, static_cast<std::uint64_t>(static_cast<std::int64_t>(rounded)));
  } else {
    const double rounded = number + 0.5;
    if (!(number >= 0 && rounded < kBinaryTables.ranges[width])) return false;
    store_low_bytes(field, width, static_cast<std::uint64_t>(static_cast<std::int64_t>(rounded)));
  }
  return true;
}

}  // namespace iocv
