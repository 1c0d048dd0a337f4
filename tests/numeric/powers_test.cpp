// Powers of ten and decimal exponents.
#include "numeric/powers.h"

#include <iocv/iocv.h>

#include <charconv>

#include "support/big_decimal.h"
#include "support/values.h"

namespace test {
namespace {

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
      {kNan, 0},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(iocv::decimal_exponent(c.x), c.exponent) << described(c.x);
    EXPECT_EQ(ilog10_(&c.x), c.exponent) << described(c.x);
  }
}

TEST(DecimalExponent, IsTheTrueOneAwayFromPowersOfTen) {
  std::mt19937_64 random = random_source();
  SCOPED_TRACE(seed_text());
  for (int i = 0; i < 20000; ++i) {
    const double x = std::fabs(any_double(random));
    if (!std::isnormal(x)) continue;
    const Scientific exact = scientific(exact_decimal(x), 12);
    const bool near_a_power = exact.fraction.find_first_not_of(exact.digit) == std::string::npos ||
                              (exact.digit == '1' && exact.fraction == "000000000000");
    if (near_a_power) continue;
    ASSERT_EQ(iocv::decimal_exponent(x), exact.exponent) << described(x);
  }
}

}  // namespace
}  // namespace test
