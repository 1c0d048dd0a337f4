// Number input: the free formats F, E, COMMA, DOLLAR, DOT and PCT.
#include <iocv/iocv.h>

#include <bit>

#include "numeric/obif.h"
#include "support/guarded.h"
#include "support/powers.h"
#include "support/records_guard.h"
#include "support/values.h"

namespace {

using test::Edge;
using test::Guarded;
using test::RecordsGuard;

constexpr std::int32_t COMMA = 3, DOLLAR = 4, F = 5, E = 17, PCT = 31, DOT = 32, CCA = 33;
constexpr double kMissing = -std::numeric_limits<double>::max();
constexpr double kBlank = -77;  // what a blank field reads as in these tests

struct Reading {
  double value;
  std::int64_t status;
  friend bool operator==(const Reading& a, const Reading& b) {
    return a.status == b.status &&
           std::bit_cast<std::uint64_t>(a.value) == std::bit_cast<std::uint64_t>(b.value);
  }
};

std::ostream& operator<<(std::ostream& out, const Reading& reading) {
  return out << test::described(reading.value) << ", status " << reading.status;
}

constexpr Reading value(double number) { return {number, 0}; }
constexpr Reading fails(std::int64_t status) { return {kMissing, status}; }
constexpr Reading kBlankField = {kBlank, 0};

// The three doors to the same reader; every field ends, and then begins, at an unmapped page.
template <class Call>
Reading guarded_call(std::string_view text, Call call) {
  Reading results[2];
  for (const Edge edge : {Edge::end, Edge::begin}) {
    const Guarded field(text, edge);
    Reading& result = results[edge == Edge::end];
    result = {12345, 99};
    call(field.data(), static_cast<std::int64_t>(text.size()), &result.value, &result.status);
  }
  EXPECT_EQ(results[0], results[1]);
  return results[0];
}

Reading read_obif(std::string_view text, std::int32_t type, std::int64_t decimals) {
  return guarded_call(
      text, [&](const char* field, std::int64_t length, double* number, std::int64_t* status) {
        obif_(field, &length, &decimals, number, status, &type);
      });
}

Reading read_fancy(std::string_view text, std::int32_t type, std::int64_t decimals) {
  return guarded_call(
      text, [&](const char* field, std::int64_t length, double* number, std::int64_t* status) {
        fancy_f(field, &type, &length, &decimals, number, status);
      });
}

Reading read_dispatched(std::string_view text, std::int32_t type, std::int64_t decimals) {
  return guarded_call(
      text, [&](const char* field, std::int64_t length, double* number, std::int64_t* status) {
        OBS obs;
        obicv_(field, &type, &length, &decimals, &obs, status, length);
        *number = obs.number;
      });
}

class NumberInput : public testing::Test {
 protected:
  NumberInput() {
    cmnglb_.blank_value = kBlank;
    cmnloc_.decimal = '.';
  }
  RecordsGuard records_;
};

struct Case {
  const char* text;
  std::int32_t type;
  std::int64_t decimals;
  Reading expected;
};

void expect_cases(const std::vector<Case>& cases) {
  for (const Case& c : cases) {
    SCOPED_TRACE("|" + test::shown(c.text) + "| type " + std::to_string(c.type) + " decimals " +
                 std::to_string(c.decimals));
    EXPECT_EQ(read_obif(c.text, c.type, c.decimals), c.expected);
    if (c.type == CCA) continue;  // which no dispatcher sends here
    EXPECT_EQ(read_dispatched(c.text, c.type, c.decimals), c.expected);
  }
}

TEST_F(NumberInput, ReadsPlainNumbers) {
  expect_cases({
      {"0", F, 0, value(0)},
      {"7", F, 0, value(7)},
      {"   1.5", F, 0, value(1.5)},
      {"1.5   ", F, 0, value(1.5)},
      {"  -12  ", F, 0, value(-12)},
      {"+12", F, 0, value(12)},
      {"- 12", F, 0, value(-12)},
      {"123456789", F, 0, value(123456789)},
      {"-12345678", F, 0, value(-12345678)},
      {"1234567890", F, 0, value(1234567890)},
      {"00000000012", F, 0, value(12)},
      {".5", F, 0, value(.5)},
      {"5.", F, 0, value(5)},
      {"-.5", E, 0, value(-.5)},
      {"0.1", E, 0, value(0.1)},
      {"1.5", CCA, 0, value(1.5)},
  });
}

TEST_F(NumberInput, TheDecimalCharacterFollowsTheTypeAndTheSettings) {
  expect_cases({
      {"1.5", F, 0, value(1.5)},
      {"1,5", F, 0, fails(1102)},
      {"1.234,5", DOT, 0, value(1234.5)},
      {"1,234.5", DOT, 0, fails(1102)},
      {"1,234.5", COMMA, 0, value(1234.5)},
      {"1,234.5", DOLLAR, 0, value(1234.5)},
      {"1,234.5", F, 0, fails(1102)},
      {"1,234.5", E, 0, fails(1102)},
      {"1,234.5", PCT, 0, fails(1102)},
      {"1,5", DOT, 0, value(1.5)},
  });
  cmnloc_.decimal = ',';
  expect_cases({
      {"3,5", F, 0, value(3.5)},
      {"3.5", F, 0, fails(1102)},
      {"3,5", E, 0, value(3.5)},
      {"3.5", E, 0, fails(1102)},
      {"3,5", PCT, 0, value(3.5)},
      {"3.5", PCT, 0, fails(1102)},
      {"3.5", COMMA, 0, value(3.5)},
      {"3,5", COMMA, 0, value(35)},
      {"3.5", DOLLAR, 0, value(3.5)},
      {"3,5", DOT, 0, value(3.5)},
      {"3.5", DOT, 0, value(35)},
      {"3.5", CCA, 0, value(3.5)},
      {"3,5", CCA, 0, fails(1102)},
  });
  cmnloc_.decimal = ';';  // whatever is not a comma counts as a point
  expect_cases({{"3.5", F, 0, value(3.5)}, {"3;5", F, 0, fails(1102)}});
}

TEST_F(NumberInput, GroupingStandsOnlyAmongIntegerDigitsAndIsNotCounted) {
  expect_cases({
      {"1,,2", COMMA, 0, value(12)},
      {"1,", COMMA, 0, value(1)},
      {"1,2,3", DOLLAR, 0, value(123)},
      {"1,.5", COMMA, 0, value(1.5)},
      {"1..2", DOT, 0, value(12)},
      {",1", COMMA, 0, fails(1102)},
      {"-,1", COMMA, 0, fails(1102)},
      {"1.5,5", COMMA, 0, fails(1102)},
      {"1E1,0", COMMA, 0, fails(1102)},
      {"1,E2", COMMA, 0, value(100)},
      {"1,-2", COMMA, 0, value(.01)},
      {"12,34", COMMA, 2, value(12.34)},
  });
}

TEST_F(NumberInput, CurrencySignsStandOnlyBeforeTheDigitsOfDollar) {
  expect_cases({
      {"$12", DOLLAR, 0, value(12)},
      {"$12", COMMA, 0, fails(1102)},
      {"$12", F, 0, fails(1102)},
      {"$12", DOT, 0, fails(1102)},
      {"$12", CCA, 0, fails(1102)},
      {"-$12", DOLLAR, 0, value(-12)},
      {"$-12", DOLLAR, 0, value(-12)},
      {"$ - 12", DOLLAR, 0, value(-12)},
      {"$+1,234.5", DOLLAR, 0, value(1234.5)},
      {"-$$ 5", DOLLAR, 0, value(-5)},
      {"$$5", DOLLAR, 0, value(5)},
      {"$-$5", DOLLAR, 0, value(-5)},
      {"$--5", DOLLAR, 0, fails(1102)},
      {"-$-5", DOLLAR, 0, fails(1102)},
      {"5$", DOLLAR, 0, fails(1102)},
      {"$.5", DOLLAR, 0, value(.5)},
  });
}

TEST_F(NumberInput, PercentSignsStandOnlyRightBehindPct) {
  expect_cases({
      {"12%", PCT, 0, value(12)},
      {"12%", F, 0, fails(1102)},
      {"12%", COMMA, 0, fails(1102)},
      {"12% ", PCT, 0, value(12)},
      {"12 %", PCT, 0, fails(1102)},
      {"12%%", PCT, 0, fails(1102)},
      {"5% x", PCT, 0, fails(1114)},
      {"5%x", PCT, 0, fails(1114)},
      {"%5", PCT, 0, fails(1102)},
      {"1.5%", PCT, 0, value(1.5)},
      {"1E2%", PCT, 0, value(100)},
      {"1.%", PCT, 0, value(1)},
      {".%", PCT, 0, fails(1111)},
      {"1,234%", PCT, 0, fails(1102)},
      {"125%", PCT, 2, value(1.25)},
  });
}

TEST_F(NumberInput, ExponentsHaveALetterOrASign) {
  expect_cases({
      {"1.5E3", F, 0, value(1500)},     {"1.5e3", F, 0, value(1500)},
      {"1.5D3", F, 0, value(1500)},     {"1.5d3", F, 0, value(1500)},
      {"1.5e 3", F, 0, value(1500)},    {"1.5E- 3", F, 0, value(.0015)},
      {"1.5-3", F, 0, value(1.5e-3)},   {"1.5+3", F, 0, value(1500)},
      {"15-1", F, 0, value(1.5)},       {"1.5E+3", F, 0, value(1500)},
      {"1.5E - 3", F, 0, value(.0015)}, {"1.5- 3", F, 0, value(.0015)},
      {"1.5 E3", F, 0, fails(1114)},    {"1.5 -3", F, 0, fails(1114)},
      {"1.5E  3", F, 0, fails(1102)},   {"1.5E-  3", F, 0, fails(1102)},
      {"1.5E", F, 0, fails(1102)},      {"1.5E-", F, 0, fails(1102)},
      {"1.5-", F, 0, fails(1102)},      {"1.5EE3", F, 0, fails(1102)},
      {"1.5E3.0", F, 0, fails(1102)},   {"E3", F, 0, fails(1102)},
      {"-E3", F, 0, fails(1102)},       {".E3", F, 0, fails(1111)},
      {"1E0003", F, 0, value(1000)},    {"1.5E3 x", F, 0, fails(1114)},
      {"12 3", F, 0, fails(1114)},
  });
}

TEST_F(NumberInput, ImpliedDecimalsCountForPlainDigitsOnly) {
  expect_cases({
      {"123", F, 2, value(1.23)},
      {"-123", F, 2, value(-1.23)},
      {"1", F, 2, value(.01)},
      {"1.5", F, 2, value(1.5)},
      {"15E0", F, 2, value(15)},
      {"15E1", F, 2, value(150)},
      {"15-1", F, 2, value(1.5)},
      {"123.", F, 2, value(123)},
      {"1234567890", F, 2, value(12345678.90)},
      {"12", F, -2, value(1200)},
      {"1.2", F, -2, value(1.2)},
      {"5", F, -1, value(50)},
      {"1", F, 10, value(1e-10)},
      {"1", F, 307, value(9.999999999999995e-308)},
      {"0", F, 400, value(0)},
      {"0", F, INT64_MAX, value(0)},
      {"0", F, INT64_MIN, value(0)},
      {"1", F, 400, fails(1133)},
      {"1", F, INT64_MAX, fails(1133)},
      {"1", F, INT64_MIN, fails(1133)},
      {"1.5", F, INT64_MAX, value(1.5)},
      {"1.5E1", F, INT64_MIN, value(15)},
      {"15E1", F, INT64_MIN, value(150)},
  });
}

TEST_F(NumberInput, AZeroHasNoSign) {
  for (const char* zero : {"-0", "-00", "-0.0", "0", "-.0", "-0E5", "-0E-999", "-0.000000000000"}) {
    expect_cases({{zero, F, 0, value(0)}});
  }
}

TEST_F(NumberInput, ALoneByteOtherThanADigit) {
  expect_cases({
      {"-", F, 0, fails(1102)},       {"-", F, 2, fails(1111)},      {"-", F, -1, fails(1111)},
      {"$", DOLLAR, 0, fails(1102)},  {"$", DOLLAR, 1, fails(1111)}, {"$", F, 1, fails(1102)},
      {".", F, 0, fails(1111)},       {".", F, 2, fails(1111)},      {" . ", F, 0, fails(1111)},
      {",", F, 0, fails(1102)},       {",", DOT, 0, fails(1111)},    {".", DOT, 0, fails(1102)},
      {",", DOT, 1, fails(1111)},     {".", DOT, 1, fails(1102)},    {"%", PCT, 0, fails(1102)},
      {"E", F, 0, fails(1102)},       {"x", F, 0, fails(1102)},      {"\xE9", F, 0, fails(1102)},
      {"+-", F, 0, fails(1102)},      {"--", F, 0, fails(1102)},     {"-$", DOLLAR, 0, fails(1111)},
      {"$-", DOLLAR, 0, fails(1111)}, {"-.", F, 0, fails(1111)},     {"$.", DOLLAR, 0, fails(1111)},
  });
  cmnloc_.decimal = ',';
  expect_cases({{",", F, 0, fails(1111)}, {".", F, 0, fails(1102)}, {".", COMMA, 0, fails(1111)}});
  EXPECT_EQ(read_fancy("-", F, 0), fails(1111));  // the scanner's own answer
  EXPECT_EQ(read_fancy("$", DOLLAR, 0), fails(1111));
}

TEST_F(NumberInput, ABlankFieldIsTheBlankValue) {
  for (const std::int32_t type : {COMMA, DOLLAR, F, E, PCT, DOT}) {
    expect_cases({{"", type, 0, kBlankField},
                  {" ", type, 0, kBlankField},
                  {"        ", type, 2, kBlankField}});
    EXPECT_EQ(read_fancy("", type, 0), kBlankField);
    EXPECT_EQ(read_fancy("   ", type, 0), kBlankField);
  }
  const std::int64_t width = -5;
  const std::int64_t decimals = 0;
  Reading reading = {12345, 99};
  obif_(nullptr, &width, &decimals, &reading.value, &reading.status, &F);
  EXPECT_EQ(reading, kBlankField);
}

TEST_F(NumberInput, FailuresLeaveTheSettingsSystemMissingNumber) {
  cmnglb_.system_missing = -99;
  EXPECT_EQ(read_obif("x1", F, 0), (Reading{-99, 1102}));
  EXPECT_EQ(read_obif("1E999", F, 0), (Reading{-99, 1133}));
}

TEST_F(NumberInput, TabsZerosAndBytesFrom128OnAreNoBlanks) {
  const auto text = [](const char* bytes, std::size_t size) { return std::string(bytes, size); };
  for (const std::string& bad : {text("\t12", 3), text("12\0", 3), text("1\x80", 2),
                                 text("\xA0"
                                      "12",
                                      3),
                                 text("1\xFF", 2), text("1\x7F", 2)}) {
    EXPECT_EQ(read_obif(bad, F, 0), fails(1102)) << test::shown(bad);
  }
}

std::string zeros_and(std::size_t zeros, std::string_view rest) {
  std::string text;
  text.resize(zeros, '0');
  return text.append(rest);
}

TEST_F(NumberInput, DigitsFoldInChunksOfNine) {
  expect_cases({
      {"12345678901234567890", F, 0, value(1.2345678901234567e19)},
      {"75434533567018233", F, 0, value(7.543453356701824e16)},
      {"0.12345678901234567890", F, 0, value(12345678901234567890. / 1e20)},
      {"123456789012345678", F, 0, value(123456789e9 + 12345678)},
  });
  const std::string nines308(308, '9');
  EXPECT_EQ(read_obif(nines308, F, 0).status, 0);
  EXPECT_EQ(read_obif(nines308 + "9", F, 0), fails(1133));
  EXPECT_EQ(read_obif("-" + nines308 + "9", F, 0), fails(1133));
  EXPECT_EQ(read_obif("0." + std::string(310, '1'), F, 0), fails(1133));  // though it is small
  EXPECT_EQ(read_obif(zeros_and(400, "7"), F, 0), value(7));              // zeros are digits
  // Powers up to 10^9 apply at once, however many digits there are; greater ones by logarithms.
  EXPECT_EQ(read_obif(zeros_and(400, "7E9"), F, 0), value(7e9));
  EXPECT_EQ(read_obif(zeros_and(400, "7"), F, 9), value(7e-9));
  EXPECT_EQ(read_obif(zeros_and(400, "7E10"), F, 0), value(70000000000.00017));
  EXPECT_EQ(read_obif(nines308, F, -9), fails(1133));
  EXPECT_EQ(read_obif("1" + std::string(32766, '0'), F, 0), fails(1133));
  EXPECT_EQ(read_obif(zeros_and(32766, "1"), F, 0), value(1));
}

TEST_F(NumberInput, TheEndsOfTheRangeGoByLogarithms) {
  expect_cases({
      {"1.7976931348623157E308", F, 0, fails(1133)},
      {"1.797E308", F, 0, fails(1133)},
      {"1.796E308", F, 0, value(1.7960000000000432e+308)},
      {"2.2250738585072014E-308", F, 0, fails(1133)},
      {"22E-309", F, 0, fails(1133)},
      {"23E-309", F, 0, value(2.2999999999997454e-308)},
      {"-23E-309", F, 0, value(-2.2999999999997454e-308)},
      {"1E308", F, 0, value(1.0000000000000136e308)},
      {"1E-308", F, 0, value(9.999999999999994e-309)},
      {"1E400", F, 0, fails(1133)},
      {"1E-400", F, 0, fails(1133)},
      {"-1E400", F, 0, fails(1133)},
      {"1E999", F, 0, fails(1133)},
      {"1E-999", F, 0, fails(1133)},
      {"1E1000", F, 0, fails(1102)},
      {"1E0999", F, 0, fails(1133)},
      {"1E00001000", F, 0, fails(1102)},
  });
}

// Every state of the scanner with every class of bytes, through the scanner itself.
TEST_F(NumberInput, EveryStateMeetsEveryClass) {
  const std::vector<Case> cases = {
      // Nothing seen: sign, digit, grouping, currency, exponent, end, blank, decimal, percent,
      // other
      {"-5", F, 0, value(-5)},
      {"5", F, 0, value(5)},
      {",5", COMMA, 0, fails(1102)},
      {"$5", DOLLAR, 0, value(5)},
      {"E5", F, 0, fails(1102)},
      {"", F, 0, kBlankField},
      {" 5", F, 0, value(5)},
      {".5", F, 0, value(.5)},
      {"%5", PCT, 0, fails(1102)},
      {"x5", F, 0, fails(1102)},
      // A currency sign.
      {"$-5", DOLLAR, 0, value(-5)},
      {"$5", DOLLAR, 0, value(5)},
      {"$,5", DOLLAR, 0, fails(1102)},
      {"$$5", DOLLAR, 0, value(5)},
      {"$E5", DOLLAR, 0, fails(1102)},
      {"$", DOLLAR, 0, fails(1111)},
      {"$ 5", DOLLAR, 0, value(5)},
      {"$.5", DOLLAR, 0, value(.5)},
      {"$%", DOLLAR, 0, fails(1102)},
      {"$x", DOLLAR, 0, fails(1102)},
      // A sign.
      {"-+5", F, 0, fails(1102)},
      {"-5", F, 0, value(-5)},
      {"-,5", COMMA, 0, fails(1102)},
      {"-$5", DOLLAR, 0, value(-5)},
      {"-E5", F, 0, fails(1102)},
      {"-", F, 0, fails(1111)},
      {"- 5", F, 0, value(-5)},
      {"-.5", F, 0, value(-.5)},
      {"-%", PCT, 0, fails(1102)},
      {"-x", F, 0, fails(1102)},
      // Integer digits.
      {"1-3", F, 0, value(.001)},
      {"12", F, 0, value(12)},
      {"1,2", COMMA, 0, value(12)},
      {"1$", DOLLAR, 0, fails(1102)},
      {"1E3", F, 0, value(1000)},
      {"1", F, 0, value(1)},
      {"1 ", F, 0, value(1)},
      {"1.5", F, 0, value(1.5)},
      {"1%", PCT, 0, value(1)},
      {"1x", F, 0, fails(1102)},
      // Behind the decimal character.
      {"1.5-1", F, 0, value(.15)},
      {"1.55", F, 0, value(1.55)},
      {"1.5,5", COMMA, 0, fails(1102)},
      {"1.5$", DOLLAR, 0, fails(1102)},
      {"1.5E1", F, 0, value(15)},
      {"1.5", F, 0, value(1.5)},
      {"1.5 ", F, 0, value(1.5)},
      {"1.5.", F, 0, fails(1102)},
      {"1.5%", PCT, 0, value(1.5)},
      {"1.5x", F, 0, fails(1102)},
      // Behind an exponent letter.
      {"1E-3", F, 0, value(.001)},
      {"1E3", F, 0, value(1000)},
      {"1E,3", COMMA, 0, fails(1102)},
      {"1E$3", DOLLAR, 0, fails(1102)},
      {"1EE3", F, 0, fails(1102)},
      {"1E", F, 0, fails(1102)},
      {"1E 3", F, 0, value(1000)},
      {"1E.3", F, 0, fails(1102)},
      {"1E%", PCT, 0, fails(1102)},
      {"1Ex", F, 0, fails(1102)},
      // The blank behind it.
      {"1E -3", F, 0, value(.001)},
      {"1E 3", F, 0, value(1000)},
      {"1E ,3", COMMA, 0, fails(1102)},
      {"1E $3", DOLLAR, 0, fails(1102)},
      {"1E E3", F, 0, fails(1102)},
      {"1E ", F, 0, fails(1102)},
      {"1E  3", F, 0, fails(1102)},
      {"1E .3", F, 0, fails(1102)},
      {"1E %", PCT, 0, fails(1102)},
      {"1E x", F, 0, fails(1102)},
      // The exponent's sign.
      {"1E--3", F, 0, fails(1102)},
      {"1E-3", F, 0, value(.001)},
      {"1E-,3", COMMA, 0, fails(1102)},
      {"1E-$3", DOLLAR, 0, fails(1102)},
      {"1E-E3", F, 0, fails(1102)},
      {"1E-", F, 0, fails(1102)},
      {"1E- 3", F, 0, value(.001)},
      {"1E-.3", F, 0, fails(1102)},
      {"1E-%", PCT, 0, fails(1102)},
      {"1E-x", F, 0, fails(1102)},
      // The blank behind the sign.
      {"1E- -3", F, 0, fails(1102)},
      {"1E+ 3", F, 0, value(1000)},
      {"1E- ,3", COMMA, 0, fails(1102)},
      {"1E- $3", DOLLAR, 0, fails(1102)},
      {"1E- E", F, 0, fails(1102)},
      {"1E- ", F, 0, fails(1102)},
      {"1E-  3", F, 0, fails(1102)},
      {"1E- .3", F, 0, fails(1102)},
      {"1E- %", PCT, 0, fails(1102)},
      {"1E- x", F, 0, fails(1102)},
      // Exponent digits.
      {"1E3-", F, 0, fails(1102)},
      {"1E12", F, 0, value(1e12)},
      {"1E3,0", COMMA, 0, fails(1102)},
      {"1E3$", DOLLAR, 0, fails(1102)},
      {"1E3E", F, 0, fails(1102)},
      {"1E3", F, 0, value(1000)},
      {"1E3 ", F, 0, value(1000)},
      {"1E3.", F, 0, fails(1102)},
      {"1E3%", PCT, 0, value(1000)},
      {"1E3x", F, 0, fails(1102)},
      // A trailing blank, or a percent sign.
      {"1 -", F, 0, fails(1114)},
      {"1 2", F, 0, fails(1114)},
      {"1 ,", COMMA, 0, fails(1114)},
      {"1 $", DOLLAR, 0, fails(1114)},
      {"1 E", F, 0, fails(1114)},
      {"1 ", F, 0, value(1)},
      {"1  ", F, 0, value(1)},
      {"1 .", F, 0, fails(1114)},
      {"1 %", PCT, 0, fails(1102)},
      {"1 x", F, 0, fails(1114)},
      {"1%-", PCT, 0, fails(1114)},
      {"1%2", PCT, 0, fails(1114)},
      {"1%,", PCT, 0, fails(1114)},
      {"1%$", PCT, 0, fails(1114)},
      {"1%E", PCT, 0, fails(1114)},
      {"1% ", PCT, 0, value(1)},
      {"1%.", PCT, 0, fails(1114)},
      {"1%%", PCT, 0, fails(1102)},
      {"1%x", PCT, 0, fails(1114)},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(read_fancy(c.text, c.type, c.decimals), c.expected)
        << "|" << test::shown(c.text) << "| type " << c.type;
  }
}

// ---- The same rules told as a grammar, by a parser that shares nothing with the library. ----

class Reference {
 public:
  Reference(std::string_view field, std::int64_t decimals, std::int32_t type, char setting)
      : decimals_(decimals), type_(type) {
    comma_ = type == DOT || (setting == ',' && (type == F || type == E || type == PCT));
    while (!field.empty() && field.front() == ' ') field.remove_prefix(1);
    while (!field.empty() && field.back() == ' ') field.remove_suffix(1);
    text_ = field;
  }

