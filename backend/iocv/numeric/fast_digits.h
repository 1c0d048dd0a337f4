// What the fast paths of the numeric writers share: rounding and digits as bytes of words.
//
// Words hold columns in storage order, the leftmost in the lowest byte, so these paths are for
// little-endian machines; on others the plain paths do all the work.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "numeric/fuzzy.h"

namespace iocv {

inline constexpr bool kHasFastPaths = std::endian::native == std::endian::little;

// The widest field and the most decimals of the fast paths.
inline constexpr std::uint64_t kFastWidth = 16;
inline constexpr std::uint64_t kFastDecimals = 6;

// Each fast path of text has forms for ever longer texts, tried one after the other: up to eight
// columns, up to nine digits (before the decimal character, where they are grouped), up to twelve.
enum class Reach { eight_columns, nine_digits, twelve_digits, sixteen_digits };

constexpr bool reaches(Reach reach, std::uint64_t width) noexcept {
  return reach == Reach::eight_columns ? width - 1 < 8 : width - 9 < 8;
}

// A magnitude a is rounded without comparing it with the half: 2a moved up by 4096 units in the
// last place and truncated is odd exactly if a rounds up with that tolerance, as long as 4096 units
// of 2a are less than a half. That holds below this limit.
inline constexpr double kFastTwice = 0x1p40;

inline double fuzzed(double twice) noexcept {
  return std::bit_cast<double>(std::bit_cast<std::int64_t>(twice) + kFuzz);
}

// a, given 2a in [0, kFastTwice), as fuzzy_rel_round(a).
inline std::uint64_t fast_rounded(double twice) noexcept {
  return static_cast<std::uint64_t>(static_cast<std::int64_t>(fuzzed(twice)) + 1) / 2;
}

// Exact limits of 2a for which a rounds to a number of at most so many digits, and is below 2^39.
// Not-a-number and the infinities are not below any of them.
constexpr std::array<double, kFastWidth + 1> make_twice_limits() {
  std::array<double, kFastWidth + 1> limits = {};
  double power = 1;
  for (double& limit : limits) {
    const double first_too_long = 2 * power - 1;  // as a number moved up
    limit = first_too_long > kFastTwice
                ? kFastTwice
                : std::bit_cast<double>(std::bit_cast<std::int64_t>(first_too_long) - kFuzz);
    power *= 10;
  }
  return limits;
}

// Three digits as the numbers 0..9 in bytes 1..3, byte 0 is free.
constexpr std::array<std::uint32_t, 1000> make_three_digits() {
  std::array<std::uint32_t, 1000> table = {};
  for (std::uint32_t i = 0; i < 1000; ++i) {
    table[i] = (i / 100) << 8 | (i / 10 % 10) << 16 | (i % 10) << 24;
  }
  return table;
}

// The address itself; compilers otherwise work it out anew for each member that is read.
template <class T>
const T* in_register(const T* address) noexcept {
  asm("" : "+r"(address));
  return address;
}

// The columns of a field of 16, or the last 16 - right the last 8 - of one.
struct Columns {
  std::uint64_t left;
  std::uint64_t right;
};

constexpr std::uint64_t in_each_byte(std::uint64_t byte) noexcept {
  return byte * 0x0101'0101'0101'0101;
}

inline constexpr std::uint64_t kAllBits = ~std::uint64_t{0};

// What makes text of digits when it is added: blanks before the column of the first digit shown, in
// the last of them the minus sign of a negative number, from there on '0'. The index is twice that
// column, and one more for a negative number.
constexpr std::array<Columns, 2 * kFastWidth> make_templates() {
  std::array<Columns, 2 * kFastWidth> table = {};
  for (std::size_t i = 0; i < table.size(); ++i) {
    const std::size_t first = i / 2;
    const bool negative = i % 2 != 0;
    for (std::size_t column = 0; column < kFastWidth; ++column) {
      const std::uint64_t byte = column >= first                   ? u8'0'
                                 : negative && column + 1 == first ? u8'-'
                                                                   : u8' ';
      (column < 8 ? table[i].left : table[i].right) |= byte << (column % 8 * 8);
    }
  }
  return table;
}

// All in one object, so that one register finds them.
struct FastTables {
  std::array<double, kFastWidth + 1> twice_limits = make_twice_limits();
  std::array<Columns, 2 * kFastWidth> templates = make_templates();
  std::array<std::uint32_t, 1000> three_digits = make_three_digits();

  [[nodiscard]] std::uint64_t three(std::uint32_t n) const noexcept { return three_digits[n]; }

