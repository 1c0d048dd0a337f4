#include "datetime/oboida_fast.h"

#include "datetime/oboida.h"
#include "frame/attempts.h"

namespace iocv {

namespace {

bool write_numeric_text(Field out, double value, std::int64_t decimals, FormatCode code,
                        const Settings& settings) {
  switch (code) {
    case FormatCode::adate:
      return written_by<fast::DateFields<FormatCode::adate>>(out, value, decimals, settings);
    case FormatCode::edate:
      return written_by<fast::DateFields<FormatCode::edate>>(out, value, decimals, settings);
    case FormatCode::sdate:
      return written_by<fast::DateFields<FormatCode::sdate>>(out, value, decimals, settings);
    default: return false;
  }
}

bool write_month_or_quarter_text(Field out, double value, std::int64_t decimals, FormatCode code,
                                 const Settings& settings) {
  return code == FormatCode::qyr
             ? written_by<fast::DateFields<FormatCode::qyr>>(out, value, decimals, settings)
             : written_by<fast::DateFields<FormatCode::moyr>>(out, value, decimals, settings);
}

}  // namespace

Status write_date(Field out, double value, std::int64_t decimals,
                  const Settings& settings) noexcept {
  if (written_by<fast::DateFields<FormatCode::date>>(out, value, decimals, settings))
    return Status::ok;
  return write_date_plain(out, value, decimals, settings);
}

Status write_numeric_date(Field out, double value, std::int64_t decimals, FormatCode code,
                          const Settings& settings) noexcept {
  if (write_numeric_text(out, value, decimals, code, settings)) return Status::ok;
  return write_numeric_date_plain(out, value, decimals, code, settings);
}

Status write_day_of_year(Field out, double value, std::int64_t decimals,
                         const Settings& settings) noexcept {
  if (written_by<fast::DateFields<FormatCode::jdate>>(out, value, decimals, settings))
    return Status::ok;
  return write_day_of_year_plain(out, value, decimals, settings);
}

Status write_month_or_quarter(Field out, double value, std::int64_t decimals, FormatCode code,
                              const Settings& settings) noexcept {
  if (write_month_or_quarter_text(out, value, decimals, code, settings)) return Status::ok;
  return write_month_or_quarter_plain(out, value, decimals, code, settings);
}

Status write_week(Field out, double value, std::int64_t decimals,
                  const Settings& settings) noexcept {
  if (written_by<fast::DateFields<FormatCode::wkyr>>(out, value, decimals, settings))
    return Status::ok;
  return write_week_plain(out, value, decimals, settings);
}

Status write_name(Field out, double value, std::int64_t decimals, FormatCode code,
                  const Settings& settings) noexcept {
  const bool written =
      code == FormatCode::wkday
          ? written_by<fast::NameFields<FormatCode::wkday>>(out, value, decimals, settings)
          : written_by<fast::NameFields<FormatCode::month>>(out, value, decimals, settings);
  if (written) return Status::ok;
  return write_name_plain(out, value, decimals, code, settings);
}

}  // namespace iocv
