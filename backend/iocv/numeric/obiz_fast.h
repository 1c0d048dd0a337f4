// The ordinary zoned field.
//
// try_z answers for a field of 1..15 bytes of blanks, then digits, then a zone, under 0..15
// decimals, and for a blank one, which has the blank value. The at most fifteen digits make a whole
// number below 2^53, to which digits fold exactly in doubles, too; both then negate it, a zero as
// well, and divide it once by the same power of ten.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <string_view>

#include "frame/format_code.h"
#include "frame/settings.h"
#include "frame/text_vector.h"
#include "numeric/powers.h"

namespace iocv {

// What the last character may be: ten plain digits, ten positive zones, ten negative ones.
inline constexpr std::string_view kZones = "0123456789{ABCDEFGHI}JKLMNOPQR";
inline constexpr std::size_t kFirstNegativeZone = 20;

#if defined(__SSE2__)

namespace zone_fast {

inline constexpr std::uint8_t kNoZone = 64;
inline constexpr std::uint8_t kNegative = 128;

// By character: what it adds as a zone to the digits (a plain digit, 0, for it is one of them).
inline constexpr auto kZoneOf = [] {
  std::array<std::uint8_t, 256> table = {};
  table.fill(kNoZone);
  for (std::size_t i = 0; i < kZones.size(); ++i) {
    const std::size_t sign = i < kFirstNegativeZone ? 0 : kNegative;
    table[static_cast<unsigned char>(kZones[i])] =
        static_cast<std::uint8_t>(i < 10 ? 0 : i % 10 + sign);
  }
  return table;
}();

}  // namespace zone_fast

inline bool try_z(const char* field, std::int64_t width, std::int64_t decimals, FormatCode,
                  const Settings& settings, double& value) noexcept {
  using namespace text_vector;
  __m128i bytes;
  if (width > 15 || static_cast<std::uint64_t>(decimals) > 15) return false;
  if (!load(field, width, bytes)) return false;
  const __m128i values = _mm_xor_si128(bytes, each('0'));
  const __m128i is_digit = _mm_cmpeq_epi8(_mm_min_epu8(values, _mm_set1_epi8(9)), values);
  const std::uint32_t blanks = places(bytes, each(' '));
  const std::uint64_t zone = zone_fast::kZoneOf[static_cast<unsigned char>(field[width - 1])];
  const std::uint32_t last = 0x8000;
  const std::uint32_t others = (blanks | mask(is_digit) | last) ^ 0xFFFF;
  const std::uint32_t inner_blanks = blanks & (blanks + 1);
  if ((others | inner_blanks | (zone & zone_fast::kNoZone)) != 0) {
    value = settings.blank_value;
    return blanks == 0xFFFF;
  }
  const std::int64_t digits =
      whole(_mm_and_si128(values, is_digit)) + static_cast<std::int64_t>(zone % 16);
  const std::uint64_t sign = zone / zone_fast::kNegative << 63;
  value = std::bit_cast<double>(std::bit_cast<std::uint64_t>(static_cast<double>(digits)) ^ sign);
  value /= kSmallPowers[static_cast<std::size_t>(decimals)];
  return true;
}

#else

inline bool try_z(const char*, std::int64_t, std::int64_t, FormatCode, const Settings&,
                  double&) noexcept {
  return false;
}

#endif

}  // namespace iocv
