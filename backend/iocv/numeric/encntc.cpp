// The digits of a scaled number, from the last column leftwards.
#include "numeric/encntc.h"

#include <iocv/digits.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "frame/constants.h"
#include "frame/settings.h"
#include "numeric/fuzzy.h"
#include "numeric/powers.h"

namespace iocv {
namespace {

// Digits are taken off in groups of nine.
constexpr double kGroup = 1e9;
constexpr int kGroupDigits = 9;

// Keeps hostile decimals far from the ends of their type; no power of ten distinguishes them.
constexpr std::int64_t kFarDecimals = std::numeric_limits<std::int64_t>::max() / 2;

// Places characters from the last column leftwards. The cursor runs on beyond the left edge, where
// nothing is written, so that the length of a text that does not fit is known, too.
class Leftwards {
 public:
  Leftwards(Field out, std::int64_t point_column, char decimal)
      : out_(out), point_(point_column), decimal_(decimal), next_(out.width() - 1) {}

  void digit(char c) {
    if (next_ == point_) put(decimal_);
    put(c);
  }
  void fill_to_point() {
    while (next_ >= point_) put(next_ == point_ ? decimal_ : '0');
  }
  void put(char c) { out_.put(next_--, c); }

  [[nodiscard]] std::int64_t columns() const { return out_.width() - 1 - next_; }

 private:
  Field out_;
  std::int64_t point_;
  char decimal_;
  std::int64_t next_;
};

}  // namespace

Scaled scaled_digits(double value, std::int64_t decimals) noexcept {
  decimals = std::clamp(decimals, -kFarDecimals, kFarDecimals);
  double magnitude = std::fabs(value);
  std::int64_t zeros = 0;
  if (magnitude >= kTwoTo52) {
    zeros = decimals + decimal_exponent(magnitude / 1e16) + 1;
    magnitude /= power_of_ten(zeros - decimals);
  } else if (decimals < 1) {
    magnitude += 0.5;
  } else {
    const double limit = kTwoTo52 / power_of_ten(decimals);
    if (magnitude >= limit) zeros = 1 + decimal_exponent(magnitude / limit);
    if (decimals < zeros) {
      magnitude /= power_of_ten(zeros - decimals);
    } else {
      magnitude = magnitude * power_of_ten(decimals - zeros) + 0.5;
    }
  }
  if (magnitude < 1) return {.magnitude = 0, .digits = 1, .zeros = zeros};
  return {.magnitude = magnitude, .digits = 1 + decimal_exponent(magnitude), .zeros = zeros};
}

std::int64_t write_scaled(Field out, double value, std::int64_t point_column,
                          char decimal) noexcept {
  // The text reaches the decimal character in any case.
  if (point_column < 0 || !std::isfinite(value)) return -1;
  const Scaled scaled = scaled_digits(value, 0);
  Leftwards text(out, point_column, decimal);
  for (std::int64_t i = 0; i < scaled.zeros; ++i) text.digit('0');
  for (double magnitude = scaled.magnitude; magnitude != 0;) {
    const double higher = std::trunc(magnitude / kGroup);
    const double group = fuzzy_truncate(magnitude - kGroup * higher);  // [0, 999999999]
    auto digits = static_cast<std::int32_t>(group);
    magnitude = higher;
    // Inner groups keep their leading zeros.
    for (int forced = higher != 0 ? kGroupDigits : 0; forced > 0 || digits != 0; --forced) {
      text.digit(static_cast<char>('0' + digits % 10));
      digits /= 10;
    }
  }
  text.fill_to_point();
  if (value < 0) text.put('-');
  return text.columns() <= out.width() ? text.columns() : -1;
}

}  // namespace iocv

extern "C" {

void encwid_(const double* value, const std::int64_t* decimals, double* magnitude,
             std::int64_t* ndigits, std::int64_t* nzeros) {
  const iocv::Scaled scaled = iocv::scaled_digits(*value, *decimals);
  *magnitude = scaled.magnitude;
  *ndigits = scaled.digits;
  *nzeros = scaled.zeros;
}

void encntc_(const double* value, char* text, const std::int64_t* start, const std::int64_t* width,
             const std::int64_t* pointcol, std::int64_t* count, std::int64_t) {
  const iocv::Field out(text + *start - 1, *width);
  // A point column far to the left counts as the one before the field.
  const std::int64_t column = *pointcol < *start ? -1 : *pointcol - *start;
  *count = iocv::write_scaled(out, *value, column, iocv::Settings::current().decimal);
  if (*count < 0) {
    out.overflow();
    *count = out.width();
  }
}

}  // extern "C"
