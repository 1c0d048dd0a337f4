// The fast path of COMMA, DOT and DOLLAR for ordinary numbers.
//
// It answers for 1 to 16 columns, 0 to 6 decimals and a value other than the system-missing number
// whose magnitude, scaled by the decimals and rounded, has room in groups with all its decimals,
// its prefix and, below zero, its sign. Of the c columns before the decimal character every fourth
// may hold a separator, so c - c / 4 digits have room, 13 with the decimals at most. Then the plain
// path gives nothing up and writes the digits of fuzzy_rel_round(|value| * 10^decimals) in groups;
// the sign is there exactly if they are not all 0, for below 1 fuzzy_round, which decides about it,
// has the same tolerance. Rounding and room are settled as for F.
#pragma once

#include "numeric/encdcc_fast.h"

namespace iocv {

// What stands around and between the digits.
struct GroupedStyle {
  char grouping;
  char decimal;
  char prefix;  // or 0
};

inline constexpr GroupedStyle kCommaStyle = {',', '.', 0};
inline constexpr GroupedStyle kDotStyle = {'.', ',', 0};
inline constexpr GroupedStyle kDollarStyle = {',', '.', '$'};

#if defined(__SSE2__)

// This bit is set where a template shows a digit, and nowhere else.
inline constexpr std::uint8_t kDigitBit = 0x10;
static_assert(('0' & 0x10) != 0 && (' ' & 0x10) == 0 && ('-' & 0x10) == 0 && ('$' & 0x10) == 0);

// What a number of decimals means in sixteen columns.
struct GroupedLayout {
  double twice_power;    // 2 * 10^decimals
  std::uint32_t latest;  // the bit of the column that is shown at the latest
  std::array<std::uint8_t, kFastWidth + 2> digits;  // that have room, by columns + 1
  Text point;                                       // makes the decimal character of a '0'
  Text separators;            // the digit bit in the columns where a separator may stand
  std::array<Text, 5> moved;  // all bits in the digits that move by so many columns
};

template <char kDecimal>
constexpr std::array<GroupedLayout, kFastDecimals + 1> make_grouped_layouts() {
  std::array<GroupedLayout, kFastDecimals + 1> layouts = {};
  double twice_power = 2;
  for (std::size_t d = 0; d <= kFastDecimals; ++d, twice_power *= 10) {
    GroupedLayout& layout = layouts[d];
    const std::size_t point = d == 0 ? 0 : 1;
    const std::size_t end = kFastWidth - d - point;  // of the whole part
    layout.twice_power = twice_power;
    layout.latest = std::uint32_t{0x8000} >> d;
    layout.digits.fill(kNoRoom);
    for (std::size_t room = point == 0 ? 1 : 0; room <= end; ++room) {
      layout.digits[1 + room + point + d] = static_cast<std::uint8_t>(room - room / 4 + d);
    }
    if (d != 0) layout.point.columns[end] = static_cast<std::uint8_t>(kDecimal - '0');
    for (std::size_t column = 0; column < end; ++column) {
      if ((end - column) % 4 == 0) layout.separators.columns[column] = kDigitBit;
    }
    for (std::size_t place = 0; place < kFastWidth; ++place) {
      const std::size_t by = place < d ? 0 : std::min<std::size_t>((place - d) / 3 + point, 4);
      layout.moved[by].columns[kFastWidth - 1 - place] = 0xFF;
    }
  }
  return layouts;
}

template <char kDecimal>
inline constexpr std::array<GroupedLayout, kFastDecimals + 1> kGroupedLayouts =
    make_grouped_layouts<kDecimal>();

inline constexpr Templates kDollarTemplates = make_templates("$");

// Writes numbers of one format, a column of them as well as one.
template <GroupedStyle kStyle, Reach kReach>
class GroupedWriter {
 public:
  // False when it writes nothing of such a format.
  template <class Source>
  [[gnu::always_inline]] static bool make(std::int64_t width, std::int64_t places, Source settings,
                                          GroupedWriter& writer) noexcept {
    if (!serves(kWidths<kReach>, width, places)) return false;
    const auto decimals = static_cast<std::size_t>(places);
    writer.width_ = width;
    writer.tables_ = in_register(&kNumberTables);
    writer.layout_ = in_register(&kGroupedLayouts<kStyle.decimal>[decimals]);
    writer.system_missing_ = settings().system_missing;
    return true;
  }

  // False, with the field as it was, when the number is not an ordinary one or beyond the reach.
  [[gnu::always_inline]] bool operator()(char* field, double value) const noexcept {
    constexpr std::int64_t kPrefix = kStyle.prefix != 0 ? 1 : 0;
    const auto minus = static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(value) >> 63);
    const auto columns = static_cast<std::size_t>(width_ - minus);
    const std::size_t digits = layout_->digits[columns + 1 - kPrefix];
    const double twice = std::fabs(value) * layout_->twice_power;
    if (!(twice < tables_->template limits<kReach>()[digits])) return false;
    const auto number = rounded<kReach>(twice);
    if (value == system_missing_) return false;

    // What shows as zero has no sign.
    const auto negative = static_cast<std::uint32_t>(std::min<Number<kReach>>(minus, number));
    const __m128i text = in_groups(tables_->template digits<kReach>(number));
    const std::uint32_t row = 2 * first_shown(text, layout_->latest) + negative;
    const __m128i around =
        kPrefix != 0 ? kDollarTemplates[row].vector() : tables_->templates[row].vector();
    // Separators are changed zeros of the template, where it shows digits.
    constexpr int kDigitBitToChange = kStyle.grouping == ',' ? 2 : 3;
    static_assert(kDigitBit >> kDigitBitToChange == '0' - kStyle.grouping);
    const __m128i change =
        _mm_srli_epi16(_mm_and_si128(around, layout_->separators.vector()), kDigitBitToChange);
    const __m128i digits_and_point = _mm_add_epi8(text, layout_->point.vector());
    store_columns(field, width_, _mm_sub_epi8(_mm_add_epi8(digits_and_point, around), change));
    return true;
  }

 private:
  // Moves the groups apart, with a byte 0 between them and before the decimals.
  [[nodiscard]] __m128i in_groups(__m128i digits) const noexcept {
    const auto part = [&](std::size_t i) {
      return _mm_and_si128(digits, layout_->moved[i].vector());
    };
    __m128i text =
        _mm_or_si128(_mm_or_si128(part(0), _mm_srli_si128(part(1), 1)),
                     _mm_or_si128(_mm_srli_si128(part(2), 2), _mm_srli_si128(part(3), 3)));
    if constexpr (kReach == Reach::sixteen_digits) {
      text = _mm_or_si128(text, _mm_srli_si128(part(4), 4));
    }
    return text;
  }

  std::int64_t width_;
  const NumberTables* tables_;
  const GroupedLayout* layout_;
  double system_missing_;
};

#else

template <GroupedStyle, Reach>
class GroupedWriter {
 public:
  template <class Source>
  static bool make(std::int64_t, std::int64_t, Source, GroupedWriter&) noexcept {
    return false;
  }
  bool operator()(char*, double) const noexcept { return false; }
};

#endif

}  // namespace iocv
