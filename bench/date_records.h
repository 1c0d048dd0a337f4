// The dates and times that benchmarks convert, the same in every run: days from 1900 to 2099.
#pragma once

#include <iocv/format.h>

#include <cstdint>
#include <vector>

#include "records.h"

namespace bench {

struct DateRow {
  const char* name;
  std::int32_t type;
  int width;
  const char* pattern;  // as strftime writes it, but for the case of the month
};

inline constexpr DateRow kDateRows[] = {
    {"DATE11", VELT_Format::DATE, 11, "%d-%b-%Y"},
    {"ADATE10", VELT_Format::ADATE, 10, "%m/%d/%Y"},
    {"EDATE10", VELT_Format::EDATE, 10, "%d.%m.%Y"},
    {"SDATE10", VELT_Format::SDATE, 10, "%Y/%m/%d"},
    {"DATETIME20", VELT_Format::DATETIME, 20, "%d-%b-%Y %H:%M:%S"},
    {"TIME8", VELT_Format::TIME, 8, "%H:%M:%S"},
};

std::vector<double> date_values(std::size_t count, const DateRow& row);

// As the library writes them.
Fields date_fields(std::size_t count, const DateRow& row);

}  // namespace bench