  Reading read() {
    if (text_.empty()) return kBlankField;
    if (text_.size() == 1 && decimals_ == 0) {
      if (!next_is_digit()) return fails(text_[0] == point() ? 1111 : 1102);
      return value(text_[0] - '0');
    }
    if (!sign_and_currency()) return fails(1102);
    if (at_end()) return fails(1111);
    if (!integer_and_fraction() || !exponent()) return fails(1102);
    if (const int status = trailer()) return fails(status);
    return digits_.empty() ? fails(1111) : number();
  }

 private:
  [[nodiscard]] bool at_end() const { return at_ == text_.size(); }
  [[nodiscard]] char peek() const { return at_end() ? '\0' : text_[at_]; }
  [[nodiscard]] char point() const { return comma_ ? ',' : '.'; }
  [[nodiscard]] char group() const { return comma_ ? '.' : ','; }
  [[nodiscard]] bool next_is_digit() const { return peek() >= '0' && peek() <= '9'; }
  bool accept(char byte) { return peek() == byte && (++at_, true); }

  bool sign_and_currency() {
    bool signed_already = false;
    for (;; ++at_) {
      if (peek() == '+' || peek() == '-') {
        if (std::exchange(signed_already, true)) return false;
        negative_ = peek() == '-';
      } else if (peek() == '$') {
        if (type_ != DOLLAR) return false;
      } else if (peek() != ' ') {
        return true;
      }
    }
  }

