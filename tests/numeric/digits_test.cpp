// Powers of ten, decimal exponents, and the writers of digits and integers. The writer of decimal
// numbers has its rows under F.
#include <iocv/iocv.h>

#include <charconv>

#include "numeric/encdcc.h"
#include "numeric/encdic.h"
#include "numeric/encntc.h"
#include "numeric/powers.h"
#include "support/big_decimal.h"
#include "support/guarded.h"
#include "support/records_guard.h"
#include "support/values.h"

namespace {

using iocv::Field;
using test::described;
using test::Edge;
using test::Guarded;
using test::shown;

constexpr auto kLowest = std::numeric_limits<std::int64_t>::min();
constexpr auto kHighest = std::numeric_limits<std::int64_t>::max();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kLeastSubnormal = std::numeric_limits<double>::denorm_min();

double decimal_literal(const std::string& text) {
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

// 10^n by the rule: the squares of 10 that n's bits name, from the lowest on.
double power_by_squares(int n) {
  double power = 1;
  double square = 10;
  for (; n != 0; n /= 2, square = n == 0 ? square : square * square) {
    if (n % 2 == 1) power *= square;
  }
  return power;
}

TEST(PowerOfTen, IsTheNearestDoubleUpTo32) {
  for (std::int64_t n = 0; n <= 32; ++n) {
    EXPECT_EQ(iocv::power_of_ten(n), decimal_literal("1e" + std::to_string(n))) << n;
    EXPECT_EQ(lpwr10_(&n), iocv::power_of_ten(n)) << n;
  }
}

TEST(PowerOfTen, IsSquaredTogetherAbove32) {
  int not_the_nearest = 0;
  for (int n = 33; n <= 308; ++n) {
    EXPECT_EQ(iocv::power_of_ten(n), power_by_squares(n)) << n;
    if (iocv::power_of_ten(n) != decimal_literal("1e" + std::to_string(n))) ++not_the_nearest;
  }
  EXPECT_GT(not_the_nearest, 100);  // the rule matters
  EXPECT_EQ(iocv::power_of_ten(40), 1e8 * 1e32);
}

TEST(PowerOfTen, IsAQuotientBelowZero) {
  EXPECT_EQ(iocv::power_of_ten(-3), 1.0 / 1000);
  for (int n = 1; n <= 308; ++n) {
    EXPECT_EQ(iocv::power_of_ten(-n), 1 / iocv::power_of_ten(n)) << n;
  }
}

TEST(PowerOfTen, IsInfiniteAbove308AndZeroBelowMinus308) {
  for (const std::int64_t n : {std::int64_t{309}, std::int64_t{512}, std::int64_t{100000},
                               std::int64_t{1} << 32, std::int64_t{1} << 62, kHighest}) {
    EXPECT_EQ(iocv::power_of_ten(n), kInfinity) << n;
    EXPECT_EQ(iocv::power_of_ten(-n), 0) << -n;
  }
  EXPECT_EQ(iocv::power_of_ten(kLowest), 0);
  EXPECT_GT(iocv::power_of_ten(-308), 0);
  EXPECT_LT(iocv::power_of_ten(308), kInfinity);
}

TEST(ScaleByPower, MultipliesByThePowerUpTo150AndStepByStepAbove) {
  struct Case {
    double x;
    std::int64_t n;
    double result;
  };
  const Case kCases[] = {
      {1.5, 3, 1500},
      {1500, -3, 1500 * (1.0 / 1000)},
      {3, 150, 3 * iocv::power_of_ten(150)},
      // 151 is 128 + 16 + 4 + 2 + 1.
      {3e-150, 151, 3e-150 * 10 * 1e2 * 1e4 * 1e16 * power_by_squares(128)},
      {3, -200, 3 * (1 / power_by_squares(200))},
      // The power itself would be infinite: 338 is 256 + 64 + 16 + 2.
      {kLeastSubnormal, 338,
       kLeastSubnormal * 1e2 * 1e16 * power_by_squares(64) * power_by_squares(256)},
      {3, 309, kInfinity},
      {3, kHighest, kInfinity},
      {3, -400, 0},
      {3, kLowest, 0},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(iocv::scale_by_power(c.x, c.n), c.result) << described(c.x) << " " << c.n;
    EXPECT_EQ(lscl10_(&c.x, &c.n), c.result);
  }
  // Above 150 the two ways differ, or the rule would not matter.
  EXPECT_NE(iocv::scale_by_power(9e-200, 199), 9e-200 * iocv::power_of_ten(199));
}

TEST(DecimalExponent, IsThatOfTheLeadingDigitByItsOwnMethod) {
  struct Case {
    double x;
    std::int64_t exponent;
  };
  constexpr Case kCases[] = {
      {1, 0},
      {9.999, 0},
      {10, 1},
      {999.9999, 2},
      {1000, 3},
      {1e-5, -5},
      {0.1, -1},
      {0.099, -2},
      {999.9999999999994, 2},      // its logarithm rounds to 3
      {999.9999999999999, 2},      // the double below 1000
      {9.999999999999999e35, 36},  // rounds up when it is scaled
      {1e-307, -307},              // lies a little below that power
      {1e-308, 0},                 // subnormal
      {2.2250738585072014e-308, -308},
      {2.2250738585072009e-308, 0},
      {5e-324, 0},
      {1.7976931348623157e308, 308},
      {0.0, 0},
      {-0.0, 0},
      {-1000.0, 0},
      {kInfinity, 0},
      {-kInfinity, 0},
      {kNaN, 0},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(iocv::decimal_exponent(c.x), c.exponent) << described(c.x);
    EXPECT_EQ(ilog10_(&c.x), c.exponent) << described(c.x);
  }
}

TEST(DecimalExponent, IsTheTrueOneAwayFromPowersOfTen) {
  std::mt19937_64 random = test::random_source();
  SCOPED_TRACE(test::seed_text());
  for (int i = 0; i < 20000; ++i) {
    const double x = std::fabs(test::any_double(random));
    if (!std::isnormal(x)) continue;
    const test::Scientific exact = test::scientific(test::exact_decimal(x), 12);
    const bool near_a_power = exact.fraction.find_first_not_of(exact.digit) == std::string::npos ||
                              (exact.digit == '1' && exact.fraction == "000000000000");
    if (near_a_power) continue;
    ASSERT_EQ(iocv::decimal_exponent(x), exact.exponent) << described(x);
  }
}

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
      {-0.2, 0, 99},   {kInfinity, 40, 99}, {-kInfinity, 40, 99}, {kNaN, 40, 99},
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
  const test::RecordsGuard guard;
  struct Case {
    double value;
    std::int64_t pointcol;
    char decimal;
    const char* text;
    std::int64_t count;
  };
  constexpr Case kCases[] = {
      {1234, 5, '.', "ab12.34hi", 5},      {1234, 5, ',', "ab12,34hi", 5},
      {5, 6, '.', "abcde.5hi", 2},         {123456, 5, '.', "ab*****hi", 5},
      {5, 2, '.', "ab*****hi", 5},         {5, kLowest, '.', "ab*****hi", 5},
      {12, kHighest, '.', "abcde12hi", 2},
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
  const test::RecordsGuard guard;
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
  const test::RecordsGuard guard;
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
