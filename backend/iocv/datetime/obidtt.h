// Dates with a time of day: 1-JAN-2000 12:30:15.25.
#pragma once

#include <string_view>

#include "datetime/read_date.h"
#include "frame/format_code.h"
#include "frame/leaf.h"

namespace iocv {

// DATETIME, and the year-first date-time (code 86): both parts are needed.
DateRead read_datetime(std::string_view field, std::int64_t decimals, FormatCode code,
                       const Settings& settings) noexcept;

// The same without its fast way.
DateRead read_datetime_plain(std::string_view field, std::int64_t decimals, FormatCode code,
                             const Settings& settings) noexcept;

}  // namespace iocv
