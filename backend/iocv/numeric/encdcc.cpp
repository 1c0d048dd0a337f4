// The one writer of decimal numbers.
#include "numeric/encdcc.h"

#include <iocv/digits.h>

#include <algorithm>
#include <cmath>

#include "frame/qobosp.h"
#include "numeric/encntc.h"
#include "numeric/fuzzy.h"
#include "numeric/powers.h"

namespace iocv {
namespace {

constexpr std::int64_t kExponentColumns = 5;  // "E+012"

// More digits than a double holds take no part in the test for a carry.
constexpr std::int64_t kSignificant = 15;

// From this many decimals on a relative tolerance would accept too much.
constexpr std::int64_t kManyDecimals = 12;

// How a finite number is laid out.
struct Layout {
  std::int64_t width;     // without the columns of an exponent
  std::int64_t negative;  // 1: a column for the minus sign
  std::int64_t whole;     // digits before the decimal character
  std::int64_t point;     // 1: a column for the decimal character
  std::int64_t decimals;  // digits after it
  bool leading_zero;      // whole counts a 0 that is put before the decimal character

  [[nodiscard]] std::int64_t undivided() const { return whole + negative; }
  [[nodiscard]] std::int64_t total() const { return undivided() + point + decimals; }
  [[nodiscard]] bool fits() const { return total() <= width; }

