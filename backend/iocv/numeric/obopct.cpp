// PCT: a number and a percent sign.
#include "numeric/obopct.h"

#include <iocv/number_formats.h>

#include <algorithm>

#include "frame/attempts.h"
#include "frame/leaf.h"
#include "frame/qobosp.h"
#include "numeric/encdcc.h"
#include "numeric/obopct_fast.h"
#include "numeric/qobosp_fast.h"

namespace iocv {

Status write_percent(Field out, double value, std::int64_t decimals,
                     const Settings& settings) noexcept {
  if (written_by<PercentWriter<Reach::nine_digits>, PercentWriter<Reach::eleven_digits>,
                 PercentWriter<Reach::sixteen_digits>, SpecialWriter<MissingPlace::before_percent>>(
          out, value, decimals, settings)) {
    return Status::ok;
  }
  return write_percent_plain(out, value, decimals, settings);
}

Status write_percent_plain(Field out, double value, std::int64_t decimals,
                           const Settings& settings) noexcept {
  decimals = std::clamp<std::int64_t>(decimals, 0, out.width());
  if (write_special(out, value, out.width() - 2 - decimals, settings)) return Status::ok;
  const Field number = out.part(0, out.width() - 1);
  write_number(number, value, decimals, 0, settings);
  if (!number.empty() && number.data()[0] != '*') {
    out.put(out.width() - 1, '%');
  } else {
    write_number(out, value, decimals, 0, settings);
  }
  return Status::ok;
}

}  // namespace iocv

extern "C" void obopct_(const double* value, const std::int64_t* width,
                        const std::int64_t* decimals, char* text, std::int64_t* status,
                        std::int64_t) {
  iocv::store(status,
              iocv::write_percent({text, *width}, *value, *decimals, iocv::Settings::current()));
}
