// The ordinary number field, read sixteen bytes at once.
//
// An attempt answers for a field of 1..16 bytes that holds, behind any blanks, an optional "-" and
// digits with at most one decimal character, under 0..15 implied decimals; for COMMA, DOLLAR and
// DOT also with grouping characters between threes; for E, from 8 bytes on, it must end in an
// exponent from E-099 to E+099 that leaves a scale of 10^-32 to 10^32. A blank field has the blank
// value. The number is the scanner's bit for bit: up to fifteen digits make a whole number below
// 2^53, to which chunks of nine add up exactly, too; of sixteen, both round the sum once (999999999
// x 10^7 is still a double). Then both multiply or divide once by the same power of ten, attempts
// also by 1 instead of choosing, and neither gives a zero a sign.
#pragma once

#include <array>
#include <bit>
#include <cstdint>

#include "frame/format_code.h"
#include "frame/settings.h"
#include "frame/text_vector.h"
#include "numeric/powers.h"

namespace iocv {

#if defined(__SSE2__)

namespace number_fast {

using namespace text_vector;

// "." (index 0) and "," (index 1).
alignas(16) inline constexpr std::uint64_t kMarks[2][2] = {
    {0x0E0E'0E0E'0E0E'0E0E, 0x0E0E'0E0E'0E0E'0E0E}, {0x0C0C'0C0C'0C0C'0C0C, 0x0C0C'0C0C'0C0C'0C0C}};
static_assert(kMarks[0][0] % 256 == held('.') && kMarks[1][0] % 256 == held(','));

inline __m128i decimal_mark(const Settings& settings) noexcept {
  return _mm_load_si128(reinterpret_cast<const __m128i*>(kMarks[settings.decimal == ',']));
}

struct Digits {
  double number;      // all of them as a whole number, with the sign
  std::size_t after;  // how many stand behind the decimal character, 16 without one
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
  if (wrong != 0 || digit == 0) return false;

  // The leading zeros less 15, as the bit scan gives them.
  const auto after = 16 - (static_cast<std::uint32_t>(std::countl_zero(2 * points + 1)) ^ 31);
  __m128i digits = without(_mm_and_si128(values, is_digit), after);
  if (grouping) {
    const std::size_t end = after % 16;
    digits = without(digits, end + 3);
    digits = without(digits, end + 6);
    digits = without(digits, end + 9);
  }
  const std::int64_t unsign = minus == 0 ? -1 : 0;
  result.number = static_cast<double>(unsign - (whole(digits) ^ unsign));
  result.after = after;
  return true;
}

[[gnu::always_inline]] inline bool take_field(const char* field, std::int64_t width,
                                              std::int64_t decimals, const Settings& settings,
                                              __m128i decimal, const __m128i* grouping,
                                              double& value) noexcept {
  __m128i bytes;
  if (!load(field, width, bytes) || static_cast<std::uint64_t>(decimals) > 15) return false;
  Digits digits;
  if (!take_digits(bytes, decimal, grouping, digits)) {
    value = settings.blank_value;
    return places(bytes, each(' ')) == 0xFFFF;
  }
  const std::size_t scale = digits.after != 16 ? digits.after : static_cast<std::size_t>(decimals);
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
inline bool try_fixed(const char* field, std::int64_t width, std::int64_t decimals, FormatCode,
                      const Settings& settings, double& value) noexcept {
  using namespace number_fast;
  return take_field(field, width, decimals, settings, decimal_mark(settings), nullptr, value);
}

// COMMA and DOLLAR.
inline bool try_grouped(const char* field, std::int64_t width, std::int64_t decimals, FormatCode,
                        const Settings& settings, double& value) noexcept {
  using namespace number_fast;
  const __m128i grouping = each(',');
  return take_field(field, width, decimals, settings, each('.'), &grouping, value);
}

// DOT.
inline bool try_dotted(const char* field, std::int64_t width, std::int64_t decimals, FormatCode,
                       const Settings& settings, double& value) noexcept {
  using namespace number_fast;
  const __m128i grouping = each('.');
  return take_field(field, width, decimals, settings, each(','), &grouping, value);
}

// COMMA, DOLLAR and DOT without grouping.
inline bool try_ungrouped(const char* field, std::int64_t width, std::int64_t decimals,
                          FormatCode type, const Settings& settings, double& value) noexcept {
  using namespace number_fast;
  const __m128i decimal = each(type == FormatCode::dot ? ',' : '.');
  return take_field(field, width, decimals, settings, decimal, nullptr, value);
}

// E.
inline bool try_exponential(const char* field, std::int64_t width, std::int64_t, FormatCode,
                            const Settings& settings, double& value) noexcept {
  using namespace number_fast;
  if (width < 8 || width > kWidest) return false;
  // The last five bytes less "e+000": the letter's case (20), 6 for a minus, 0, two digits.
  const std::uint64_t tail = load8(field + width - 8) >> 24 ^ 0x3030'302B'65;
  const std::uint64_t over = tail + 0x0606'0002'00;  // 8 for a minus and no 4; digits below 16
  if (((tail & 0xF0F0'FFF9'DF) | (over & 0xF0F0'0004'00)) != 0) return false;
  const auto magnitude = static_cast<std::int64_t>((tail >> 24) * (10 * 256 + 1) >> 8 & 255);
  const std::int64_t negative = static_cast<std::int64_t>(over << 52) >> 63;  // the 8 as all bits
  const std::int64_t exponent = (magnitude ^ negative) - negative;
  Digits digits;
  const __m128i mantissa = _mm_slli_si128(load_wide(field, width), 5);
  if (!take_digits(mantissa, decimal_mark(settings), nullptr, digits)) return false;
  const auto after = static_cast<std::int64_t>(digits.after % 16);
  const std::int64_t row = exponent - after + kFarthest;
  if (static_cast<std::uint64_t>(row) >= kScales.size()) return false;
  const Scale& scale = kScales[static_cast<std::size_t>(row)];
  value = digits.number * scale.up / scale.down;
  return true;
}

#else

// Without vectors the scanner reads all.
inline bool no_try(const char*, std::int64_t, std::int64_t, FormatCode, const Settings&,
                   double&) noexcept {
  return false;
}
inline constexpr auto try_fixed = no_try;
inline constexpr auto try_grouped = no_try;
inline constexpr auto try_dotted = no_try;
inline constexpr auto try_ungrouped = no_try;
inline constexpr auto try_exponential = no_try;

#endif

}  // namespace iocv
