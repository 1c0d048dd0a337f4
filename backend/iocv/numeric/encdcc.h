// The one writer of decimal numbers, on which every numeric format builds.
#pragma once

#include <cstdint>

#include "frame/field.h"
#include "frame/settings.h"

namespace iocv {

// Fills the field with the number, right-aligned, with as many of the decimals as fit. A magnitude
// above 0 and below small is written with an exponent, so is one whose whole digits do not fit;
// what fits in neither way is asterisks. Special values are the system-missing character.
void write_number(Field out, double value, std::int64_t decimals, double small,
                  const Settings& settings) noexcept;

// Writes "E", a sign and three digits into the last five columns.
void write_exponent(Field out, std::int64_t exponent) noexcept;

}  // namespace iocv
