// The fast path of E for ordinary numbers.
//
// It answers for 7 to 16 columns, 0 to 6 decimals that have room with the sign, and a value other
// than the system-missing number with a magnitude in [2^-83, 2^83) whose mantissa does not round up
// to ten. The power of two below a number leaves two exponents that decimal_exponent may give; the
// least number of which it gives the second, found by its own arithmetic, decides. The mantissa is
// the same product as that of scale_by_power. Its last digit is settled by truncating it plus a
// half, moved up where the fraction is within 4096 units in the last place of 1, that is 2^-41:
// adding a hair less than 2^-41 moves just these to the next whole number. The text has the same
// columns for all numbers of a sign.
#pragma once

#include "numeric/encdcc_fast.h"
#include "numeric/powers.h"

namespace iocv {

#if defined(__SSE2__)

// What a number of decimals means in sixteen columns.
struct ExponentialLayout {
  double limit;                // of the scaled mantissa, safely below rounding up to ten
  Text staying;                // all bits in what is not moved: the decimals
  std::array<Text, 2> around;  // all but digits and the decimal character, by sign
};

struct ExponentialTables {
  static constexpr int kLeast = -25;  // of the exponents written
  static constexpr int kMost = 25;
  static constexpr std::size_t kExponentColumns = 5;
  static constexpr std::size_t kMantissaEnd = kFastWidth - kExponentColumns;

  std::array<ExponentialLayout, kFastDecimals + 1> layouts = make_layouts();
  // 10^n for n = kLeast - kFastDecimals .. -kLeast + kFastDecimals
  static constexpr int kFarthest = kMost + static_cast<int>(kFastDecimals);
  std::array<double, 2 * kFarthest + 1> powers = make_powers();
  std::array<double, kMost - kLeast + 2> starts = make_starts();
  std::array<std::uint32_t, kMost - kLeast + 1> exponents = make_exponents();

  static constexpr std::array<double, 2 * kFarthest + 1> make_powers() {
    std::array<double, 2 * kFarthest + 1> powers = {};
    for (std::size_t n = 0; n <= kFarthest; ++n) {
      powers[kFarthest + n] = kSmallPowers[n];
      if (n != 0) powers[kFarthest - n] = 1 / kSmallPowers[n];
    }
    return powers;
  }

  // The least numbers of which decimal_exponent gives an exponent; below 1 it multiplies by 10^32.
  static constexpr std::array<double, kMost - kLeast + 2> make_starts() {
    constexpr std::size_t kZero = -kLeast;
    std::array<double, kMost - kLeast + 2> starts = {};
    for (std::size_t i = kZero; i < starts.size(); ++i) starts[i] = kSmallPowers[i - kZero];
    for (std::size_t i = 0; i < kZero; ++i) {
      const double lifted = kSmallPowers[32 - (kZero - i)];
      auto bits = std::bit_cast<std::uint64_t>(1 / kSmallPowers[kZero - i]) - 4;
      while (std::bit_cast<double>(bits) * 1e32 < lifted) ++bits;
      starts[i] = std::bit_cast<double>(bits);
    }
    return starts;
  }

  // Two more in byte 0 make a minus of a plus; then the digits.
  static constexpr std::array<std::uint32_t, kMost - kLeast + 1> make_exponents() {
    std::array<std::uint32_t, kMost - kLeast + 1> exponents = {};
    for (int n = kLeast; n <= kMost; ++n) {
      const auto magnitude = static_cast<std::uint32_t>(n < 0 ? -n : n);
      exponents[static_cast<std::size_t>(n - kLeast)] =
          magnitude / 10 << 16 | magnitude % 10 << 24 | (n < 0 ? '-' - '+' : 0);
    }
    return exponents;
  }