  bool integer_and_fraction() {
    while (next_is_digit() || (!digits_.empty() && peek() == group())) {
      if (!next_is_digit() && type_ != COMMA && type_ != DOLLAR && type_ != DOT) return false;
      if (next_is_digit()) digits_ += peek();
      ++at_;
    }
    scale_ = -decimals_;
    const std::size_t whole = digits_.size();
    if (accept(point())) {
      point_ = true;
      while (next_is_digit()) digits_ += text_[at_++];
      scale_ = static_cast<std::int64_t>(whole) - static_cast<std::int64_t>(digits_.size());
    }
    return point_ || !digits_.empty();
  }

  bool exponent() {
    const bool letter =
        !at_end() && std::string_view("DEde").find(peek()) != std::string_view::npos;
    if (!letter && peek() != '+' && peek() != '-') return true;
    if (!point_) scale_ = 0;
    if (letter) {
      ++at_;
      accept(' ');
    }
    const bool minus = peek() == '-';
    if (minus || peek() == '+') {
      ++at_;
      accept(' ');
    }
    if (!next_is_digit()) return false;
    std::int64_t size = 0;
    for (; next_is_digit(); ++at_) {
      size = size * 10 + (peek() - '0');
      if (size > 999) return false;
    }
    scale_ += minus ? -size : size;
    return true;
  }

