// N input: every column a digit.
#include <iocv/iocv.h>

#include <bit>

#include "support/guarded.h"
#include "support/records_guard.h"
#include "support/values.h"

namespace {

using test::Edge;
using test::Guarded;

constexpr double kMissing = -std::numeric_limits<double>::max();
constexpr double kBlank = -77;

struct Case {
  std::string text;
  std::int64_t decimals;
  double value;
  std::int64_t status;
};

void expect_case(const Case& c) {
  SCOPED_TRACE("|" + test::shown(c.text) + "| decimals " + std::to_string(c.decimals));
  constexpr std::int32_t kN = 16;
  const auto width = static_cast<std::int64_t>(c.text.size());
  for (const Edge edge : {Edge::end, Edge::begin}) {
    const Guarded field(c.text, edge);
    double flat = 12345;
    OBS dispatched = {.number = 12345};
    std::int64_t status[2] = {99, 99};
    obin_(field.data(), &width, &c.decimals, &flat, &status[0], width);
    obicv_(field.data(), &kN, &width, &c.decimals, &dispatched, &status[1], width);
    EXPECT_EQ(status[0], c.status);
    EXPECT_EQ(status[1], c.status);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(flat), std::bit_cast<std::uint64_t>(c.value))
        << test::described(flat) << ", expected " << test::described(c.value);
    EXPECT_EQ(dispatched.bits, std::bit_cast<std::uint64_t>(c.value));
  }
}

class NInput : public testing::Test {
 protected:
  NInput() { cmnglb_.blank_value = kBlank; }
  test::RecordsGuard records_;
};

TEST_F(NInput, ReadsDigitsWithImpliedDecimals) {
  const Case cases[] = {
      {"0", 0, 0, 0},           {"7", 0, 7, 0},    {"0123", 0, 123, 0}, {"0123", 2, 1.23, 0},
      {"1", 20, 1e-20, 0},      {"12", -2, 12, 0},  // decimals below 0 count as none
      {"12", INT64_MIN, 12, 0}, {"12", 400, 0, 0},  // ten to the 400th is infinite
      {"12", INT64_MAX, 0, 0},  {"0", 400, 0, 0},
  };
  for (const Case& c : cases) expect_case(c);
}

TEST_F(NInput, FoldsDigitByDigit) {
  std::string many_zeros;
  many_zeros.resize(1000, '0');
  many_zeros += "5";
  const Case cases[] = {
      {"75434533567018233", 0, 7.543453356701822e16, 0},
      {"12345678901234567890", 0, 1.234567890123457e19, 0},
      {std::string(309, '9'), 0, kMissing, 1133},
      {std::string(309, '9'), 400, kMissing, 1133},
      {many_zeros, 0, 5, 0},
  };
  for (const Case& c : cases) expect_case(c);
}

TEST_F(NInput, BlankFields) {
  expect_case({"", 0, kMissing, 0});
  expect_case({" ", 0, kBlank, 0});
  expect_case({"      ", 2, kBlank, 0});
  const std::int64_t width = -3;
  const std::int64_t decimals = 0;
  double value = 12345;
  std::int64_t status = 99;
  obin_(nullptr, &width, &decimals, &value, &status, 0);
  EXPECT_EQ(value, kMissing);
  EXPECT_EQ(status, 0);
}

TEST_F(NInput, EveryByteButADigitIsAnError) {
  for (int byte = 0; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    const bool digit = byte >= '0' && byte <= '9';
    const double unit = byte - '0';
    for (const bool front : {true, false}) {
      const std::string text = front ? std::string(1, c) + "5" : "5" + std::string(1, c);
      const double value = front ? unit * 10 + 5 : 50 + unit;
      expect_case({text, 0, digit ? value : kMissing, digit ? 0 : 1102});
    }
  }
  expect_case({" 12", 0, kMissing, 1102});
  expect_case({"12 ", 0, kMissing, 1102});
  expect_case({"1 2", 2, kMissing, 1102});
  expect_case({"1.5", 0, kMissing, 1102});
}

TEST_F(NInput, AFailureLeavesTheSettingsSystemMissingNumber) {
  cmnglb_.system_missing = -99;
  expect_case({"1x", 0, -99, 1102});
  expect_case({"", 0, -99, 0});
}

}  // namespace
