#include "datetime/obitim_fast.h"

#include "datetime/obitim.h"
#include "frame/outlined.h"

namespace iocv {
namespace {

// Seconds of a field that the fast way reads, or kNoTime.
std::uint32_t ordinary_time(const char* text, std::int64_t width) {
  return fast::kReadsWords && width == fast::kClockWidth ? fast::read_clock(text) : fast::kNoTime;
}

// The plain row, as it is: inlined it would cost the fast one a frame.
IOCV_OUTLINED void read_plain(const char* text, const std::int32_t* type, const std::int64_t* width,
                              const std::int64_t* decimals, OBS* value, std::int64_t* status) {
  read_leaf<read_time_plain>(text, type, width, decimals, value, status, *width);
}

}  // namespace

DateRead read_time(std::string_view field, std::int64_t decimals,
                   const Settings& settings) noexcept {
  const std::uint32_t seconds =
      ordinary_time(field.data(), static_cast<std::int64_t>(field.size()));
  if (seconds == fast::kNoTime) return read_time_plain(field, decimals, settings);
  return {static_cast<double>(seconds), Status::ok, field.size()};
}

template <>
void read_leaf<read_time>(const char* text, const std::int32_t* type, const std::int64_t* width,
                          const std::int64_t* decimals, OBS* value, std::int64_t* status,
                          std::int64_t) {
  const std::uint32_t seconds = ordinary_time(text, *width);
  if (seconds == fast::kNoTime) return read_plain(text, type, width, decimals, value, status);
  value->number = static_cast<double>(seconds);
  store(status, Status::ok);
}

}  // namespace iocv
