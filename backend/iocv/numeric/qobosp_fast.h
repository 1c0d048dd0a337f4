// The fast path of the system-missing number, the infinities and not-a-number in text.
//
// It answers for 1 to 16 columns and 0 to 6 decimals, as the plain paths do: the system-missing
// character stands in its format's column (or the first, when that is left of the field) for the
// system-missing number and in the last column for the others, with blanks around it. A
// system-missing number that is not finite is left to the plain paths, for not all look at it in
// the same order, and so is an E too narrow for its decimals.
#pragma once

#include <algorithm>
#include <cmath>

#include "frame/settings.h"
#include "numeric/fast_digits.h"

namespace iocv {

// Where the system-missing character stands: at the decimal character of a number, in a format that
// ends in its decimals, a percent sign or an exponent, or in the last column.
enum class MissingPlace { decimal_character, before_percent, mantissa, last_column };

constexpr std::int64_t missing_column(MissingPlace place, std::int64_t width,
                                      std::int64_t decimals) noexcept {
  switch (place) {
    case MissingPlace::decimal_character: return width - decimals - 1;
    case MissingPlace::before_percent: return width - decimals - 2;
    case MissingPlace::mantissa: return width - decimals - 6;
    default: return width - 1;
  }
}

#if defined(__SSE2__)

template <MissingPlace kPlace>
class SpecialWriter {
 public:
  // False when it writes nothing of such a format.
  template <class Source>
  [[gnu::always_inline]] static bool make(std::int64_t width, std::int64_t decimals,
                                          Source settings, SpecialWriter& writer) noexcept {
    if (static_cast<std::uint64_t>(width) - 1 >= kFastWidth) return false;
    if (static_cast<std::uint64_t>(decimals) > kFastDecimals) return false;
    if (kPlace == MissingPlace::mantissa && width < 8 + decimals) return false;
    writer.width_ = width;
    writer.column_ = std::max<std::int64_t>(missing_column(kPlace, width, decimals), 0);
    writer.system_missing_ = settings().system_missing;
    writer.character_ = settings().system_missing_char;
    return true;
  }

  // False, with the field as it was, for other numbers.
  [[gnu::always_inline]] bool operator()(char* field, double value) const noexcept {
    const bool finite = std::isfinite(value);
    if (finite != (value == system_missing_)) return false;
    store_columns(field, width_, _mm_set1_epi8(' '));
    field[finite ? column_ : width_ - 1] = character_;
    return true;
  }

 private:
  std::int64_t width_;
  std::int64_t column_;
  double system_missing_;
  char character_;
};

#else

template <MissingPlace>
class SpecialWriter {
 public:
  template <class Source>
  static bool make(std::int64_t, std::int64_t, Source, SpecialWriter&) noexcept {
    return false;
  }
  bool operator()(char*, double) const noexcept { return false; }
};

#endif

}  // namespace iocv
