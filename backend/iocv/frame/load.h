// Fields of up to eight bytes as a word, on machines whose words begin with their lowest byte.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

namespace iocv {

inline constexpr bool kLittleEndian = std::endian::native == std::endian::little;

inline std::uint64_t load8(const char* bytes) noexcept {
  std::uint64_t word;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

inline std::uint32_t load4(const char* bytes) noexcept {
  std::uint32_t word;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

// The last byte highest, zeros below the first; width is 1..8. Two words may overlap, so that
// neither leaves the field.
[[gnu::always_inline]] inline std::uint64_t load_right_aligned(const char* field,
                                                               std::int64_t width) noexcept {
  if (width == 8) return load8(field);
  if (width >= 4) {
    const std::int64_t half = 4 * (8 - width);  // of the bits missing; all 32 may go
    return std::uint64_t{load4(field + width - 4)} << 32 | load4(field) << half << half;
  }
  std::uint64_t word = 0;
  for (std::int64_t i = 0; i < width; ++i) {
    word = word >> 8 | std::uint64_t{static_cast<unsigned char>(field[i])} << 56;
  }
  return word;
}

}  // namespace iocv
