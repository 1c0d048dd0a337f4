// Doubles that have broken number writers before, random ones that can be repeated, and the ends of
// the ranges of doubles and integers.
#pragma once

#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace test {

constexpr double kMissing =
    -std::numeric_limits<double>::max();  // the initial system-missing number
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr std::int64_t kLowest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kHighest = std::numeric_limits<std::int64_t>::max();

// Some 200 values: zeros, subnormals, limits, powers of ten and two with their neighbours, halves,
// values that round up to a new digit, the special values.
const std::vector<double>& special_values();

// A random generator; the seed is IOCV_TEST_SEED or a fixed number, and is printed on failure by
// SCOPED_TRACE(seed_text()).
std::mt19937_64 random_source();
std::string seed_text();

// Any bit pattern, not-a-number included.
double any_double(std::mt19937_64& random);

// A number as users have them: up to 15 digits, up to 9 of them decimals, either sign.
double ordinary_double(std::mt19937_64& random);

// A value as "%a", as shortest decimal and as bits, for messages.
std::string described(double value);

}  // namespace test
