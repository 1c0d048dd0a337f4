// The doors to the reader of numbers, and its rows.
#pragma once

#include <gtest/gtest.h>
#include <iocv/iocv.h>

#include "support/conversions.h"
#include "support/guarded.h"
#include "support/records_guard.h"
#include "support/values.h"

namespace test {

constexpr std::int32_t COMMA = 3, DOLLAR = 4, F = 5, E = 17, PCT = 31, DOT = 32, CCA = 33;
constexpr double kBlank = -77;  // what a blank field reads as in these tests

constexpr Reading value(double number) { return {number, 0}; }
constexpr Reading fails(std::int64_t status) { return {kMissing, status}; }
constexpr Reading kBlankField = {kBlank, 0};

// The three doors to the same reader; every field ends, and then begins, at an unmapped page.
template <class Call>
Reading guarded_call(std::string_view text, Call call) {
  Reading results[2];
  for (const Edge edge : {Edge::end, Edge::begin}) {
    const Guarded field(text, edge);
    Reading& result = results[edge == Edge::end];
    result = {12345, 99};
    call(field.data(), static_cast<std::int64_t>(text.size()), &result.value, &result.status);
  }
  EXPECT_EQ(results[0], results[1]);
  return results[0];
}

inline Reading read_obif(std::string_view text, std::int32_t type, std::int64_t decimals) {
  return guarded_call(
      text, [&](const char* field, std::int64_t length, double* number, std::int64_t* status) {
        obif_(field, &length, &decimals, number, status, &type);
      });
}

inline Reading read_fancy(std::string_view text, std::int32_t type, std::int64_t decimals) {
  return guarded_call(
      text, [&](const char* field, std::int64_t length, double* number, std::int64_t* status) {
        fancy_f(field, &type, &length, &decimals, number, status);
      });
}

inline Reading read_dispatched(std::string_view text, std::int32_t type, std::int64_t decimals) {
  return guarded_call(
      text, [&](const char* field, std::int64_t length, double* number, std::int64_t* status) {
        OBS obs;
        obicv_(field, &type, &length, &decimals, &obs, status, length);
        *number = obs.number;
      });
}

class NumberInput : public testing::Test {
 protected:
  NumberInput() {
    cmnglb_.blank_value = kBlank;
    cmnloc_.decimal = '.';
  }
  RecordsGuard records_;
};

struct NumberRow {
  const char* text;
  std::int32_t type;
  std::int64_t decimals;
  Reading expected;
};

inline void expect_rows(const std::vector<NumberRow>& rows) {
  for (const NumberRow& c : rows) {
    SCOPED_TRACE("|" + shown(c.text) + "| type " + std::to_string(c.type) + " decimals " +
                 std::to_string(c.decimals));
    EXPECT_EQ(read_obif(c.text, c.type, c.decimals), c.expected);
    if (c.type == CCA) continue;  // which no dispatcher sends here
    EXPECT_EQ(read_dispatched(c.text, c.type, c.decimals), c.expected);
  }
}

}  // namespace test
