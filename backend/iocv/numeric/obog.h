// The general format, code 40: F for ordinary magnitudes, an exponent for small ones.
#pragma once

#include <cstdint>

#include "frame/field.h"
#include "frame/settings.h"
#include "frame/status.h"

namespace iocv {

// A magnitude below the settings' threshold stands in the first columns, blanks behind it.
Status write_general(Field out, double value, std::int64_t decimals,
                     const Settings& settings) noexcept;

}  // namespace iocv
