// The fast way of TIME as text: hh:mm:ss in a field of eight columns, of a value from 0 to below
// 100 hours that is not the system-missing number. Such a field has no column left for a fraction,
// whatever the decimals are; one for the tens of the hour is blank below ten hours. Seconds are cut
// to whole ones before they are divided, which cuts to the same hours and minutes as the plain
// way's division of doubles: its quotients never round up to the next whole number below 2^57.
#include "datetime/oboida_fast.h"
#include "datetime/obotim.h"
#include "frame/outlined.h"

namespace iocv {
namespace {

constexpr std::int64_t kWidth = 8;
constexpr double kHundredHours = 360'000;

// Negative zero counts as 0, as it does in the plain way.
bool is_ordinary(std::int64_t width, double value, FormatCode code, const double& missing) {
  return width == kWidth && code != FormatCode::dtime && value >= 0 && value < kHundredHours &&
         value != missing;
}

void put_time(char* text, double value) {
  const auto seconds = static_cast<std::uint32_t>(static_cast<int>(value));
  const fast::Clock clock = {seconds / 3600, seconds / 60 % 60, seconds % 60};
  const fast::Tables::TwoDigits hour = fast::kTables.two_digits[clock.hour];
  text[0] = static_cast<char>(hour[0] - (clock.hour < 10) * ('0' - ' '));  // no branch: hours vary
  text[1] = hour[1];
  text[2] = ':';
  fast::put_two(text + 3, clock.minute);
  text[5] = ':';
  fast::put_two(text + 6, clock.second);
}

// The plain row, as it is: inlined it would cost the fast one a frame.
IOCV_OUTLINED void write_plain(const OBS* value, const std::int32_t* type,
                               const std::int64_t* width, const std::int64_t* decimals, char* text,
                               std::int64_t* status) {
  write_leaf<write_time_plain>(value, type, width, decimals, text, status, *width);
}

}  // namespace

Status write_time(Field out, double value, std::int64_t decimals, FormatCode code,
                  const Settings& settings) noexcept {
  if (!is_ordinary(out.width(), value, code, settings.system_missing)) {
    return write_time_plain(out, value, decimals, code, settings);
  }
  put_time(out.data(), value);
  return Status::ok;
}

template <>
void write_leaf<write_time>(const OBS* value, const std::int32_t* type, const std::int64_t* width,
                            const std::int64_t* decimals, char* text, std::int64_t* status,
                            std::int64_t) {
  const double number = value->number;
  if (!is_ordinary(*width, number, static_cast<FormatCode>(*type), cmnglb_.system_missing)) {
    return write_plain(value, type, width, decimals, text, status);
  }
  put_time(text, number);
  store(status, Status::ok);
}

}  // namespace iocv
