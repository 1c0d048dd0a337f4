// The fast path of write_number for ordinary numbers, threshold 0.
//
// It answers for 1 to 16 columns, 0 to 6 decimals and a value other than the system-missing number
// whose magnitude, scaled by the decimals and rounded, is below 2^53 and has room undivided: all
// decimals, the decimal character, the digits before it and, below zero, the sign; with the leading
// zero asked for, the zero as well. Then the plain path shortens nothing and writes the digits of
// fuzzy_rel_round(|value| * 10^decimals), at most 16 and so all of them. Here 2 * 10^decimals is
// the factor, which doubles the product exactly: so it is rounded without looking for the half (see
// rounded), and one comparison tells that the digits have room; not-a-number and the infinities
// fail it. The first column shown is that of the first digit above 0 or the decimal character,
// whichever comes first (the units when a leading zero is asked for or without decimals).
#pragma once

#include <algorithm>
#include <cmath>

#include "frame/field.h"
#include "frame/settings.h"
#include "numeric/fast_digits.h"

namespace iocv {

// What a number of decimals means in the last eight columns.
struct alignas(64) FixedLayout {
  double twice_power;      // 2 * 10^decimals
  std::uint64_t behind;    // columns of the decimals and the decimal character
  std::uint64_t decimals;  // the bytes of the decimals; all, when nothing is to be moved
  std::uint64_t point;     // 1 in the byte of the decimal character
  std::uint64_t first;     // 1 in the byte that is shown at the latest
  std::uint64_t units;     // the same with a leading zero
};

struct FixedTables : FastTables {
  std::array<FixedLayout, kFastDecimals + 1> layouts = make();

  static constexpr std::array<FixedLayout, kFastDecimals + 1> make() {
    std::array<FixedLayout, kFastDecimals + 1> layouts = {};
    constexpr std::uint64_t kLast = std::uint64_t{1} << 56;
    layouts[0] = {.twice_power = 2,
                  .behind = 0,
                  .decimals = kAllBits,
                  .point = 0,
                  .first = kLast,
                  .units = kLast};
    double power = 1;
    for (std::size_t d = 1; d <= kFastDecimals; ++d) {
      const std::uint64_t point = kLast >> (8 * d);
      power *= 10;
      layouts[d] = {.twice_power = 2 * power,
                    .behind = d + 1,
                    .decimals = kAllBits << (64 - 8 * d),
                    .point = point,
                    .first = point,
                    .units = point >> 8};
    }
    return layouts;
  }
};

inline constexpr FixedTables kFixedTables;

#if defined(__SSE2__)

// What a number of decimals, with or without a leading zero, means in sixteen columns.
struct alignas(64) NumberLayout {
  double twice_power;    // 2 * 10^decimals
  std::uint64_t mark;    // 1 in the byte of the decimal character, of the last eight
  std::uint32_t latest;  // the bit of the column that is shown at the latest
  std::array<std::uint8_t, kFastWidth + 1> digits;  // that have room, by columns without a sign
  Text staying;  // all bits in what is not moved: the decimals, or all columns
};

struct NumberTables : DigitTables {
  // By decimals, without and with a leading zero.
  std::array<NumberLayout, 2 * (kFastDecimals + 1)> layouts = make();

