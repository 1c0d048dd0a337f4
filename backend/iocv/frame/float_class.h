// Classes of floating-point patterns.
#pragma once

#include <cstdint>

namespace iocv {

// The numbers are what ftyplr_ and ftypsr_ return.
enum class FloatClass : std::int64_t {
  finite = 0,
  negative_zero = 1,
  positive_infinity = 2,
  negative_infinity = 3,
  positive_nan = 4,
  negative_nan = 5,
  default_nan = 6,  // negative, quiet, no payload
};

FloatClass float_class(double x) noexcept;
FloatClass float_class(float x) noexcept;

constexpr bool is_infinite(FloatClass c) noexcept {
  return c == FloatClass::positive_infinity || c == FloatClass::negative_infinity;
}
constexpr bool is_nan(FloatClass c) noexcept { return c >= FloatClass::positive_nan; }

}  // namespace iocv
