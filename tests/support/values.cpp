#include "support/values.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace test {
namespace {

std::uint64_t seed() {
  static const std::uint64_t value = [] {
    const char* text = std::getenv("IOCV_TEST_SEED");
    return text ? std::strtoull(text, nullptr, 0) : 20260701ULL;
  }();
  return value;
}

std::vector<double> make_special_values() {
  using limits = std::numeric_limits<double>;
  std::vector<double> values = {0.0,
                                limits::denorm_min(),
                                2.2250738585072009e-308,  // the largest subnormal
                                limits::min(),
                                limits::max(),
                                limits::infinity(),
                                limits::quiet_NaN(),
                                limits::epsilon(),
                                1.7976931348623155e+308,
                                4503599627370495.5,
                                4503599627370497.0,
                                9007199254740993.0,
                                18014398509481988.0,
                                123456789.0,
                                1234567890123456789.0,
                                0.1,
                                0.2,
                                0.3,
                                1.0 / 3,
                                2.0 / 3,
                                2.675,
                                1.005,
                                9.96,
                                9.9996,
                                99.4999999999999,
                                9.4999999999997,
                                999.4999999999999,
                                999.9949999999999,
                                9999.499999999999,
                                267.49999999999997,
                                3.14159265358979,
                                2.718281828459045,
                                1234.5678,
                                86399.999999999,
                                5.0e-6,
                                0.49999999999999994};
  for (const int exponent :
       {-308, -300, -160, -22, -16, -10, -6, -4, -3, -2, -1, 1,   2,   3,   4,   5,  6,
        7,    8,    9,    10,  15,  16,  17, 22, 31, 32, 33, 100, 150, 200, 307, 308}) {
    const double power = std::pow(10.0, exponent);
    values.push_back(power);
    values.push_back(std::nextafter(power, 0.0));
    values.push_back(power * 5);
  }
  for (const int exponent : {31, 32, 52, 53, 63, 64, 1023}) {
    values.push_back(std::ldexp(1.0, exponent));
    values.push_back(std::nextafter(std::ldexp(1.0, exponent), 0.0));
  }
  const std::size_t positive = values.size();
  for (std::size_t i = 0; i < positive; i += 2) values.push_back(-values[i]);
  for (const double value : {-0.0, -0.001, -0.5, -1.5, -2.5, -limits::infinity(), -limits::max()}) {
    values.push_back(value);
  }
  return values;
}

}  // namespace

const std::vector<double>& special_values() {
  static const std::vector<double> values = make_special_values();
  return values;
}

std::mt19937_64 random_source() { return std::mt19937_64(seed()); }

std::string seed_text() { return "IOCV_TEST_SEED=" + std::to_string(seed()); }

double any_double(std::mt19937_64& random) { return std::bit_cast<double>(random()); }

double ordinary_double(std::mt19937_64& random) {
  std::uint64_t limit = 10;
  for (std::uint64_t digits = random() % 15; digits > 0; --digits) limit *= 10;
  double divisor = 1;
  for (std::uint64_t decimals = random() % 10; decimals > 0; --decimals) divisor *= 10;
  const double magnitude = static_cast<double>(random() % limit) / divisor;
  return random() % 2 == 0 ? magnitude : -magnitude;
}

std::string described(double value) {
  char hex[64];
  std::snprintf(hex, sizeof hex, "%a [%016llX]", value,
                static_cast<unsigned long long>(std::bit_cast<std::uint64_t>(value)));
  char shortest[64];
  const auto end = std::to_chars(shortest, shortest + sizeof shortest, value).ptr;
  return std::string(shortest, end) + " = " + hex;
}

}  // namespace test
