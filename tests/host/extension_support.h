// The hook under test: fields of codes that a host may have converters for.
#pragma once

#include <gtest/gtest.h>
#include <iocv/host.h>
#include <iocv/iocv.h>

#include <cstdlib>

#include "support/conversions.h"
#include "support/guarded.h"
#include "support/values.h"

namespace test {

// The records hold their initial values, and a Java machine is looked for where there is none.
class Surroundings : public ::testing::Environment {
 public:
  void SetUp() override {
    iocvinit_();
    setenv("JAVA_HOME", "/nonexistent", 1);
  }
};
inline const auto* const surroundings = ::testing::AddGlobalTestEnvironment(new Surroundings);

// obocvext_ over a field of the given bytes, at both edges of unmapped pages.
inline Writing write(double value, std::int64_t code, std::int64_t width, std::int64_t decimals,
                     char before = '?') {
  Writing written = {};
  for (const Edge edge : {Edge::end, Edge::begin}) {
    const auto size = static_cast<std::size_t>(std::max<std::int64_t>(width, 0));
    const Guarded field(std::string(size, before), edge);
    const OBS obs = {.number = value};
    const std::int64_t status = obocvext_(&obs, &code, &width, &decimals, field.data(), width);
    EXPECT_TRUE(field.intact()) << described(value) << " " << code << ":" << width;
    if (edge == Edge::begin) {
      EXPECT_EQ(written, (Writing{field.text(), status}));
    }
    written = {field.text(), status};
  }
  return written;
}

// obicvext_ of a field flush with an unmapped page.
inline Reading read(std::string_view text, std::int64_t code, Edge edge = Edge::end) {
  const Guarded field(text, edge);
  const auto width = static_cast<std::int64_t>(text.size());
  const std::int64_t decimals = 0;
  OBS value = {.number = 12345.678};
  const std::int64_t status = obicvext_(field.data(), &code, &width, &decimals, &value, width);
  return {value.number, status};
}

}  // namespace test
