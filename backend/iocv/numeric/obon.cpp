// N: unsigned digits with leading zeros.
#include "numeric/obon.h"

#include <iocv/number_formats.h>

#include <algorithm>

#include "frame/leaf.h"
#include "frame/qobosp.h"
#include "numeric/encntc.h"
#include "numeric/powers.h"

namespace iocv {
namespace {

// Whether the digits have room; a decimal character is not counted.
bool digits_fit(std::int64_t width, double magnitude, std::int64_t decimals) {
  const Scaled scaled = scaled_digits(magnitude, decimals);
  return scaled.digits + scaled.zeros <= width;
}

}  // namespace

std::int64_t write_zero_filled(Field out, double magnitude, std::int64_t decimals,
                               std::int64_t point_column, char decimal) noexcept {
  std::int64_t used = -1;
  if (digits_fit(out.width(), magnitude, decimals)) {
    // Refuses a product that is not finite, too.
    used = write_scaled(out, magnitude * power_of_ten(decimals), point_column, decimal);
  }
  if (used < 0) {
    out.overflow();
  } else {
    out.part(0, out.width() - used).fill('0');
  }
  return used;
}

Status write_n(Field out, double value, std::int64_t decimals, const Settings& settings) noexcept {
  const std::int64_t last = out.width() - 1;
  if (write_special(out, value, last, settings)) return Status::ok;
  if (value < 0) {
    out.mark(last, settings.system_missing_char);
    return Status::n_negative;
  }
  decimals = std::max<std::int64_t>(decimals, 0);
  const std::int64_t point_column = decimals > 0 ? last - decimals : out.width();
  write_zero_filled(out, value, decimals, point_column, settings.decimal);
  return Status::ok;
}

}  // namespace iocv

extern "C" void obon_(const double* value, const std::int64_t* width, const std::int64_t* decimals,
                      char* text, std::int64_t* status, std::int64_t) {
  iocv::store(status, iocv::write_n({text, *width}, *value, *decimals, iocv::Settings::current()));
}
