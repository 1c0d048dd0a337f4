#include "datetime/obidat_fast.h"

#include "datetime/obidat.h"

namespace iocv {
namespace {

template <FormatCode kCode>
bool read_field(std::string_view field, const Settings& settings, double& value) {
  using Input = fast::DateInput<kCode>;
  Input input;
  return Input::make(static_cast<std::int64_t>(field.size()), 0, settings, input) &&
         input(field.data(), value);
}

bool read_field(std::string_view field, FormatCode code, const Settings& settings, double& value) {
  switch (code) {
    case FormatCode::date: return read_field<FormatCode::date>(field, settings, value);
    case FormatCode::adate: return read_field<FormatCode::adate>(field, settings, value);
    case FormatCode::edate: return read_field<FormatCode::edate>(field, settings, value);
    case FormatCode::sdate: return read_field<FormatCode::sdate>(field, settings, value);
    default: return false;
  }
}

}  // namespace

DateRead read_date(std::string_view field, std::int64_t decimals, FormatCode code,
                   const Settings& settings) noexcept {
  double value = 0;
  if (!read_field(field, code, settings, value)) {
    return read_date_plain(field, decimals, code, settings);
  }
  return {value, Status::ok, field.size()};
}

}  // namespace iocv
