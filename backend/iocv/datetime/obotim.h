// Times and durations as text.
#pragma once

#include "frame/field.h"
#include "frame/format_code.h"
#include "frame/leaf.h"
#include "frame/settings.h"
#include "frame/status.h"

namespace iocv {

// TIME, DTIME: right-aligned hours and minutes, with seconds and a fraction where they fit. What is
// not shown is cut, never rounded; only the fraction rounds, and never into the seconds.
Status write_time(Field out, double value, std::int64_t decimals, FormatCode code,
                  const Settings& settings) noexcept;

// The same without its fast way.
Status write_time_plain(Field out, double value, std::int64_t decimals, FormatCode code,
                        const Settings& settings) noexcept;

// write_special for times and date-times: the system-missing character stands in the column of the
// decimal character.
bool write_special_time(Field out, double value, std::int64_t decimals,
                        const Settings& settings) noexcept;

// A fraction of seconds of [0, 1) as digits, one for each column. Each digit is cut off the
// fraction times ten, so the caller has rounded it.
void write_fraction(Field out, double fraction) noexcept;

}  // namespace iocv
