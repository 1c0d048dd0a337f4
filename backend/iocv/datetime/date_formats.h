// What the readers of calendar dates know about each format.
#pragma once

#include <iterator>

#include "frame/format_code.h"
#include "frame/status.h"

namespace iocv {

enum class DateOrder { day_month_year, month_day_year, year_month_day };

struct DateFormat {
  FormatCode code;
  DateOrder order;
  Status bad_text;    // of a date with delimiters
  Status bad_digits;  // of a date without
};

inline constexpr DateFormat kDateFormats[] = {
    {FormatCode::adate, DateOrder::month_day_year, Status::adate_text, Status::adate_digits},
    {FormatCode::sdate, DateOrder::year_month_day, Status::sdate_text, Status::sdate_digits},
    {FormatCode::year_first, DateOrder::year_month_day, Status::sdate_text,
     Status::year_first_text},
    {FormatCode::edate, DateOrder::day_month_year, Status::edate_text, Status::edate_digits},
    {FormatCode::datetime, DateOrder::day_month_year, Status::date_text, Status::datetime_digits},
    {FormatCode::date, DateOrder::day_month_year, Status::date_text, Status::date_digits},
};

// Every other code reads as the last one.
constexpr const DateFormat& date_format(FormatCode code) noexcept {
  for (const DateFormat& format : kDateFormats) {
    if (format.code == code) return format;
  }
  return *std::prev(std::end(kDateFormats));
}
static_assert(date_format(FormatCode::f).code == FormatCode::date);

}  // namespace iocv
