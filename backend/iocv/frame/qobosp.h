// The special values, as every writer shows them.
#pragma once

#include "frame/field.h"
#include "frame/settings.h"

namespace iocv {

// Blanks and the system-missing character in the last column: infinities and not-a-number.
void write_non_finite(Field out, const Settings& settings) noexcept;

// Writes the system-missing number (its character at column, from 0, or the nearest one),
// infinities and not-a-number; false for any other value. An empty field is written by writing
// nothing.
bool write_special(Field out, double value, std::int64_t column, const Settings& settings) noexcept;

}  // namespace iocv