  // Gives up decimals, and with the last one the decimal character.
  void cut_decimals() {
    decimals = std::max<std::int64_t>(width - undivided() - point, 0);
    if (decimals == 0) point = 0;
  }
};

// A number between 1 and 10 and its exponent; a subnormal is itself and 0.
struct Mantissa {
  double value;
  std::int64_t exponent;
};

Mantissa split(double value) {
  const std::int64_t exponent = decimal_exponent(std::fabs(value));
  return {value / power_of_ten(exponent), exponent};
}

std::int64_t point_column(const Layout& layout) {
  return layout.width - layout.decimals - layout.point;
}

// Digits before the decimal character of a fixed number, and as many decimals as then fit.
void lay_out_fixed(Layout& layout, double a, const Settings& settings) {
  if (a >= 1) {
    layout.whole = 1 + decimal_exponent(a);
  } else if (settings.leading_zero) {
    layout.whole = 1;
    layout.leading_zero = true;
  }
  if (!layout.fits() && layout.leading_zero) {
    layout.whole = 0;
    layout.leading_zero = false;
  }
  if (!layout.fits()) layout.cut_decimals();

  // 9.96 with one decimal has two digits before the decimal character.
  const std::int64_t shown =
      std::min(layout.decimals, std::max<std::int64_t>(kSignificant - layout.whole, 0));
  if (fuzzy_rel_round(a * power_of_ten(shown)) >= power_of_ten(shown + layout.whole)) {
    ++layout.whole;
  }
}

// The last chance to fit: fewer decimals, then a whole number.
bool made_to_fit(Layout& layout) {
  if (!layout.fits()) layout.cut_decimals();
  return layout.fits();
}

// The layout of a mantissa after fixed notation did not fit; decimals are chosen anew.
void lay_out_mantissa(Layout& layout, std::int64_t decimals) {
  layout.width -= kExponentColumns;
  layout.whole = 1;
  const bool whole_only = decimals == 0 || layout.width < 3 + layout.negative;
  layout.point = whole_only ? 0 : 1;
  layout.decimals = whole_only ? 0 : std::min(layout.width - layout.negative - 2, decimals);
}

void write_zero(Field out, const Layout& layout, const Settings& settings) {
  if (layout.decimals == 0) return out.put(out.width() - 1, '0');
  const std::int64_t point = out.width() - 1 - layout.decimals;
  out.put(point, settings.decimal);
  out.part(point + 1, layout.decimals).fill('0');
  if (layout.leading_zero) out.put(point - 1, '0');
}

void write_fixed(Field out, double value, const Layout& layout, const Settings& settings) {
  const double scaled = value * power_of_ten(layout.decimals);
  const double rounded =
      layout.decimals >= kManyDecimals ? fuzzy_round(scaled) : fuzzy_rel_round(scaled);
  const std::int64_t point = point_column(layout);
  if (write_scaled(out, rounded, point, settings.decimal) < 0) return out.overflow();
  if (!layout.leading_zero) return;
  // Unless the value was rounded up to 1, there is a blank or the minus sign.
  const std::int64_t units = point - 1;
  if (out.data()[units] == '1') return;
  out.put(units, '0');
  if (value < 0) out.put(units - 1, '-');
}

void write_with_exponent(Field out, Mantissa mantissa, Layout layout, const Settings& settings) {
  layout.decimals = std::min(layout.decimals, kSignificant);
  mantissa.value *= power_of_ten(layout.decimals);
  if (fuzzy_rel_round(std::fabs(mantissa.value)) >= power_of_ten(1 + layout.decimals)) {
    mantissa.value /= 10;
    ++mantissa.exponent;
  }
  write_exponent(out, mantissa.exponent);
  if (write_scaled(out.part(0, layout.width), mantissa.value, point_column(layout),
                   settings.decimal) < 0) {
    out.overflow();
  }
}

void write_finite(Field out, double value, std::int64_t decimals, double small,
                  const Settings& settings) {
  const double a = std::fabs(value);
  Layout layout = {.width = out.width(),
                   .negative = value < 0 ? 1 : 0,
                   .whole = 0,
                   .point = decimals > 0 ? 1 : 0,
                   .decimals = decimals,
                   .leading_zero = false};
  if (0 < a && a < small) {
    layout.width -= kExponentColumns;
    layout.whole = 1;
    if (!made_to_fit(layout)) return out.overflow();
    return write_with_exponent(out, split(value), layout, settings);
  }
  lay_out_fixed(layout, a, settings);
  if (made_to_fit(layout)) {
    const double scaled = a * power_of_ten(layout.decimals);
    if (a == 0 || fuzzy_rel_round(scaled) < 1) return write_zero(out, layout, settings);
    if (std::isfinite(scaled)) return write_fixed(out, value, layout, settings);
  }
  if (!(a >= small) || kExponentColumns + layout.negative >= layout.width) return out.overflow();
  lay_out_mantissa(layout, decimals);
  write_with_exponent(out, split(value), layout, settings);
}

}  // namespace

void write_number(Field out, double value, std::int64_t decimals, double small,
                  const Settings& settings) noexcept {
  if (out.empty()) return;
  // No field shows more decimals than it has columns.
  decimals = std::clamp<std::int64_t>(decimals, 0, out.width());
  if (!std::isfinite(value)) return write_non_finite(out, settings);
  if (value == settings.system_missing) {
    return out.mark(out.width() - 1 - decimals, settings.system_missing_char);
  }
  out.blank();
  write_finite(out, value, decimals, small, settings);
}

void write_exponent(Field out, std::int64_t exponent) noexcept {
  const std::int64_t magnitude = exponent < 0 ? -exponent : exponent;  // [0, 308]
  const std::int64_t column = out.width() - kExponentColumns;
  out.put(column, 'E');
  out.put(column + 1, exponent < 0 ? '-' : '+');
  out.put(column + 2, static_cast<char>('0' + magnitude / 100));
  out.put(column + 3, static_cast<char>('0' + magnitude / 10 % 10));
  out.put(column + 4, static_cast<char>('0' + magnitude % 10));
}

}  // namespace iocv

extern "C" {

void encdcc_(const double* value, char* text, const std::int64_t* start, const std::int64_t* width,
             const std::int64_t* decimals, const double* small, std::int64_t) {
  iocv::write_number({text + *start - 1, *width}, *value, *decimals, *small,
                     iocv::Settings::current());
}

void oboinf_(const double*, char* text, const std::int64_t* start, const std::int64_t* width,
             std::int64_t) {
  iocv::write_non_finite({text + *start - 1, *width}, iocv::Settings::current());
}

void obonac_(const double*, char* text, const std::int64_t* start, const std::int64_t* width,
             std::int64_t) {
  iocv::write_non_finite({text + *start - 1, *width}, iocv::Settings::current());
}

}  // extern "C"
