// Digits in groups of three.
#pragma once

#include <cstdint>

#include "frame/field.h"
#include "frame/settings.h"

namespace iocv {

// What stands between the digits; both are a format's own, whatever the settings say.
struct Marks {
  char grouping;
  char decimal;
};

// Fills the field with the magnitude of the value, right-aligned: in groups or, where they do not
// fit, as F would write it. False when no digits can be shown; the field then holds anything.
bool write_grouped(Field out, double value, std::int64_t decimals, Marks marks,
                   const Settings& settings) noexcept;

}  // namespace iocv
