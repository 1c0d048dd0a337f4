// The packed field of usual width.
//
// An attempt answers for a field of 1..8 bytes, whatever they hold, under 0..32 decimals. No digit
// is above 9 and a sign always is, so that one comparison of all half-bytes tells the three cases:
// a number with its sign; a bad digit; sixteen digits and no sign, which is reported. Up to fifteen
// digits make a whole number below 2^53, to which they fold exactly in doubles, too. Ten times that
// is exact as well, for it is even, and so a sixteenth digit is rounded off once in either way.
// Both then divide once by the same power of ten, and negate a zero as any other number.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

#include "frame/settings.h"
#include "frame/status.h"
#include "frame/text_vector.h"
#include "numeric/powers.h"

namespace iocv {

#if defined(__SSE2__)

class PackedReader {
 public:
  // False when it answers for no field of such a format.
  [[gnu::always_inline]] static bool make(std::int64_t width, std::int64_t decimals,
                                          const Settings& settings, PackedReader& reader) noexcept {
    reader.width_ = width;
    reader.decimals_ = static_cast<std::size_t>(decimals);
    reader.settings_ = &settings;
    return width >= 1 && width <= 8 && reader.decimals_ < kSmallPowers.size();
  }

  [[gnu::always_inline]] bool operator()(const char* field, Read<double>& result) const noexcept {
    const std::uint64_t word = load_right_aligned(field, width_);
    const __m128i bytes = _mm_cvtsi64_si128(static_cast<std::int64_t>(word));
    const __m128i low_half = _mm_set1_epi8(15);
    const __m128i high = _mm_and_si128(_mm_srli_epi16(bytes, 4), low_half);
    const __m128i halves = _mm_unpacklo_epi8(high, _mm_and_si128(bytes, low_half));
    const std::uint32_t above_9 = text_vector::mask(_mm_cmpgt_epi8(halves, _mm_set1_epi8(9)));
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

#else

class PackedReader {
 public:
  static bool make(std::int64_t, std::int64_t, const Settings&, PackedReader&) noexcept {
    return false;
  }
  bool operator()(const char*, Read<double>&) const noexcept { return false; }
};

#endif

}  // namespace iocv
