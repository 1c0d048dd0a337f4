#include "datetime/obidtt.h"

#include <iocv/date_input.h>

#include "datetime/obidat.h"
#include "datetime/obitim.h"
#include "frame/leaf.h"

namespace iocv {
namespace {

bool is_blank(std::string_view field) { return field.find_first_not_of(' ') == field.npos; }

}  // namespace

DateRead read_datetime_plain(std::string_view field, std::int64_t, FormatCode code,
                             const Settings& settings) noexcept {
  const double missing = settings.system_missing;
  if (is_blank(field)) return {missing, Status::ok, 0};

  const bool year_first = code == FormatCode::year_first;
  const DateRead failed = {missing, year_first ? Status::year_first_text : Status::datetime_text,
                           0};
  const DateRead date =
      read_leading_date(field, year_first ? code : FormatCode::datetime, settings);
  if (date.status != Status::ok || date.value == missing) return failed;
  const DateRead time = read_time_at(field, date.position, Hours::of_day, settings);
  if (time.status != Status::ok || time.value == missing) return failed;
  return {date.value + time.value, Status::ok, time.position};
}

}  // namespace iocv

extern "C" void obidtt_(const char* text, const std::int64_t* width, const std::int32_t* type,
                        double* value, std::int64_t* status, std::int64_t* position, std::int64_t) {
  iocv::store(iocv::read_datetime(iocv::input_field(text, *width), 0,
                                  static_cast<iocv::FormatCode>(*type), iocv::Settings::current()),
              value, status, position);
}
