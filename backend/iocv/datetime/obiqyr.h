// A quarter of a year: 3 Q 2001, Q3 2001.
#pragma once

#include <string_view>

#include "datetime/read_date.h"

namespace iocv {

// QYR: the first day of the quarter.
DateRead read_qyr(std::string_view field, std::int64_t decimals, const Settings& settings) noexcept;

// The same without its fast way.
DateRead read_qyr_plain(std::string_view field, std::int64_t decimals,
                        const Settings& settings) noexcept;

}  // namespace iocv
