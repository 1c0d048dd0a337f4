// Rounding with a tolerance of 4096 representable doubles, and the tests for whole numbers.
#include "numeric/fuzzy.h"

#include <iocv/iocv.h>

#include <bit>

#include "support/values.h"

namespace {

using iocv::almost_equal;
using test::described;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// The double that lies steps representable doubles above x (below, when negative).
double neighbour(double x, std::int64_t steps) {
  return std::bit_cast<double>(std::bit_cast<std::int64_t>(x) + steps);
}

struct Rounding {
  double x;
  double result;
};

template <class Routine>
void expect_rows(const std::vector<Rounding>& rows, Routine* flat, double (*core)(double)) {
  for (const Rounding& row : rows) {
    EXPECT_EQ(core(row.x), row.result) << described(row.x);
    EXPECT_EQ(std::signbit(core(row.x)), std::signbit(row.result)) << described(row.x);
    EXPECT_EQ(flat(&row.x), row.result) << described(row.x);
  }
}

TEST(AlmostEqual, CountsTheDoublesBetween) {
  constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
  const double tiny = std::numeric_limits<double>::denorm_min();
  struct Case {
    double a;
    double b;
    std::int64_t ulps;
    bool equal;
  };
  const Case kCases[] = {
      {1.0, 1.0, 0, true},
      {1.0, neighbour(1.0, 1), 0, false},
      {1.0, neighbour(1.0, 1), 1, true},
      {1.0, neighbour(1.0, 4096), 4096, true},
      {1.0, neighbour(1.0, 4097), 4096, false},
      {neighbour(1.0, 4096), 1.0, 4096, true},
      {neighbour(1.0, 4097), 1.0, 4096, false},
      {-1.0, neighbour(-1.0, 4096), 4096, true},
      {-1.0, neighbour(-1.0, 4097), 4096, false},
      // The binade changes, the count goes on.
      {neighbour(2.0, -2048), neighbour(2.0, 2048), 4096, true},
      {neighbour(2.0, -2048), neighbour(2.0, 2049), 4096, false},
      // Across zero, which counts once.
      {0.0, -0.0, 0, true},
      {-0.0, 0.0, 0, true},
      {tiny, -tiny, 1, false},
      {tiny, -tiny, 2, true},
      {-tiny, tiny, 1, false},
      {-tiny, tiny, 2, true},
      {2048 * tiny, -2048 * tiny, 4096, true},
      {2048 * tiny, -2049 * tiny, 4096, false},
      {-2049 * tiny, 2048 * tiny, 4096, false},
      {1.0, -1.0, 4096, false},
      {-1.0, 1.0, 4096, false},
      {kInfinity, std::numeric_limits<double>::max(), 1, true},
      // Counts beyond what doubles have, and no count at all.
      {1.0, neighbour(1.0, 1), kMost, true},
      {0.0, -0.0, kMost, true},
      {1.0, 1.0, -1, false},
      {0.0, -0.0, -1, false},
      // Differences wrap around: this count less 3FF0000000000000 is 4010000000000001.
      {1.0, -1.0, std::numeric_limits<std::int64_t>::min() + 1, true},
      {1.0, 1.0, std::numeric_limits<std::int64_t>::min(), false},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(almost_equal(c.a, c.b, c.ulps), c.equal)
        << described(c.a) << " " << described(c.b) << " " << c.ulps;
    EXPECT_EQ(qlralmostequal_(&c.a, &c.b, &c.ulps), c.equal ? -1 : 0);
  }
}

TEST(FuzzyRound, RoundsHalvesAwayFromZeroWithAnAbsoluteTolerance) {
  expect_rows(
      {
          {0.0, 0.0},
          {-0.0, 0.0},
          {-0.4, 0.0},
          {0.5, 1.0},
          {-0.5, -1.0},
          {2.5, 3.0},
          {-2.5, -3.0},
          {2.4999, 2.0},
          // The fraction is compared with 0.5: 2^-42 below it carries, twice as far does not.
          {2.5 - 0x1p-42, 3.0},
          {-2.5 + 0x1p-42, -3.0},
          {2.5 - 0x1p-41, 2.0},
          {neighbour(0.5, -4096), 1.0},
          {neighbour(0.5, -4097), 0.0},
          {1000.5 - 0x1p-42, 1001.0},
          {1000.5 - 0x1p-41, 1000.0},
          {0.49999999999999994, 1.0},
          // Halves and whole numbers that floor(x + 0.5) would spoil.
          {4503599627370495.5, 4503599627370496.0},
          {4503599627370497.0, 4503599627370497.0},
          {-4503599627370497.0, -4503599627370497.0},
          {9007199254740993.0, 9007199254740992.0},  // as the literal itself
          {1e300, 1e300},
          {-1e300, -1e300},
          {kInfinity, kInfinity},
          {-kInfinity, -kInfinity},
      },
      fuzzyround_, iocv::fuzzy_round);
  EXPECT_TRUE(std::isnan(iocv::fuzzy_round(kNaN)));
}

TEST(FuzzyRelRound, HasAToleranceThatGrowsWithTheValue) {
  expect_rows(
      {
          {0.0, 0.0},
          {-0.0, 0.0},
          {-0.4, 0.0},
          {267.49999999999997, 268.0},
          {267.4999, 267.0},
          {-267.49999999999997, -268.0},
          {2.5, 3.0},
          {-2.5, -3.0},
          {neighbour(2.5, -4096), 3.0},
          {neighbour(2.5, -4097), 2.0},
          {neighbour(0.5, -4096), 1.0},
          {neighbour(0.5, -4097), 0.0},
          {neighbour(267.5, -4096), 268.0},
          {neighbour(267.5, -4097), 267.0},
          {neighbour(-267.5, -4096), -268.0},
          // 0.499 of a million millions lies within.
          {1000000000000.25, 1000000000001.0},
          {100000000000.25, 100000000000.0},
          {4503599627370497.0, 4503599627370497.0},
          {1e300, 1e300},
          {kInfinity, kInfinity},
      },
      fuzzyrelround_, iocv::fuzzy_rel_round);
}

TEST(FuzzyTruncate, CarriesAFractionThatIsAlmostOne) {
  expect_rows(
      {
          {0.0, 0.0},
          {-0.0, 0.0},
          {-0.9, 0.0},
          {2.9999999999999996, 3.0},
          {-2.9999999999999996, -3.0},
          {2.9, 2.0},
          {-2.9, -2.0},
          {2.0, 2.0},
          {neighbour(1.0, -4096), 1.0},
          {neighbour(1.0, -4097), 0.0},
          {1000.0 - 0x1p-42, 1000.0},
          {1000.0 - 0x1p-40, 999.0},
          {4503599627370495.5, 4503599627370495.0},
          {1e300, 1e300},
          {-kInfinity, -kInfinity},
      },
      fuzzytruncate_, iocv::fuzzy_truncate);
}

TEST(FuzzyRelTruncate, HasAToleranceThatGrowsWithTheValue) {
  expect_rows(
      {
          {-0.0, 0.0},
          {2.9999999999999996, 3.0},
          {2.9, 2.0},
          {neighbour(1000.0, -4096), 1000.0},
          {neighbour(1000.0, -4097), 999.0},
          {neighbour(-1000.0, -4096), -1000.0},
          {neighbour(1.0, -4096), 1.0},
          {neighbour(1.0, -4097), 0.0},
          {1e12 + 0.75, 1e12 + 1},
          {1e300, 1e300},
      },
      fuzzyreltruncate_, iocv::fuzzy_rel_truncate);
}

// Rounding can carry only from below: a value on the far side of the half is never taken back.
TEST(FuzzyRound, AgreesWithPlainRoundingOutsideTheTolerance) {
  std::mt19937_64 random = test::random_source();
  SCOPED_TRACE(test::seed_text());
  for (int i = 0; i < 200000; ++i) {
    const double whole = static_cast<double>(random() % 1000000);
    const double fraction = static_cast<double>(random() % 1000000) / 1000000;
    if (std::fabs(fraction - 0.5) < 1e-6) continue;
    const double x = whole + fraction;
    const double expected = fraction < 0.5 ? whole : whole + 1;
    ASSERT_EQ(iocv::fuzzy_round(x), expected) << described(x);
    ASSERT_EQ(iocv::fuzzy_rel_round(x), expected) << described(x);
    ASSERT_EQ(iocv::fuzzy_round(-x), -expected) << described(x);
    ASSERT_EQ(iocv::fuzzy_truncate(x), whole) << described(x);
    ASSERT_EQ(iocv::fuzzy_rel_truncate(x), whole) << described(x);
  }
}

// Every step of 0..8192 doubles below a boundary: up to 4096 carry.
TEST(FuzzyRound, CarriesExactlyTheLast4096Doubles) {
  for (std::int64_t steps = 0; steps <= 8192; ++steps) {
    const bool carries = steps <= 4096;
    ASSERT_EQ(iocv::fuzzy_rel_round(neighbour(1234.5, -steps)), carries ? 1235 : 1234) << steps;
    ASSERT_EQ(iocv::fuzzy_round(neighbour(0.5, -steps)), carries ? 1 : 0) << steps;
    ASSERT_EQ(iocv::fuzzy_rel_truncate(neighbour(1234.0, -steps)), carries ? 1234 : 1233) << steps;
    ASSERT_EQ(iocv::fuzzy_truncate(neighbour(1.0, -steps)), carries ? 1 : 0) << steps;
  }
}

TEST(FuzzyInteger, IsAlmostAWholeNumber) {
  struct Case {
    double x;
    bool whole;
  };
  const Case kCases[] = {
      {0.0, true},
      {-0.0, true},
      {3.0, true},
      {-3.0, true},
      {2.9999999999999996, true},
      {-2.9999999999999996, true},
      {neighbour(3.0, 4096), true},  // above a whole number the distance counts, too
      {neighbour(3.0, 4097), false},
      {2.9, false},
      {0.5, false},
      {1e300, true},
      {kInfinity, true},
  };
  for (const Case& c : kCases) EXPECT_EQ(fuzzyinteger_(&c.x), c.whole ? -1 : 0) << described(c.x);
}

TEST(FuzzyTol, IsTwoToTheMinus40th) {
  double tolerance = 0;
  fuzzytol_(&tolerance);
  EXPECT_EQ(tolerance, 9.094947017729282e-13);
  EXPECT_EQ(tolerance, 0x1p-40);
}

TEST(WholeNumbers, OfA32BitInteger) {
  struct Case {
    double x;
    bool whole;
  };
  constexpr Case kCases[] = {
      {0.0, true},           {-0.0, true},          {2147483647.0, true},
      {-2147483647.0, true}, {2147483648.0, false}, {-2147483648.0, false},
      {2147483646.5, false}, {-0.5, false},         {2000.0000000000002, false},
      {kInfinity, false},    {-kInfinity, false},   {kNaN, false},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(iocv::is_int32(c.x), c.whole) << described(c.x);
    EXPECT_EQ(qdint_(&c.x), c.whole ? -1 : 0) << described(c.x);
  }
}

TEST(WholeNumbers, OfASinglePrecisionNumber) {
  struct Case {
    float x;
    bool whole;
  };
  constexpr Case kCases[] = {
      {0.0F, true},
      {-0.0F, true},
      {16777215.0F, true},
      {-16777215.0F, true},
      {16777216.0F, false},
      {-16777216.0F, false},
      {8388607.5F, false},
      {0.5F, false},
      {std::numeric_limits<float>::infinity(), false},
      {std::numeric_limits<float>::quiet_NaN(), false},
  };
  for (const Case& c : kCases) EXPECT_EQ(qrint_(&c.x), c.whole ? -1 : 0) << c.x;
}

TEST(LeastSignificantDigit, CountsDecimalsUntilTheGrowingToleranceCoversTheRest) {
  struct Case {
    double x;
    std::int64_t decimals;
  };
  constexpr Case kCases[] = {
      {5.0, 0},
      {0.0, 0},
      {-0.0, 0},
      {0.1, 1},
      {-0.1, 1},
      {1.25, 2},
      {123.456, 3},
      {0.0001, 4},
      {1.0 / 3, 12},  // 1/3 of a unit is below 10^12 tolerances
      {3e-14, 15},    // starts at 13, below the tolerance
      {9.094947017729282e-13, 13},
      // Almost a million: what is left lies below zero, and counts.
      {999999.9999998, 7},
      {1 + 0x1p-40, 0},  // what is left is the tolerance itself, no more
      {1e300, 0},
      {kInfinity, 0},
      {kNaN, 0},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(iocv::decimals_to_show(c.x), c.decimals) << described(c.x);
    EXPECT_EQ(leastsigdig_(&c.x), c.decimals) << described(c.x);
  }
}

}  // namespace
