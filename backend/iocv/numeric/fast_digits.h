// What the fast paths of the numeric writers share: rounding, and digits as columns of a vector.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

#include "frame/in_register.h"
#include "numeric/fuzzy.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace iocv {

// On machines without such vectors the plain paths do all the work.
#if defined(__SSE2__)
inline constexpr bool kHasFastPaths = true;
#else
inline constexpr bool kHasFastPaths = false;
#endif

// The widest field and the most decimals of the fast paths.
inline constexpr std::size_t kFastWidth = 16;
inline constexpr std::size_t kFastDecimals = 6;

// Each fast path of text has forms for numbers of so many digits, tried one after the other; eleven
// digits are those of F and PCT.
enum class Reach { nine_digits, eleven_digits, sixteen_digits };

// The type of numbers within a reach; arithmetic with the shorter one is cheaper.
template <Reach kReach>
using Number = std::conditional_t<kReach == Reach::nine_digits, std::uint32_t, std::uint64_t>;
template <Reach kReach>
using SignedNumber = std::make_signed_t<Number<kReach>>;

// The widths of the fields of a form.
struct Widths {
  std::uint64_t least;
  std::uint64_t most;
};

// Numbers of which nine digits fill the field are settled by the first form; where many more have
// room, only the last is tried, so that numbers of any length take the same way.
template <Reach kReach>
inline constexpr Widths kWidths =
    kReach == Reach::nine_digits ? Widths{1, 12} : Widths{10, kFastWidth};

constexpr bool serves(Widths widths, std::int64_t width, std::int64_t decimals) noexcept {
  return static_cast<std::uint64_t>(width) - widths.least <= widths.most - widths.least &&
         static_cast<std::uint64_t>(decimals) <= kFastDecimals;
}

#if defined(__SSE2__)

// From here on 4096 units in the last place are a half at least, and every fraction rounds up.
inline constexpr double kAllUp = 0x1p39;
// From here on not every whole number is a double.
inline constexpr double kNotAllWhole = 0x1p53;

// A double so many units in the last place further from 0 as count as none.
inline double fuzzed(double x) noexcept {
  struct alignas(16) Units {
    std::int64_t units[2];
  };
  static constexpr Units kUnits = {{kFuzz, 0}};
  asm("paddq %1, %0" : "+x"(x) : "m"(kUnits));
  return x;
}

// a as fuzzy_rel_round(a), given 2a below the limits of the reach. Below kAllUp it is not compared
// with the half: 2a moved up by 4096 units and truncated is odd exactly if a rounds up with that
// tolerance, as long as 4096 units of 2a are less than a half of it.
template <Reach kReach>
Number<kReach> rounded(double twice) noexcept {
  if (kReach != Reach::sixteen_digits || twice < 2 * kAllUp) {
    const auto doubled = static_cast<SignedNumber<kReach>>(fuzzed(twice));
    return (static_cast<Number<kReach>>(doubled) + 1) / 2;
  }
  const double a = twice / 2;
  const auto whole = static_cast<SignedNumber<kReach>>(a);
  return static_cast<Number<kReach>>(whole) + (static_cast<double>(whole) < a ? 1 : 0);
}

// Where no number has room.
inline constexpr std::uint8_t kNoRoom = kFastWidth + 1;

// Exact limits of 2a for which a rounds to a number of at most so many digits. Not-a-number and the
// infinities are not below any of them, no number is below that of kNoRoom.
using Limits = std::array<double, kNoRoom + 1>;

constexpr Limits make_limits(std::size_t most_digits) {
  Limits limits = {};
  double power = 1;
  for (std::size_t digits = 0; digits <= kFastWidth; ++digits) {
    if (power < kAllUp) {
      const double first_too_long = 2 * power - 1;  // as a number moved up
      limits[digits] = std::bit_cast<double>(std::bit_cast<std::int64_t>(first_too_long) - kFuzz);
    } else {
      const double longest = 2 * (power - 1);
      limits[digits] = std::min(std::bit_cast<double>(std::bit_cast<std::int64_t>(longest) + 1),
                                2 * kNotAllWhole);
    }
    if (digits < most_digits) power *= 10;
  }
  return limits;
}

// Sixteen columns, the last ones of a field.
struct alignas(16) Text {
  std::array<std::uint8_t, kFastWidth> columns = {};

  [[nodiscard]] __m128i vector() const noexcept {
    return _mm_load_si128(reinterpret_cast<const __m128i*>(columns.data()));
  }
};

// What makes text of digits when it is added: blanks before the column of the first digit shown, in
// the last of them a prefix, before it the minus sign of a negative number, from there on '0'. The
// index is twice that column, and one more for a negative number.
using Templates = std::array<Text, 2 * kFastWidth>;

constexpr Templates make_templates(std::string_view prefix) {
  Templates templates = {};
  for (std::size_t i = 0; i < templates.size(); ++i) {
    const std::size_t first = i / 2;
    const std::size_t before = first - std::min(first, prefix.size());
    auto& columns = templates[i].columns;
    for (std::size_t column = 0; column < kFastWidth; ++column) {
      const char byte = column >= first    ? '0'
                        : column >= before ? prefix[prefix.size() - (first - column)]
                        : i % 2 != 0 && column + 1 == before ? '-'
                                                             : ' ';
      columns[column] = static_cast<std::uint8_t>(byte);
    }
  }
  return templates;
}

// All in one object, so that one register finds them.
struct DigitTables {
  Limits nine_limits = make_limits(9);
  Limits eleven_limits = make_limits(11);
  Limits sixteen_limits = make_limits(16);
  Templates templates = make_templates("");
  std::array<std::uint32_t, 1000> threes = make_threes();

