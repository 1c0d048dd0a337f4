// Number input: the free formats F, E, COMMA, DOLLAR, DOT and PCT.
#include "numeric/obif_support.h"

namespace test {
namespace {

TEST_F(NumberInput, ReadsPlainNumbers) {
  expect_rows({
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
  expect_rows({
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
  expect_rows({
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
  expect_rows({{"3.5", F, 0, value(3.5)}, {"3;5", F, 0, fails(1102)}});
}

TEST_F(NumberInput, GroupingStandsOnlyAmongIntegerDigitsAndIsNotCounted) {
  expect_rows({
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
  expect_rows({
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
  expect_rows({
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
  expect_rows({
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
  expect_rows({
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
    expect_rows({{zero, F, 0, value(0)}});
  }
}

TEST_F(NumberInput, ALoneByteOtherThanADigit) {
  expect_rows({
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
  expect_rows({{",", F, 0, fails(1111)}, {".", F, 0, fails(1102)}, {".", COMMA, 0, fails(1111)}});
  EXPECT_EQ(read_fancy("-", F, 0), fails(1111));  // the scanner's own answer
  EXPECT_EQ(read_fancy("$", DOLLAR, 0), fails(1111));
}

TEST_F(NumberInput, ABlankFieldIsTheBlankValue) {
  for (const std::int32_t type : {COMMA, DOLLAR, F, E, PCT, DOT}) {
    expect_rows({{"", type, 0, kBlankField},
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
    EXPECT_EQ(read_obif(bad, F, 0), fails(1102)) << shown(bad);
  }
}

std::string zeros_and(std::size_t zeros, std::string_view rest) {
  std::string text;
  text.resize(zeros, '0');
  return text.append(rest);
}

TEST_F(NumberInput, DigitsFoldInChunksOfNine) {
  expect_rows({
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
  expect_rows({
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

}  // namespace
}  // namespace test
