// The digits of a scaled number.
#pragma once

#include <cstdint>

#include "frame/field.h"

namespace iocv {

// A magnitude prepared for its digits: the whole part of magnitude, then zeros times "0".
struct Scaled {
  double magnitude;     // rounded by a half that was added; 0 when nothing is left
  std::int64_t digits;  // of the whole part, at least 1
  std::int64_t zeros;   // digits beyond the sixteenth are zeros, never binary noise
};

// |value| * 10^decimals; decimals below 1 leave a value below 2^52 as it is.
Scaled scaled_digits(double value, std::int64_t decimals) noexcept;

// Writes the digits of a number that is already scaled, right-aligned, with the decimal character
// at point_column (from 0; at or past the field's width: none) and "-" before a value below zero.
// Columns to the left stay as they are. Returns the number of columns used, or -1 when the text
// would begin left of the field or the value is not finite: the field then holds anything, and the
// caller fills its whole field with asterisks.
std::int64_t write_scaled(Field out, double value, std::int64_t point_column,
                          char decimal) noexcept;

}  // namespace iocv
