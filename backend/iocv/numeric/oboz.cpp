// Z: digits with leading zeros, the sign in the last one.
#include "numeric/oboz.h"

#include <iocv/number_formats.h>

#include <algorithm>
#include <cmath>
#include <string_view>

#include "frame/attempts.h"
#include "frame/leaf.h"
#include "frame/qobosp.h"
#include "numeric/obon.h"
#include "numeric/oboz_fast.h"
#include "numeric/qobosp_fast.h"

namespace iocv {
namespace {

// The last digit of a negative number, by digit.
constexpr std::string_view kNegativeZones = "}JKLMNOPQR";

}  // namespace

Status write_z(Field out, double value, std::int64_t decimals, const Settings& settings) noexcept {
  if (written_by<ZonedWriter<Reach::nine_digits>, ZonedWriter<Reach::sixteen_digits>,
                 SpecialWriter<MissingPlace::last_column>>(out, value, decimals, settings)) {
    return Status::ok;
  }
  return write_z_plain(out, value, decimals, settings);
}

Status write_z_plain(Field out, double value, std::int64_t decimals,
                     const Settings& settings) noexcept {
  const std::int64_t last = out.width() - 1;
  if (write_special(out, value, last, settings)) return Status::ok;
  const std::int64_t digits =
      write_zero_filled(out, std::fabs(value), std::max<std::int64_t>(decimals, 0), out.width(),
                        settings.decimal);  // its column is none
  if (digits > 0 && value < 0) {
    const int digit = out.data()[last] - '0';
    out.put(last, kNegativeZones[static_cast<std::size_t>(digit)]);
  }
  return Status::ok;
}

}  // namespace iocv

extern "C" void oboz_(const double* value, const std::int64_t* width, const std::int64_t* decimals,
                      char* text, std::int64_t* status, std::int64_t) {
  iocv::store(status, iocv::write_z({text, *width}, *value, *decimals, iocv::Settings::current()));
}
