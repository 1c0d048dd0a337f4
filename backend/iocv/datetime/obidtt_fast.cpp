#include "datetime/obidtt_fast.h"

#include "datetime/obidtt.h"

namespace iocv {
namespace {

template <FormatCode kCode>
bool read_field(std::string_view field, const Settings& settings, double& value) {
  using Input = fast::DateTimeInput<kCode>;
  Input input;
  return Input::make(static_cast<std::int64_t>(field.size()), 0, settings, input) &&
         input(field.data(), value);
}

}  // namespace

DateRead read_datetime(std::string_view field, std::int64_t decimals, FormatCode code,
                       const Settings& settings) noexcept {
  double value = 0;
  const bool read = code == FormatCode::year_first
                        ? read_field<FormatCode::year_first>(field, settings, value)
                        : read_field<FormatCode::datetime>(field, settings, value);
  if (!read) return read_datetime_plain(field, decimals, code, settings);
  return {value, Status::ok, field.size()};
}

}  // namespace iocv
