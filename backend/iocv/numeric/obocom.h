// COMMA, DOLLAR, DOT and the five custom currencies.
#pragma once

#include <cstdint>

#include "frame/field.h"
#include "frame/format_code.h"
#include "frame/settings.h"
#include "frame/status.h"

namespace iocv {

// Any other code leaves the field untouched.
Status write_currency(Field out, double value, std::int64_t decimals, FormatCode code,
                      const Settings& settings) noexcept;

}  // namespace iocv
