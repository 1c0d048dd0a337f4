#include "frame/obipih.h"

#include <iocv/binary_formats.h>

#include <cmath>

#include "frame/hex.h"
#include "frame/leaf.h"
#include "frame/qobosp.h"

namespace iocv {

Read<double> read_pibhex(std::string_view field, std::int64_t, const Settings& settings) noexcept {
  if (field.empty()) return {settings.system_missing, Status::ok};
  if (field.find_first_not_of(' ') == field.npos) return {settings.blank_value, Status::ok};
  double value = 0;
  for (const char c : field) {
    const int digit = hex_value(c);
    if (digit < 0) return {settings.system_missing, Status::hex_digit};
    value = 16 * value + digit;
  }
  return {value, Status::ok};
}

Status write_pibhex(Field out, double value, std::int64_t, const Settings& settings) noexcept {
  if (write_special(out, value, out.width() - 1, settings)) return Status::ok;
  if (value < 0) {
    out.overflow();
    return Status::pibhex_negative;
  }
  double number = std::trunc(value + 0.5);
  for (std::int64_t column = out.width(); column-- > 0;) {
    const double rest = std::trunc(number * 0.0625);  // / 16
    out.put(column, hex_digit(static_cast<int>(number - 16 * rest)));
    number = rest;
  }
  if (number != 0) out.overflow();  // no status: only a negative value has one
  return Status::ok;
}

}  // namespace iocv

extern "C" {

void obipih_(const char* text, const std::int64_t* width, const std::int64_t* decimals, OBS* value,
             std::int64_t* status, std::int64_t) {
  iocv::read_leaf<iocv::read_pibhex>(text, &iocv::type_code<iocv::FormatCode::pibhex>, width,
                                     decimals, value, status);
}

void obopih_(const OBS* value, const std::int64_t* width, const std::int64_t* decimals, char* text,
             std::int64_t* status, std::int64_t) {
  iocv::write_leaf<iocv::write_pibhex>(value, &iocv::type_code<iocv::FormatCode::pibhex>, width,
                                       decimals, text, status);
}

}  // extern "C"
