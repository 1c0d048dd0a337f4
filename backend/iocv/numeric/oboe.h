// E: a mantissa and an exponent of three digits.
#pragma once

#include <cstdint>

#include "frame/field.h"
#include "frame/settings.h"
#include "frame/status.h"

namespace iocv {

// All decimals or asterisks: E gives up none.
Status write_e(Field out, double value, std::int64_t decimals, const Settings& settings) noexcept;

// The same without its fast path.
Status write_e_plain(Field out, double value, std::int64_t decimals,
                     const Settings& settings) noexcept;

}  // namespace iocv
