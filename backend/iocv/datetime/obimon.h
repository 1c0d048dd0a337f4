// Months, months of a year and days of the week: SEP, SEP 2000, Tuesday.
#pragma once

#include <string_view>

#include "datetime/read_date.h"

namespace iocv {

// MONTH: 1..12.
DateRead read_month(std::string_view field, std::int64_t decimals,
                    const Settings& settings) noexcept;

// The same without its fast way.
DateRead read_month_plain(std::string_view field, std::int64_t decimals,
                          const Settings& settings) noexcept;

// MOYR: the first day of the month.
DateRead read_moyr(std::string_view field, std::int64_t decimals,
                   const Settings& settings) noexcept;

// The same without its fast way.
DateRead read_moyr_plain(std::string_view field, std::int64_t decimals,
                         const Settings& settings) noexcept;

// WKDAY: 1 (Sunday)..7.
DateRead read_wkday(std::string_view field, std::int64_t decimals,
                    const Settings& settings) noexcept;

}  // namespace iocv
