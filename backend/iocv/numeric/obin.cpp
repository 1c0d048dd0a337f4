// N input: every column a digit.
#include "numeric/obin.h"

#include <iocv/number_input.h>

#include <cmath>

#include "frame/leaf.h"
#include "numeric/powers.h"

namespace iocv {

Read<double> read_n(std::string_view field, std::int64_t decimals,
                    const Settings& settings) noexcept {
  if (field.empty()) return {settings.system_missing, Status::ok};
  if (field.find_first_not_of(' ') == field.npos) return {settings.blank_value, Status::ok};
  double value = 0;
  for (const char byte : field) {
    if (byte < '0' || byte > '9') return {settings.system_missing, Status::number_character};
    value = value * 10 + (byte - '0');
  }
  if (!std::isfinite(value)) return {settings.system_missing, Status::number_range};
  if (decimals > 0) value /= power_of_ten(decimals);
  return {value, Status::ok};
}

}  // namespace iocv

extern "C" void obin_(const char* text, const std::int64_t* width, const std::int64_t* decimals,
                      double* value, std::int64_t* status, std::int64_t) {
  const auto [number, result] =
      iocv::read_n(iocv::input_field(text, *width), *decimals, iocv::Settings::current());
  *value = number;
  iocv::store(status, result);
}
