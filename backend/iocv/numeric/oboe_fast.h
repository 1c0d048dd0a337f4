// The fast path of E for ordinary numbers.
//
// It answers for 9 to 16 columns, 0 to 6 decimals that have room with the sign, and a value other
// than the system-missing number with a magnitude in [10^-25, 10^25) whose mantissa does not round
// up to ten. The exponent is decimal_exponent's: below 1 the same product with 10^32 is looked up,
// and the power of two below a number leaves two candidates. The mantissa is the same product as
// that of scale_by_power. Its last digit is settled by truncating it plus a half, moved up where
// the fraction is within 4096 units in the last place of 1, that is 2^-41: adding a hair less than
// 2^-41 moves just these to the next whole number. The text has the same columns for all numbers of
// a sign.
#pragma once

#include "numeric/encdcc_fast.h"
#include "numeric/powers.h"

namespace iocv {

struct alignas(64) ExponentialLayout {
  double limit;                 // of the scaled mantissa, safely below rounding up to ten
  std::uint64_t decimals;       // the bytes of the decimals, as the last of eight columns
  std::uint64_t point;          // 1 in the byte of the decimal character there
  std::array<Columns, 2> text;  // all else, by sign
};

struct ExponentialTables {
  static constexpr double kLeast = 1e-25;
  static constexpr double kMost = 1e25;
  static constexpr int kLowest = -26;  // of the exponents of factors
  static constexpr int kHighest = 32;

  std::array<ExponentialLayout, kFastDecimals + 1> layouts = make_layouts();
  std::array<double, kHighest - kLowest + 1> factors = make_factors();
  std::array<double, 2> lifts = {1, 1e32};  // of a number of at least 1, and below

  static constexpr std::array<double, kHighest - kLowest + 1> make_factors() {
    std::array<double, kHighest - kLowest + 1> factors = {};
    for (int n = kLowest; n <= kHighest; ++n) {
      factors[static_cast<std::size_t>(n - kLowest)] =
          n < 0 ? 1 / kSmallPowers[static_cast<std::size_t>(-n)]
                : kSmallPowers[static_cast<std::size_t>(n)];
    }
    return factors;
  }

  static constexpr std::uint64_t byte_at(std::size_t column, std::size_t digit, bool negative) {
    if (column == digit + 1) return 0;  // the decimal character
    if (column == 11) return 'E';
    if (column == 12) return '+';
    if (column >= digit) return '0';
    return negative && column + 1 == digit ? '-' : ' ';
  }

  static constexpr std::array<ExponentialLayout, kFastDecimals + 1> make_layouts() {
    std::array<ExponentialLayout, kFastDecimals + 1> layouts = {};
    for (std::size_t d = 0; d <= kFastDecimals; ++d) {
      ExponentialLayout& layout = layouts[d];
      layout.limit = kSmallPowers[d + 1] - 0.5 - 0x1p-20;
      layout.decimals = d == 0 ? 0 : kAllBits << (64 - 8 * d);
      layout.point = std::uint64_t{1} << (56 - 8 * d);
      for (std::size_t column = 0; column < kFastWidth; ++column) {
        for (std::size_t negative = 0; negative < 2; ++negative) {
          Columns& text = layout.text[negative];
          (column < 8 ? text.left : text.right) |= byte_at(column, 9 - d, negative != 0)
                                                   << (column % 8 * 8);
        }
      }
    }
    return layouts;
  }
};

inline constexpr ExponentialTables kExponentialTables;

// floor(n log10(2)), for n of a number in [10^-26, 10^26).
constexpr std::int64_t decimals_of_binary(std::int64_t n) noexcept { return n * 1233 >> 12; }

// Between 2^n and 2^(n + 1) at most one new exponent begins, and no power of ten is so near to
// either that the product with 10^32 could round across it.
static_assert([] {
  constexpr double kApart = 1 + 0x1p-40;
  for (std::int64_t n = -84; n <= 83; ++n) {
    double lifted = 1e32;  // 2^n * 10^32
    for (std::int64_t i = 0; i < n; ++i) lifted *= 2;
    for (std::int64_t i = 0; i > n; --i) lifted /= 2;
    double power = 1e32;  // 10^(32 + the least exponent)
    for (std::int64_t i = 0; i < decimals_of_binary(n); ++i) power *= 10;
    for (std::int64_t i = 0; i > decimals_of_binary(n); --i) power /= 10;
    if (lifted < (n == 0 ? power : power * kApart)) return false;
    if (2 * lifted * kApart > 100 * power) return false;
  }
  return true;
}());

// False, with the field as it was, when the number is not an ordinary one.
template <class Source>
[[gnu::always_inline]] inline bool write_exponential_fast(char* field, std::int64_t columns,
                                                          double value, std::int64_t places,
                                                          Source settings) noexcept {
  if constexpr (!kHasFastPaths) return false;
  const auto width = static_cast<std::uint64_t>(columns);
  const auto decimals = static_cast<std::uint64_t>(places);
  if (width - 9 >= 8 || decimals > kFastDecimals) return false;
  const ExponentialTables& tables = *in_register(&kExponentialTables);
  const ExponentialLayout& layout = *in_register(&tables.layouts[decimals]);
  const std::uint64_t negative = std::bit_cast<std::uint64_t>(value) >> 63;
  if (width < 7 + decimals + negative || value == settings().system_missing) return false;
  const double a = std::fabs(value);
  if (!(a >= ExponentialTables::kLeast && a < ExponentialTables::kMost)) return false;

  const std::uint64_t small = a < 1 ? 1 : 0;
  const double lifted = a * tables.lifts[small];  // [1, 10^32]
  const std::int64_t least =
      decimals_of_binary(static_cast<std::int64_t>(std::bit_cast<std::uint64_t>(a) >> 52) - 1023);
  const auto next = static_cast<std::size_t>(least + 1) + 32 * small;
  const std::int64_t exponent = least + (lifted >= kSmallPowers[next] ? 1 : 0);  // [-25, 25]
  const double scaled = a * tables.factors[decimals - static_cast<std::uint64_t>(exponent) -
                                           static_cast<std::uint64_t>(ExponentialTables::kLowest)];
  if (!(scaled < layout.limit)) return false;
  constexpr double kAlmostTolerance = 0x1p-41 - 0x1p-55;
  const auto number = static_cast<std::uint32_t>(
      static_cast<std::int64_t>(scaled + 0.5 + kAlmostTolerance));  // 1 + decimals digits

  const std::uint64_t digits = kFixedTables.eight(number);
  const std::uint64_t fraction = digits & layout.decimals;
  const std::uint64_t mantissa = ((digits ^ fraction) >> 8 | fraction) +
                                 layout.point * static_cast<unsigned char>(settings().decimal);
  const std::uint64_t below = exponent < 0 ? 1 : 0;
  const auto magnitude = static_cast<std::uint32_t>(exponent < 0 ? -exponent : exponent);
  const std::uint64_t shown = kFixedTables.three(magnitude) << 32 | below * ('-' - '+') << 32;
  const Columns& text = layout.text[negative];
  store_wide(
      field, width,
      {.left = (mantissa << 24) + text.left, .right = (mantissa >> 40) + shown + text.right});
  return true;
}

}  // namespace iocv
