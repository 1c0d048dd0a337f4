// Numeric writers under test: rows, and sweeps over every special value, width and number of
// decimals inside guarded fields. A writer here is called as write(field, value, decimals).
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "frame/field.h"
#include "support/guarded.h"
#include "support/values.h"

namespace test {

// 0..20, then negative and huge numbers of decimals.
inline const std::vector<std::int64_t>& all_decimals() {
  static const std::vector<std::int64_t> decimals = [] {
    std::vector<std::int64_t> list;
    for (std::int64_t d = 0; d <= 20; ++d) list.push_back(d);
    for (const std::int64_t d : {std::numeric_limits<std::int64_t>::min(), std::int64_t{-2},
                                 std::int64_t{-1}, std::int64_t{39}, std::int64_t{309},
                                 std::int64_t{1} << 62, std::numeric_limits<std::int64_t>::max()}) {
      list.push_back(d);
    }
    return list;
  }();
  return decimals;
}

inline std::string blanks(std::int64_t count) {
  return std::string(static_cast<std::size_t>(count), ' ');
}

// What a writer makes of a field full of junk.
template <class Write>
std::string written(const Write& write, double value, std::int64_t width, std::int64_t decimals) {
  std::string text(static_cast<std::size_t>(width), 'x');
  write(iocv::Field(text.data(), width), value, decimals);
  return text;
}

struct Row {
  double value;
  std::int64_t width;
  std::int64_t decimals;
  std::string text;
};

template <class Write>
void expect_rows(const Write& write, const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    EXPECT_EQ(shown(written(write, row.value, row.width, row.decimals)), shown(row.text))
        << described(row.value) << ", width " << row.width << ", decimals " << row.decimals;
  }
}

// The system-missing character at a column, from 0; a column outside the field is the nearest.
inline std::string marked(std::int64_t width, std::int64_t column, char character = '.') {
  std::string text = blanks(width);
  if (width > 0) {
    text[static_cast<std::size_t>(std::clamp<std::int64_t>(column, 0, width - 1))] = character;
  }
  return text;
}

inline bool is_special(double value) {
  return !std::isfinite(value) || value == -std::numeric_limits<double>::max();
}

// Calls check(text, value, width, decimals) with what write(field, value, decimals) makes of fields
// of width 0..40 that end, then begin, at an unmapped page.
template <class Write, class Check>
void sweep(const Write& write, const Check& check) {
  for (const Edge edge : {Edge::end, Edge::begin}) {
    for (std::int64_t width = 0; width <= 40; ++width) {
      const Guarded buffer(static_cast<std::size_t>(width), edge);
      const iocv::Field field(buffer.data(), width);
      for (const std::int64_t decimals : all_decimals()) {
        for (const double value : special_values()) {
          field.fill('x');
          write(field, value, decimals);
          if (edge == Edge::end) check(buffer.text(), value, width, decimals);
          if (testing::Test::HasFailure()) {
            FAIL() << described(value) << ", width " << width << ", decimals " << decimals << ": "
                   << shown(buffer.text());
          }
        }
        ASSERT_TRUE(buffer.intact()) << "width " << width << ", decimals " << decimals;
      }
    }
  }
}

}  // namespace test
