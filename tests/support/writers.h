// Writers of numbers under test: rows, doors, and sweeps over every special value, width and number
// of decimals inside guarded fields. A writer here is called as write(field, value, decimals).
#pragma once

#include <gtest/gtest.h>
#include <iocv/iocv.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "frame/field.h"
#include "frame/settings.h"
#include "frame/status.h"
#include "support/guarded.h"
#include "support/records_guard.h"
#include "support/values.h"

namespace test {

// 0..20, then negative and huge numbers of decimals.
const std::vector<std::int64_t>& all_decimals();

std::string repeated(char character, std::int64_t count);
std::string blanks(std::int64_t count);
std::string stars(std::int64_t count);

// The system-missing character at a column, from 0; a column outside the field is the nearest.
std::string marked(std::int64_t width, std::int64_t column, char character = '.');

// Not-a-number, infinite, or the initial system-missing number.
bool is_special(double value);

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

inline const iocv::Settings kPoint = {};
inline const iocv::Settings kComma = {.decimal = ','};
inline const iocv::Settings kLeadingZero = {.leading_zero = true};

// The tests of one writer of numbers, which never fails.
template <auto kWrite>
class NumberWriter : public testing::Test {
 public:
  static auto writer(const iocv::Settings& settings = kPoint) {
    return [settings](iocv::Field out, double value, std::int64_t decimals) {
      EXPECT_EQ(kWrite(out, value, decimals, settings), iocv::Status::ok);
    };
  }

  static std::string text_of(double value, std::int64_t width, std::int64_t decimals,
                             const iocv::Settings& settings = kPoint) {
    return written(writer(settings), value, width, decimals);
  }

  static void expect_rows(const std::vector<Row>& rows, const iocv::Settings& settings = kPoint) {
    test::expect_rows(writer(settings), rows);
  }

  static void expect_nothing_in_an_empty_field() {
    char untouched = 'x';
    for (const std::int64_t width : {std::int64_t{0}, std::int64_t{-1}, kLowest}) {
      for (const double value : {5.0, -5.0}) {
        writer()(iocv::Field(&untouched, width), value, 2);
        EXPECT_EQ(untouched, 'x');
      }
    }
  }

  // Under a decimal comma every text is the one under a point with the character exchanged, unless
  // it stands for what is no number.
  static void expect_a_comma_for_the_point(bool (*is_no_number)(double) = is_special) {
    sweep(writer(kComma),
          [&](const std::string& text, double value, std::int64_t width, std::int64_t decimals) {
            std::string expected = text_of(value, width, decimals);
            if (!is_no_number(value)) std::replace(expected.begin(), expected.end(), '.', ',');
            EXPECT_EQ(text, expected);
          });
  }
};

// The row through a flat routine and through the dispatcher, with two columns behind the field.
inline void expect_doors(decltype(&obof_) routine, std::int32_t type, const Row& row,
                         std::int64_t status = 0) {
  const OBS stored = {.number = row.value};
  for (const bool flat : {true, false}) {
    std::string text(static_cast<std::size_t>(row.width + 2), 'x');
    const auto length = static_cast<std::int64_t>(text.size());
    std::int64_t stored_status = 7;
    if (flat) {
      routine(&row.value, &row.width, &row.decimals, text.data(), &stored_status, length);
    } else {
      obocv_(&stored, &type, &row.width, &row.decimals, text.data(), &stored_status, length);
    }
    EXPECT_EQ(text, row.text + "xx") << (flat ? "flat" : "dispatched");
    EXPECT_EQ(stored_status, status) << (flat ? "flat" : "dispatched");
  }
}

}  // namespace test
