// The fast path of COMMA, DOT and DOLLAR for ordinary numbers.
//
// It answers for 1 to 16 columns, 0 to 6 decimals and a value other than the system-missing number
// whose magnitude, scaled by the decimals and rounded, is below 2^39 and has room in groups with
// all its decimals, its prefix and, below zero, its sign, with at least one column before the
// decimal character. Of the c columns there every fourth may hold a separator, so c - c / 4 digits
// have room. Then the plain path gives nothing up and writes the digits of fuzzy_rel_round(|value|
// * 10^decimals) in groups; the sign is there exactly if they are not all 0, for below 1
// fuzzy_round, which decides about it, has the same tolerance. The whole part is found by a
// multiplication, exact for numbers below 2^39; its digits stand in fours behind a free byte, where
// the separators come.
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

// This bit is set where a template shows a digit, and nowhere else.
inline constexpr std::uint64_t kDigitBit = 0x10;
static_assert(('0' & 0x10) != 0 && (' ' & 0x10) == 0 && ('-' & 0x10) == 0 && ('$' & 0x10) == 0);

struct GroupedLayout {
  std::uint64_t power;    // 10^decimals
  std::uint64_t inverse;  // 2^63 / 10^decimals, rounded up
  Columns separators;     // the digit bit of the bytes where a separator may stand
};

struct GroupedTables {
  std::array<GroupedLayout, kFastDecimals + 1> layouts = make_layouts();
  // As the templates, with a dollar sign in the last column before the digits.
  std::array<Columns, 2 * kFastWidth> dollar_templates = make_dollar_templates();

  static constexpr std::array<GroupedLayout, kFastDecimals + 1> make_layouts() {
    std::array<GroupedLayout, kFastDecimals + 1> layouts = {};
    std::uint64_t power = 1;
    for (std::size_t d = 0; d <= kFastDecimals; ++d, power *= 10) {
      layouts[d] = {.power = power,
                    .inverse = ((std::uint64_t{1} << 63) + power - 1) / power,
                    .separators = {}};
      const std::size_t end = d == 0 ? kFastWidth : kFastWidth - 1 - d;  // of the whole part
      for (std::size_t column = 0; column < end; ++column) {
        if ((end - column) % 4 != 0) continue;
        Columns& separators = layouts[d].separators;
        (column < 8 ? separators.left : separators.right) |= kDigitBit << (column % 8 * 8);
      }
    }
    return layouts;
  }

  static constexpr std::array<Columns, 2 * kFastWidth> make_dollar_templates() {
    std::array<Columns, 2 * kFastWidth> table = {};
    for (std::size_t i = 0; i < table.size(); ++i) {
      const std::size_t first = i / 2;
      for (std::size_t column = 0; column < kFastWidth; ++column) {
        const std::uint64_t byte = column >= first                     ? u8'0'
                                   : column + 1 == first               ? u8'$'
                                   : i % 2 != 0 && column + 2 == first ? u8'-'
                                                                       : u8' ';
        (column < 8 ? table[i].left : table[i].right) |= byte << (column % 8 * 8);
      }
    }
    return table;
  }
};

inline constexpr GroupedTables kGroupedTables;

// floor(n / 10^decimals) for n below 2^39: rounding the inverse up adds less than 2^40 / 2^64 to
// the quotient, and to the next whole number it lacks at least 10^-6 of it.
inline std::uint64_t whole_part(std::uint64_t n, const GroupedLayout& layout) noexcept {
  __extension__ using Product = unsigned __int128;
  return static_cast<std::uint64_t>((static_cast<Product>(2 * n) * layout.inverse) >> 64);
}

// False, with the field as it was, when the number is not an ordinary one or beyond the reach.
template <GroupedStyle kStyle, Reach kReach, class Source>
[[gnu::always_inline]] inline bool write_grouped_fast(char* field, std::int64_t columns,
                                                      double value, std::int64_t places,
                                                      Source settings) noexcept {
  if constexpr (!kHasFastPaths) return false;
  const auto width = static_cast<std::uint64_t>(columns);
  const auto decimals = static_cast<std::uint64_t>(places);
  if (width > kFastWidth || decimals > kFastDecimals) return false;
  const FixedTables& tables = *in_register(&kFixedTables);
  const FixedLayout& layout = *in_register(&tables.layouts[decimals]);
  const std::uint64_t bits = std::bit_cast<std::uint64_t>(value);
  constexpr std::uint64_t kPrefix = kStyle.prefix != 0 ? 1 : 0;
  const auto room = static_cast<std::int64_t>(width - layout.behind - (bits >> 63) - kPrefix);
  if (room <= 0) return false;
  const auto whole_columns = static_cast<std::uint64_t>(room);
  if (kReach == Reach::nine_digits && whole_columns > 12) return false;  // a tenth digit has room
  const double twice = std::fabs(value) * layout.twice_power;
  if (!(twice < tables.twice_limits[whole_columns - whole_columns / 4 + decimals])) return false;
  if (value == settings().system_missing) return false;

  const std::uint64_t number = fast_rounded(twice);
  const std::uint64_t negative = (bits & (0 - number)) >> 63;
  const GroupedLayout& grouped = *in_register(&kGroupedTables.layouts[decimals]);
  const std::uint64_t whole = whole_part(number, grouped);  // below 10^12
  const auto low =
      static_cast<std::uint32_t>(kReach == Reach::nine_digits ? whole : whole % 1'000'000'000);
  const std::uint32_t thousands = low / 1000;
  const std::uint32_t millions = low / 1'000'000;
  Columns digits = {.left = tables.three(millions) << 32,
                    .right = tables.three(thousands - 1000 * millions) |
                             tables.three(low - 1000 * thousands) << 32};
  if constexpr (kReach == Reach::twelve_digits) {
    digits.left |= tables.three(static_cast<std::uint32_t>(whole / 1'000'000'000));
  }
  if (decimals != 0) {
    auto fraction = static_cast<std::uint32_t>(number - whole * grouped.power);
    const std::uint64_t behind = 8 * (decimals + 1);  // bits, [16, 56]
    digits = {.left = digits.left >> behind | digits.right << (64 - behind),
              .right = digits.right >> behind};
    if (decimals > 3) {
      digits.right |= tables.three(fraction / 1000) << 8;
      fraction %= 1000;
    }
    digits.right |= tables.three(fraction) << 32;
  }
  const std::uint64_t column =
      twice_first_column({digits.left, digits.right | layout.first}) + negative;
  const Columns& text =
      kStyle.prefix != 0 ? kGroupedTables.dollar_templates[column] : tables.templates[column];
  // Separators are changed zeros of the template, where it shows digits.
  constexpr std::uint64_t kBelowZero = '0' - kStyle.grouping;
  const auto separators = [](std::uint64_t word, std::uint64_t bytes) {
    return (word & bytes) / kDigitBit * kBelowZero;
  };
  const std::uint64_t left =
      digits.left + text.left - separators(text.left, grouped.separators.left);
  const std::uint64_t right = digits.right + text.right -
                              separators(text.right, grouped.separators.right) -
                              layout.point * ('0' - kStyle.decimal);
  if (width > 8) {
    store_wide(field, width, {left, right});
  } else {
    store_narrow(field, width, right);
  }
  return true;
}

}  // namespace iocv
