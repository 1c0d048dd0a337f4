// Digits in groups of three.
#include "numeric/obocd.h"

#include <iocv/number_formats.h>

#include <algorithm>
#include <cmath>

#include "numeric/encdcc.h"
#include "numeric/encntc.h"
#include "numeric/fuzzy.h"
#include "numeric/powers.h"

namespace iocv {
namespace {

constexpr std::int64_t kGroup = 3;
constexpr std::int64_t kMostDigits = 308;

// From this many decimals on a relative tolerance would accept too much.
constexpr std::int64_t kManyDecimals = 12;

// Moves the digits that end at the units column apart; false when there are too few columns.
bool spread(Field out, std::int64_t units, std::int64_t digits, char grouping) {
  if (digits <= kGroup) return true;
  const std::int64_t groups = (digits - 1) / kGroup;  // that have a separator before them
  if (digits + groups > units + 1) return false;
  for (std::int64_t place = digits - 1; place >= kGroup; --place) {
    out.put(units - place - place / kGroup, out.data()[units - place]);
  }
  for (std::int64_t group = 1; group <= groups; ++group) {
    out.put(units + 1 - group * (kGroup + 1), grouping);
  }
  return true;
}

bool write_in_groups(Field out, double a, std::int64_t decimals, Marks marks) {
  if (1 + decimal_exponent(a) + decimals > kMostDigits) return false;
  const std::int64_t point = decimals > 0 ? 1 : 0;
  const std::int64_t whole_columns = out.width() - point - decimals;
  const double scaled = a * power_of_ten(decimals);
  // Every fourth column of the whole part holds a separator.
  const std::int64_t most_digits = whole_columns - whole_columns / (kGroup + 1) + decimals;
  if (1 + decimal_exponent(scaled + 0.5) > most_digits) return false;

  out.blank();
  const double rounded = decimals < kManyDecimals ? fuzzy_rel_round(scaled) : fuzzy_round(scaled);
  const std::int64_t point_column = decimals > 0 ? whole_columns : out.width();
  const std::int64_t used = write_scaled(out, rounded, point_column, marks.decimal);
  if (used < 0) return false;  // no room, or the product is not finite
  if (used == 0) out.put(out.width() - 1, '0');
  return spread(out, whole_columns - 1, used - point - decimals, marks.grouping);
}

}  // namespace

bool write_grouped(Field out, double value, std::int64_t decimals, Marks marks,
                   const Settings& settings) noexcept {
  if (out.empty()) return false;
  decimals = std::clamp<std::int64_t>(decimals, 0, out.width() - 1);
  const double a = std::fabs(value);
  if (write_in_groups(out, a, decimals, marks)) return true;
  write_number(out, a, decimals, 0, settings);
  std::replace(out.data(), out.data() + out.width(), settings.decimal, marks.decimal);
  return out.data()[0] != '*';
}

}  // namespace iocv

extern "C" void obocd_(const double* value, const std::int64_t* width, const std::int64_t* decimals,
                       const char* pair, char* text, std::int64_t* overflow, std::int64_t,
                       std::int64_t) {
  const bool shown = iocv::write_grouped({text, *width}, *value, *decimals, {pair[0], pair[1]},
                                         iocv::Settings::current());
  *overflow = shown ? 0 : -1;
}
