// F: a number with a fixed number of decimals.
#include "numeric/obof.h"

#include <iocv/number_formats.h>

#include "frame/attempts.h"
#include "frame/leaf.h"
#include "numeric/encdcc.h"
#include "numeric/encdcc_fast.h"
#include "numeric/qobosp_fast.h"

namespace iocv {

Status write_f_plain(Field out, double value, std::int64_t decimals,
                     const Settings& settings) noexcept {
  write_number(out, value, decimals, 0, settings);
  return Status::ok;
}

Status write_f(Field out, double value, std::int64_t decimals, const Settings& settings) noexcept {
  if (written_by<FixedWriter<Reach::nine_digits>, FixedWriter<Reach::eleven_digits>,
                 FixedWriter<Reach::sixteen_digits>,
                 SpecialWriter<MissingPlace::decimal_character>>(out, value, decimals, settings)) {
    return Status::ok;
  }
  return write_f_plain(out, value, decimals, settings);
}

}  // namespace iocv

extern "C" void obof_(const double* value, const std::int64_t* width, const std::int64_t* decimals,
                      char* text, std::int64_t* status, std::int64_t) {
  iocv::store(status, iocv::write_f({text, *width}, *value, *decimals, iocv::Settings::current()));
}
