// Integers in fields.
#pragma once

#include <cstdint>

#include "frame/field.h"

namespace iocv {

// Right-aligned with blanks to the left; false with the field full of asterisks when the digits,
// and the sign of a number below zero, do not fit (an empty field: nothing is written).
bool write_integer(Field out, std::int64_t n) noexcept;

// 0..99 as two digits at column (from 0) and the next one; "**" and false for any other number.
bool write_two_digits(Field out, std::int64_t column, std::int64_t n) noexcept;

}  // namespace iocv
