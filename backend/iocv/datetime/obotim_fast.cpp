#include "datetime/obotim_fast.h"

#include "datetime/obotim.h"
#include "frame/attempts.h"

namespace iocv {

Status write_time(Field out, double value, std::int64_t decimals, FormatCode code,
                  const Settings& settings) noexcept {
  const bool written =
      code == FormatCode::dtime
          ? written_by<fast::TimeFields<FormatCode::dtime>>(out, value, decimals, settings)
          : written_by<fast::TimeFields<FormatCode::time>>(out, value, decimals, settings);
  if (written) return Status::ok;
  return write_time_plain(out, value, decimals, code, settings);
}

}  // namespace iocv
