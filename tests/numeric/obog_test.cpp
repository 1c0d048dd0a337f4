// The general format, code 40: F, but an exponent for small magnitudes, in the first columns.
#include "numeric/obog.h"

#include <iocv/iocv.h>

#include "numeric/obof.h"
#include "support/records_guard.h"
#include "support/shown_number.h"
#include "support/writers.h"

namespace test {
namespace {

using iocv::Field;
using iocv::Settings;
using iocv::Status;

using GeneralOutput = NumberWriter<iocv::write_general>;
using FOutput = NumberWriter<iocv::write_f>;

TEST_F(GeneralOutput, IsFForOrdinaryMagnitudes) {
  expect_rows({
      {1234.5678, 12, 2, "     1234.57"},
      {-1234.5678, 12, 2, "    -1234.57"},
      {0.0001, 12, 2, "         .00"},  // not below the threshold
      {-0.5, 6, 1, "   -.5"},
      {1234.5678, 6, 2, "1234.6"},
      {123456789, 8, 2, "1.2E+008"},
      {1234, 3, 0, "***"},
  });
}

TEST_F(GeneralOutput, WritesSmallMagnitudesWithAnExponentInTheFirstColumns) {
  expect_rows({
      // Six columns and the decimals, one more below zero; one decimal goes to make room.
      {0.00001234, 12, 2, "1.2E-005    "},
      {-0.00001234, 12, 2, "-1.2E-005   "},
      {0.00001234, 12, 0, "1E-005      "},
      {-0.00001234, 12, 0, "-1E-005     "},
      {0.00001234, 12, -2, "1E-005      "},
      {0.00001234, 12, 1, " 1E-005     "},
      {0.00001234, 12, 3, "1.23E-005   "},
      {0.000099999, 12, 3, "1.00E-004   "},
      {-1e-300, 12, 3, "-1.00E-300  "},
      {5e-6, 30, 16, "5.000000000000001E-006        "},  // 10^-6 is 1 / 10^6
      // As many columns as there are.
      {0.00001234, 8, 2, "1.2E-005"},
      {0.00001234, 7, 2, " 1E-005"},
      {0.00001234, 6, 2, "1E-005"},
      {0.00001234, 5, 2, "*****"},
      {-0.00001234, 7, 2, "-1E-005"},
      {-0.00001234, 6, 2, "******"},
      {0.00001234, 1, 0, "*"},
  });
}

TEST_F(GeneralOutput, PutsZeroIntoTheFirstColumns) {
  expect_rows({
      {0, 12, 2, "     .00    "},
      {-0.0, 12, 2, "     .00    "},
      {0, 12, 0, "     0      "},
      {0, 12, -2, "     0      "},
      {0, 6, 2, "   .00"},
      {0, 1, 0, "0"},
      {0, 3, kHighest, ".00"},
  });
  expect_rows({{0, 12, 2, "    0.00    "}}, kLeadingZero);
}

TEST_F(GeneralOutput, HasNoDigitsForASubnormal) {
  expect_rows({{5e-324, 12, 0, " E+000      "}, {5e-324, 12, 2, " .0E+000    "}});
}

TEST_F(GeneralOutput, FollowsTheThreshold) {
  expect_rows({{0.5, 10, 2, "5.0E-001  "}, {1, 10, 2, "      1.00"}}, {.small = 1});
  expect_rows({{1e-9, 10, 2, "       .00"}, {0, 10, 2, "       .00"}}, {.small = 0});
  expect_rows({{1234, 10, 2, "1.2E+003  "}, {1e300, 10, 2, "1.0E+300  "}}, {.small = kInfinity});
  // Below a negative threshold, or one that is not a number, lies nothing; the exponent that helps
  // large values is not for values below the threshold, nor when there is no telling.
  expect_rows({{0, 10, 2, "       .00"}, {1e9, 8, 2, "1.0E+009"}}, {.small = -1});
  expect_rows({{0, 10, 2, "       .00"}, {1e9, 8, 2, "********"}}, {.small = kNan});
}

TEST_F(GeneralOutput, ShowsTheSystemMissingCharacterBeforeTheDecimals) {
  expect_rows({
      {kMissing, 12, 2, "         .  "},
      {kMissing, 12, 0, "           ."},
      {kMissing, 12, -2, "           ."},
      {kMissing, 2, 5, ". "},
      {kMissing, 2, 1, ". "},
      {kMissing, 3, 1, " . "},
      {kMissing, 2, kHighest, ". "},
      {kMissing, 2, kLowest, " ."},
      {kInfinity, 12, 2, "           ."},
      {-kInfinity, 12, 2, "           ."},
      {kNan, 12, 2, "           ."},
      {kNan, 0, 2, ""},
  });
  expect_rows({{0, 6, 2, "   ?  "}}, {.system_missing = 0, .system_missing_char = '?'});
}

TEST_F(GeneralOutput, UsesTheDecimalCharacterOfTheSettings) {
  expect_rows(
      {{0.00001234, 12, 2, "1,2E-005    "}, {0, 12, 2, "     ,00    "}, {1.5, 5, 1, "  1,5"}},
      kComma);
}

TEST_F(GeneralOutput, WritesNothingInAnEmptyField) { expect_nothing_in_an_empty_field(); }

TEST_F(GeneralOutput, IsReachedThroughEveryDoor) {
  const RecordsGuard guard;
  const double threshold = 0.001;
  iocvsetsmall_(&threshold);
  cmnloc_.decimal = ',';
  expect_doors(obog_, 40, {0.0005, 10, 2, "5,0E-004  "});
}

void expect_general_text(const std::string& text, double value, std::int64_t width,
                         std::int64_t decimals) {
  if (width == 0) return;
  const std::int64_t places = std::clamp<std::int64_t>(decimals, 0, width);
  if (is_special(value)) {
    EXPECT_EQ(text, marked(width, value == kMissing ? width - places - 1 : width - 1));
    return;
  }
  const bool small = std::fabs(value) < 0.0001;
  if (!small) {
    EXPECT_EQ(text, FOutput::text_of(value, width, decimals));
    return;
  }
  const std::int64_t negative = value < 0 ? 1 : 0;
  const std::int64_t used = std::min(6 + negative + places, width);
  EXPECT_EQ(text.substr(static_cast<std::size_t>(used)), blanks(width - used));
  const std::string block = text.substr(0, static_cast<std::size_t>(used));
  if (all_asterisks(block)) {
    EXPECT_LT(used, 6 + negative);
    return;
  }
  const auto number = shown_number(block);
  if (!number) {
    EXPECT_TRUE(!std::isnormal(value) && block.ends_with("E+000"));
    return;
  }
  EXPECT_EQ(number->exponent.has_value(), value != 0);
  EXPECT_EQ(number->negative, value < 0);
  EXPECT_TRUE(shows(*number, value));
}

TEST_F(GeneralOutput, ShowsEverySpecialValueInEveryWidth) {
  sweep(writer(kPoint), expect_general_text);
}

TEST_F(GeneralOutput, DiffersUnderADecimalCommaInNothingElse) { expect_a_comma_for_the_point(); }

// A leading zero belongs to fixed texts; those of small values have an exponent.
TEST_F(GeneralOutput, DiffersWithALeadingZeroAsFDoes) {
  sweep(writer(kLeadingZero),
        [](const std::string& text, double value, std::int64_t width, std::int64_t decimals) {
          if (value == 0) return;
          const bool small = std::fabs(value) < 0.0001;
          const auto expected = small ? text_of(value, width, decimals)
                                      : FOutput::text_of(value, width, decimals, kLeadingZero);
          if (is_special(value)) return;
          EXPECT_EQ(text, expected);
        });
}

}  // namespace
}  // namespace test
