// Number input: every state of the scanner with every class of bytes, through the scanner itself.
#include "numeric/obif_support.h"

namespace test {
namespace {

using NumberStates = NumberInput;

TEST_F(NumberStates, EveryStateMeetsEveryClass) {
  const std::vector<NumberRow> rows = {
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
      {"- 5%", PCT, 0, value(-5)},
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
      {"1%2%", PCT, 0, fails(1114)},
      {"1 2%", PCT, 0, fails(1114)},
      {"1%.", PCT, 0, fails(1114)},
      {"1%%", PCT, 0, fails(1102)},
      {"1%x", PCT, 0, fails(1114)},
  };
  for (const NumberRow& c : rows) {
    EXPECT_EQ(read_fancy(c.text, c.type, c.decimals), c.expected)
        << "|" << shown(c.text) << "| type " << c.type;
  }
}

}  // namespace
}  // namespace test
