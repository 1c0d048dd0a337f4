// Powers of ten and decimal exponents.
#include "numeric/powers.h"

#include <iocv/digits.h>

#include <array>
#include <limits>

#include "frame/constants.h"

namespace iocv {
namespace {

constexpr std::array small10 = {
    1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10,  //
    1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21,  //
    1e22, 1e23, 1e24, 1e25, 1e26, 1e27, 1e28, 1e29, 1e30, 1e31, 1e32,
};
constexpr std::int64_t kPowers = small10.size();
static_assert(kPowers == 33);

// The largest n for which 10^n is finite.
constexpr std::int64_t kLargestPower = std::numeric_limits<double>::max_exponent10;

// x times 10^n, n >= 0, by the repeated squares of 10: not always the nearest double of the
// product, but the number whose digits files have shown all along.
double times_power(double x, std::int64_t n) {
  double square = 10;
  for (;;) {
    if (n & 1) x *= square;
    n >>= 1;
    if (n == 0) return x;
    square *= square;
  }
}

}  // namespace

double power_of_ten(std::int64_t n) noexcept {
  if (n < -kLargestPower) return 0;
  if (n < 0) return 1 / power_of_ten(-n);
  if (n < kPowers) return small10[static_cast<std::size_t>(n)];
  if (n > kLargestPower) return std::numeric_limits<double>::infinity();
  return times_power(1, n);
}

double scale_by_power(double x, std::int64_t n) noexcept {
  return n > 150 ? times_power(x, n) : x * power_of_ten(n);
}

std::int64_t decimal_exponent(double x) noexcept {
  if (!(x >= kSmallestNormal && x <= kLargest)) return 0;
  std::int64_t exponent = 0;
  while (x < 1) {
    x *= 1e32;
    exponent -= 32;
  }
  while (x >= 1e32) {
    x *= 1e-32;
    exponent += 32;
  }
  std::int64_t low = 0;  // 10^low <= x, as long as rounding has not brought x to 10^32
  std::int64_t high = kPowers;
  while (high - low >= 2) {
    const std::int64_t middle = (low + high) / 2;
    (small10[static_cast<std::size_t>(middle)] > x ? high : low) = middle;
  }
  return high - 1 + exponent;
}

}  // namespace iocv

extern "C" {

double lpwr10_(const std::int64_t* n) { return iocv::power_of_ten(*n); }
double lscl10_(const double* x, const std::int64_t* n) { return iocv::scale_by_power(*x, *n); }
std::int64_t ilog10_(const double* x) { return iocv::decimal_exponent(*x); }

}  // extern "C"
