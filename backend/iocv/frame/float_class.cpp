// Classes of floating-point patterns, from the bits alone.
#include "frame/float_class.h"

#include <iocv/settings.h>

#include <bit>

namespace iocv {
namespace {

// Bits is the pattern's type; fraction the number of fraction bits.
template <class Bits>
FloatClass classify(Bits bits, int fraction) {
  const Bits sign = Bits{1} << (sizeof(Bits) * 8 - 1);
  const Bits quiet = Bits{1} << (fraction - 1);
  const Bits infinity = (sign - 1) & ~((Bits{1} << fraction) - 1);
  const bool negative = (bits & sign) != 0;
  const Bits magnitude = bits & ~sign;
  if (magnitude < infinity) {
    return negative && magnitude == 0 ? FloatClass::negative_zero : FloatClass::finite;
  }
  if (magnitude == infinity) {
    return negative ? FloatClass::negative_infinity : FloatClass::positive_infinity;
  }
  if (!negative) return FloatClass::positive_nan;
  return magnitude == (infinity | quiet) ? FloatClass::default_nan : FloatClass::negative_nan;
}

}  // namespace

FloatClass float_class(double x) noexcept { return classify(std::bit_cast<std::uint64_t>(x), 52); }

FloatClass float_class(float x) noexcept { return classify(std::bit_cast<std::uint32_t>(x), 23); }

}  // namespace iocv

namespace {

std::int64_t number(iocv::FloatClass c) { return static_cast<std::int64_t>(c); }

}  // namespace

extern "C" {

std::int64_t ftyplr_(const double* x) { return number(iocv::float_class(*x)); }
std::int64_t ftypsr_(const float* x) { return number(iocv::float_class(*x)); }
std::int64_t qbadl_(const double* x) { return iocv::is_nan(iocv::float_class(*x)) ? -1 : 0; }
std::int64_t qbads_(const float* x) { return iocv::is_nan(iocv::float_class(*x)) ? -1 : 0; }

}  // extern "C"
