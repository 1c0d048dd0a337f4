#include "frame/qobosp.h"

#include <iocv/convert.h>

#include <cmath>

namespace iocv {

void write_non_finite(Field out, const Settings& settings) noexcept {
  out.mark(out.width() - 1, settings.system_missing_char);
}

bool write_special(Field out, double value, std::int64_t column,
                   const Settings& settings) noexcept {
  if (out.empty()) return true;
  if (value == settings.system_missing) {
    out.mark(column, settings.system_missing_char);
    return true;
  }
  if (std::isfinite(value)) return false;
  write_non_finite(out, settings);
  return true;
}

}  // namespace iocv

extern "C" std::int64_t qobosp_(const double* value, char* text, const std::int64_t* width,
                                const std::int64_t* position, std::int64_t) {
  const iocv::Field out(text, *width);
  // Position 1 is column 0; the smallest position must not wrap on the way.
  const std::int64_t column = std::max<std::int64_t>(*position, 1) - 1;
  return iocv::write_special(out, *value, column, iocv::Settings::current()) ? -1 : 0;
}
