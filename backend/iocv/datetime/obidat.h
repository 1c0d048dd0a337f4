// Calendar dates with delimiters: 1-JAN-2000, 01/01/2000, 2000.I.1.
#pragma once

#include <string_view>

#include "datetime/read_date.h"
#include "frame/format_code.h"
#include "frame/leaf.h"

namespace iocv {

// DATE, ADATE, EDATE and SDATE: a date that fills the field but for blanks.
DateRead read_date(std::string_view field, std::int64_t decimals, FormatCode code,
                   const Settings& settings) noexcept;

// The same without its fast way.
DateRead read_date_plain(std::string_view field, std::int64_t decimals, FormatCode code,
                         const Settings& settings) noexcept;

// The date at the start of a date-time, whatever follows.
DateRead read_leading_date(std::string_view field, FormatCode code,
                           const Settings& settings) noexcept;

}  // namespace iocv
