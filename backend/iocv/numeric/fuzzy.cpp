// Rounding with a tolerance, and the tests for whole numbers.
#include "numeric/fuzzy.h"

#include <iocv/digits.h>

#include <bit>
#include <cmath>
#include <limits>

#include "frame/constants.h"
#include "numeric/powers.h"

namespace iocv {
namespace {

constexpr double kTolerance = static_cast<double>(kFuzz) * kEpsilon;
static_assert(kTolerance == 0x1p-40);

// The largest whole numbers that count as such: all below them are exact in their types.
constexpr float kLargestWholeFloat = 16777215;
constexpr double kLargestInt32 = 2147483647;

constexpr std::int64_t kMostDecimals = 15;

// a - b as 64-bit numbers that wrap around.
std::int64_t wrapping_difference(std::int64_t a, std::int64_t b) {
  return static_cast<std::int64_t>(static_cast<std::uint64_t>(a) - static_cast<std::uint64_t>(b));
}

// Gives a rounded magnitude the sign of x; there is no -0.
double signed_like(double x, double magnitude) {
  if (magnitude == 0) return 0;
  return x < 0 ? -magnitude : magnitude;
}

}  // namespace

bool almost_equal(double a, double b, std::int64_t ulps) noexcept {
  constexpr std::int64_t kNegativeZero = std::numeric_limits<std::int64_t>::min();
  const auto ia = std::bit_cast<std::int64_t>(a);
  const auto ib = std::bit_cast<std::int64_t>(b);
  if ((ia < 0) == (ib < 0)) {
    const std::int64_t apart = ia - ib;
    return wrapping_difference(0, ulps) <= apart && apart <= ulps;
  }
  // Of different signs: as far as the one lies below zero and the other above it.
  const std::int64_t above = ia < 0 ? ib : ia;
  const std::int64_t below = ia < 0 ? ia : ib;
  return wrapping_difference(below, kNegativeZero) <= wrapping_difference(ulps, above);
}

double fuzzy_round(double x) noexcept {
  const double a = std::fabs(x);
  double r = std::round(a);
  if (r < a && almost_equal(a - r, 0.5, kFuzz)) r += 1;
  return signed_like(x, r);
}

double fuzzy_rel_round(double x) noexcept {
  const double a = std::fabs(x);
  double r = std::round(a);
  if (r < a && almost_equal(a, r + 0.5, kFuzz)) r += 1;
  return signed_like(x, r);
}

double fuzzy_truncate(double x) noexcept {
  const double a = std::fabs(x);
  double t = std::trunc(a);
  if (t < a && almost_equal(a - t, 1, kFuzz)) t += 1;
  return signed_like(x, t);
}

double fuzzy_rel_truncate(double x) noexcept {
  const double a = std::fabs(x);
  double t = std::trunc(a);
  if (t < a && almost_equal(a, t + 1, kFuzz)) t += 1;
  return signed_like(x, t);
}

bool is_int32(double x) noexcept {
  return -kLargestInt32 <= x && x <= kLargestInt32 && x == std::trunc(x);
}

std::int64_t decimals_to_show(double x) noexcept {
  double tolerance = kTolerance;
  double a = std::fabs(x);
  std::int64_t decimals = 0;
  if (0 < a && a <= tolerance) {  // a tiny value starts to count below the tolerance
    a /= tolerance;
    decimals = -decimal_exponent(tolerance);
  }
  double fraction = a - fuzzy_rel_truncate(a);
  while (decimals < kMostDecimals && std::fabs(fraction) > tolerance) {
    ++decimals;
    tolerance *= 10;
    a *= 10;
    fraction = a - fuzzy_rel_truncate(a);
  }
  return decimals;
}

}  // namespace iocv

namespace {

std::int64_t logical(bool condition) { return condition ? -1 : 0; }

}  // namespace

extern "C" {

std::int64_t qlralmostequal_(const double* a, const double* b, const std::int64_t* ulps) {
  return logical(iocv::almost_equal(*a, *b, *ulps));
}

double fuzzyround_(const double* x) { return iocv::fuzzy_round(*x); }
double fuzzyrelround_(const double* x) { return iocv::fuzzy_rel_round(*x); }
double fuzzytruncate_(const double* x) { return iocv::fuzzy_truncate(*x); }
double fuzzyreltruncate_(const double* x) { return iocv::fuzzy_rel_truncate(*x); }

std::int64_t fuzzyinteger_(const double* x) {
  return logical(iocv::almost_equal(iocv::fuzzy_truncate(*x), *x, iocv::kFuzz));
}

void fuzzytol_(double* tolerance) { *tolerance = iocv::kTolerance; }

std::int64_t qrint_(const float* x) {
  return logical(-iocv::kLargestWholeFloat <= *x && *x <= iocv::kLargestWholeFloat &&
                 *x == std::trunc(*x));
}

std::int64_t qdint_(const double* x) { return logical(iocv::is_int32(*x)); }
std::int64_t leastsigdig_(const double* x) { return iocv::decimals_to_show(*x); }

}  // extern "C"