  static constexpr std::array<NumberLayout, 2 * (kFastDecimals + 1)> make() {
    std::array<NumberLayout, 2 * (kFastDecimals + 1)> layouts = {};
    double twice_power = 2;
    for (std::size_t d = 0; d <= kFastDecimals; ++d, twice_power *= 10) {
      for (std::size_t zero = 0; zero <= 1; ++zero) {
        const std::size_t point = d == 0 ? 0 : 1;
        NumberLayout& layout = layouts[2 * d + zero];
        layout.twice_power = twice_power;
        layout.mark = d == 0 ? 0 : std::uint64_t{1} << (56 - 8 * d);
        layout.latest = std::uint32_t{0x8000} >> (d == 0 ? 0 : d + zero);
        for (std::size_t columns = 0; columns <= kFastWidth; ++columns) {
          layout.digits[columns] =
              columns < d + point + zero ? kNoRoom : static_cast<std::uint8_t>(columns - point);
        }
        for (std::size_t column = d == 0 ? 0 : kFastWidth - d; column < kFastWidth; ++column) {
          layout.staying.columns[column] = 0xFF;
        }
      }
    }
    return layouts;
  }
};

inline constexpr NumberTables kNumberTables;

// Writes numbers of one format under the settings at its making, a column of them as well as one.
template <Reach kReach>
class FixedWriter {
 public:
  // False when it writes nothing of such a format.
  template <class Source>
  [[gnu::always_inline]] static bool make(std::int64_t width, std::int64_t places, Source settings,
                                          FixedWriter& writer) noexcept {
    const auto decimals = static_cast<std::uint64_t>(places);
    if (static_cast<std::uint64_t>(width) - 1 >= kFastWidth || decimals > kFastDecimals)
      return false;
    writer.width_ = width;
    writer.tables_ = in_register(&kNumberTables);
    writer.layout_ =
        in_register(&writer.tables_->layouts[2 * decimals + (settings().leading_zero ? 1 : 0)]);
    writer.system_missing_ = settings().system_missing;
    writer.mark_ = writer.layout_->mark *
                   (std::uint64_t{static_cast<unsigned char>(settings().decimal)} - '0');
    return true;
  }

  // False, with the field as it was, when the number is not an ordinary one or beyond the reach.
  [[gnu::always_inline]] bool operator()(char* field, double value) const noexcept {
    const auto minus = static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(value) >> 63);
    const std::size_t digits = layout_->digits[static_cast<std::size_t>(width_ - minus)];
    const double twice = std::fabs(value) * layout_->twice_power;
    if (!(twice < tables_->template limits<kReach>()[digits])) return false;
    const auto number = rounded<kReach>(twice);
    if (value == system_missing_) return false;

    // What shows as zero has no sign.
    const auto negative = static_cast<std::uint32_t>(std::min<Number<kReach>>(minus, number));
    const __m128i text = with_point(tables_->digits(number));
    const std::uint32_t shown = bits_of_digits(text) | layout_->latest;
    const Text& around = tables_->templates[2 * lowest_bit(shown) + negative];
    store_columns(field, width_, _mm_add_epi8(text, around.vector()), mark_);
    return true;
  }

 private:
  // Moves all but the decimals, so that a byte before them is 0.
  [[nodiscard]] __m128i with_point(__m128i digits) const noexcept {
    const __m128i staying = _mm_and_si128(digits, layout_->staying.vector());
    return _mm_or_si128(_mm_srli_si128(_mm_xor_si128(digits, staying), 1), staying);
  }

  std::int64_t width_;
  const NumberTables* tables_;
  const NumberLayout* layout_;
  double system_missing_;
  std::uint64_t mark_;  // makes the decimal character of a '0'
};

#else

template <Reach kReach>
class FixedWriter {
 public:
  template <class Source>
  static bool make(std::int64_t, std::int64_t, Source, FixedWriter&) noexcept {
    return false;
  }
  bool operator()(char*, double) const noexcept { return false; }
};

#endif

// The same for a single number.
template <Reach kReach, class Source>
[[gnu::always_inline]] inline bool write_number_fast(char* field, std::int64_t width, double value,
                                                     std::int64_t decimals,
                                                     Source settings) noexcept {
  FixedWriter<kReach> write;
  return FixedWriter<kReach>::make(width, decimals, settings, write) && write(field, value);
}

// With any reach.
inline bool write_number_fast(Field out, double value, std::int64_t decimals,
                              const Settings& settings) noexcept {
  const GivenSettings given = {settings};
  return write_number_fast<Reach::nine_digits>(out.data(), out.width(), value, decimals, given) ||
         write_number_fast<Reach::sixteen_digits>(out.data(), out.width(), value, decimals, given);
}

}  // namespace iocv
