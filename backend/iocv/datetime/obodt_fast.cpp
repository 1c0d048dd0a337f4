#include "datetime/obodt_fast.h"

#include "datetime/obodt.h"
#include "frame/attempts.h"

namespace iocv {

Status write_date_time(Field out, double value, std::int64_t decimals,
                       const Settings& settings) noexcept {
  if (written_by<fast::DateTimeFields>(out, value, decimals, settings)) return Status::ok;
  return write_date_time_plain(out, value, decimals, settings);
}

}  // namespace iocv