  // The digits of n, [0, 10^8), as numbers.
  [[nodiscard]] std::uint64_t eight(std::uint32_t n) const noexcept {
    const std::uint32_t thousands = n / 1000;
    const std::uint32_t millions = n / 1'000'000;
    return three(n - 1000 * thousands) << 32 | three(thousands - 1000 * millions) << 8 |
           three(millions) >> 16;
  }

  // The digits of n, [0, 10^9), as numbers.
  [[nodiscard]] Columns nine(std::uint32_t n) const noexcept {
    const std::uint32_t thousands = n / 1000;
    const std::uint32_t millions = n / 1'000'000;
    const std::uint64_t leading = three(millions);
    return {.left = leading << 48,
            .right = three(n - 1000 * thousands) << 32 | three(thousands - 1000 * millions) << 8 |
                     leading >> 16};
  }

  // The digits of n, [0, 10^12), as numbers.
  [[nodiscard]] Columns twelve(std::uint64_t n) const noexcept {
    const auto billions = static_cast<std::uint32_t>(n / 1'000'000'000);
    Columns digits = nine(static_cast<std::uint32_t>(n % 1'000'000'000));
    digits.left |= three(billions) << 24;
    return digits;
  }
};

inline constexpr FastTables kFastTables;

#if defined(__SSE2__)

// Sixteen columns as one vector.
struct alignas(16) Text {
  std::array<std::uint8_t, 16> columns = {};

  [[nodiscard]] __m128i vector() const noexcept {
    return _mm_load_si128(reinterpret_cast<const __m128i*>(columns.data()));
  }
};

// As in FastTables, by column and sign.
constexpr std::array<Text, 2 * kFastWidth> make_texts() {
  std::array<Text, 2 * kFastWidth> table = {};
  for (std::size_t i = 0; i < table.size(); ++i) {
    const std::size_t first = i / 2;
    const bool negative = i % 2 != 0;
    for (std::size_t column = 0; column < kFastWidth; ++column) {
      table[i].columns[column] = column >= first                   ? '0'
                                 : negative && column + 1 == first ? '-'
                                                                   : ' ';
    }
  }
  return table;
}

// The type of numbers within a reach; below 2^31 arithmetic with it is cheaper.
template <Reach kReach>
using Number = std::conditional_t<kReach == Reach::nine_digits, std::uint32_t, std::uint64_t>;

// From here on 4096 units in the last place are a half at least, and every fraction rounds up.
inline constexpr double kAllUp = 0x1p39;
// From here on there are no digits for all whole numbers.
inline constexpr double kNoDigits = 0x1p53;

// Where no number has room.
inline constexpr std::uint8_t kNoRoom = kFastWidth + 1;
using Limits = std::array<double, kNoRoom + 1>;

struct DigitTables {
  // Exact limits of 2a for which a rounds to a number of at most so many digits within the reach;
  // not-a-number and the infinities are not below any, no number is below that of kNoRoom.
  Limits nine_limits = make_limits(9);
  Limits sixteen_limits = make_limits(16);
  std::array<Text, 2 * kFastWidth> templates = make_texts();
  std::array<std::uint32_t, 1000> three_digits = make_three_digits();

  static constexpr Limits make_limits(std::size_t most) {
    Limits limits = {};
    double power = 1;
    for (std::size_t i = 0; i <= kFastWidth; ++i) {
      if (power < kAllUp) {
        limits[i] = std::bit_cast<double>(std::bit_cast<std::int64_t>(2 * power - 1) - kFuzz);
      } else {
        limits[i] = std::min(
            std::bit_cast<double>(std::bit_cast<std::int64_t>(2 * (power - 1)) + 1), 2 * kNoDigits);
      }
      if (i < most) power *= 10;
    }
    return limits;
  }

  template <Reach kReach>
  [[nodiscard]] const Limits& limits() const noexcept {
    return kReach == Reach::nine_digits ? nine_limits : sixteen_limits;
  }

  [[nodiscard]] __m128i three(std::uint64_t n) const noexcept {
    return _mm_cvtsi32_si128(static_cast<int>(three_digits[n]));
  }

  // The digits of n, [0, 10^9), as numbers in the last columns.
  [[nodiscard]] __m128i digits(std::uint32_t number) const noexcept {
    const std::uint64_t n = number;
    const std::uint64_t thousands = n * 0x1062'4DD3 >> 38;
    const std::uint64_t millions = n * 0x431B'DE83 >> 50;
    return _mm_or_si128(_mm_or_si128(_mm_slli_si128(three(n - 1000 * thousands), 12),
                                     _mm_slli_si128(three(thousands - 1000 * millions), 9)),
                        _mm_slli_si128(three(millions), 6));
  }
  // Of n, [0, 10^16).
  [[nodiscard]] __m128i digits(std::uint64_t n) const noexcept {
    const std::uint64_t high = n / 100'000'000;
    const auto low = static_cast<std::uint32_t>(n - 100'000'000 * high);
    const __m128i above = _mm_srli_si128(digits(static_cast<std::uint32_t>(high)), 8);
    return _mm_or_si128(above, digits(low));
  }
};

// 2a, as many units in the last place further up as count as none.
inline double moved_up(double twice) noexcept {
  struct alignas(16) Units {
    std::int64_t units[2];
  };
  static constexpr Units kUnits = {{kFuzz, 0}};
  asm("paddq %1, %0" : "+x"(twice) : "m"(kUnits));
  return twice;
}

// a as fuzzy_rel_round(a), given 2a below the limits of the reach.
template <Reach kReach>
Number<kReach> rounded(double twice) noexcept {
  if constexpr (kReach == Reach::nine_digits) {
    return (static_cast<std::uint32_t>(static_cast<std::int32_t>(moved_up(twice))) + 1) / 2;
  } else {
    if (twice < 2 * kAllUp) {
      return (static_cast<std::uint64_t>(static_cast<std::int64_t>(moved_up(twice))) + 1) / 2;
    }
    const double a = twice / 2;
    const auto whole = static_cast<std::int64_t>(a);
    return static_cast<std::uint64_t>(whole) + (static_cast<double>(whole) < a ? 1 : 0);
  }
}

// A bit for each column with a digit above 0, the first one's lowest.
inline std::uint32_t bits_of_digits(__m128i digits) noexcept {
  return static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_cmpgt_epi8(digits, _mm_setzero_si128())));
}

inline std::uint32_t lowest_bit(std::uint32_t bits) noexcept {
  return static_cast<std::uint32_t>(__builtin_ctz(bits));
}

#endif

// Twice the column of the first byte above 0; there is one, and all bytes are below 16.
inline std::uint64_t twice_first_column(std::uint64_t word) noexcept {
  return static_cast<unsigned>(__builtin_ctzll(word)) / 4;
}

// The same in sixteen columns, without a branch; the right ones have such a byte.
inline std::uint64_t twice_first_column(Columns columns) noexcept {
  const std::uint64_t right = columns.left == 0 ? kAllBits : 0;
  return twice_first_column(columns.left | (columns.right & right)) + (16 & right);
}

template <class Word>
void store_word(char* first, std::uint64_t word) noexcept {
  const auto part = static_cast<Word>(word);
  std::memcpy(first, &part, sizeof part);
}

// Stores the last width columns, [1, 8], of a word: two overlapping parts, never a byte outside.
inline void store_narrow(char* first, std::uint64_t width, std::uint64_t right) noexcept {
  if (width == 8) [[likely]]
    return store_word<std::uint64_t>(first, right);
  const std::uint64_t columns = right >> ((0 - 8 * width) & 63);
  if (width >= 4) {
    store_word<std::uint32_t>(first, columns);
    store_word<std::uint32_t>(first + width - 4, right >> 32);
  } else if (width >= 2) {
    store_word<std::uint16_t>(first, columns);
    store_word<std::uint16_t>(first + width - 2, right >> 48);
  } else {
    *first = static_cast<char>(columns);
  }
}

// The same for a width of [9, 16].
inline void store_wide(char* first, std::uint64_t width, Columns columns) noexcept {
  const std::uint64_t outside = 0 - 8 * width;  // bits of the columns left of the field, modulo 64
  store_word<std::uint64_t>(first,
                            columns.left >> (outside & 63) | columns.right << 1 << (~outside & 63));
  store_word<std::uint64_t>(first + width - 8, columns.right);
}

#if defined(__SSE2__)

// Stores the last width columns, [1, 16], never a byte outside. Added is for the last eight.
inline void store_columns(char* first, std::int64_t columns, __m128i text,
                          std::uint64_t added) noexcept {
  const auto width = static_cast<std::uint64_t>(columns);
  const auto left = static_cast<std::uint64_t>(_mm_cvtsi128_si64(text));
  const std::uint64_t right =
      static_cast<std::uint64_t>(_mm_cvtsi128_si64(_mm_unpackhi_epi64(text, text))) + added;
  if (width > 8) {
    __extension__ using Both = unsigned __int128;
    const Both both = static_cast<Both>(right) << 64 | left;
    store_word<std::uint64_t>(first + width - 8, right);
    return store_word<std::uint64_t>(first,
                                     static_cast<std::uint64_t>(both >> ((0 - 8 * width) & 63)));
  }
  store_narrow(first, width, right);
}

#endif

}  // namespace iocv
