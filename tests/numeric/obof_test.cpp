// F: rows for every rule of the writer of decimal numbers, then sweeps and an exact reference.
#include "numeric/obof.h"

#include <iocv/iocv.h>

#include "support/exact_f.h"
#include "support/records_guard.h"
#include "support/shown_number.h"
#include "support/writers.h"

namespace test {
namespace {

using iocv::Field;
using iocv::Settings;
using iocv::Status;

using FOutput = NumberWriter<iocv::write_f>;
using LongFOutput = FOutput;

TEST_F(FOutput, RightAlignsRoundedDecimals) {
  expect_rows({
      {3.14159, 8, 2, "    3.14"},
      {1234.5678, 8, 2, " 1234.57"},
      {1234.5, 8, 2, " 1234.50"},
      {-1234.5, 8, 2, "-1234.50"},
      {12, 8, 2, "   12.00"},
      {12, 5, 0, "   12"},
      {-12, 5, 0, "  -12"},
      {0.5, 4, 1, "  .5"},
      {-0.5, 4, 1, " -.5"},
      {100, 3, 0, "100"},
      {2.675, 6, 2, "  2.68"},  // the double lies below 2.675, within the tolerance
      {1.005, 6, 2, "  1.01"},
      {2.6749, 6, 2, "  2.67"},
  });
}

TEST_F(FOutput, GivesUpDecimalsThenTheDecimalCharacter) {
  expect_rows({
      {1234.5678, 6, 2, "1234.6"},
      {1234.5678, 5, 2, " 1235"},
      {1234.5678, 4, 2, "1235"},
      {1234.5678, 3, 2, "***"},
      {-1234.5678, 7, 2, "-1234.6"},
      {-1234.5678, 6, 2, " -1235"},
      {-1234.5678, 5, 2, "-1235"},
      {0.55, 2, 2, ".6"},
      {0.55, 1, 2, "1"},
      {0.45, 1, 2, "0"},
      {1.5, 1, 5, "2"},
  });
}

TEST_F(FOutput, CountsTheDigitThatRoundingAdds) {
  expect_rows({
      {9.96, 4, 1, "10.0"},
      {9.96, 3, 1, " 10"},
      {9.96, 2, 1, "10"},
      {9.96, 1, 1, "*"},
      {9.996, 4, 2, "10.0"},
      {99.96, 4, 2, " 100"},
      {0.96, 2, 1, " 1"},
      {0.96, 3, 1, "1.0"},
      {-0.96, 3, 1, " -1"},
      {-0.96, 4, 1, "-1.0"},
      {-0.96, 1, 1, "*"},
      {999.5, 3, 0, "***"},
      {999.5, 4, 0, "1000"},
      {999.4999, 3, 0, "999"},
      {999.4999999999999, 3, 0, "***"},
  });
}

TEST_F(FOutput, ShowsWhatRoundsToZeroWithoutSign) {
  expect_rows({
      {0.0, 8, 2, "     .00"},
      {-0.0, 8, 2, "     .00"},
      {-0.001, 8, 2, "     .00"},
      {-0.001, 6, 2, "   .00"},
      {0.004, 4, 2, " .00"},
      {0.0, 3, 0, "  0"},
      {-0.4, 3, 0, "  0"},
      {-0.4, 1, 0, "0"},
      {0.0, 1, 5, "0"},
      {0.0, 2, 5, ".0"},
      {1e-300, 8, 2, "     .00"},
      {5e-324, 8, 2, "     .00"},
      // The sign keeps its column.
      {-0.001, 3, 2, " .0"},
      {-0.001, 2, 2, " 0"},
      {-0.5, 1, 0, "*"},
      {-0.5, 2, 0, "-1"},
  });
}

TEST_F(FOutput, PutsTheLeadingZeroWhereAColumnIsLeft) {
  expect_rows(
      {
          {0.5, 4, 1, " 0.5"},
          {-0.5, 4, 1, "-0.5"},
          {-0.5, 3, 1, "-.5"},
          {0.5, 2, 1, ".5"},
          {0.5, 3, 1, "0.5"},
          {0.96, 4, 1, " 1.0"},
          {-0.96, 4, 1, "-1.0"},
          {-0.96, 3, 1, " -1"},
          {0.05, 5, 2, " 0.05"},
          {-0.05, 5, 2, "-0.05"},
          {0.0, 8, 2, "    0.00"},
          {0.0, 4, 2, "0.00"},
          {0.0, 3, 2, ".00"},
          {0.0, 3, 0, "  0"},
          {0.4, 3, 0, "  0"},
          {0.7, 3, 0, "  1"},
          {-0.7, 3, 0, " -1"},
          {-0.001, 5, 2, " 0.00"},
          {-0.001, 4, 2, " .00"},
          {1.5, 5, 1, "  1.5"},
          {0.19999, 4, 1, " 0.2"},
          // The zero goes before any decimal does.
          {0.123, 4, 3, ".123"},
          {0.123, 3, 3, ".12"},
      },
      kLeadingZero);
}

TEST_F(FOutput, UsesTheDecimalCharacterOfTheSettings) {
  expect_rows(
      {
          {1234.5678, 8, 2, " 1234,57"},
          {0, 8, 2, "     ,00"},
          {-0.5, 4, 1, " -,5"},
          {1e20, 12, 2, "   1,00E+020"},
      },
      kComma);
}

TEST_F(FOutput, TurnsToAnExponentWhenWholeDigitsDoNotFit) {
  expect_rows({
      {12345, 3, 0, "***"},
      {123456789, 7, 0, " 1E+008"},
      {12345678, 6, 0, "1E+007"},
      {-12345678, 6, 0, "******"},
      {-12345678, 7, 0, "-1E+007"},
      {123456, 5, 0, "*****"},
      {123456789, 8, 2, "1.2E+008"},
      {123456789, 7, 2, " 1E+008"},  // two columns are too few for a decimal
      {-123456789, 8, 2, " -1E+008"},
      {-123456789, 9, 2, "-1.2E+008"},
      {1e10, 10, 2, " 1.00E+010"},
      {1e10, 10, 0, "    1E+010"},
      {1e10, 9, 4, "1.00E+010"},
      {9.96e10, 8, 1, "1.0E+011"},
      {-9.96e10, 9, 1, "-1.0E+011"},
      {9.6e10, 6, 1, "1E+011"},
      {1e300, 40, 20, blanks(18) + "1.000000000000000E+300"},
      {1e300, 12, 2, "   1.00E+300"},
      {std::numeric_limits<double>::max(), 12, 2, "   1.80E+308"},
      {-1.5e300, 12, 2, "  -1.50E+300"},
  });
}

TEST_F(FOutput, NeverUsesAnExponentForASmallValue) {
  expect_rows({
      {1e-9, 12, 2, "         .00"},
      {1e-9, 12, 9, "  .000000001"},
  });
}

TEST_F(FOutput, ShowsTheSystemMissingCharacterInTheDecimalColumn) {
  expect_rows({
      {kMissing, 8, 2, "     .  "},
      {kMissing, 8, 0, "       ."},
      {kMissing, 2, 5, ". "},
      {kMissing, 1, 1, "."},
      {kMissing, 1, 0, "."},
      {kMissing, 8, 7, ".       "},
      {kMissing, 8, -2, "       ."},
      {kMissing, 3, kHighest, ".  "},
      {kMissing, 3, kLowest, "  ."},
      {kMissing, 0, 0, ""},
  });
  const Settings question = {.system_missing = 0, .system_missing_char = '?', .decimal = ','};
  expect_rows({{0.0, 4, 1, "  ? "}, {-0.0, 4, 1, "  ? "}, {kMissing, 4, 1, "****"}}, question);
}

TEST_F(FOutput, ShowsInfinitiesAndNotANumberInTheLastColumn) {
  expect_rows({
      {kInfinity, 8, 2, "       ."},
      {-kInfinity, 8, 2, "       ."},
      {kNan, 8, 2, "       ."},
      {-kNan, 1, 0, "."},
      {kNan, 0, 0, ""},
  });
  // Even when an infinity stands for the missing value.
  expect_rows({{kInfinity, 8, 2, "       ."}}, {.system_missing = kInfinity});
}

TEST_F(FOutput, CountsNegativeDecimalsAsNone) {
  expect_rows({
      {1234.5, 8, -2, "    1235"},
      {0, 8, kLowest, "       0"},
  });
}

TEST_F(FOutput, ShowsAsManyOfHugeDecimalsAsFit) {
  expect_rows({
      {1234.5, 8, std::int64_t{1} << 62, "1234.500"},
      {1234.5, 8, kHighest, "1234.500"},
      {0, 8, kHighest, ".0000000"},
      {1e10, 10, kHighest, "1.000E+010"},
  });
}

TEST_F(FOutput, WritesZerosBehindTheSixteenthDigit) {
  expect_rows({
      {1e20, 25, 0, "    100000000000000000000"},
      {1e23, 25, 0, "  99999999999999900000000"},  // the sixteenth digit is lost, too
      {18014398509481988.0, 25, 0, "        18014398509481980"},
      {9007199254740993.0, 20, 2, " 9007199254740992.00"},
      {123456789012345680.0, 25, 2, "    123456789012345600.00"},
  });
}

// The fit is tested with the value, the digits come from a product, which can have one more.
TEST_F(FOutput, IsAllAsterisksWhenTheProductNeedsOneColumnMore) {
  expect_rows({
      {9.999999999999999e26, 29, 1, stars(29)},
      {9.999999999999999e26, 30, 1, "1000000000000000000000000000.0"},
      {-9.999999999999999e26, 30, 1, stars(30)},
  });
}

TEST_F(FOutput, TurnsToAnExponentWhenTheScaledValueIsInfinite) {
  expect_rows({
      {0.5, 330, 320, blanks(308) + "5.000000000000000E-001"},
      {1e300, 350, 20, blanks(328) + "1.000000000000000E+300"},
      {-1e300, 350, 20, blanks(327) + "-1.000000000000000E+300"},
      {0.0, 400, 310, blanks(89) + "." + repeated('0', 310)},
      {-0.0, 400, 310, blanks(89) + "." + repeated('0', 310)},
  });
}

// The scaled value lies some 670 doubles below a half. With 11 decimals that carries; from 12 on
// the fraction alone is compared with a half, and 1e-5 is too far.
TEST_F(FOutput, RoundsManyDecimalsWithAnAbsoluteTolerance) {
  const double scaled = 123456789.5 - 1e-5;
  expect_rows({
      {scaled / 1e11, 14, 11, "  .00123456790"},
      {scaled / 1e12, 15, 12, "  .000123456789"},
  });
}

TEST_F(FOutput, WritesNothingInAnEmptyField) { expect_nothing_in_an_empty_field(); }

TEST_F(FOutput, IsReachedThroughEveryDoor) {
  const RecordsGuard guard;
  cmnloc_.decimal = ',';
  cmnsys_.leading_zero = 1;
  expect_doors(obof_, 5, {-0.5, 6, 2, " -0,50"});
}

// ---- properties over all widths, decimals and special values

void expect_f_text(const std::string& text, double value, std::int64_t width,
                   std::int64_t decimals) {
  if (width == 0) return;
  if (is_special(value)) {
    const std::int64_t shown_decimals =
        value == kMissing ? std::clamp<std::int64_t>(decimals, 0, width) : 0;
    EXPECT_EQ(text, marked(width, width - 1 - shown_decimals));
    return;
  }
  if (all_asterisks(text)) {
    EXPECT_TRUE(may_be_asterisks(value, width));
    return;
  }
  const auto number = shown_number(text);
  ASSERT_TRUE(number);
  EXPECT_TRUE(shows(*number, value));
  EXPECT_FALSE(number->negative && number->is_zero());
  EXPECT_EQ(number->point, !number->fraction.empty());
  const auto places = static_cast<std::int64_t>(number->fraction.size());
  const std::int64_t wanted =
      std::clamp<std::int64_t>(decimals, 0, number->exponent ? 15 : kHighest);
  EXPECT_LE(places, wanted);
  // Decimals are given up only for lack of columns.
  EXPECT_TRUE(places == wanted || number->blanks <= 2);
  if (number->exponent) {
    // Just below a power of ten the exponent may be that power's, see decimal_exponent.
    EXPECT_TRUE(number->whole.size() == 1 || number->fraction.starts_with("99999999999999"));
    EXPECT_GE(std::fabs(value), 1);
  } else if (number->point) {
    EXPECT_NE(number->whole.substr(0, 1), "0");
  }
}

TEST_F(FOutput, ShowsEverySpecialValueInEveryWidth) { sweep(writer(kPoint), expect_f_text); }

TEST_F(FOutput, DiffersUnderADecimalCommaInNothingElse) { expect_a_comma_for_the_point(); }

// What the text without a leading zero becomes with one.
std::string with_leading_zero(std::string text, double value, std::int64_t width,
                              std::int64_t decimals) {
  const std::int64_t negative = value < 0 ? 1 : 0;
  const bool room = decimals > 0 && decimals <= width && 2 + negative + decimals <= width;
  if (is_special(value) || !room) return text;
  const std::size_t point = text.find('.');
  if (point == text.npos || text[point - 1] == '1' || std::fabs(value) >= 1) return text;
  if (text[point - 1] == '-') text[point - 2] = '-';
  text[point - 1] = '0';
  return text;
}

TEST_F(FOutput, DiffersWithALeadingZeroOnlyWhereItHasAColumn) {
  sweep(writer(kLeadingZero),
        [](const std::string& text, double value, std::int64_t width, std::int64_t decimals) {
          EXPECT_EQ(text, with_leading_zero(FOutput::text_of(value, width, decimals), value, width,
                                            decimals));
        });
}

TEST_F(FOutput, IsNeverLessExactInAWiderField) {
  for (const double value : special_values()) {
    if (!(std::fabs(value) < iocv::kTwoTo52)) continue;
    for (const std::int64_t decimals : {0, 1, 2, 5, 9}) {
      double error = kInfinity;
      for (std::int64_t width = 1; width <= 40; ++width) {
        const auto number = shown_number(FOutput::text_of(value, width, decimals));
        if (!number && error == kInfinity) continue;
        ASSERT_TRUE(number) << described(value) << " " << width;
        const double now = std::fabs(number->value() - value);
        EXPECT_LE(now, error + std::fabs(value) * 2e-12 + 1e-12)
            << described(value) << ", width " << width << ", decimals " << decimals;
        error = now;
      }
    }
  }
}

// ---- the exact reference

void compare_with_reference(int count) {
  std::mt19937_64 random = random_source();
  SCOPED_TRACE(seed_text());
  int compared = 0;
  for (int i = 0; i < count; ++i) {
    const double value = ordinary_double(random);
    const int width = 1 + static_cast<int>(random() % 16);
    const int decimals = static_cast<int>(random() % 8);
    const auto expected = exact_f(value, width, decimals);
    if (!expected) continue;
    ++compared;
    ASSERT_EQ(shown(FOutput::text_of(value, width, decimals)), shown(*expected))
        << described(value) << ", width " << width << ", decimals " << decimals;
  }
  EXPECT_GT(compared, count / 2);
}

TEST_F(FOutput, PrintsTheCorrectlyRoundedDigitsOfOrdinaryValues) { compare_with_reference(200000); }
TEST_F(LongFOutput, PrintsTheCorrectlyRoundedDigitsOfOrdinaryValues) {
  compare_with_reference(20000000);
}

}  // namespace
}  // namespace test
