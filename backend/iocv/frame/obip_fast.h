// The packed field of usual width.
//
// PackedReader answers for a field of 1..16 bytes, of which only the last eight are not zero, under
// 0..32 decimals. No digit is above 9 and a sign always is, so that one comparison of all
// half-bytes tells the three cases: a number with its sign; a bad digit; sixteen digits and no
// sign, which is reported. Up to fifteen digits make a whole number below 2^53, to which they fold
// exactly in doubles, too. Both ways then divide it once by the same power of ten, and negate a
// zero as any other number.
//
// try_sixteen_digits answers for what eight bytes without a half-byte above 9 fold to. Seven fold
// exactly, to a number below 10^14. A hundred times that and the tens are even numbers below 2^54
// and exact, so the last digit's addition alone rounds, and to what the whole number rounds to.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

#include "frame/load.h"
#include "frame/settings.h"
#include "frame/status.h"
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
  if (width == 8) {
    word = load8(field);
    return true;
  }
  if (width > 8) {
    if (width > 16) return false;
    word = load8(field + width - 8);
    return load8(field) << 8 * (16 - width) == 0;
  }
  word = load_right_aligned(field, width);
  return true;
}

class PackedReader {
 public:
  // False when it answers for no field of such a format.
  [[gnu::always_inline]] static bool make(std::int64_t width, std::int64_t decimals,
                                          const Settings& settings, PackedReader& reader) noexcept {
    reader.width_ = width;
    reader.decimals_ = static_cast<std::size_t>(decimals);
    reader.settings_ = &settings;
    return width >= 1 && reader.decimals_ < kSmallPowers.size();
  }

  // False when it does not answer.
  [[gnu::always_inline]] bool operator()(const char* field, Read<double>& result) const noexcept {
    std::uint64_t word = 0;
    if (!load_packed(field, width_, word)) return false;
    const __m128i halves = half_bytes(word);
    const std::uint32_t above_9 = no_digits(halves);
    constexpr std::uint32_t kOnlyLast = 0x8000;
    if (above_9 == kOnlyLast) {
      const double number = magnitude(_mm_slli_si128(halves, 1));
      constexpr std::uint64_t kNegativeSigns = 1 << 11 | 1 << 13;
      const std::uint64_t sign = kNegativeSigns >> (word >> 56 & 15) << 63;
      result.value = std::bit_cast<double>(std::bit_cast<std::uint64_t>(number) ^ sign);
      result = {result.value / kSmallPowers[decimals_], Status::ok};
    } else if (above_9 != 0) {
      result = {settings_->system_missing, Status::packed_digit};
    } else {
      result = {magnitude(halves) / kSmallPowers[decimals_], Status::packed_sign};
    }
    return true;
  }

 private:
  static double magnitude(__m128i digits) noexcept {
    return static_cast<double>(text_vector::whole(digits));
  }

  std::int64_t width_;
  std::size_t decimals_;
  const Settings* settings_;
};

inline bool try_sixteen_digits(std::uint64_t word, double& value) noexcept {
  const __m128i halves = half_bytes(word);
  if (no_digits(halves) != 0) return false;
  value = static_cast<double>(text_vector::whole(halves));
  return true;
}

#else

class PackedReader {
 public:
  static bool make(std::int64_t, std::int64_t, const Settings&, PackedReader&) noexcept {
    return false;
  }
  bool operator()(const char*, Read<double>&) const noexcept { return false; }
};

inline bool try_sixteen_digits(std::uint64_t, double&) noexcept { return false; }

#endif

}  // namespace iocv
