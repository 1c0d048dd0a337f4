// PCT: a number and a percent sign.
#pragma once

#include <cstdint>

#include "frame/field.h"
#include "frame/settings.h"
#include "frame/status.h"

namespace iocv {

// The value as it is, not times 100. The sign is given up when the number needs its column.
Status write_percent(Field out, double value, std::int64_t decimals,
                     const Settings& settings) noexcept;

// The same without its fast path.
Status write_percent_plain(Field out, double value, std::int64_t decimals,
                           const Settings& settings) noexcept;

}  // namespace iocv
