// The ordinary packed field.
//
// try_p answers for a field of 1..16 bytes, of which only the last eight are not zero, with no
// half-byte above 9 but the last, which is a sign, under 0..32 decimals. Its at most fifteen digits
// make a whole number below 2^53, to which the digits fold exactly in doubles, too; both then
// divide it once by the same power of ten, and negate a zero as any other number.
//
// try_sixteen_digits answers for what eight bytes without a half-byte above 9 fold to. Seven fold
// exactly, to a number below 10^14. A hundred times that and the tens are even numbers below 2^54
// and exact, so the last digit's addition alone rounds, and to what the whole number rounds to.
#pragma once

#include <bit>
#include <cstdint>

#include "frame/format_code.h"
#include "frame/load.h"
#include "frame/settings.h"
#include "frame/text_vector.h"
#include "numeric/powers.h"

namespace iocv {

#if defined(__SSE2__)

// The half-bytes of a word whose first byte is the lowest, a byte each.
inline __m128i half_bytes(std::uint64_t word) noexcept {
  const __m128i bytes = _mm_cvtsi64_si128(static_cast<std::int64_t>(word));
  const __m128i low_half = _mm_set1_epi8(15);
  const __m128i high = _mm_and_si128(_mm_srli_epi16(bytes, 4), low_half);
  return _mm_unpacklo_epi8(high, _mm_and_si128(bytes, low_half));
}

// A bit for each half-byte that is no digit, the first one's lowest.
inline std::uint32_t no_digits(__m128i halves) noexcept {
  return text_vector::mask(_mm_cmpgt_epi8(halves, _mm_set1_epi8(9)));
}

// The last eight bytes; false when not all in front of them are zeros.
[[gnu::always_inline]] inline bool load_packed(const char* field, std::int64_t width,
                                               std::uint64_t& word) noexcept {
  const std::uint64_t further = static_cast<std::uint64_t>(width) - 1;  // bytes behind the first
  if (further < 8) {
    word = load_right_aligned(field, width);
    return true;
  }
  if (further >= 16) return false;
  word = load8(field + width - 8);
  return load8(field) << 8 * (16 - width) == 0;
}

inline bool try_p(const char* field, std::int64_t width, std::int64_t decimals, FormatCode,
                  const Settings&, double& value) noexcept {
  std::uint64_t word = 0;
  if (!load_packed(field, width, word)) return false;
  if (static_cast<std::uint64_t>(decimals) >= kSmallPowers.size()) return false;
  const __m128i halves = half_bytes(word);
  constexpr std::uint32_t kOnlyLast = 0x8000;
  if (no_digits(halves) != kOnlyLast) return false;
  const auto number = static_cast<double>(text_vector::whole(_mm_slli_si128(halves, 1)));
  constexpr std::uint64_t kNegativeSigns = 1 << 11 | 1 << 13;
  const std::uint64_t sign = kNegativeSigns >> (word >> 56 & 15) << 63;
  value = std::bit_cast<double>(std::bit_cast<std::uint64_t>(number) ^ sign);
  value /= kSmallPowers[static_cast<std::size_t>(decimals)];
  return true;
}

inline bool try_sixteen_digits(std::uint64_t word, double& value) noexcept {
  const __m128i halves = half_bytes(word);
  if (no_digits(halves) != 0) return false;
  value = static_cast<double>(text_vector::whole(halves));
  return true;
}

#else

inline bool try_p(const char*, std::int64_t, std::int64_t, FormatCode, const Settings&,
                  double&) noexcept {
  return false;
}

inline bool try_sixteen_digits(std::uint64_t, double&) noexcept { return false; }

#endif

}  // namespace iocv
