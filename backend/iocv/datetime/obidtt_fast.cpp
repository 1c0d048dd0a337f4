// The fast way of DATETIME as input: dd-MMM-yyyy (obidat_fast.h), a blank, and a time of day
// (obitim_fast.h) that fill their field. A negative system-missing number is neither the date nor
// the time, which the plain way compares with it; under any other all is the plain way's.
#include "datetime/obidat_fast.h"
#include "datetime/obidtt.h"
#include "datetime/obitim_fast.h"
#include "frame/outlined.h"

namespace iocv {
namespace {

constexpr std::int64_t kWidth = 20;
constexpr std::size_t kBlank = 11;  // where the blank stands

// The value of a field that the fast way reads; 0, which no date is, for any other.
std::int64_t ordinary_date_time(const char* text, std::int64_t width, FormatCode code,
                                double missing) {
  if (!fast::kReadsWords || !(missing < 0)) return 0;
  if (width != kWidth || code == FormatCode::year_first || text[kBlank] != ' ') return 0;
  const std::uint32_t day = fast::read_date(text);
  const std::uint32_t time = fast::read_clock(text + kBlank + 1);
  if (day == 0 || time >= kSecondsPerDay) return 0;  // kNoTime too is later
  return std::int64_t{day} * kSecondsPerDay + time;
}

// The plain row, as it is: inlined it would cost the fast one a frame.
IOCV_OUTLINED void read_plain(const char* text, const std::int32_t* type, const std::int64_t* width,
                              const std::int64_t* decimals, OBS* value, std::int64_t* status) {
  read_leaf<read_datetime_plain>(text, type, width, decimals, value, status, *width);
}

}  // namespace

DateRead read_datetime(std::string_view field, std::int64_t decimals, FormatCode code,
                       const Settings& settings) noexcept {
  const std::int64_t seconds = ordinary_date_time(
      field.data(), static_cast<std::int64_t>(field.size()), code, settings.system_missing);
  if (seconds == 0) return read_datetime_plain(field, decimals, code, settings);
  return {static_cast<double>(seconds), Status::ok, field.size()};
}

template <>
void read_leaf<read_datetime>(const char* text, const std::int32_t* type, const std::int64_t* width,
                              const std::int64_t* decimals, OBS* value, std::int64_t* status,
                              std::int64_t) {
  const std::int64_t seconds =
      ordinary_date_time(text, *width, static_cast<FormatCode>(*type), cmnglb_.system_missing);
  if (seconds == 0) return read_plain(text, type, width, decimals, value, status);
  value->number = static_cast<double>(seconds);
  store(status, Status::ok);
}

}  // namespace iocv
