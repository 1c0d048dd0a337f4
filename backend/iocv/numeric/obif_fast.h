// The ordinary number field, read sixteen bytes at once.
//
// try_number answers for a field of 1..16 bytes that holds, between any blanks, an optional "-" and
// then digits with at most one decimal character, 1 to 15 digits in all, under 0..15 implied
// decimals; under COMMA, DOLLAR and DOT also with grouping characters between threes, and else also
// with an exponent from E-032 to E+032 as output writes it. All other text is the scanner's. The
// number is the scanner's bit for bit: fifteen digits make a whole number below 2^53, to which the
// scanner's chunks of nine add up exactly, too; both then multiply or divide it once by the same
// power of ten (here by another 1 as well, instead of a choice), and neither gives a zero a sign.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "frame/format_code.h"
#include "frame/settings.h"
#include "numeric/powers.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace iocv {

inline constexpr std::size_t kWidestAttempt = 16;

#if defined(__SSE2__)

namespace number_fast {

// The bytes of a field of at most 16, right-aligned, each with a blank's bits inverted: a blank, or
// no byte at all, is zero.
struct Words {
  std::uint64_t low;
  std::uint64_t high;
};

constexpr char inverted(char byte) noexcept { return static_cast<char>(byte ^ ' '); }

template <class Word>
Word loaded(const char* bytes) noexcept {
  Word word;
  std::memcpy(&word, bytes, sizeof word);
  return word ^ static_cast<Word>(0x2020'2020'2020'2020);
}

// The first bytes of a word, so many less than the word has; a shift may be by all its bits.
template <class Word>
Word shifted_out(Word word, std::size_t bytes) noexcept {
  return word << 4 * bytes << 4 * bytes;
}

// width is 1..16. Loads may overlap, so that none leaves the field.
inline Words right_aligned(const char* field, std::size_t width) noexcept {
  if (width >= 8) {
    return {shifted_out(loaded<std::uint64_t>(field), 16 - width),
            loaded<std::uint64_t>(field + width - 8)};
  }
  if (width >= 4) {
    const std::uint64_t last = loaded<std::uint32_t>(field + width - 4);
    return {0, last << 32 | shifted_out(loaded<std::uint32_t>(field), 8 - width)};
  }
  std::uint64_t high = 0;
  for (std::size_t i = 0; i < width; ++i) {
    high = high >> 8 | std::uint64_t{loaded<std::uint8_t>(field + i)} << 56;
  }
  return {0, high};
}

inline __m128i vector_of(Words words) noexcept {
  return _mm_set_epi64x(static_cast<std::int64_t>(words.high),
                        static_cast<std::int64_t>(words.low));
}

// A vector of one byte.
inline __m128i each(char byte) noexcept { return _mm_set1_epi8(inverted(byte)); }

// "." (index 0) and "," (index 1).
alignas(16) inline constexpr std::uint64_t kMarks[2][2] = {
    {0x0E0E'0E0E'0E0E'0E0E, 0x0E0E'0E0E'0E0E'0E0E}, {0x0C0C'0C0C'0C0C'0C0C, 0x0C0C'0C0C'0C0C'0C0C}};
static_assert(kMarks[0][0] % 256 == inverted('.') && kMarks[1][0] % 256 == inverted(','));

inline __m128i decimal_mark(const Settings& settings) noexcept {
  return _mm_load_si128(reinterpret_cast<const __m128i*>(kMarks[settings.decimal == ',']));
}

// A bit for each byte, the first one's lowest: where truths hold, or where bytes are like others.
inline std::uint32_t mask(__m128i truths) noexcept {
  return static_cast<std::uint32_t>(_mm_movemask_epi8(truths));
}
inline std::uint32_t places(__m128i bytes, __m128i like) noexcept {
  return mask(_mm_cmpeq_epi8(bytes, like));
}

// Closes up a zero so many bytes before the last: those in front of it move up. 16: none do.
inline __m128i without(__m128i digits, std::size_t before_last) noexcept {
  static constexpr std::uint8_t kInFront[48] = {255, 255, 255, 255, 255, 255, 255, 255,
                                                255, 255, 255, 255, 255, 255, 255};
  const auto* in_front = reinterpret_cast<const __m128i*>(kInFront + before_last);
  const __m128i moving = _mm_and_si128(_mm_loadu_si128(in_front), digits);
  return _mm_or_si128(_mm_xor_si128(digits, moving), _mm_slli_si128(moving, 1));
}

// The number that sixteen digits make, bytes of value 0..9.
inline std::int64_t whole(__m128i digits) noexcept {
  const __m128i twos = _mm_srli_epi16(_mm_mullo_epi16(digits, _mm_set1_epi16(10 * 256 + 1)), 8);
  const __m128i fours = _mm_madd_epi16(twos, _mm_set1_epi32(1 << 16 | 100));
  const __m128i words = _mm_packs_epi32(fours, fours);
  const __m128i eights = _mm_madd_epi16(words, _mm_set1_epi32(1 << 16 | 10'000));
  const auto both = static_cast<std::uint64_t>(_mm_cvtsi128_si64(eights));
  return static_cast<std::int64_t>((both & 0xFFFF'FFFF) * 100'000'000 + (both >> 32));
}

struct Digits {
  double number;      // all of them as a whole number, with the sign
  std::size_t after;  // how many stand behind the decimal character
  bool point;         // whether there is one
};

// False when the bytes are no such number. grouping may be null.
[[gnu::always_inline]] inline bool take_digits(__m128i bytes, __m128i decimal,
                                               const __m128i* grouping, Digits& result) noexcept {
  const __m128i values = _mm_xor_si128(bytes, each('0'));
  const __m128i is_digit = _mm_cmpeq_epi8(_mm_min_epu8(values, _mm_set1_epi8(9)), values);
  const std::uint32_t digit = mask(is_digit);
  const std::uint32_t blanks = places(bytes, each(' '));
  const std::uint32_t first = blanks + 1;  // of the text, when blanks are in front only
  const std::uint32_t minus = first & places(bytes, each('-'));
  const std::uint32_t points = places(bytes, decimal);
  std::uint32_t others = (blanks | digit | points) ^ 0xFFFF;
  std::uint32_t wrong = (blanks & first) | (points & (points - 1));
  if (grouping) {
    // One belongs where a digit stands in front and three, or seven ..., bytes up to the point.
    const std::uint32_t groups = places(bytes, *grouping);
    const std::uint32_t end = points != 0 ? points : 0x10000;
    others ^= groups;
    wrong |= groups ^ (end * 0x1111 >> 16 & digit << 1);
  }
  wrong |= others ^ minus;
  if (wrong != 0 || digit - 1 >= 0xFFFE) return false;

  const auto after = static_cast<std::size_t>(std::countl_zero(2 * points + 1) - 15);
  __m128i digits = without(_mm_and_si128(values, is_digit), after);
  if (grouping) {
    const std::size_t end = points != 0 ? after : 0;
    digits = without(digits, end + 3);
    digits = without(digits, end + 6);
    digits = without(digits, end + 9);
  }
  const std::int64_t negative = minus != 0 ? -1 : 0;
  result.number = static_cast<double>((whole(digits) ^ negative) - negative);
  result.after = after;
  result.point = points != 0;
  return true;
}

[[gnu::always_inline]] inline bool take_field(std::string_view field, std::int64_t decimals,
                                              const Settings& settings, __m128i decimal,
                                              const __m128i* grouping, double& value) noexcept {
  Digits digits;
  if (field.size() - 1 >= kWidestAttempt || static_cast<std::uint64_t>(decimals) > 15) return false;
  const __m128i bytes = vector_of(right_aligned(field.data(), field.size()));
  if (!take_digits(bytes, decimal, grouping, digits)) {
    value = settings.blank_value;
    return places(bytes, each(' ')) == 0xFFFF;
  }
  const std::size_t scale = digits.point ? digits.after : static_cast<std::size_t>(decimals);
  value = digits.number / kSmallPowers[scale];
  return true;
}

// x * 10^n is x * kScales[n + 32].up / kScales[n + 32].down.
struct Scale {
  double up;
  double down;
};
inline constexpr std::int64_t kFarthest = kSmallPowers.size() - 1;
inline constexpr auto kScales = [] {
  std::array<Scale, 2 * kFarthest + 1> scales = {};
  for (std::size_t n = 0; n < kSmallPowers.size(); ++n) {
    scales[kFarthest - n] = {1, kSmallPowers[n]};
    scales[kFarthest + n] = {kSmallPowers[n], 1};
  }
  return scales;
}();

}  // namespace number_fast

// F and PCT.
inline bool try_fixed(std::string_view field, std::int64_t decimals, FormatCode,
                      const Settings& settings, double& value) noexcept {
  using namespace number_fast;
  return take_field(field, decimals, settings, decimal_mark(settings), nullptr, value);
}

// COMMA and DOLLAR.
inline bool try_grouped(std::string_view field, std::int64_t decimals, FormatCode,
                        const Settings& settings, double& value) noexcept {
  using namespace number_fast;
  const __m128i grouping = each(',');
  return take_field(field, decimals, settings, each('.'), &grouping, value);
}

// DOT.
inline bool try_dotted(std::string_view field, std::int64_t decimals, FormatCode,
                       const Settings& settings, double& value) noexcept {
  using namespace number_fast;
  const __m128i grouping = each('.');
  return take_field(field, decimals, settings, each(','), &grouping, value);
}

// COMMA, DOLLAR and DOT without grouping.
inline bool try_ungrouped(std::string_view field, std::int64_t decimals, FormatCode type,
                          const Settings& settings, double& value) noexcept {
  using namespace number_fast;
  const __m128i decimal = each(type == FormatCode::dot ? ',' : '.');
  return take_field(field, decimals, settings, decimal, nullptr, value);
}

// E.
inline bool try_exponential(std::string_view field, std::int64_t, FormatCode,
                            const Settings& settings, double& value) noexcept {
  using namespace number_fast;
  if (field.size() - 1 >= kWidestAttempt) return false;
  const Words words = right_aligned(field.data(), field.size());
  // The last five bytes less "E+000": the letter's case (20), 6 for a minus, 0, two digits.
  const std::uint64_t tail = words.high >> 24 ^ 0x1010'100B'65;
  const std::uint64_t over =
      tail + 0x0606'0002'00;  // 8 for a minus and no 4 there; digits below 16
  if (((tail & 0xF0F0'FFF9'DF) | (over & 0xF0F0'0004'00)) != 0) return false;
  Digits digits;
  const __m128i mantissa = _mm_slli_si128(vector_of(words), 5);
  if (!take_digits(mantissa, decimal_mark(settings), nullptr, digits)) return false;
  const auto exponent = static_cast<std::int64_t>((tail >> 24) * (10 * 256 + 1) >> 8 & 255);
  const std::int64_t negative = (over & 0x0800) != 0 ? -1 : 0;
  const auto after = static_cast<std::int64_t>(digits.point ? digits.after : 0);
  const std::int64_t row = (exponent ^ negative) - negative - after + kFarthest;
  if (static_cast<std::uint64_t>(row) >= kScales.size()) return false;
  const Scale& scale = kScales[static_cast<std::size_t>(row)];
  value = digits.number * scale.up / scale.down;
  return true;
}

#else

// Without vectors the scanner reads all.
inline bool no_try(std::string_view, std::int64_t, FormatCode, const Settings&, double&) noexcept {
  return false;
}
inline constexpr auto try_fixed = no_try;
inline constexpr auto try_grouped = no_try;
inline constexpr auto try_dotted = no_try;
inline constexpr auto try_ungrouped = no_try;
inline constexpr auto try_exponential = no_try;

#endif

}  // namespace iocv
