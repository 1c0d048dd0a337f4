// Powers of ten and decimal exponents, the same on every machine and in every release.
#pragma once

#include <cstdint>

namespace iocv {

// 10^n: 1 / 10^-n below 0, a correctly rounded table entry for 0..32, beyond it by repeated
// squaring, infinity above 308, 0 below -308.
double power_of_ten(std::int64_t n) noexcept;

// x * 10^n; for n above 150 step by step, so that 10^n need not exist as a double.
double scale_by_power(double x, std::int64_t n) noexcept;

// The exponent of x's leading decimal digit; 0 for a subnormal and whatever has no logarithm. Next
// to a power of ten it may be one more than the true exponent, see the method.
std::int64_t decimal_exponent(double x) noexcept;

}  // namespace iocv
