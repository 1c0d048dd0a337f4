// The ordinary packed field.
//
// try_p answers for a field of 1..8 bytes with no half-byte above 9 but the last, which is a sign,
// under 0..32 decimals. Its at most fifteen digits make a whole number below 2^53, to which the
// digits fold exactly in doubles, too; both then divide it once by the same power of ten, and
// negate a zero as any other number.
#pragma once

#include <bit>
#include <cstdint>

#include "frame/format_code.h"
#include "frame/settings.h"
#include "frame/text_vector.h"
#include "numeric/powers.h"

namespace iocv {

#if defined(__SSE2__)

inline bool try_p(const char* field, std::int64_t width, std::int64_t decimals, FormatCode,
                  const Settings&, double& value) noexcept {
  if (width < 1 || width > 8) return false;
  if (static_cast<std::uint64_t>(decimals) >= kSmallPowers.size()) return false;
  const std::uint64_t word = load_right_aligned(field, width);
  const __m128i bytes = _mm_cvtsi64_si128(static_cast<std::int64_t>(word));
  const __m128i low_half = _mm_set1_epi8(15);
  const __m128i high = _mm_and_si128(_mm_srli_epi16(bytes, 4), low_half);
  const __m128i halves = _mm_unpacklo_epi8(high, _mm_and_si128(bytes, low_half));
  constexpr std::uint32_t kOnlyLast = 0x8000;
  if (text_vector::mask(_mm_cmpgt_epi8(halves, _mm_set1_epi8(9))) != kOnlyLast) return false;
  const auto number = static_cast<double>(text_vector::whole(_mm_slli_si128(halves, 1)));
  constexpr std::uint64_t kNegativeSigns = 1 << 11 | 1 << 13;
  const std::uint64_t sign = kNegativeSigns >> (word >> 56 & 15) << 63;
  value = std::bit_cast<double>(std::bit_cast<std::uint64_t>(number) ^ sign);
  value /= kSmallPowers[static_cast<std::size_t>(decimals)];
  return true;
}

#else

inline bool try_p(const char*, std::int64_t, std::int64_t, FormatCode, const Settings&,
                  double&) noexcept {
  return false;
}

#endif

}  // namespace iocv
