#include "datetime/obotim_fast.h"

#include "datetime/obotim.h"

namespace iocv {
namespace {

template <FormatCode kCode>
bool write_text(Field out, double value, std::int64_t decimals, const Settings& settings) {
  using Fields = fast::TimeFields<kCode>;
  Fields fields;
  return Fields::make(out.width(), decimals, settings, fields) && fields(out.data(), value);
}

}  // namespace

Status write_time(Field out, double value, std::int64_t decimals, FormatCode code,
                  const Settings& settings) noexcept {
  const bool written = code == FormatCode::dtime
                           ? write_text<FormatCode::dtime>(out, value, decimals, settings)
                           : write_text<FormatCode::time>(out, value, decimals, settings);
  if (written) return Status::ok;
  return write_time_plain(out, value, decimals, code, settings);
}

}  // namespace iocv
