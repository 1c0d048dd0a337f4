// F: a number with a fixed number of decimals.
#pragma once

#include <cstdint>

#include "frame/field.h"
#include "frame/settings.h"
#include "frame/status.h"

namespace iocv {

// A value too large for the width is written with an exponent, a small one never.
Status write_f(Field out, double value, std::int64_t decimals, const Settings& settings) noexcept;

Status write_f_plain(Field out, double value, std::int64_t decimals,
                     const Settings& settings) noexcept;

}  // namespace iocv
