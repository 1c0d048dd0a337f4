#include <iocv/iocv.h>

#include <random>

#include "date_records.h"

namespace bench {

std::vector<double> date_values(std::size_t count, const DateRow& row) {
  constexpr std::uint64_t kFirstDay = 115'860;  // 1 January 1900
  constexpr std::uint64_t kDays = 73'049;       // of 200 years
  std::mt19937_64 random(1582);
  std::vector<double> values(count);
  for (double& value : values) {
    const std::uint64_t day = kFirstDay + random() % kDays;
    const std::uint64_t second = random() % 86400;
    const bool has_day = row.type != VELT_Format::TIME;
    const bool has_time = !has_day || row.type == VELT_Format::DATETIME;
    value = static_cast<double>((has_day ? day * 86400 : 0) + (has_time ? second : 0));
  }
  return values;
}

Fields date_fields(std::size_t count, const DateRow& row) {
  Fields fields{{}, static_cast<std::size_t>(row.width)};
  for (const double value : date_values(count, row)) {
    const OBS stored = {.number = value};
    char text[32];
    IocvConvertOutput(&stored, row.type, 0, text, static_cast<unsigned>(row.width));
    fields.bytes.append(text, fields.width);
  }
  return fields;
}

}  // namespace bench