  static constexpr std::array<ExponentialLayout, kFastDecimals + 1> make_layouts() {
    std::array<ExponentialLayout, kFastDecimals + 1> layouts = {};
    for (std::size_t d = 0; d <= kFastDecimals; ++d) {
      ExponentialLayout& layout = layouts[d];
      layout.limit = kSmallPowers[d + 1] - 0.5 - 0x1p-20;
      for (std::size_t column = kMantissaEnd - d; column < kMantissaEnd; ++column) {
        layout.staying.columns[column] = 0xFF;
      }
      const std::size_t first = kMantissaEnd - 2 - d;
      for (std::size_t i = 0; i < kFastWidth; ++i) {
        const char byte = i == kMantissaEnd       ? 'E'
                          : i == kMantissaEnd + 1 ? '+'
                          : i < first             ? ' '
                                                  : '0';
        layout.around[0].columns[i] = layout.around[1].columns[i] = static_cast<std::uint8_t>(byte);
      }
      layout.around[1].columns[first - 1] = '-';
    }
    return layouts;
  }
};

inline constexpr ExponentialTables kExponentialTables;

// floor(n log10(2)), for n of a number in [2^-83, 2^83).
constexpr std::int64_t decimals_of_binary(std::int64_t n) noexcept { return n * 1233 >> 12; }
inline constexpr std::int64_t kFarthestBinary = 83;

// Between 2^n and 2^(n + 1) at most one new exponent begins.
static_assert([] {
  for (std::int64_t n = -kFarthestBinary; n < kFarthestBinary; ++n) {
    double low = 1;
    for (std::int64_t i = 0; i < n; ++i) low *= 2;
    for (std::int64_t i = 0; i > n; --i) low /= 2;
    const auto least = static_cast<std::size_t>(decimals_of_binary(n) - ExponentialTables::kLeast);
    if (low < kExponentialTables.starts[least]) return false;
    if (least + 2 < kExponentialTables.starts.size() &&
        2 * low > kExponentialTables.starts[least + 2])
      return false;
  }
  return true;
}());

// Writes numbers of one format under the settings at its making, a column of them as well as one.
class ExponentialWriter {
 public:
  // False when it writes nothing of such a format.
  template <class Source>
  [[gnu::always_inline]] static bool make(std::int64_t width, std::int64_t places, Source settings,
                                          ExponentialWriter& writer) noexcept {
    const auto decimals = static_cast<std::uint64_t>(places);
    if (static_cast<std::uint64_t>(width) > kFastWidth || decimals > kFastDecimals) return false;
    writer.width_ = width;
    writer.decimals_ = places;
    writer.tables_ = in_register(&kExponentialTables);
    writer.layout_ = in_register(&writer.tables_->layouts[decimals]);
    writer.system_missing_ = settings().system_missing;
    writer.decimal_ = settings().decimal;
    return true;
  }

  // False, with the field as it was, when the number is not an ordinary one.
  [[gnu::always_inline]] bool operator()(char* field, double value) const noexcept {
    const std::uint64_t bits = std::bit_cast<std::uint64_t>(value);
    const std::uint64_t negative = bits >> 63;
    const std::int64_t point = width_ - 6 - decimals_;
    if (point <= static_cast<std::int64_t>(negative)) return false;
    const std::int64_t binary = static_cast<std::int64_t>(bits << 1 >> 53) - 1023;
    if (static_cast<std::uint64_t>(binary + kFarthestBinary) >= 2 * kFarthestBinary) return false;
    const double a = std::fabs(value);
    const std::int64_t least = decimals_of_binary(binary);
    const std::int64_t exponent =
        least +
        (a >= tables_->starts[static_cast<std::size_t>(least + 1 - ExponentialTables::kLeast)] ? 1
                                                                                               : 0);
    const double scaled =
        a *
        tables_
            ->powers[static_cast<std::size_t>(decimals_ - exponent + ExponentialTables::kFarthest)];
    if (!(scaled < layout_->limit)) return false;
    constexpr double kAlmostTolerance = 0x1p-41 - 0x1p-55;
    const auto number = static_cast<std::uint32_t>(
        static_cast<std::int32_t>(scaled + 0.5 + kAlmostTolerance));  // 1 + decimals digits
    if (value == system_missing_) return false;

    const __m128i shown = _mm_cvtsi32_si128(static_cast<int>(
        tables_->exponents[static_cast<std::size_t>(exponent - ExponentialTables::kLeast)]));
    const __m128i around =
        _mm_add_epi8(_mm_slli_si128(shown, 12), layout_->around[negative].vector());
    const __m128i staying = layout_->staying.vector();
    const __m128i digits =
        _mm_srli_si128(kNumberTables.nine_digits(number), ExponentialTables::kExponentColumns);
    store_columns(field, width_, _mm_add_epi8(opened(digits, staying), around));
    field[point] = decimal_;
    return true;
  }

 private:
  std::int64_t width_;
  std::int64_t decimals_;
  const ExponentialTables* tables_;
  const ExponentialLayout* layout_;
  double system_missing_;
  char decimal_;
};

#else

class ExponentialWriter {
 public:
  template <class Source>
  static bool make(std::int64_t, std::int64_t, Source, ExponentialWriter&) noexcept {
    return false;
  }
  bool operator()(char*, double) const noexcept { return false; }
};

#endif

}  // namespace iocv
