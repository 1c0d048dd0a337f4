#include "datetime/obitim_fast.h"

#include "datetime/obitim.h"

namespace iocv {

DateRead read_time(std::string_view field, std::int64_t decimals,
                   const Settings& settings) noexcept {
  fast::TimeInput input;
  double value = 0;
  if (fast::TimeInput::make(static_cast<std::int64_t>(field.size()), decimals, settings, input) &&
      input(field.data(), value)) {
    return {value, Status::ok, field.size()};
  }
  return read_time_plain(field, decimals, settings);
}

}  // namespace iocv
