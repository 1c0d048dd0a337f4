// Powers of ten and decimal exponents, the same on every machine and in every release.
#pragma once

#include <array>
#include <cstdint>

namespace iocv {

// 10^0..10^32, correctly rounded, exact up to 10^22.
inline constexpr std::array kSmallPowers = {
    1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10,  //
    1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21,  //
    1e22, 1e23, 1e24, 1e25, 1e26, 1e27, 1e28, 1e29, 1e30, 1e31, 1e32,
};
static_assert(kSmallPowers.size() == 33);

// 10^n: 1 / 10^-n below 0, a correctly rounded table entry for 0..32, beyond it by repeated
// squaring, infinity above 308, 0 below -308.
double power_of_ten(std::int64_t n) noexcept;

// x * 10^n; for n above 150 step by step, so that 10^n need not exist as a double.
double scale_by_power(double x, std::int64_t n) noexcept;

// The exponent of x's leading decimal digit; 0 for a subnormal and whatever has no logarithm. Next
// to a power of ten it may be one more than the true exponent, see the method.
std::int64_t decimal_exponent(double x) noexcept;

}  // namespace iocv