  // Blanks, or a percent sign and blanks.
  int trailer() {
    if (at_end()) return 0;
    if (peek() == '%' && type_ == PCT) {
      ++at_;
    } else if (peek() != ' ') {
      return 1102;
    }
    while (accept(' ')) {
    }
    if (at_end()) return 0;
    return peek() == '%' ? 1102 : 1114;
  }

  Reading number() {
    double magnitude = 0;
    bool first = true;
    for (std::size_t i = 0; i < digits_.size(); i += 9) {
      const std::string chunk = digits_.substr(i, 9);
      const auto whole = static_cast<double>(std::stoll(chunk));
      magnitude =
          first
              ? whole
              : test::reference_power(static_cast<std::int64_t>(chunk.size())) * magnitude + whole;
      first = false;
    }
    if (magnitude == 0) return value(0);
    const auto size = static_cast<std::int64_t>(digits_.size());
    if (std::abs(scale_) > 9 && (scale_ < -308 || scale_ + size >= 309)) {
      const double v = std::log(magnitude) + 2.302585092994046 * static_cast<double>(scale_);
      if (!(v >= -708.396 && v <= 709.782)) return fails(1133);
      magnitude = std::exp(v);
    } else if (scale_ < 0) {
      magnitude /= test::reference_power(-scale_);
    } else {
      magnitude *= test::reference_power(scale_);
    }
    if (std::isinf(magnitude)) return fails(1133);
    return value(negative_ ? -magnitude : magnitude);
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::int64_t decimals_;
  std::int32_t type_;
  bool comma_;
  bool negative_ = false;
  bool point_ = false;
  std::int64_t scale_ = 0;
  std::string digits_;
};

constexpr std::int32_t kTypes[] = {COMMA, DOLLAR, F, E, PCT, DOT, CCA};

void expect_as_reference(const std::string& text, std::int64_t decimals, std::int32_t type,
                         char decimal) {
  iocv::Settings settings;
  settings.blank_value = kBlank;
  settings.decimal = decimal;
  const auto [number, status] =
      iocv::read_number(text, decimals, static_cast<iocv::FormatCode>(type), settings);
  ASSERT_EQ((Reading{number, static_cast<std::int64_t>(status)}),
            Reference(text, decimals, type, decimal).read())
      << "|" << test::shown(text) << "| decimals " << decimals << " type " << type << " decimal "
      << decimal;
}

TEST(NumberGrammar, TheReferenceKnowsTheRules) {
  EXPECT_EQ(Reference(" -$1,234.5E-1 ", 2, DOLLAR, '.').read(), value(-123.45));
  EXPECT_EQ(Reference("1.5 x", 0, F, '.').read(), fails(1114));
  EXPECT_EQ(Reference("-0", 0, F, '.').read(), value(0));
}

TEST(NumberGrammar, HoldsForAllTextsOfUpToFourBytes) {
  constexpr std::string_view kAlphabet = "0159+-.,$%Edx ";
  std::vector<std::string> texts = {""};
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (texts[i].size() < 4) {
      for (const char byte : kAlphabet) texts.push_back(texts[i] + byte);
    }
  }
  ASSERT_EQ(texts.size(), 41371U);  // 1 + 14 + 14^2 + 14^3 + 14^4
  for (const std::string& text : texts) {
    for (const std::int32_t type : kTypes) {
      for (const char decimal : {'.', ','}) {
        for (const std::int64_t decimals : {0, 2}) {
          expect_as_reference(text, decimals, type, decimal);
          if (HasFatalFailure()) return;
        }
      }
    }
  }
}

class RandomText {
 public:
  std::string bytes() {
    constexpr std::string_view kAlphabet = "00112345678999999+--..,,$%EeDd x";
    std::string text(below(40) + 1, ' ');
    for (char& byte : text) byte = kAlphabet[below(kAlphabet.size())];
    return text;
  }

