// Dates as text. Each writer fills its field from the left; decimals are ignored.
#pragma once

#include "datetime/calendar.h"
#include "frame/leaf.h"

namespace iocv {

// DATE.
Status write_date(Field out, double value, std::int64_t decimals,
                  const Settings& settings) noexcept;

// ADATE, EDATE, SDATE.
Status write_numeric_date(Field out, double value, std::int64_t decimals, FormatCode code,
                          const Settings& settings) noexcept;

// JDATE.
Status write_day_of_year(Field out, double value, std::int64_t decimals,
                         const Settings& settings) noexcept;

// MOYR, QYR.
Status write_month_or_quarter(Field out, double value, std::int64_t decimals, FormatCode code,
                              const Settings& settings) noexcept;

// WKYR.
Status write_week(Field out, double value, std::int64_t decimals,
                  const Settings& settings) noexcept;

// WKDAY, MONTH: of a date, or of a value below 86400, which is a number of a day or month itself.
Status write_name(Field out, double value, std::int64_t decimals, FormatCode code,
                  const Settings& settings) noexcept;

// The same without their fast ways.
Status write_date_plain(Field out, double value, std::int64_t decimals,
                        const Settings& settings) noexcept;
Status write_numeric_date_plain(Field out, double value, std::int64_t decimals, FormatCode code,
                                const Settings& settings) noexcept;
Status write_day_of_year_plain(Field out, double value, std::int64_t decimals,
                               const Settings& settings) noexcept;
Status write_month_or_quarter_plain(Field out, double value, std::int64_t decimals, FormatCode code,
                                    const Settings& settings) noexcept;
Status write_week_plain(Field out, double value, std::int64_t decimals,
                        const Settings& settings) noexcept;
Status write_name_plain(Field out, double value, std::int64_t decimals, FormatCode code,
                        const Settings& settings) noexcept;

// Blanks and the decimal character in the last column: a value that the format has no text for.
Status refuse_value(Field out, Status status, const Settings& settings) noexcept;

// Leaves the fields of a date in the exported records, as the flat writers do once they have taken
// their value apart. Special values and values that are no dates leave the records alone.
void record_written_date(Field out, double value, const Settings& settings) noexcept;

// A flat writer of dates: the core, then the records. Code is the format type where Write takes it.
template <auto Write, class... Code>
void write_flat_date(Field out, double value, std::int64_t* status, std::int64_t decimals,
                     Code... code) noexcept {
  const Settings settings = Settings::current();
  store(status, Write(out, value, decimals, code..., settings));
  record_written_date(out, value, settings);
}

// A dispatcher's row for a writer of dates.
template <auto Write>
void write_date_leaf(const OBS* value, const std::int32_t* type, const std::int64_t* width,
                     const std::int64_t* decimals, char* text, std::int64_t* status) {
  const Field out(text, *width);
  if constexpr (std::is_invocable_v<decltype(Write), Field, double, std::int64_t,
                                    const Settings&>) {
    write_flat_date<Write>(out, value->number, status, *decimals);
  } else {
    write_flat_date<Write>(out, value->number, status, *decimals, static_cast<FormatCode>(*type));
  }
}

}  // namespace iocv
