// N: unsigned digits with leading zeros.
#pragma once

#include <cstdint>

#include "frame/field.h"
#include "frame/settings.h"
#include "frame/status.h"

namespace iocv {

// A value below zero is the system-missing character in the last column and n_negative.
Status write_n(Field out, double value, std::int64_t decimals, const Settings& settings) noexcept;

// Writes the digits of magnitude * 10^decimals, decimals >= 0, with "0" in the columns to the left;
// the decimal character as in write_scaled. Returns how many columns the digits used, or -1 with
// the field full of asterisks.
std::int64_t write_zero_filled(Field out, double magnitude, std::int64_t decimals,
                               std::int64_t point_column, char decimal) noexcept;

}  // namespace iocv
