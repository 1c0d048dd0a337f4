// Z: digits with leading zeros, the sign in the last one.
#pragma once

#include <cstdint>

#include "frame/field.h"
#include "frame/settings.h"
#include "frame/status.h"

namespace iocv {

// The decimals are implied; a value that shows as zero has no sign.
Status write_z(Field out, double value, std::int64_t decimals, const Settings& settings) noexcept;

// The same without its fast path.
Status write_z_plain(Field out, double value, std::int64_t decimals,
                     const Settings& settings) noexcept;

}  // namespace iocv
