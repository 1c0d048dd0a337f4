#include "frame/obipib.h"

#include <iocv/binary_formats.h>

#include "frame/attempts.h"
#include "frame/binary.h"
#include "frame/leaf.h"
#include "frame/obiib_fast.h"
#include "frame/oboib_fast.h"
#include "numeric/powers.h"

namespace iocv {

Read<double> read_pib_plain(std::string_view field, std::int64_t decimals,
                            const Settings& settings) noexcept {
  if (field.empty()) return {settings.system_missing, Status::ok};
  double value = 0;
  for (std::size_t i = field.size(); i-- > 0;) value = value * 256 + byte_value(field[i]);
  if (decimals > 0) value /= power_of_ten(decimals);  // output scales by decimals below 0, too
  return {value, Status::ok};
}

Read<double> read_pib(std::string_view field, std::int64_t decimals,
                      const Settings& settings) noexcept {
  Read<double> result;
  if (read_by<BinaryReader<false>>(field, decimals, settings, result)) return result;
  return read_pib_plain(field, decimals, settings);
}

Status write_pib(Field out, double value, std::int64_t decimals,
                 const Settings& settings) noexcept {
  if (written_by<BinaryWriter<false>>(out, value, decimals, settings)) return Status::ok;
  return write_pib_plain(out, value, decimals, settings);
}

Status write_pib_plain(Field out, double value, std::int64_t decimals,
                       const Settings& settings) noexcept {
  return write_pib_rest(out, value, decimals, settings);
}

Status write_pib_number(Field out, double value, std::int64_t decimals) noexcept {
  Status status = Status::pib_negative;
  if (value >= 0) {
    const double number = decimals != 0 ? value * power_of_ten(decimals) : value;
    const double whole = std::trunc(number + 0.5);
    if (std::isfinite(whole) && put_bytes(out, whole) == 0) return Status::ok;
    status = Status::binary_overflow;
  }
  out.fill(0);
  return status;
}

}  // namespace iocv

extern "C" {

void obipib_(const char* text, const std::int64_t* width, const std::int64_t* decimals, OBS* value,
             std::int64_t* status, std::int64_t) {
  iocv::read_leaf<iocv::read_pib>(text, &iocv::type_code<iocv::FormatCode::pib>, width, decimals,
                                  value, status);
}

void obopib_(const OBS* value, const std::int64_t* width, const std::int64_t* decimals, char* text,
             std::int64_t* status, std::int64_t) {
  iocv::write_leaf<iocv::write_pib>(value, &iocv::type_code<iocv::FormatCode::pib>, width, decimals,
                                    text, status);
}

}  // extern "C"
