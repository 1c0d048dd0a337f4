// A day of a year: 2000366, 00001, 2000-366.
#pragma once

#include <string_view>

#include "datetime/read_date.h"

namespace iocv {

// JDATE: the date of a day of the year, 366 of any year.
DateRead read_jdate(std::string_view field, std::int64_t decimals,
                    const Settings& settings) noexcept;

// The same without its fast way.
DateRead read_jdate_plain(std::string_view field, std::int64_t decimals,
                          const Settings& settings) noexcept;

}  // namespace iocv
