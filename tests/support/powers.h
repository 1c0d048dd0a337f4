// Powers of ten for expectations, made apart from the library's.
#pragma once

#include <charconv>
#include <cstdint>
#include <limits>
#include <string>

namespace test {

// 10^n by the rule: the nearest double up to 32, beyond it the product of repeated squares, and
// 1 / 10^-n below 0.
inline double reference_power(std::int64_t n) {
  if (n < -400) return 0;
  if (n > 400) return std::numeric_limits<double>::infinity();
  if (n < 0) return 1 / reference_power(-n);
  if (n <= 32) {
    const std::string text = "1e" + std::to_string(n);
    double result = 0;
    std::from_chars(text.data(), text.data() + text.size(), result);
    return result;
  }
  double result = 1;
  for (double square = 10; n > 0; n /= 2, square *= square) {
    if (n % 2 == 1) result *= square;
  }
  return result;
}

}  // namespace test
