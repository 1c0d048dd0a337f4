// The writers of digits and integers. The writer of decimal numbers has its rows under F.
#include <iocv/iocv.h>

#include "numeric/encdcc.h"
#include "numeric/encdic.h"
#include "numeric/encntc.h"
#include "support/guarded.h"
#include "support/records_guard.h"
#include "support/values.h"

namespace test {
namespace {

using iocv::Field;

TEST(ScaledDigits, PreparesTheDigits) {
  struct Case {
    double value;
    std::int64_t decimals;
    double magnitude;
    std::int64_t digits;
    std::int64_t zeros;
  };
  const Case kCases[] = {
      // A half is added, digits are whole.
      {0, 0, 0, 1, 0},
      {0.4, 0, 0, 1, 0},
      {0.5, 0, 1, 1, 0},
      {-0.5, 0, 1, 1, 0},
      {9.5, 0, 10, 2, 0},
      {1234, 0, 1234.5, 4, 0},
      {1234, -2, 1234.5, 4, 0},
      {4503599627370495.0, 0, 4503599627370495.5, 16, 0},
      // From two to the 52nd on nothing is added; digits beyond the sixteenth are zeros.
      {4503599627370496.0, 0, 4503599627370496.0, 16, 0},
      {4503599627370496.0, 2, 4503599627370496.0, 16, 2},
      {9999999999999998.0, 0, 9999999999999998.0, 16, 0},
      {1e16, 0, 1e15, 16, 1},
      {1e20, 0, 1e15, 16, 5},
      {-1e20, 0, 1e15, 16, 5},
      {1e20, 2, 1e15, 16, 7},
      {18014398509481988.0, 0, 1801439850948198.8, 16, 1},
      // With decimals the limit is lower; zeros stand for the digits beyond it.
      {1.5, 2, 150.5, 3, 0},
      {0.004, 2, 0, 1, 0},
      {0.005, 2, 1, 1, 0},
      {45035996273704.0, 2, 4503599627370400.5, 16, 0},
      {4503599627370496.0 / 100, 2, 4503599627370496.0 / 100 * 10 + 0.5, 15, 1},
      {45035996273704.98, 2, 45035996273704.98 * 10 + 0.5, 15, 1},
      {99999999999999.97, 6, 99999999999999.97 * 10 + 0.5, 16, 5},
      {450359962737049.7, 1, 450359962737049.7 + 0.5, 15, 1},
      {4e15, 1, 4e15 + 0.5, 16, 1},
      // No number of decimals is too far.
      {1, kLowest, 1.5, 1, 0},
  };
  for (const Case& c : kCases) {
    double magnitude = -1;
    std::int64_t digits = -1;
    std::int64_t zeros = -1;
    encwid_(&c.value, &c.decimals, &magnitude, &digits, &zeros);
    EXPECT_EQ(magnitude, c.magnitude) << described(c.value) << " " << c.decimals;
    EXPECT_EQ(digits, c.digits) << described(c.value) << " " << c.decimals;
    EXPECT_EQ(zeros, c.zeros) << described(c.value) << " " << c.decimals;
  }
}

// column 99: no decimal character.
TEST(WriteScaled, WritesDigitsFromTheRight) {
  struct Case {
    const char* name;
    double value;
    std::int64_t width;
    std::int64_t point;  // from 0
    const char* text;    // blanks where nothing is written
    std::int64_t count;
  };
  constexpr Case kCases[] = {
      {"plain digits", 1234, 6, 99, "  1234", 4},
      {"a field just wide enough", 1234, 4, 99, "1234", 4},
      {"a minus sign", -1234, 6, 99, " -1234", 5},
      {"a half rounds up", 2.5, 3, 99, "  3", 1},
      {"zero has no digits", 0, 3, 99, "   ", 0},
      {"below a half has no digits", 0.49, 3, 99, "   ", 0},
      {"a value that shows no digit keeps its sign", -0.2, 3, 99, "  -", 1},
      {"the decimal character takes a column", 1234, 6, 3, " 12.34", 5},
      {"zeros fill up to the decimal character", 5, 4, 1, " .05", 3},
      {"zero fills, too", 0, 4, 1, " .00", 3},
      {"the sign stands before the decimal character", -5, 4, 1, "-.05", 4},
      {"the decimal character in the last column", 12, 4, 3, " 12.", 3},
      {"the decimal character in the first column", 123, 4, 0, ".123", 4},
      {"a decimal character right behind the field is none", 123, 4, 4, " 123", 3},
      {"inner groups keep their zeros", 1000000000, 12, 99, "  1000000000", 10},
      {"inner groups of two", 5000000000000001.0, 16, 99, "5000000000000001", 16},
      {"zeros after the sixteenth digit", 1e20, 25, 99, "    100000000000000000000", 21},
      {"the decimal character among those zeros", 1e20, 25, 21, "   100000000000000000.000", 22},
      {"the last digit is cut, not rounded", 18014398509481988.0, 17, 99, "18014398509481980", 17},
      {"a fraction that is almost one carries", 9.4999999999997, 2, 99, "10", 2},
      {"and one that is not, does not", 9.4999999999994, 2, 99, " 9", 1},
  };
  for (const Case& c : kCases) {
    for (const Edge edge : {Edge::end, Edge::begin}) {
      const Guarded buffer(std::string(static_cast<std::size_t>(c.width), ' '), edge);
      const std::int64_t count =
          iocv::write_scaled(Field(buffer.data(), c.width), c.value, c.point, '.');
      EXPECT_EQ(shown(buffer.text()), shown(c.text)) << c.name;
      EXPECT_EQ(count, c.count) << c.name;
      EXPECT_TRUE(buffer.intact()) << c.name;
    }
  }
}

TEST(WriteScaled, RefusesWhatWouldBeginLeftOfTheField) {
  struct Case {
    double value;
    std::int64_t width;
    std::int64_t point;
  };
  constexpr Case kCases[] = {
      {1234, 3, 99},   {-1234, 4, 99},      {123, 3, 1},          {9.4999999999997, 1, 99},
      {1e300, 40, 99}, {5, 4, -1},          {0, 4, kLowest},      {1, 0, 99},
      {-0.2, 0, 99},   {kInfinity, 40, 99}, {-kInfinity, 40, 99}, {kNan, 40, 99},
  };
  for (const Case& c : kCases) {
    for (const Edge edge : {Edge::end, Edge::begin}) {
      const Guarded buffer(static_cast<std::size_t>(c.width), edge);
      EXPECT_EQ(iocv::write_scaled(Field(buffer.data(), c.width), c.value, c.point, '.'), -1)
          << described(c.value) << " " << c.width;
      EXPECT_TRUE(buffer.intact());
    }
  }
}

// The flat routines count columns from 1, place fields inside a text and follow the settings.
TEST(FlatDigits, WriteInsideAText) {
  const RecordsGuard guard;
  struct Case {
    double value;
    std::int64_t pointcol;
    char decimal;
    const char* text;
    std::int64_t count;
  };
  constexpr Case kCases[] = {
      {1234, 5, '.', "ab12.34hi", 5},    {1234, 5, ',', "ab12,34hi", 5},
      {5, 6, '.', "abcde.5hi", 2},       {123456, 5, '.', "ab*****hi", 5},
      {1234, 3, '.', "ab.1234hi", 5},    {5, 2, '.', "ab*****hi", 5},
      {5, kLowest, '.', "ab*****hi", 5}, {12, kHighest, '.', "abcde12hi", 2},
  };
  for (const Case& c : kCases) {
    cmnloc_.decimal = c.decimal;
    std::string text = "abcdefghi";
    std::int64_t count = -7;
    const std::int64_t start = 3;
    const std::int64_t width = 5;
    encntc_(&c.value, text.data(), &start, &width, &c.pointcol, &count, 9);
    EXPECT_EQ(text, c.text);
    EXPECT_EQ(count, c.count) << c.text;
  }
}

TEST(FlatDigits, WriteNumbersInsideAText) {
  const RecordsGuard guard;
  iocvsetdecchardot_();
  const std::int64_t start = 3;
  const auto field = [&](double value, std::int64_t width, std::int64_t decimals, double small) {
    std::string text = "abcdefghijklmn";
    encdcc_(&value, text.data(), &start, &width, &decimals, &small, 14);
    return text;
  };
  EXPECT_EQ(field(1234.5678, 8, 2, 0), "ab 1234.57klmn");
  EXPECT_EQ(field(-1e-5, 9, 1, 0.001), "ab-1.0E-005lmn");
  EXPECT_EQ(field(1, 0, 2, 0), "abcdefghijklmn");
  EXPECT_EQ(field(1, kLowest, 2, 0), "abcdefghijklmn");
  cmnloc_.decimal = ',';
  cmnsys_.leading_zero = 1;
  cmasys_.system_missing = '?';
  EXPECT_EQ(field(0.5, 5, 2, 0), "ab 0,50hijklmn");
  EXPECT_EQ(field(-std::numeric_limits<double>::max(), 5, 2, 0), "ab  ?  hijklmn");
  cmnglb_.system_missing = 7;
  EXPECT_EQ(field(7, 5, 2, 0), "ab  ?  hijklmn");
}

TEST(FlatDigits, ShowWhatIsNotFinite) {
  const RecordsGuard guard;
  cmasys_.system_missing = '?';
  for (const auto routine : {oboinf_, obonac_}) {
    const double ignored = 5;
    std::string text = "abcdefghi";
    const std::int64_t start = 3;
    std::int64_t width = 4;
    routine(&ignored, text.data(), &start, &width, 9);
    EXPECT_EQ(text, "ab   ?ghi");
    text = "abcdefghi";
    width = 0;
    routine(&ignored, text.data(), &start, &width, 9);
    EXPECT_EQ(text, "abcdefghi");
  }
}

TEST(WriteInteger, RightAlignsDigitsAndSign) {
  struct Case {
    std::int64_t n;
    std::int64_t width;
    const char* text;
    std::int64_t status;
  };
  constexpr Case kCases[] = {
      {0, 1, "0", 0},
      {0, 3, "  0", 0},
      {5, 1, "5", 0},
      {-5, 2, "-5", 0},
      {-5, 4, "  -5", 0},
      {-5, 1, "*", -1},
      {10, 1, "*", -1},
      {12345, 5, "12345", 0},
      {12345, 4, "****", -1},
      {-12345, 5, "*****", -1},
      {-1000, 6, " -1000", 0},
      {kHighest, 19, "9223372036854775807", 0},
      {kLowest, 20, "-9223372036854775808", 0},
      {kLowest, 19, "*******************", -1},
      {5, 0, "", -1},
      {0, -3, "", -1},
  };
  for (const Case& c : kCases) {
    for (const Edge edge : {Edge::end, Edge::begin}) {
      const Guarded buffer(std::strlen(c.text), edge);
      const std::int64_t start = 1;
      std::int64_t status = 7;
      encdic_(&c.n, buffer.data(), &start, &c.width, &status, c.width);
      EXPECT_EQ(shown(buffer.text()), shown(c.text)) << c.n;
      EXPECT_EQ(status, c.status) << c.n << " " << c.width;
      EXPECT_TRUE(buffer.intact());
    }
  }
  std::string text = "abcdefgh";
  EXPECT_TRUE(iocv::write_integer(Field(text.data() + 2, 4), -7));
  EXPECT_EQ(text, "ab  -7gh");
}

TEST(WriteTwoDigits, Writes0To99) {
  for (std::int64_t n = -120; n <= 120; ++n) {
    std::string text = "abcdef";
    const std::int64_t column = 3;
    std::int64_t status = 7;
    enc2ic_(&n, text.data(), &column, &status, 6);
    if (n < 0 || n > 99) {
      EXPECT_EQ(text, "ab**ef") << n;
      EXPECT_EQ(status, -1) << n;
    } else {
      EXPECT_EQ(text, "ab" + std::string(n < 10 ? "0" : "") + std::to_string(n) + "ef");
      EXPECT_EQ(status, 0) << n;
    }
  }
  for (const std::int64_t n : {kLowest, kHighest}) {
    std::string text = "abcd";
    EXPECT_FALSE(iocv::write_two_digits(Field(text.data(), 4), 1, n));
    EXPECT_EQ(text, "a**d");
  }
}

}  // namespace
}  // namespace test
