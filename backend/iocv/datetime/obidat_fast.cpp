#include "datetime/obidat_fast.h"

#include "datetime/obidat.h"
#include "frame/outlined.h"

namespace iocv {
namespace {

constexpr std::int64_t kNamedWidth = 11;
constexpr std::int64_t kNumericWidth = 10;

// The day number of a field that the fast way reads, or 0.
std::uint32_t ordinary_day(const char* text, std::int64_t width, FormatCode code, double missing) {
  if (!fast::kReadsWords || !(missing < 0)) return 0;
  if (code == FormatCode::date) return width == kNamedWidth ? fast::read_date(text) : 0;
  if (width != kNumericWidth) return 0;
  switch (code) {
    case FormatCode::adate: return fast::read_month_first(text);
    case FormatCode::edate: return fast::read_day_first(text);
    case FormatCode::sdate: return fast::read_year_first(text);
    default: return 0;
  }
}

double stored_day(std::uint32_t day) {
  return static_cast<double>(std::int64_t{day} * kSecondsPerDay);
}

// The plain row, as it is: inlined it would cost the fast one a frame.
IOCV_OUTLINED void read_plain(const char* text, const std::int32_t* type, const std::int64_t* width,
                              const std::int64_t* decimals, OBS* value, std::int64_t* status) {
  read_leaf<read_date_plain>(text, type, width, decimals, value, status, *width);
}

}  // namespace

DateRead read_date(std::string_view field, std::int64_t decimals, FormatCode code,
                   const Settings& settings) noexcept {
  const std::uint32_t day = ordinary_day(field.data(), static_cast<std::int64_t>(field.size()),
                                         code, settings.system_missing);
  if (day == 0) return read_date_plain(field, decimals, code, settings);
  return {stored_day(day), Status::ok, field.size()};
}

template <>
void read_leaf<read_date>(const char* text, const std::int32_t* type, const std::int64_t* width,
                          const std::int64_t* decimals, OBS* value, std::int64_t* status,
                          std::int64_t) {
  const std::uint32_t day =
      ordinary_day(text, *width, static_cast<FormatCode>(*type), cmnglb_.system_missing);
  if (day == 0) return read_plain(text, type, width, decimals, value, status);
  value->number = stored_day(day);
  store(status, Status::ok);
}

}  // namespace iocv
