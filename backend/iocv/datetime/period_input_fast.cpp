#include "datetime/period_input_fast.h"

#include "datetime/obidtm.h"
#include "datetime/obijdt.h"
#include "datetime/obimon.h"
#include "datetime/obiqyr.h"
#include "datetime/obiwky.h"

namespace iocv {
namespace {

template <FormatCode kCode, auto Plain>
DateRead read_period_field(std::string_view field, std::int64_t decimals,
                           const Settings& settings) {
  using Input = fast::PeriodInput<kCode>;
  Input input;
  double value = 0;
  if (Input::make(static_cast<std::int64_t>(field.size()), decimals, settings, input) &&
      input(field.data(), value)) {
    return {value, Status::ok, field.size()};
  }
  return Plain(field, decimals, settings);
}

}  // namespace

DateRead read_jdate(std::string_view field, std::int64_t decimals,
                    const Settings& settings) noexcept {
  return read_period_field<FormatCode::jdate, read_jdate_plain>(field, decimals, settings);
}

DateRead read_month(std::string_view field, std::int64_t decimals,
                    const Settings& settings) noexcept {
  return read_period_field<FormatCode::month, read_month_plain>(field, decimals, settings);
}

DateRead read_moyr(std::string_view field, std::int64_t decimals,
                   const Settings& settings) noexcept {
  return read_period_field<FormatCode::moyr, read_moyr_plain>(field, decimals, settings);
}

DateRead read_qyr(std::string_view field, std::int64_t decimals,
                  const Settings& settings) noexcept {
  return read_period_field<FormatCode::qyr, read_qyr_plain>(field, decimals, settings);
}

DateRead read_wkyr(std::string_view field, std::int64_t decimals,
                   const Settings& settings) noexcept {
  return read_period_field<FormatCode::wkyr, read_wkyr_plain>(field, decimals, settings);
}

DateRead read_dtime(std::string_view field, std::int64_t decimals,
                    const Settings& settings) noexcept {
  return read_period_field<FormatCode::dtime, read_dtime_plain>(field, decimals, settings);
}

}  // namespace iocv
