// The fast path of write_number for ordinary numbers, threshold 0.
//
// It answers for 1 to 16 columns, 0 to 6 decimals and a value other than the system-missing number
// whose magnitude, scaled by the decimals and rounded, is below 2^39 and has room undivided: all
// decimals, the decimal character, the digits before it and, below zero, the sign; with the leading
// zero asked for, the zero as well. Then the plain path shortens nothing and writes the digits of
// fuzzy_rel_round(|value| * 10^decimals), at most 12 and so all of them. Here 2 * 10^decimals is
// the factor, which doubles the product exactly, so that it can be rounded without a comparison,
// and one comparison of the doubled product tells that the digits have room; not-a-number and the
// infinities fail it. The first column shown is that of the first digit above 0 or the decimal
// character, whichever comes first (the units when a leading zero is asked for or without
// decimals).
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

// False, with the field as it was, when the number is not an ordinary one or beyond the reach.
template <Reach kReach, class Source>
[[gnu::always_inline]] inline bool write_number_fast(char* field, std::int64_t columns,
                                                     double value, std::int64_t places,
                                                     Source settings) noexcept {
  if constexpr (!kHasFastPaths) return false;
  const auto width = static_cast<std::uint64_t>(columns);
  const auto decimals = static_cast<std::uint64_t>(places);
  if (!reaches(kReach, width) || decimals > kFastDecimals) return false;
  const FixedTables& tables = *in_register(&kFixedTables);
  const FixedLayout& layout = *in_register(&tables.layouts[decimals]);
  const std::uint64_t bits = std::bit_cast<std::uint64_t>(value);
  const auto room = static_cast<std::int64_t>(width - layout.behind - (bits >> 63));
  if (room < 0) return false;
  const double twice = std::fabs(value) * layout.twice_power;
  std::uint64_t most = static_cast<std::uint64_t>(room) + decimals;  // digits
  if (kReach == Reach::nine_digits) most = std::min<std::uint64_t>(most, 9);
  if (!(twice < tables.twice_limits[most])) return false;
  if (value == settings().system_missing) return false;
  // Without a leading zero the decimal character is shown at the latest.
  std::uint64_t latest = layout.first;
  if (settings().leading_zero) {
    if (room == 0) return false;
    latest = layout.units;
  }
  const std::uint64_t number = fast_rounded(twice);
  // What shows as zero has no sign.
  const std::uint64_t negative = (bits & (0 - number)) >> 63;
  const auto point = [&] {
    return layout.point * (std::uint64_t{static_cast<unsigned char>(settings().decimal)} - '0');
  };

  if constexpr (kReach == Reach::eight_columns) {
    std::uint64_t digits = tables.eight(static_cast<std::uint32_t>(number));
    const std::uint64_t fraction = digits & layout.decimals;
    digits = (digits ^ fraction) >> 8 | fraction;
    const std::uint64_t text =
        tables.templates[16 + twice_first_column(digits | latest) + negative].right;
    store_narrow(field, width, digits + text + point());
  } else {
    Columns digits = kReach == Reach::nine_digits ? tables.nine(static_cast<std::uint32_t>(number))
                                                  : tables.twelve(number);
    if (decimals != 0) {
      const std::uint64_t fraction = digits.right & layout.decimals;
      const std::uint64_t whole = digits.right ^ fraction;
      digits = {.left = digits.left >> 8 | whole << 56, .right = whole >> 8 | fraction};
    }
    const Columns& text =
        tables.templates[twice_first_column({digits.left, digits.right | latest}) + negative];
    store_wide(field, width,
               {.left = digits.left + text.left, .right = digits.right + text.right + point()});
  }
  return true;
}

// With any reach.
inline bool write_number_fast(Field out, double value, std::int64_t decimals,
                              const Settings& settings) noexcept {
  const auto tried = [&]<Reach kReach>() {
    return write_number_fast<kReach>(out.data(), out.width(), value, decimals,
                                     GivenSettings{settings});
  };
  return tried.template operator()<Reach::eight_columns>() ||
         tried.template operator()<Reach::twelve_digits>();
}

}  // namespace iocv
