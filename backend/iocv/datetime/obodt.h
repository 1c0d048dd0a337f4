// Date-times as text.
#pragma once

#include "datetime/oboida.h"

namespace iocv {

// DATETIME: the date, and as much of the time of day as the width holds.
Status write_date_time(Field out, double value, std::int64_t decimals,
                       const Settings& settings) noexcept;

// The same without its fast way.
Status write_date_time_plain(Field out, double value, std::int64_t decimals,
                             const Settings& settings) noexcept;

}  // namespace iocv
