// What F makes of a value, from its exact digits and the rules in words: independent of the
// library.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "support/big_decimal.h"

namespace test {

// Ordinary: away from the tolerance with which writers round, and of fewer than 16 digits.
bool is_ordinary(const Rounded& shown, double value);

// The text with the most decimals that fit, then an exponent, then asterisks; no text when the
// value is not ordinary on the way.
std::optional<std::string> exact_f(double value, int width, int decimals);

// Asterisks stand only where neither the whole digits nor an exponent have room, or where the
// digits are beyond exactness.
bool may_be_asterisks(double value, std::int64_t width);

}  // namespace test
