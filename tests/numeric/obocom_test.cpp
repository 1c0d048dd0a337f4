// COMMA, DOLLAR and DOT: grouped digits.
#include "numeric/obocom.h"

#include <iocv/iocv.h>

#include "support/exact_f.h"
#include "support/records_guard.h"
#include "support/shown_number.h"
#include "support/writers.h"

namespace test {
namespace {

using iocv::Field;
using iocv::FormatCode;
using iocv::Settings;
using iocv::Status;

template <FormatCode kCode>
Status write_in(Field out, double value, std::int64_t decimals, const Settings& settings) {
  return iocv::write_currency(out, value, decimals, kCode, settings);
}

using CommaOutput = NumberWriter<write_in<FormatCode::comma>>;
using DotOutput = NumberWriter<write_in<FormatCode::dot>>;
using DollarOutput = NumberWriter<write_in<FormatCode::dollar>>;

TEST_F(CommaOutput, SeparatesThreeDigits) {
  expect_rows({
      {1234567.891, 12, 2, "1,234,567.89"},
      {1234567.891, 14, 2, "  1,234,567.89"},
      {-1234567.891, 13, 2, "-1,234,567.89"},
      {1, 6, 0, "     1"},
      {12, 6, 0, "    12"},
      {123, 6, 0, "   123"},
      {1234, 6, 0, " 1,234"},
      {12345, 6, 0, "12,345"},
      {123456, 7, 0, "123,456"},
      {1234567, 9, 0, "1,234,567"},
      {1e15, 25, 0, "    1,000,000,000,000,000"},
      {1e20, 30, 1, " 100,000,000,000,000,000,000.0"},
      {999.996, 8, 2, "1,000.00"},
      {-1000, 6, 0, "-1,000"},
  });
}

TEST_F(CommaOutput, GivesUpGroupsThenDecimalsThenTurnsToAnExponent) {
  expect_rows({
      {1234567.891, 11, 2, " 1234567.89"},
      {1234567.891, 10, 2, "1234567.89"},
      {1234567.891, 9, 2, "1234567.9"},
      {1234567.891, 8, 2, " 1234568"},
      {1234567.891, 7, 2, "1234568"},
      {1234567.891, 6, 2, "1E+006"},
      {1234567.891, 5, 2, "*****"},
      {-1234567.891, 11, 2, "-1234567.89"},
      {-1234567.891, 7, 2, "-1E+006"},
      {-1234567.891, 6, 2, "******"},
      {1234, 4, 0, "1234"},
      {1234, 3, 0, "***"},
      {1e300, 12, 2, "   1.00E+300"},
  });
}

TEST_F(CommaOutput, HasNoZeroBeforeTheDecimalCharacter) {
  expect_rows({
      {0.5, 8, 2, "     .50"},
      {-0.5, 8, 2, "    -.50"},
      {0, 8, 2, "     .00"},
      {0, 8, 0, "       0"},
      {0.4, 8, 0, "       0"},
      {0.05, 8, 2, "     .05"},
      {0, 1, 5, "0"},
      {0.6, 1, 5, "1"},
  });
  expect_rows({{0.5, 8, 2, "     .50"}}, kLeadingZero);
}

// The sign column is reserved for any value below zero; the sign is shown by the rounded value.
TEST_F(CommaOutput, ShowsNoSignForWhatRoundsToZeroWithTheDecimalsAskedFor) {
  expect_rows({
      {-0.001, 6, 2, "   .00"},
      {-0.001, 3, 2, " .0"},
      {-0.004, 3, 3, "-.0"},
      {-0.4, 2, 2, "-0"},
      {-0.4, 2, 0, " 0"},
      {-0.4, 1, 0, "*"},
      {-0.0, 6, 2, "   .00"},
      {-0.5, 4, 0, "  -1"},
  });
}

// Digits are counted before the tolerance takes the value up.
TEST_F(CommaOutput, GivesUpGroupsWhenTheRoundedDigitsNeedMore) {
  expect_rows({
      {999.4999999999999, 3, 0, "***"},
      {999.4999999999999, 4, 0, "1000"},
      {999.4999999999999, 5, 0, "1,000"},
      {999.9949999999999, 6, 2, "1000.0"},
      {9999.499999999999, 5, 0, "10000"},
      {9999.499999999999, 6, 0, "10,000"},
      {999.5, 4, 0, "1000"},
      {999.5, 3, 0, "***"},
      {0.9999, 3, 2, "1.0"},
      {9.999999999999999e25, 29, 2, stars(29)},
  });
}

// The exponent of 9.999999999999999e35 counts as 36, see decimal_exponent, so it needs the columns
// of 37 digits; a number with more than 308 digits, decimals included, never has groups.
TEST_F(CommaOutput, CountsDigitsByTheDecimalExponent) {
  const auto has_groups = [](double value, std::int64_t width, std::int64_t decimals) {
    const std::string text = text_of(value, width, decimals);
    EXPECT_EQ(text.find_first_not_of(" 0123456789.,"), text.npos) << text;
    return text.find(',') != text.npos;
  };
  EXPECT_FALSE(has_groups(9.999999999999999e35, 47, 0));
  EXPECT_FALSE(has_groups(9.999999999999999e35, 48, 0));
  EXPECT_TRUE(has_groups(9.999999999999999e35, 49, 0));
  EXPECT_TRUE(has_groups(1.5e7, 320, 300));
  EXPECT_FALSE(has_groups(1.5e8, 320, 300));
}

TEST_F(CommaOutput, RoundsWithTheToleranceOfFixedNumbers) {
  expect_rows({
      {2.675, 8, 2, "    2.68"},
      // 1e-5 below a half lies within the relative tolerance, not within that of the fraction.
      {(123456789.5 - 1e-5) / 1e11, 14, 11, "  .00123456790"},
      {(123456789.5 - 1e-5) / 1e12, 15, 12, "  .000123456789"},
  });
}

TEST_F(CommaOutput, LeavesScaledValuesThatAreInfiniteToTheExponent) {
  expect_rows({
      {1e-5, 330, 310, blanks(308) + "1.000000000000000E-005"},
      {0, 330, 310, blanks(19) + "." + repeated('0', 310)},
      {1e300, 330, 20, blanks(308) + "1.000000000000000E+300"},
      {1e-300, 330, 308, blanks(21) + "." + repeated('0', 299) + "100000000"},
  });
}

TEST_F(CommaOutput, CountsNegativeDecimalsAsNoneAndCutsHugeOnes) {
  expect_rows({
      {1234.5, 8, -2, "   1,235"},
      {1234.5, 8, kLowest, "   1,235"},
      {1234.5, 8, kHighest, "1234.500"},
      {1234.5, 8, std::int64_t{1} << 62, "1234.500"},
      {0.5, 8, kHighest, ".5000000"},
  });
}

TEST_F(CommaOutput, ShowsSpecialValues) {
  expect_rows({
      {kMissing, 8, 2, "     .  "},
      {kMissing, 8, 0, "       ."},
      {kMissing, 2, 5, ". "},
      {kMissing, 1, 0, "."},
      {kMissing, 8, kHighest, ".       "},
      {kMissing, 8, kLowest, "       ."},
      {kInfinity, 8, 2, "       ."},
      {-kInfinity, 8, 2, "       ."},
      {kNan, 8, 2, "       ."},
      {kNan, 0, 2, ""},
  });
  DotOutput::expect_rows({{kMissing, 8, 2, "     ?  "}}, {.system_missing_char = '?'});
}

TEST_F(DotOutput, ExchangesTheMarksWhateverTheSettings) {
  for (const Settings& settings : {kPoint, kComma}) {
    expect_rows(
        {
            {1234.5, 9, 2, " 1.234,50"},
            {-1234.5, 9, 2, "-1.234,50"},
            {1234.5, 7, 2, "1234,50"},
            {1234.5, 6, 2, "1234,5"},
            {1e10, 9, 2, "1,00E+010"},
            {0.5, 4, 2, " ,50"},
            {0, 4, 2, " ,00"},
        },
        settings);
    CommaOutput::expect_rows({{1234.5, 9, 2, " 1,234.50"}, {1234.5, 7, 2, "1234.50"}}, settings);
  }
  expect_rows({{1234567, 9, 0, "1.234.567"}});
}

TEST_F(DollarOutput, FloatsItsSignsAgainstTheDigits) {
  expect_rows({
      {-1234.5, 10, 2, "-$1,234.50"},
      {1234.5, 10, 2, " $1,234.50"},
      {1234.5, 12, 2, "   $1,234.50"},
      {-1234.5, 12, 2, "  -$1,234.50"},
      {0.5, 6, 2, "  $.50"},
      {-0.5, 6, 2, " -$.50"},
      {-0.001, 6, 2, "  $.00"},
      {5, 2, 0, "$5"},
  });
}

TEST_F(DollarOutput, GivesUpItsPrefixLast) {
  expect_rows({
      {1234.5, 9, 2, "$1,234.50"},
      {1234.5, 8, 2, "$1234.50"},
      {1234.5, 7, 2, "$1234.5"},
      {1234.5, 6, 2, " $1235"},
      {1234.5, 5, 2, "$1235"},
      {1234.5, 4, 2, "1235"},
      {1234.5, 3, 2, "***"},
      {12345678, 8, 2, " $1E+007"},
      {12345678, 7, 2, "$1E+007"},
      {12345678, 6, 2, "1E+007"},
      {-1234.5, 5, 2, "-1235"},
      {-1234.5, 6, 2, "-$1235"},
      {5, 1, 0, "5"},
      {-5, 1, 0, "*"},
  });
}

// The writer of numbers knows the missing number again when it is handed the magnitude.
TEST_F(CommaOutput, ShowsAMagnitudeThatIsTheMissingNumberAsSuchWithoutGroups) {
  expect_rows({{-12345678, 11, 0, "-12,345,678"}, {-12345678, 7, 0, "     -."}},
              {.system_missing = 12345678});
  expect_rows({{1234, 8, 2, "     .  "}, {1235, 8, 2, "1,235.00"}}, {.system_missing = 1234});
  expect_rows({{-12345678, 7, 0, "      -"}},
              {.system_missing = 12345678, .system_missing_char = ' '});
}

// ---- properties over all widths, decimals and special values

// The digits without their separators, which must stand every third column from the units.
std::string without_separators(const std::string& text, char separator) {
  std::string plain;
  const std::size_t units = std::min(text.find('.'), text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != separator) {
      plain += text[i];
    } else {
      EXPECT_EQ((units - i) % 4, 0U);
      EXPECT_LT(i, units);
      EXPECT_TRUE(i > 0 && '0' <= text[i - 1] && text[i - 1] <= '9');
    }
  }
  return plain;
}

void expect_comma_text(const std::string& text, double value, std::int64_t width,
                       std::int64_t decimals) {
  if (width == 0) return;
  if (is_special(value)) {
    const std::int64_t places = std::clamp<std::int64_t>(decimals, 0, width);
    EXPECT_EQ(text, marked(width, value == kMissing ? width - places - 1 : width - 1));
    return;
  }
  if (all_asterisks(text)) {
    EXPECT_TRUE(may_be_asterisks(value, width) || (value < 0 && width == 1));
    return;
  }
  const auto number = shown_number(without_separators(text, ','));
  ASSERT_TRUE(number);
  EXPECT_TRUE(shows(*number, value) || (number->is_zero() && number->negative));
  const auto places = static_cast<std::int64_t>(number->fraction.size());
  EXPECT_LE(places, std::max<std::int64_t>(decimals, 0));
  // Four whole digits or more are separated where there is room.
  if (text.find(',') == text.npos && number->whole.size() > 3 && !number->exponent) {
    EXPECT_LE(number->blanks, number->whole.size() / 3);
  }
}

TEST_F(CommaOutput, ShowsEverySpecialValueInEveryWidth) { sweep(writer(), expect_comma_text); }

TEST_F(DotOutput, DiffersFromCommaInItsMarksAlone) {
  sweep(writer(kComma),
        [](const std::string& text, double value, std::int64_t width, std::int64_t decimals) {
          std::string expected = CommaOutput::text_of(value, width, decimals);
          if (!is_special(value)) {
            for (char& c : expected) c = c == '.' ? ',' : c == ',' ? '.' : c;
          }
          EXPECT_EQ(text, expected);
        });
}

}  // namespace
}  // namespace test
