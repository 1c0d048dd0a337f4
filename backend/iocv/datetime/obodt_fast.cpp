#include "datetime/obodt_fast.h"

#include "datetime/obodt.h"

namespace iocv {

Status write_date_time(Field out, double value, std::int64_t decimals,
                       const Settings& settings) noexcept {
  fast::DateTimeFields fields;
  if (fast::DateTimeFields::make(out.width(), decimals, settings, fields) &&
      fields(out.data(), value)) {
    return Status::ok;
  }
  return write_date_time_plain(out, value, decimals, settings);
}

}  // namespace iocv
