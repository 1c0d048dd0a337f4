#include "frame/obipk.h"

#include <iocv/binary_formats.h>

#include <algorithm>
#include <limits>

#include "frame/binary.h"
#include "frame/leaf.h"
#include "numeric/powers.h"

namespace iocv {
namespace {

// x / 10^exponent, also for the one exponent above the largest power that exists.
double divided(double x, std::int64_t exponent) {
  constexpr std::int64_t kLargestPower = std::numeric_limits<double>::max_exponent10;
  return exponent <= kLargestPower ? x / power_of_ten(exponent)
                                   : x / power_of_ten(exponent - 1) / 10;
}

// The digits of x, finite and at least 0.5; false when there are too many.
bool put_packed(Field out, double x) {
  const std::int64_t room = 2 * out.width();
  for (std::int64_t digits = decimal_exponent(x) + 1; digits <= room; ++digits) {
    const std::int64_t zero_bytes = (room - digits) / 2;
    double number = divided(x, room - 2 * zero_bytes - 1);
    if (number >= 10) continue;  // the division rounded up to a digit more than was counted
    out.part(0, zero_bytes).fill(0);
    for (std::int64_t column = zero_bytes; column < out.width(); ++column) {
      out.put(column, static_cast<char>(take_digits(number)));
    }
    return true;
  }
  return false;
}

}  // namespace

Read<double> read_pk(std::string_view field, std::int64_t decimals,
                     const Settings& settings) noexcept {
  if (field.empty()) return {settings.system_missing, Status::ok};
  double value = 0;
  for (const char byte : field) {
    const int high = byte_value(byte) >> 4;
    const int low = byte_value(byte) & 15;
    if (high > 9 || low > 9) return {settings.system_missing, Status::packed_digit};
    value = value * 100 + 10 * high + low;
  }
  if (decimals != 0) value /= power_of_ten(decimals);
  return {value, Status::ok};
}

Status write_pk(Field out, double value, std::int64_t decimals, const Settings& settings) noexcept {
  if (out.empty()) return Status::ok;
  Status status = special_status(value, settings, kPackedSpecials);
  if (status == Status::ok && value < 0) status = Status::pk_negative;
  if (status == Status::ok && value != 0) {
    const double x = (decimals != 0 ? value * power_of_ten(decimals) : value) + 0.5;
    if (std::isfinite(x) && put_packed(out, x)) return Status::ok;
    status = Status::packed_overflow;
  }
  out.fill(0);
  return status;
}

}  // namespace iocv

extern "C" {

void obipk_(const char* text, const std::int64_t* width, const std::int64_t* decimals, OBS* value,
            std::int64_t* status, std::int64_t) {
  iocv::read_leaf<iocv::read_pk>(text, &iocv::type_code<iocv::FormatCode::pk>, width, decimals,
                                 value, status);
}

void obopk_(const OBS* value, const std::int64_t* width, const std::int64_t* decimals, char* text,
            std::int64_t* status, std::int64_t) {
  iocv::write_leaf<iocv::write_pk>(value, &iocv::type_code<iocv::FormatCode::pk>, width, decimals,
                                   text, status);
}

}  // extern "C"
