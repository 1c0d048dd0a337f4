// Durations in days, hours, minutes and seconds: 5, 5 12:30, -5:12:30:15.
#pragma once

#include <string_view>

#include "datetime/read_date.h"

namespace iocv {

// DTIME: a number of days, alone or followed by a time of day.
DateRead read_dtime(std::string_view field, std::int64_t decimals,
                    const Settings& settings) noexcept;

// The same without its fast way.
DateRead read_dtime_plain(std::string_view field, std::int64_t decimals,
                          const Settings& settings) noexcept;

}  // namespace iocv
