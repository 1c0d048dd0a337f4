// Z input: digits, the last of which may carry the sign.
#include <iocv/iocv.h>

#include "numeric/obiz.h"
#include "numeric/oboz.h"
#include "support/records_guard.h"
#include "support/writers.h"

namespace test {
namespace {

using iocv::Settings;
using iocv::Status;

struct ZRow {
  std::string field;
  std::int64_t decimals;
  double value;
  std::int64_t status;
};

void expect_readings(const std::vector<ZRow>& rows) {
  for (const ZRow& r : rows) {
    for (const Edge edge : {Edge::end, Edge::begin}) {
      const Guarded buffer(r.field, edge);
      const auto result = iocv::read_z({buffer.data(), buffer.size()}, r.decimals, kPoint);
      EXPECT_EQ(result.value, r.value) << r.field << ", decimals " << r.decimals;
      EXPECT_EQ(std::signbit(result.value), std::signbit(r.value)) << r.field;
      EXPECT_EQ(static_cast<std::int64_t>(result.status), r.status) << r.field;
    }
  }
}

TEST(ZInput, ReadsDigitsAndTheZoneOfTheLast) {
  expect_readings({
      {"0012L", 0, -123, 0},
      {"12}", 0, -120, 0},
      {"12A", 0, 121, 0},
      {"12{", 0, 120, 0},
      {"123", 0, 123, 0},
      {"7", 0, 7, 0},
      {"R", 0, -9, 0},
      {"  12L  ", 0, -123, 0},
      {"12345678901234567890", 0, 1.234567890123457e19, 0},  // folded in doubles
  });
}

TEST(ZInput, ImpliesDecimalsUnlessAPointStands) {
  expect_readings({
      {"00150", 2, 1.5, 0},
      {"15J", 2, -1.51, 0},
      {"1.5J", 2, -1.51, 0},
      {"1.5J", 0, -1.51, 0},
      {".5", 2, 0.5, 0},
      {"1.J", 5, -1.1, 0},
      {"12", -2, 12, 0},
      {"12", kLowest, 12, 0},
      {"12", 400, 0, 0},
      {"12", kHighest, 0, 0},
      // A point at the end cancels the implied decimals and has no digits.
      {"12.", 2, 12, 0},
      {"1J.", 0, -11, 0},
      {"1J.", 2, -11, 0},
      {" 12. ", 2, 12, 0},
  });
}

TEST(ZInput, KeepsTheSignOfZero) {
  expect_readings({
      {"0}", 0, -0.0, 0},
      {"}", 0, -0.0, 0},
      {"0}", 2, -0.0, 0},
      {"0", 0, 0.0, 0},
      {"0{", 0, 0.0, 0},
  });
}

TEST(ZInput, ReadsABlankFieldAsTheBlankValue) {
  const Settings settings = {.system_missing = -9, .blank_value = 5};
  for (const char* field : {" ", "     "}) {
    const auto result = iocv::read_z(field, 2, settings);
    EXPECT_EQ(result.value, 5);
    EXPECT_EQ(result.status, Status::ok);
  }
  const auto result = iocv::read_z("", 2, settings);
  EXPECT_EQ(result.value, -9);
  EXPECT_EQ(result.status, Status::ok);
}

TEST(ZInput, NamesWhatIsWrong) {
  double nines = 0;
  for (int i = 0; i < 308; ++i) nines = nines * 10 + 9;
  expect_readings({
      {"12X", 0, kMissing, 1109},
      {"12-", 0, kMissing, 1109},
      {"12S", 0, kMissing, 1109},
      {"12j", 0, kMissing, 1109},
      {std::string("12\0", 3), 0, kMissing, 1109},
      {"12 .", 0, kMissing, 1109},  // nothing is trimmed behind a closing point
      {"..", 0, kMissing, 1109},
      {"1.2.3", 0, kMissing, 1102},
      {"1.2.", 0, kMissing, 1102},
      {".", 0, kMissing, 1102},
      {"  . ", 0, kMissing, 1102},
      {"1 2", 0, kMissing, 1102},
      {"-12", 0, kMissing, 1102},
      {"1J2", 0, kMissing, 1102},
      {"1,2", 0, kMissing, 1102},
      {"\t12", 0, kMissing, 1102},
      {"1X?", 0, kMissing, 1102},
      {std::string("1\0"
                   "2",
                   3),
       0, kMissing, 1102},
      // Numbers beyond a double, and their quotient by a power beyond it.
      {repeated('9', 308), 0, nines, 0},
      {repeated('9', 309), 0, kMissing, 1133},
      {repeated('1', 309) + "J", 0, kMissing, 1133},
      {"." + repeated('1', 400), 0, kMissing, 1133},
      {"." + repeated('1', 309), 0, 0, 0},
  });
  EXPECT_EQ(iocv::read_z("12X", 0, {.system_missing = 7}).value, 7);
}

// All fields of one and two bytes, against the rules written as questions about each byte.
TEST(ZInput, ReadsEveryFieldOfTwoBytes) {
  const auto digit_of = [](char c) {
    if ('0' <= c && c <= '9') return c - '0';
    if ('A' <= c && c <= 'I') return c - 'A' + 1;
    if ('J' <= c && c <= 'R') return -(c - 'J' + 1);
    return 0;
  };
  const auto is_zone = [](char c) {
    return ('0' <= c && c <= '9') || ('A' <= c && c <= 'R') || c == '{' || c == '}';
  };
  const auto is_digit = [](char c) { return '0' <= c && c <= '9'; };
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      const std::string field = {static_cast<char>(first), static_cast<char>(second)};
      std::string text = field;
      std::erase(text, ' ');
      double value = kMissing;
      std::int64_t status = 0;
      if (text.size() == 2) {
        const char a = text[0];
        const char b = text[1];
        const double sign = digit_of(b) < 0 || b == '}' ? -1 : 1;
        if (b == '.') {  // closing
          status = a == '.' || !is_zone(a) ? 1109 : 0;
          value = a == '}' ? -0.0 : digit_of(a);
        } else if (!is_digit(a) && a != '.') {
          status = 1102;
        } else if (!is_zone(b)) {
          status = 1109;
        } else if (a == '.') {
          value = sign * std::abs(digit_of(b)) / 10.0;
        } else {
          value = sign * (10 * digit_of(a) + std::abs(digit_of(b))) / 10.0;  // one implied decimal
        }
      } else if (text.size() == 1) {
        status = text[0] == '.' ? 1102 : is_zone(text[0]) ? 0 : 1109;
        value = text[0] == '}' ? -0.0 : digit_of(text[0]) / 10.0;
      }
      if (status != 0) value = kMissing;
      const auto result = iocv::read_z(field, 1, kPoint);
      ASSERT_EQ(static_cast<std::int64_t>(result.status), status) << shown(field);
      ASSERT_EQ(result.value, value) << shown(field);
      ASSERT_EQ(std::signbit(result.value), std::signbit(value)) << shown(field);
    }
  }
}

