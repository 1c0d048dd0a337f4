// The helpers of fields under test: the bytes that they leave, and what they answer.
#pragma once

#include <gtest/gtest.h>
#include <iocv/iocv.h>

#include "support/addressed.h"
#include "support/guarded.h"
#include "support/values.h"

namespace test {

constexpr std::int64_t kTrue = -1;
constexpr std::int64_t kFalse = 0;
constexpr Edge kEdges[] = {Edge::end, Edge::begin};

inline std::int64_t size_of(const std::string& text) {
  return static_cast<std::int64_t>(text.size());
}

// Applies a helper to the bytes, which end and then begin at an unmapped page, and returns them.
template <class Helper>
std::string after(const std::string& text, Helper helper) {
  std::string results[2];
  for (const Edge edge : kEdges) {
    const Guarded field(text, edge);
    helper(field.data());
    EXPECT_TRUE(field.intact());
    results[edge == Edge::begin] = field.text();
  }
  EXPECT_EQ(results[0], results[1]);
  return results[0];
}

// The answer of a helper that reads the bytes, which end and then begin at an unmapped page.
template <class Helper>
std::int64_t answer(const std::string& text, Helper helper) {
  std::int64_t results[2];
  for (const Edge edge : kEdges) {
    const Guarded field(text, edge);
    results[edge == Edge::begin] = helper(field.data());
    EXPECT_EQ(field.text(), text);
  }
  EXPECT_EQ(results[0], results[1]);
  return results[0];
}

}  // namespace test
