// Fields of up to sixteen bytes as one vector: the parts of which attempts at ordinary fields are
// made. Only for machines that have such vectors.
#pragma once

#if defined(__SSE2__)

#include <emmintrin.h>

#include <cstdint>

#include "frame/load.h"

namespace iocv::text_vector {

inline constexpr std::int64_t kWidest = 16;

// All bytes are held as their difference from a blank, so that zeros shifted in are blanks.
constexpr char held(char byte) noexcept { return static_cast<char>(byte ^ ' '); }
inline __m128i each(char byte) noexcept { return _mm_set1_epi8(held(byte)); }

// A field of 8..16 bytes, right-aligned. The two words may overlap, so that neither leaves it.
inline __m128i load_wide(const char* field, std::int64_t width) noexcept {
  const auto word = [](const char* bytes) {
    return _mm_xor_si128(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(bytes)),
                         _mm_set1_epi8(' '));
  };
  const auto missing = static_cast<int>(8 * (kWidest - width));  // bits; all 64 may go
  const __m128i first = _mm_sll_epi64(word(field), _mm_cvtsi32_si128(missing));
  return _mm_unpacklo_epi64(first, word(field + width - 8));
}

// A field of 1..7 bytes, right-aligned.
inline __m128i load_narrow(const char* field, std::int64_t width) noexcept {
  const std::uint64_t blanks = std::uint64_t{0x2020'2020'2020'2020} << 8 * (8 - width);
  const std::uint64_t text = load_right_aligned(field, width) ^ blanks;
  return _mm_set_epi64x(static_cast<std::int64_t>(text), 0);
}

// False when the field is empty or too wide.
[[gnu::always_inline]] inline bool load(const char* field, std::int64_t width,
                                        __m128i& bytes) noexcept {
  if (width >= 8 && width <= kWidest) {
    bytes = load_wide(field, width);
  } else if (width >= 1 && width < 8) {
    bytes = load_narrow(field, width);
  } else {
    return false;
  }
  return true;
}

// A bit for each byte, the first one's lowest: where truths hold, or where bytes are like others.
inline std::uint32_t mask(__m128i truths) noexcept {
  return static_cast<std::uint32_t>(_mm_movemask_epi8(truths));
}
inline std::uint32_t places(__m128i bytes, __m128i like) noexcept {
  return mask(_mm_cmpeq_epi8(bytes, like));
}

// Closes up a zero so many bytes before the last: those in front of it move up. From 16 on: none.
inline __m128i without(__m128i digits, std::size_t before_last) noexcept {
  static constexpr std::uint8_t kInFront[48] = {255, 255, 255, 255, 255, 255, 255, 255,
                                                255, 255, 255, 255, 255, 255, 255};
  const auto* in_front = reinterpret_cast<const __m128i*>(kInFront + before_last);
  const __m128i moving = _mm_and_si128(_mm_loadu_si128(in_front), digits);
  const __m128i staying = _mm_xor_si128(digits, moving);
  return _mm_or_si128(staying, _mm_slli_si128(moving, 1));
}

// Times 10 plus the next digit, times 256. A compiler that knew the number would make four
// instructions of the multiplication.
alignas(16) [[gnu::visibility("hidden")]] extern const std::int16_t kTenAndOne[8];  // 10 x 256 + 1

// The number that sixteen digits make, bytes of value 0..9.
inline std::int64_t whole(__m128i digits) noexcept {
  const __m128i twos = _mm_srli_epi16(
      _mm_mullo_epi16(digits, _mm_load_si128(reinterpret_cast<const __m128i*>(kTenAndOne))), 8);
  const __m128i fours = _mm_madd_epi16(twos, _mm_set1_epi32(1 << 16 | 100));
  const __m128i words = _mm_packs_epi32(fours, fours);
  const __m128i eights = _mm_madd_epi16(words, _mm_set1_epi32(1 << 16 | 10'000));
  const auto both = static_cast<std::uint64_t>(_mm_cvtsi128_si64(eights));
  return static_cast<std::int64_t>((both & 0xFFFF'FFFF) * 100'000'000 + (both >> 32));
}

}  // namespace iocv::text_vector

#endif
