// Rounding with a tolerance: decimal fractions are rarely exact in binary, so a value that lies up
// to 4096 representable doubles below the boundary where it would carry, carries.
#pragma once

#include <cstdint>

namespace iocv {

// At most this many representable doubles apart is almost equal, everywhere.
inline constexpr std::int64_t kFuzz = 4096;

// At most ulps representable doubles apart; +0 and -0 are no double apart.
bool almost_equal(double a, double b, std::int64_t ulps) noexcept;

// To a whole number, halves away from zero; the fraction is compared with 0.5. Never -0.
double fuzzy_round(double x) noexcept;
// The same; the whole magnitude is compared with the half above it, so that the tolerance grows
// with the magnitude.
double fuzzy_rel_round(double x) noexcept;

// Towards zero, unless the fraction is almost 1. Never -0.
double fuzzy_truncate(double x) noexcept;
double fuzzy_rel_truncate(double x) noexcept;

// A whole number in the range of a 32-bit integer without its lowest number.
bool is_int32(double x) noexcept;

// How many decimals, 0..15, show all that x has to show within the tolerance.
std::int64_t decimals_to_show(double x) noexcept;

}  // namespace iocv
