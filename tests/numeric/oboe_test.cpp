// E: a mantissa of one digit and decimals, and an exponent of three digits.
#include "numeric/oboe.h"

#include <iocv/iocv.h>

#include "support/big_decimal.h"
#include "support/records_guard.h"
#include "support/shown_number.h"
#include "support/writers.h"

namespace test {
namespace {

using iocv::Field;
using iocv::Settings;
using iocv::Status;

using EOutput = NumberWriter<iocv::write_e>;
using LongEOutput = EOutput;

TEST_F(EOutput, WritesAMantissaAndAnExponent) {
  expect_rows({
      {1234.5, 10, 3, "1.235E+003"},
      {1234.5, 12, 3, "  1.235E+003"},
      {-1234.5, 11, 3, "-1.235E+003"},
      {0.001234, 10, 3, "1.234E-003"},
      {-0.001234, 12, 3, " -1.234E-003"},
      {1, 8, 1, "1.0E+000"},
      {1e-300, 8, 1, "1.0E-300"},
      {1.5e300, 10, 1, "  1.5E+300"},
      {std::numeric_limits<double>::max(), 10, 3, "1.798E+308"},
      {2.2250738585072014e-308, 10, 3, "2.225E-308"},
      {1234.5, 25, 15, "   1.234500000000000E+003"},
  });
}

TEST_F(EOutput, RoundsUpFromAHairBelowAHalf) {
  expect_rows({
      {2000.5 - 0x1p-42, 10, 3, "2.001E+003"},
      {4096.5 - 0x1p-40, 10, 3, "4.096E+003"},
      {4096.5, 10, 3, "4.097E+003"},
  });
}

TEST_F(EOutput, CarriesIntoTheExponent) {
  expect_rows({
      {9.9996, 10, 3, "1.000E+001"},
      {-9.9996, 11, 3, "-1.000E+001"},
      {9.9994, 10, 3, "9.999E+000"},
      {99999, 8, 1, "1.0E+005"},
      {0.00099996, 10, 3, "1.000E-003"},
      {9.5, 7, 0, "1.E+001"},
  });
}

TEST_F(EOutput, KeepsTheDecimalCharacterWithoutDecimals) {
  expect_rows({
      {1500, 8, 0, " 2.E+003"},
      {5, 7, 0, "5.E+000"},
      {-5, 8, 0, "-5.E+000"},
      {0, 7, 0, "0.E+000"},
      {1234.5, 8, -3, " 1.E+003"},
      {1234.5, 8, kLowest, " 1.E+003"},
  });
}

TEST_F(EOutput, CountsNegativeDecimalsAsNone) {
  expect_rows({{1234.5, 10, -3, "   1.E+003"}, {0, 10, kLowest, "   0.E+000"}});
}

TEST_F(EOutput, ShowsZeroWithAZeroExponent) {
  expect_rows({
      {0, 10, 3, "0.000E+000"},
      {-0.0, 10, 3, "0.000E+000"},
      {0, 12, 3, "  0.000E+000"},
  });
}

TEST_F(EOutput, GivesUpNoDecimals) {
  expect_rows({
      {-1234.5, 10, 3, "**********"},
      {1234.5, 9, 3, "*********"},
      {0, 9, 3, "*********"},
      {1234.5, 21, 15, "*********************"},
      {1234.5, 22, 15, "1.234500000000000E+003"},
      {-1234.5, 22, 15, stars(22)},
      // More than 15 decimals count as 15.
      {1234.5, 22, 20, "1.234500000000000E+003"},
      {1234.5, 24, kHighest, "  1.234500000000000E+003"},
      {1234.5, 21, kHighest, stars(21)},
  });
}

TEST_F(EOutput, IsAllAsterisksWithoutRoomForADigit) {
  expect_rows({
      {5, 3, 0, "***"},
      {5, 6, 0, "******"},
      {0, 6, 0, "******"},
      {-5, 7, 0, "*******"},
      {5, 1, 0, "*"},
  });
}

TEST_F(EOutput, ShowsSpecialValuesWhereverDecimalsHaveRoom) {
  expect_rows({
      // System-missing and -infinity are below zero and need the column of a sign.
      {kMissing, 10, 3, "**********"},
      {kMissing, 11, 3, "  .        "},
      {kMissing, 12, 3, "   .        "},
      {-kInfinity, 10, 3, "**********"},
      {-kInfinity, 11, 3, "          ."},
      {kInfinity, 10, 3, "         ."},
      {kNan, 10, 3, "         ."},
      {kInfinity, 9, 3, "*********"},
      // Without decimals nothing is asked for.
      {kMissing, 5, 0, ".    "},
      {kMissing, 8, 0, "  .     "},
      {kNan, 3, 0, "  ."},
      {kNan, 3, 1, "***"},
      {kMissing, 1, 0, "."},
      {-kInfinity, 3, 0, "  ."},
  });
}

// The sum with the half that rounds can carry where the comparison before it did not.
TEST_F(EOutput, IsAllAsterisksWhenTheMantissaNeedsOneColumnMore) {
  expect_rows({
      {9.4999999999997, 7, 0, "*******"},
      {9.4999999999997, 8, 0, "10.E+000"},
      {-9.4999999999997, 8, 0, "********"},
      {-9.4999999999997, 9, 0, "-10.E+000"},
      {9.4999999999999, 8, 0, " 1.E+001"},
  });
}

TEST_F(EOutput, HasNoDigitBeforeTheDecimalCharacterOfASubnormal) {
  expect_rows({
      {5e-324, 10, 3, " .000E+000"},
      {5e-324, 8, 0, "  .E+000"},
      {-5e-324, 11, 3, " -.000E+000"},
  });
}

TEST_F(EOutput, UsesTheDecimalCharacterOfTheSettings) {
  expect_rows({{1234.5, 10, 3, "1,235E+003"}, {0, 10, 3, "0,000E+000"}}, kComma);
  expect_rows({{7, 10, 2, "  ?       "}, {kMissing, 10, 2, "-1,80E+308"}},
              {.system_missing = 7, .system_missing_char = '?', .decimal = ','});
}

TEST_F(EOutput, IgnoresTheLeadingZeroAndSmallSettings) {
  expect_rows({{0.5, 10, 3, "5.000E-001"}, {0, 10, 3, "0.000E+000"}},
              {.small = 1, .leading_zero = true});
}

TEST_F(EOutput, WritesNothingInAnEmptyField) { expect_nothing_in_an_empty_field(); }

TEST_F(EOutput, IsReachedThroughEveryDoor) {
  const RecordsGuard guard;
  cmnloc_.decimal = ',';
  expect_doors(oboe_, 17, {-0.5, 10, 1, " -5,0E-001"});
}

void expect_e_text(const std::string& text, double value, std::int64_t width,
                   std::int64_t decimals) {
  if (width == 0) return;
  const std::int64_t shown_decimals = std::clamp<std::int64_t>(decimals, 0, 15);
  const std::int64_t room = width - 7 - (value < 0 ? 1 : 0);
  if (is_special(value) && (room >= shown_decimals || shown_decimals == 0)) {
    const std::int64_t column = value == kMissing ? width - 6 - shown_decimals : width - 1;
    EXPECT_EQ(text, marked(width, column));
    return;
  }
  if (room < shown_decimals) {
    EXPECT_TRUE(all_asterisks(text));
    return;
  }
  const auto number = shown_number(text);
  if (!number) {
    // Either a digit too much, or a subnormal that shows none.
    EXPECT_TRUE((room == shown_decimals && all_asterisks(text)) ||
                (!std::isnormal(value) && text.ends_with(".E+000")));
    return;
  }
  EXPECT_EQ(static_cast<std::int64_t>(number->fraction.size()), shown_decimals);
  EXPECT_TRUE(number->point);
  EXPECT_TRUE(number->exponent);
  EXPECT_EQ(number->negative, value < 0);
  EXPECT_TRUE(shows(*number, value));
}

TEST_F(EOutput, ShowsEverySpecialValueInEveryWidth) { sweep(writer(kPoint), expect_e_text); }

TEST_F(EOutput, DiffersUnderADecimalCommaInNothingElse) { expect_a_comma_for_the_point(); }

// Up to 11 decimals and for any finite double: the digits of the exact expansion, away from the
// tolerance of some 4.5e-13 and the error of two products.
void compare_with_reference(int count) {
  std::mt19937_64 random = random_source();
  SCOPED_TRACE(seed_text());
  int compared = 0;
  for (int i = 0; i < count; ++i) {
    const double value = i % 2 == 0 ? ordinary_double(random) : any_double(random);
    if (!std::isnormal(value)) continue;
    const int decimals = static_cast<int>(random() % 12);
    const Scientific s = scientific(exact_decimal(value), decimals);
    if (s.from_half < 1e-12 + std::pow(10.0, decimals) * 1e-14) continue;
    if (std::abs(s.exponent) > 290 && s.fraction.find_first_not_of('0') == s.fraction.npos)
      continue;
    ++compared;
    std::string exponent = std::to_string(std::abs(s.exponent));
    exponent.insert(0, 3 - exponent.size(), '0');
    std::string expected = std::string(value < 0 ? "-" : "") + s.digit + "." + s.fraction + "E" +
                           (s.exponent < 0 ? "-" : "+") + exponent;
    expected.insert(0, 24 - expected.size(), ' ');
    ASSERT_EQ(shown(EOutput::text_of(value, 24, decimals)), shown(expected))
        << described(value) << ", decimals " << decimals;
  }
  EXPECT_GT(compared, count / 2);
}

TEST_F(EOutput, PrintsTheCorrectlyRoundedDigitsOfOrdinaryValues) { compare_with_reference(50000); }
TEST_F(LongEOutput, PrintsTheCorrectlyRoundedDigitsOfOrdinaryValues) {
  compare_with_reference(3000000);
}

}  // namespace
}  // namespace test
