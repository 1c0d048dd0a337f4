// E: a mantissa and an exponent of three digits.
#include "numeric/oboe.h"

#include <iocv/number_formats.h>

#include <algorithm>
#include <cmath>

#include "frame/attempts.h"
#include "frame/leaf.h"
#include "frame/qobosp.h"
#include "numeric/encdcc.h"
#include "numeric/encntc.h"
#include "numeric/fuzzy.h"
#include "numeric/oboe_fast.h"
#include "numeric/powers.h"
#include "numeric/qobosp_fast.h"

namespace iocv {
namespace {

constexpr std::int64_t kMostDecimals = 15;
constexpr std::int64_t kExponentColumns = 5;                 // "E+012"
constexpr std::int64_t kUnavoidable = kExponentColumns + 2;  // a digit, the decimal character

struct Mantissa {
  double scaled;  // 1 + decimals whole digits; 0 for 0
  std::int64_t exponent;
};

Mantissa mantissa_of(double value, std::int64_t decimals) {
  std::int64_t exponent = decimal_exponent(std::fabs(value));
  double scaled = scale_by_power(value, decimals - exponent);
  // The tolerance does not grow with the mantissa here, unlike where F turns to an exponent.
  if (fuzzy_round(std::fabs(scaled)) >= power_of_ten(1 + decimals)) {
    scaled /= 10;
    ++exponent;
  }
  return {scaled, exponent};
}

void write_zero(Field out, std::int64_t point, std::int64_t decimals, char decimal) {
  out.put(point - 1, '0');
  out.put(point, decimal);
  out.part(point + 1, decimals).fill('0');
}

}  // namespace

Status write_e(Field out, double value, std::int64_t decimals, const Settings& settings) noexcept {
  if (written_by<ExponentialWriter, SpecialWriter<MissingPlace::mantissa>>(out, value, decimals,
                                                                           settings)) {
    return Status::ok;
  }
  return write_e_plain(out, value, decimals, settings);
}

Status write_e_plain(Field out, double value, std::int64_t decimals,
                     const Settings& settings) noexcept {
  if (out.empty()) return Status::ok;
  decimals = std::clamp<std::int64_t>(decimals, 0, kMostDecimals);
  const std::int64_t room = out.width() - kUnavoidable - (value < 0 ? 1 : 0);
  const std::int64_t point = out.width() - kExponentColumns - 1 - decimals;
  // Without decimals a special value is shown even where no number has room.
  if (std::max<std::int64_t>(room, 0) < decimals) {
    out.overflow();
    return Status::ok;
  }
  if (write_special(out, value, point, settings)) return Status::ok;
  if (room < decimals) {
    out.overflow();
    return Status::ok;
  }
  out.blank();
  const auto [scaled, exponent] = mantissa_of(value, decimals);
  write_exponent(out, exponent);
  if (scaled == 0) {
    write_zero(out, point, decimals, settings.decimal);
  } else if (write_scaled(out.part(0, out.width() - kExponentColumns), scaled, point,
                          settings.decimal) < 0) {
    out.overflow();
  }
  return Status::ok;
}

}  // namespace iocv

extern "C" void oboe_(const double* value, const std::int64_t* width, const std::int64_t* decimals,
                      char* text, std::int64_t* status, std::int64_t) {
  iocv::store(status, iocv::write_e({text, *width}, *value, *decimals, iocv::Settings::current()));
}
