#include "records.h"

#include <iocv/iocv.h>

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

std::vector<double> output_values(std::size_t count, std::int32_t type, std::int64_t width,
                                  std::int64_t decimals) {
  const bool binary = type == VELT_Format::IB || type == VELT_Format::PIB;
  const int separators = type == VELT_Format::COMMA || type == VELT_Format::DOT ? 1 : 0;
  const int digits = binary ? 6
                     : type == VELT_Format::DOLLAR
                         ? 5
                         : static_cast<int>(width - decimals) - 3 - separators;
  std::vector<double> result = values(count, digits, static_cast<int>(decimals));
  if (type == VELT_Format::PIB) {
    for (double& value : result) value = std::fabs(value);
  }
  return result;
}

Fields written_fields(std::size_t count, std::int32_t type, std::int64_t width,
                      std::int64_t decimals) {
  const bool binary = type == VELT_Format::IB || type == VELT_Format::PIB;
  const int separators = type == VELT_Format::COMMA ? 1 : 0;
  const int digits = binary ? 6 : static_cast<int>(width - decimals) - 3 - separators;
  Fields fields{{}, static_cast<std::size_t>(width)};
  std::string field(fields.width, ' ');
  for (double value : values(count, digits, static_cast<int>(decimals))) {
    if (type == VELT_Format::PIB) value = std::fabs(value);
    const OBS stored = {.number = value};
    std::int64_t status = 0;
    obocv_(&stored, &type, &width, &decimals, field.data(), &status, width);
    fields.bytes += field;
  }
  return fields;
}

}  // namespace bench