TEST(ZInput, ReadsBackWhatIsWritten) {
  std::mt19937_64 random = random_source();
  SCOPED_TRACE(seed_text());
  for (int i = 0; i < 100000; ++i) {
    const auto decimals = static_cast<std::int64_t>(random() % 8);
    const auto whole = static_cast<std::int64_t>(random() % 1000000000000);
    const double value =
        static_cast<double>(i % 2 == 0 ? whole : -whole) / std::pow(10.0, decimals);
    const std::string text = NumberWriter<iocv::write_z>::text_of(value, 15, decimals);
    const auto result = iocv::read_z(text, decimals, kPoint);
    ASSERT_EQ(result.value, value) << text << " " << decimals;
    ASSERT_EQ(result.status, Status::ok);
  }
}

TEST(ZInput, IsReachedThroughEveryDoor) {
  const RecordsGuard guard;
  cmnloc_.decimal = ',';
  const std::int64_t width = 6;
  const std::int64_t decimals = 1;
  std::int64_t status = 7;
  double read = 7;
  obiz_("00012Nxx", &width, &decimals, &read, &status, 8);
  EXPECT_EQ(read, -12.5);
  EXPECT_EQ(status, 0);
  OBS stored = {.number = 7};
  EXPECT_EQ(IocvConvertInput("00012N", 6, 15, 1, &stored), 0);
  EXPECT_EQ(stored.number, -12.5);
  EXPECT_EQ(IocvConvertInput("00012?", 6, 15, 1, &stored), 1109);
  EXPECT_EQ(stored.number, kMissing);
}

}  // namespace
}  // namespace test
