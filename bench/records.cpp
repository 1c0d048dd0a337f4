#include "records.h"

#include <cmath>
#include <cstdio>
#include <random>

namespace bench {

std::vector<double> values(std::size_t count, int most_integer_digits, int decimals) {
  std::mt19937_64 random(1582);
  std::uniform_int_distribution<int> digits(0, most_integer_digits);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  const double scale = std::pow(10.0, decimals + 2);
  std::vector<double> values(count);
  for (double& value : values) {
    const double magnitude = std::pow(10.0, digits(random)) * unit(random);
    value = std::round(magnitude * scale) / scale * (random() % 4 == 0 ? -1 : 1);
  }
  return values;
}

Fields fixed_fields(const std::vector<double>& values, int width, int decimals) {
  Fields fields{{}, static_cast<std::size_t>(width)};
  for (const double value : values) {
    char text[64];
    std::snprintf(text, sizeof text, "%*.*f", width, decimals, value);
    fields.bytes.append(text, fields.width);
  }
  return fields;
}

}  // namespace bench
