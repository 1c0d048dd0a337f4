// COMMA, DOLLAR, DOT and the custom currencies: grouped digits with text around them.
#include "numeric/obocom.h"

#include <iocv/currencies.h>
#include <iocv/iocv.h>

#include "numeric/custom_currency.h"
#include "numeric/obocc.h"
#include "numeric/obocd.h"
#include "support/exact_f.h"
#include "support/records_guard.h"
#include "support/shown_number.h"
#include "support/writers.h"

namespace {

using iocv::Field;
using iocv::FormatCode;
using iocv::Settings;
using iocv::Status;
using test::blanks;
using test::described;
using test::shown;

constexpr auto kLowest = std::numeric_limits<std::int64_t>::min();
constexpr auto kHighest = std::numeric_limits<std::int64_t>::max();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kMissing = iocv::kSystemMissing;

const Settings kPoint = {};
const Settings kComma = {.decimal = ','};

auto writer(FormatCode code, const Settings& settings = kPoint) {
  return [code, settings](Field out, double value, std::int64_t decimals) {
    EXPECT_EQ(iocv::write_currency(out, value, decimals, code, settings), Status::ok);
  };
}

void expect_comma(const std::vector<test::Row>& rows) {
  test::expect_rows(writer(FormatCode::comma), rows);
}
void expect_dot(const std::vector<test::Row>& rows) {
  test::expect_rows(writer(FormatCode::dot), rows);
}
void expect_dollar(const std::vector<test::Row>& rows) {
  test::expect_rows(writer(FormatCode::dollar), rows);
}

// CCA under a pattern.
void expect_currency(const char* pattern, const std::vector<test::Row>& rows) {
  SCOPED_TRACE(pattern);
  iocv::Currencies currencies;
  currencies[0].Set(pattern);
  test::expect_rows(writer(FormatCode::cca, {.currencies = &currencies}), rows);
}

std::string stars(std::size_t width) { return std::string(width, '*'); }

TEST(Comma, SeparatesThreeDigits) {
  expect_comma({
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

TEST(Comma, GivesUpGroupsThenDecimalsThenTurnsToAnExponent) {
  expect_comma({
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

TEST(Comma, HasNoZeroBeforeTheDecimalCharacter) {
  expect_comma({
      {0.5, 8, 2, "     .50"},
      {-0.5, 8, 2, "    -.50"},
      {0, 8, 2, "     .00"},
      {0, 8, 0, "       0"},
      {0.4, 8, 0, "       0"},
      {0.05, 8, 2, "     .05"},
      {0, 1, 5, "0"},
      {0.6, 1, 5, "1"},
  });
  test::expect_rows(writer(FormatCode::comma, {.leading_zero = true}), {{0.5, 8, 2, "     .50"}});
}

// The sign column is reserved for any value below zero; the sign is shown by the rounded value.
TEST(Comma, ShowsNoSignForWhatRoundsToZeroWithTheDecimalsAskedFor) {
  expect_comma({
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
TEST(Comma, GivesUpGroupsWhenTheRoundedDigitsNeedMore) {
  expect_comma({
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
TEST(Comma, CountsDigitsByTheDecimalExponent) {
  const auto has_groups = [](double value, std::int64_t width, std::int64_t decimals) {
    const std::string text = test::written(writer(FormatCode::comma), value, width, decimals);
    EXPECT_EQ(text.find_first_not_of(" 0123456789.,"), text.npos) << text;
    return text.find(',') != text.npos;
  };
  EXPECT_FALSE(has_groups(9.999999999999999e35, 47, 0));
  EXPECT_FALSE(has_groups(9.999999999999999e35, 48, 0));
  EXPECT_TRUE(has_groups(9.999999999999999e35, 49, 0));
  EXPECT_TRUE(has_groups(1.5e7, 320, 300));
  EXPECT_FALSE(has_groups(1.5e8, 320, 300));
}

TEST(Comma, RoundsWithTheToleranceOfFixedNumbers) {
  expect_comma({
      {2.675, 8, 2, "    2.68"},
      // 1e-5 below a half lies within the relative tolerance, not within that of the fraction.
      {(123456789.5 - 1e-5) / 1e11, 14, 11, "  .00123456790"},
      {(123456789.5 - 1e-5) / 1e12, 15, 12, "  .000123456789"},
  });
}

TEST(Comma, LeavesScaledValuesThatAreInfiniteToTheExponent) {
  expect_comma({
      {1e-5, 330, 310, blanks(308) + "1.000000000000000E-005"},
      {0, 330, 310, blanks(19) + "." + std::string(310, '0')},
      {1e300, 330, 20, blanks(308) + "1.000000000000000E+300"},
      {1e-300, 330, 308, blanks(21) + "." + std::string(299, '0') + "100000000"},
  });
}

TEST(Comma, CountsNegativeDecimalsAsNoneAndCutsHugeOnes) {
  expect_comma({
      {1234.5, 8, -2, "   1,235"},
      {1234.5, 8, kLowest, "   1,235"},
      {1234.5, 8, kHighest, "1234.500"},
      {1234.5, 8, std::int64_t{1} << 62, "1234.500"},
      {0.5, 8, kHighest, ".5000000"},
  });
}

TEST(Comma, ShowsSpecialValues) {
  expect_comma({
      {kMissing, 8, 2, "     .  "},
      {kMissing, 8, 0, "       ."},
      {kMissing, 2, 5, ". "},
      {kMissing, 1, 0, "."},
      {kMissing, 8, kHighest, ".       "},
      {kMissing, 8, kLowest, "       ."},
      {kInfinity, 8, 2, "       ."},
      {-kInfinity, 8, 2, "       ."},
      {kNaN, 8, 2, "       ."},
      {kNaN, 0, 2, ""},
  });
  test::expect_rows(writer(FormatCode::dot, {.system_missing_char = '?'}),
                    {{kMissing, 8, 2, "     ?  "}});
}

TEST(Dot, ExchangesTheMarksWhateverTheSettings) {
  for (const Settings& settings : {kPoint, kComma}) {
    test::expect_rows(writer(FormatCode::dot, settings), {
                                                             {1234.5, 9, 2, " 1.234,50"},
                                                             {-1234.5, 9, 2, "-1.234,50"},
                                                             {1234.5, 7, 2, "1234,50"},
                                                             {1234.5, 6, 2, "1234,5"},
                                                             {1e10, 9, 2, "1,00E+010"},
                                                             {0.5, 4, 2, " ,50"},
                                                             {0, 4, 2, " ,00"},
                                                         });
    test::expect_rows(writer(FormatCode::comma, settings),
                      {{1234.5, 9, 2, " 1,234.50"}, {1234.5, 7, 2, "1234.50"}});
  }
  expect_dot({{1234567, 9, 0, "1.234.567"}});
}

TEST(Dollar, FloatsItsSignsAgainstTheDigits) {
  expect_dollar({
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

TEST(Dollar, GivesUpItsPrefixLast) {
  expect_dollar({
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

TEST(Currency, SurroundsTheDigits) {
  expect_currency("-,$,,CR", {
                                 {1234.5, 10, 2, "$1234.50  "},
                                 {1234.5, 12, 2, " $1,234.50  "},
                                 {-1234.5, 12, 2, "-$1,234.50CR"},
                                 {-1234.5, 14, 2, "  -$1,234.50CR"},
                                 {-0.001, 8, 2, "  $.00  "},
                             });
  expect_currency("-.'.EUR..", {{1234.5, 13, 2, " .EUR1.234,50"}, {-5, 8, 0, "  -.EUR5"}});
  expect_currency(",,EUR,", {
                                {1234, 9, 0, " 1,234EUR"},
                                {1234, 8, 0, "1,234EUR"},
                                {1234, 7, 0, "1234EUR"},
                                {1234, 6, 0, " 1,234"},  // blank again where the suffix would be
                                {1234, 5, 0, "1,234"},
                                {-5, 6, 0, "  5EUR"},
                            });
}

TEST(Currency, KeepsItsNegativeSuffixLongest) {
  expect_currency("(,<,>,)", {
                                 {-1234, 9, 0, "(<1,234>)"},
                                 {-1234, 8, 0, "(<1234>)"},
                                 {-1234, 7, 0, "(1,234)"},
                                 {-1234, 6, 0, "(1234)"},
                                 {-1234, 5, 0, "*****"},
                                 // A positive value keeps the columns of the suffix.
                                 {1234, 8, 0, "<1,234> "},
                                 {1234, 7, 0, "<1234> "},
                                 {1234, 6, 0, "1,234 "},
                                 {1234, 5, 0, "1234 "},
                                 {1234, 4, 0, "****"},
                             });
}

TEST(Currency, UsesItsWholeTextsHoweverLong) {
  const char* pattern = "minus ,prefix ,suffix,negative suffix";
  expect_currency(pattern, {
                               {-1234.5, 44, 2, "  minus prefix 1,234.50suffixnegative suffix"},
                               {1234.5, 44, 2, "        prefix 1,234.50suffix               "},
                               {-1234.5, 20, 2, stars(20)},
                               {-1234.5, 3, 2, stars(3)},
                           });
}

TEST(Currency, HasNoMinusSignBeforeAPatternIsSet) {
  expect_currency("", {
                          {-5, 4, 0, "   5"},
                          {-1234.5, 8, 2, "1,234.50"},
                          {1234.5, 8, 2, "1,234.50"},
                      });
  expect_currency("abc", {{-5, 6, 0, "  abc5"}, {5, 6, 0, "     5"}});
}

TEST(Currency, ShowsTheSystemMissingCharacterBeforeDecimalsAndSuffixes) {
  expect_currency("-,$,EUR,CR", {
                                    {kMissing, 12, 2, "    .       "},
                                    {kMissing, 8, 2, ".       "},
                                    {kMissing, 7, 2, ".      "},
                                    {kMissing, 3, 0, ".  "},
                                    {kMissing, 12, kHighest, ".           "},
                                    {kInfinity, 12, 2, "           ."},
                                });
  expect_currency("minus ,prefix ,suffix,negative suffix", {{kMissing, 3, kHighest, ".  "}});
}

TEST(Currency, IsChosenByTheCode) {
  iocv::Currencies currencies;
  const char* patterns[] = {"a,1,,", "b,2,,", "c,3,,", "d,4,,", "e.5.."};
  for (int i = 0; i < 5; ++i) currencies[i].Set(patterns[i]);
  const Settings settings = {.currencies = &currencies};
  const std::pair<FormatCode, const char*> kCases[] = {
      {FormatCode::cca, " a17,777.5"}, {FormatCode::ccb, " b27,777.5"},
      {FormatCode::ccc, " c37,777.5"}, {FormatCode::ccd, " d47,777.5"},
      {FormatCode::cce, " e57.777,5"},
  };
  for (const auto& [code, text] : kCases) {
    test::expect_rows(writer(code, settings), {{-7777.5, 10, 1, text}});
  }
}

TEST(Currency, IgnoresAnyOtherCode) {
  for (const FormatCode code : {FormatCode::f, FormatCode::pct, static_cast<FormatCode>(0)}) {
    EXPECT_EQ(test::written(writer(code), 5, 3, 0), "xxx");
  }
}

TEST(Currency, WritesNothingInAnEmptyField) {
  char untouched = 'x';
  for (const std::int64_t width : {std::int64_t{0}, std::int64_t{-1}, kLowest}) {
    EXPECT_EQ(iocv::write_currency(Field(&untouched, width), -5, 2, FormatCode::dollar, kPoint),
              Status::ok);
    EXPECT_EQ(untouched, 'x');
  }
}

// The writer of numbers knows the missing number again when it is handed the magnitude.
TEST(Comma, ShowsAMagnitudeThatIsTheMissingNumberAsSuchWithoutGroups) {
  test::expect_rows(writer(FormatCode::comma, {.system_missing = 12345678}),
                    {{-12345678, 11, 0, "-12,345,678"}, {-12345678, 7, 0, "     -."}});
  test::expect_rows(
      writer(FormatCode::comma, {.system_missing = 12345678, .system_missing_char = ' '}),
      {{-12345678, 7, 0, "      -"}});
}

// ---- the flat routines

TEST(FlatCurrency, GroupsDigitsInTheGivenMarks) {
  const test::RecordsGuard guard;
  struct Case {
    double value;
    std::int64_t width;
    std::int64_t decimals;
    const char* pair;
    const char* text;
    std::int64_t overflow;
  };
  constexpr Case kCases[] = {
      {-1234.5, 9, 2, ".,", " 1.234,50xx", 0},
      {1234.5, 9, 2, "'_", " 1'234_50xx", 0},
      {1234.5, 7, 2, "'_", "1234_50xx", 0},
      {1234.5, 3, 2, ",.", "***xx", -1},
      {1234.5, 0, 2, ",.", "xx", -1},
      {1234.5, -1, 2, ",.", "xx", -1},
      {0, 3, 0, ",.", "  0xx", 0},
  };
  for (const Case& c : kCases) {
    std::string text(std::strlen(c.text), 'x');
    std::int64_t overflow = 7;
    obocd_(&c.value, &c.width, &c.decimals, c.pair, text.data(), &overflow, 2, 11);
    EXPECT_EQ(text, c.text);
    EXPECT_EQ(overflow, c.overflow) << c.text;
  }
}

TEST(FlatCurrency, CutsThePatternByTheLengths) {
  const test::RecordsGuard guard;
  struct Case {
    double value;
    std::array<std::int64_t, 4> lengths;
    std::string pattern;
    const char* text;
  };
  const Case kCases[] = {
      {1234.5, {1, 1, 1, 0}, "-,$,!,,", "   $1,234.50!"},
      {-1234.5, {1, 1, 1, 0}, "-,$,!,,", "  -$1,234.50!"},
      {-1234.5, {1, 1, 0, 2}, "-,$,,CR         ", " -$1,234.50CR"},
      {-1234.5, {2, 0, 0, 0}, "(,,,,", "   (,1,234.50"},
      // Negative lengths are none; no text goes beyond the pattern.
      {-1234.5, {-1, 1, kLowest, 0}, ",$,,", "    $1,234.50"},
      {-1234.5, {1, 1, 1, kHighest}, "-,$,!,?", " -$1,234.50!?"},
      {-1234.5, {1, 9, 9, 9}, "-", "    -1,234.50"},
      {-1234.5, {kHighest, kHighest, 1, 1}, "", "     1,234.50"},
  };
  for (const Case& c : kCases) {
    const std::int64_t width = 13;
    const std::int64_t decimals = 2;
    std::int64_t status = 7;
    std::string text(15, 'x');
    const test::Guarded pattern(c.pattern);
    obocc_(&c.value, &width, &decimals, ",.", c.lengths.data(), pattern.data(), text.data(),
           &status, 2, static_cast<std::int64_t>(c.pattern.size()), 15);
    EXPECT_EQ(text, std::string(c.text) + "xx") << c.pattern;
    EXPECT_EQ(status, 0);
  }
}

TEST(FlatCurrency, IsReachedThroughEveryDoor) {
  const test::RecordsGuard guard;
  currencyFormat::Set(4, "-.'.EUR..");
  struct Case {
    std::int32_t type;
    const char* text;
  };
  constexpr Case kCases[] = {
      {3, "   -1,234.50xx"},  {4, "  -$1,234.50xx"},  {32, "   -1.234,50xx"},
      {33, "    1,234.50xx"}, {37, "-.EUR1234,50xx"},
  };
  const double value = -1234.5;
  const OBS stored = {.number = value};
  const std::int64_t width = 12;
  const std::int64_t decimals = 2;
  for (const Case& c : kCases) {
    std::int64_t status = 7;
    std::string text(14, 'x');
    obocom_(&value, &width, &decimals, text.data(), &status, &c.type, 14);
    EXPECT_EQ(text, c.text);
    EXPECT_EQ(status, 0);
    status = 7;
    text = std::string(14, 'x');
    obocv_(&stored, &c.type, &width, &decimals, text.data(), &status, 14);
    EXPECT_EQ(text, c.text);
    EXPECT_EQ(status, 0);
  }
  currencyFormat::Set(4, "");
  std::int64_t status = 7;
  std::string text = "xxxx";
  const std::int32_t no_currency = 5;
  obocom_(&value, &decimals, &decimals, text.data(), &status, &no_currency, 4);
  EXPECT_EQ(text, "xxxx");
  EXPECT_EQ(status, 0);
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
  if (test::is_special(value)) {
    const std::int64_t places = std::clamp<std::int64_t>(decimals, 0, width);
    EXPECT_EQ(text, test::marked(width, value == kMissing ? width - places - 1 : width - 1));
    return;
  }
  if (test::all_asterisks(text)) {
    EXPECT_TRUE(test::may_be_asterisks(value, width) || (value < 0 && width == 1));
    return;
  }
  const auto number = test::shown_number(without_separators(text, ','));
  ASSERT_TRUE(number);
  EXPECT_TRUE(test::shows(*number, value) || (number->is_zero() && number->negative));
  const auto places = static_cast<std::int64_t>(number->fraction.size());
  EXPECT_LE(places, std::max<std::int64_t>(decimals, 0));
  // Four whole digits or more are separated where there is room.
  if (text.find(',') == text.npos && number->whole.size() > 3 && !number->exponent) {
    EXPECT_LE(number->blanks, number->whole.size() / 3);
  }
}

TEST(Comma, ShowsEverySpecialValueInEveryWidth) {
  test::sweep(writer(FormatCode::comma), expect_comma_text);
}

TEST(Dot, DiffersFromCommaInItsMarksAlone) {
  test::sweep(writer(FormatCode::dot, kComma), [](const std::string& text, double value,
                                                  std::int64_t width, std::int64_t decimals) {
    std::string expected = test::written(writer(FormatCode::comma), value, width, decimals);
    if (!test::is_special(value)) {
      for (char& c : expected) c = c == '.' ? ',' : c == ',' ? '.' : c;
    }
    EXPECT_EQ(text, expected);
  });
}

TEST(Currency, ShowsEverySpecialValueInEveryWidth) {
  iocv::Currencies currencies;
  currencies[0].Set("minus,pre,suf,end");
  const Settings settings = {.currencies = &currencies};
  test::sweep(writer(FormatCode::cca, settings),
              [](const std::string& text, double, std::int64_t, std::int64_t) {
                // Blanks, then pieces of the decoration and digits without a gap; blanks for the
                // negative end.
                EXPECT_EQ(text.find_first_not_of("0123456789.,-+E* minuspresufend"), text.npos);
                EXPECT_EQ(text.find('x'), text.npos);
              });
}

}  // namespace
