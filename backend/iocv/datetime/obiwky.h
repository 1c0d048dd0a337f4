// A week of a year: 2 WK 2001. Week 1 begins on 1 January.
#pragma once

#include <string_view>

#include "datetime/read_date.h"

namespace iocv {

// WKYR: the first day of the week.
DateRead read_wkyr(std::string_view field, std::int64_t decimals,
                   const Settings& settings) noexcept;

// The same without its fast way.
DateRead read_wkyr_plain(std::string_view field, std::int64_t decimals,
                         const Settings& settings) noexcept;

}  // namespace iocv
