// What a double is in decimal, digit by digit: from integers alone, sharing nothing with the
// library. Slow and exact; the truth that the writers are compared with.
#pragma once

#include <string>

namespace test {

// The magnitude of a finite double. whole has no leading zero and is empty below 1, fraction has no
// trailing zero and is empty for a whole number.
struct Decimal {
  std::string whole;
  std::string fraction;
};

Decimal exact_decimal(double value);

// A magnitude rounded to some decimals, halves away from zero.
struct Rounded {
  std::string whole;     // as in Decimal
  std::string fraction;  // exactly the decimals
  // How far the part that was dropped lies from a half, in units of the last place kept: [0, 0.5].
  double from_half;

  [[nodiscard]] bool is_zero() const;
};

Rounded rounded(const Decimal& exact, int decimals);

// A magnitude above 0 as d.ddd times ten to the exponent, rounded to some decimals.
struct Scientific {
  char digit;
  std::string fraction;
  int exponent;
  double from_half;
};

Scientific scientific(const Decimal& exact, int decimals);

// The whole digits in groups of three.
std::string grouped(const std::string& whole, char separator);

}  // namespace test
