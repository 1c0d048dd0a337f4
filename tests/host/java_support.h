// Texts of a Java machine, or of a build without one.
#pragma once

#include <gtest/gtest.h>
#include <iocv/host.h>
#include <iocv/iocv.h>

#include <string>

#include "support/guarded.h"

namespace test {

constexpr bool kJava = IOCV_JAVA;

// 12:30:15.25 on 1 January 2000.
constexpr double kNewYear = 13166064000.0 + 45015.25;

// What Java writes, or in a build without it nothing.
inline std::string of_java(const std::string& text) { return kJava ? text : std::string(); }

inline std::string field_of_java(const std::string& field) {
  return kJava ? field : std::string(field.size(), ' ');
}

inline std::string year_first(double value, std::int64_t width, std::int64_t decimals) {
  const Guarded field(static_cast<std::size_t>(width));
  const OBS obs = {.number = value};
  const std::int64_t code = 86;
  EXPECT_EQ(obocvext_(&obs, &code, &width, &decimals, field.data(), width), 0);
  EXPECT_TRUE(field.intact());
  return field.text();
}

inline std::string date(double value, const char* pattern) {
  return customFormatter().convertDate(value, pattern);
}

inline std::string decimal(double value, const char* pattern) {
  return customFormatter().convertDecimal(value, pattern);
}

}  // namespace test