  // Three digits as the numbers 0..9 in bytes 1..3, byte 0 is free.
  static constexpr std::array<std::uint32_t, 1000> make_threes() {
    std::array<std::uint32_t, 1000> threes = {};
    for (std::uint32_t i = 0; i < 1000; ++i) {
      threes[i] = (i / 100) << 8 | (i / 10 % 10) << 16 | (i % 10) << 24;
    }
    return threes;
  }

  template <Reach kReach>
  [[nodiscard]] const Limits& limits() const noexcept {
    return kReach == Reach::nine_digits     ? nine_limits
           : kReach == Reach::eleven_digits ? eleven_limits
                                            : sixteen_limits;
  }

  [[nodiscard]] __m128i three(std::uint64_t n) const noexcept {
    return _mm_cvtsi32_si128(static_cast<int>(threes[n]));
  }

  // The digits of a number below 10^9, as numbers in the last columns. The products are its
  // quotients by 1000 and 1000000, exactly.
  [[nodiscard]] __m128i nine_digits(std::uint32_t number) const noexcept {
    const std::uint64_t n = number;
    const std::uint64_t thousands = n * 0x1062'4DD3 >> 38;
    const std::uint64_t millions = n * 0x431B'DE83 >> 50;
    return _mm_or_si128(_mm_or_si128(_mm_slli_si128(three(n - 1000 * thousands), 12),
                                     _mm_slli_si128(three(thousands - 1000 * millions), 9)),
                        _mm_slli_si128(three(millions), 6));
  }

  // The same below 10^11. The product with the number less its last bits is the quotient by a
  // million, exactly.
  [[nodiscard]] __m128i eleven_digits(std::uint64_t number) const noexcept {
    const std::uint64_t millions = (number >> 6) * 0x8637'BD06 >> 45;
    const std::uint64_t rest = number - 1'000'000 * millions;
    const std::uint64_t thousands = rest * 0x1062'4DD3 >> 38;
    const std::uint64_t high = millions * 0x1062'4DD3 >> 38;
    return _mm_or_si128(_mm_or_si128(_mm_slli_si128(three(rest - 1000 * thousands), 12),
                                     _mm_slli_si128(three(thousands), 9)),
                        _mm_or_si128(_mm_slli_si128(three(millions - 1000 * high), 6),
                                     _mm_slli_si128(three(high), 3)));
  }

  // The same below 10^16.
  [[nodiscard]] __m128i sixteen_digits(std::uint64_t number) const noexcept {
    const std::uint64_t high = number / 100'000'000;
    const std::uint64_t low = number - 100'000'000 * high;
    return _mm_or_si128(_mm_srli_si128(nine_digits(static_cast<std::uint32_t>(high)), 8),
                        nine_digits(static_cast<std::uint32_t>(low)));
  }

  // As many as a form has.
  template <Reach kReach>
  [[nodiscard]] __m128i digits(Number<kReach> number) const noexcept {
    if constexpr (kReach == Reach::nine_digits) {
      return nine_digits(number);
    } else if constexpr (kReach == Reach::eleven_digits) {
      return eleven_digits(number);
    } else {
      return sixteen_digits(number);
    }
  }
};

// Moves what does not stay one column to the left.
inline __m128i opened(__m128i digits, __m128i staying) noexcept {
  const __m128i stays = _mm_and_si128(digits, staying);
  return _mm_or_si128(_mm_srli_si128(_mm_xor_si128(digits, stays), 1), stays);
}

// The first column with a digit above 0 or a bit in latest, where the first column's is the lowest.
inline std::uint32_t first_shown(__m128i digits, std::uint32_t latest) noexcept {
  const int above_zero = _mm_movemask_epi8(_mm_cmpgt_epi8(digits, _mm_setzero_si128()));
  return static_cast<std::uint32_t>(__builtin_ctz(static_cast<std::uint32_t>(above_zero) | latest));
}

template <class Word>
void store_word(char* first, std::uint64_t word) noexcept {
  const auto part = static_cast<Word>(word);
  std::memcpy(first, &part, sizeof part);
}

// Stores the last columns of a text, as many as the field has, [1, 16]; never a byte outside. Two
// words may overlap. What is added is for the last eight columns.
inline void store_columns(char* field, std::int64_t columns, __m128i text,
                          std::uint64_t added = 0) noexcept {
  const auto width = static_cast<std::uint64_t>(columns);
  const auto left = static_cast<std::uint64_t>(_mm_cvtsi128_si64(text));
  const std::uint64_t right =
      static_cast<std::uint64_t>(_mm_cvtsi128_si64(_mm_unpackhi_epi64(text, text))) + added;
  // The shifts are by 64, or 128, bits less those of the field.
  if (width > 8) {
    __extension__ using Both = unsigned __int128;
    const Both both = static_cast<Both>(right) << 64 | left;
    store_word<std::uint64_t>(field + width - 8, right);
    return store_word<std::uint64_t>(field,
                                     static_cast<std::uint64_t>(both >> ((0 - 8 * width) & 63)));
  }
  if (width == 8) return store_word<std::uint64_t>(field, right);
  const std::uint64_t first = right >> ((0 - 8 * width) & 63);
  if (width >= 4) {
    store_word<std::uint32_t>(field, first);
    store_word<std::uint32_t>(field + width - 4, right >> 32);
  } else if (width >= 2) {
    store_word<std::uint16_t>(field, first);
    store_word<std::uint16_t>(field + width - 2, right >> 48);
  } else {
    *field = static_cast<char>(first);
  }
}

#endif

}  // namespace iocv
