// The general format, code 40: F for ordinary magnitudes, an exponent for small ones.
#include "numeric/obog.h"

#include <iocv/number_formats.h>

#include <algorithm>
#include <cmath>

#include "frame/leaf.h"
#include "frame/qobosp.h"
#include "numeric/encdcc.h"

namespace iocv {

Status write_general(Field out, double value, std::int64_t decimals,
                     const Settings& settings) noexcept {
  decimals = std::clamp<std::int64_t>(decimals, 0, out.width());
  if (write_special(out, value, out.width() - decimals - 1, settings)) return Status::ok;
  Field used = out;
  if (std::fabs(value) < settings.small) {
    // A digit and an exponent, the decimals, a sign: as many columns from the left.
    used = out.part(0, 6 + decimals + (value < 0 ? 1 : 0));
    out.part(used.width(), out.width()).blank();
  }
  write_number(used, value, decimals, settings.small, settings);
  return Status::ok;
}

}  // namespace iocv

extern "C" void obog_(const double* value, const std::int64_t* width, const std::int64_t* decimals,
                      char* text, std::int64_t* status, std::int64_t) {
  iocv::store(status,
              iocv::write_general({text, *width}, *value, *decimals, iocv::Settings::current()));
}