  // Mostly well-formed.
  std::string number() {
    std::string text(below(3), ' ');
    text += pick({"", "", "-", "+", "$", "-$", "- "});
    text += digits(below(26)) + pick({"", "", ".", ",", ",123."}) + digits(below(20));
    if (below(2) == 0) {
      text += pick({"E", "e", "D", "d", "E+", "E-", "-", "+", "E - ", "e "}) + digits(below(4));
    }
    return text + pick({"", "", "", " ", "%", "% ", " %", " x"});
  }

  std::uint64_t below(std::uint64_t bound) { return random_() % bound; }

 private:
  std::string digits(std::uint64_t count) {
    std::string text(count, '0');
    const bool zeros = below(8) == 0;
    for (char& byte : text) byte = static_cast<char>('0' + (zeros ? 0 : below(10)));
    return text;
  }
  std::string pick(std::initializer_list<const char*> choices) {
    return choices.begin()[below(choices.size())];
  }
  std::mt19937_64 random_ = test::random_source();
};

TEST(NumberGrammar, HoldsForRandomTexts) {
  SCOPED_TRACE(test::seed_text());
  RandomText random;
  for (int i = 0; i < 400000; ++i) {
    const std::string text = i % 4 == 0 ? random.bytes() : random.number();
    const std::int64_t decimals = static_cast<std::int64_t>(random.below(50)) - 10;
    const std::int32_t type = kTypes[random.below(std::size(kTypes))];
    expect_as_reference(text, random.below(2) == 0 ? 0 : decimals, type,
                        random.below(2) == 0 ? '.' : ',');
    if (HasFatalFailure()) return;
  }
}

}  // namespace
