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
  // Between nine digits and sixteen stands a form whose fields mix numbers of nine and more.
  static constexpr Widths kFields = kReach == Reach::nine_digits     ? Widths{1, 10}
                                    : kReach == Reach::eleven_digits ? Widths{11, 12}
                                                                     : kWidths<kReach>;

 public:
  // False when it writes nothing of such a format.
  template <class Source>
  [[gnu::always_inline]] static bool make(std::int64_t width, std::int64_t places, Source settings,
                                          FixedWriter& writer) noexcept {
    if (!serves(kFields, width, places)) return false;
    const auto decimals = static_cast<std::size_t>(places);
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
    const __m128i text =
        opened(tables_->template digits<kReach>(number), layout_->staying.vector());
    const std::uint32_t first = first_shown(text, layout_->latest);
    const Text& around = tables_->templates[2 * first + negative];
    store_columns(field, width_, _mm_add_epi8(text, around.vector()), mark_);
    return true;
  }

 private:
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

}  // namespace iocv
