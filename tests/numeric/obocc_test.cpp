// The custom currencies: grouped digits with text around them, and the flat routines below them.
#include <iocv/currencies.h>
#include <iocv/iocv.h>

#include "numeric/custom_currency.h"
#include "numeric/obocom.h"
#include "support/records_guard.h"
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

class CurrencyOutput : public NumberWriter<write_in<FormatCode::cca>> {
 public:
  // CCA under a pattern.
  static void expect_currency(const char* pattern, const std::vector<Row>& rows) {
    SCOPED_TRACE(pattern);
    iocv::Currencies currencies;
    currencies[0].Set(pattern);
    expect_rows(rows, {.currencies = &currencies});
  }
};

TEST_F(CurrencyOutput, SurroundsTheDigits) {
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

TEST_F(CurrencyOutput, KeepsItsNegativeSuffixLongest) {
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

TEST_F(CurrencyOutput, UsesItsWholeTextsHoweverLong) {
  const char* pattern = "minus ,prefix ,suffix,negative suffix";
  expect_currency(pattern, {
                               {-1234.5, 44, 2, "  minus prefix 1,234.50suffixnegative suffix"},
                               {1234.5, 44, 2, "        prefix 1,234.50suffix               "},
                               {-1234.5, 20, 2, stars(20)},
                               {-1234.5, 3, 2, stars(3)},
                           });
}

TEST_F(CurrencyOutput, HasNoMinusSignBeforeAPatternIsSet) {
  expect_currency("", {
                          {-5, 4, 0, "   5"},
                          {-1234.5, 8, 2, "1,234.50"},
                          {1234.5, 8, 2, "1,234.50"},
                      });
  expect_currency("abc", {{-5, 6, 0, "  abc5"}, {5, 6, 0, "     5"}});
}

TEST_F(CurrencyOutput, ShowsTheSystemMissingCharacterBeforeDecimalsAndSuffixes) {
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

TEST_F(CurrencyOutput, IsChosenByTheCode) {
  iocv::Currencies currencies;
  const char* patterns[] = {"a,1,,", "b,2,,", "c,3,,", "d,4,,", "e.5.."};
  for (int i = 0; i < 5; ++i) currencies[i].Set(patterns[i]);
  const Settings settings = {.currencies = &currencies};
  struct Case {
    FormatCode code;
    const char* text;
  };
  const Case kCases[] = {
      {FormatCode::cca, " a17,777.5"}, {FormatCode::ccb, " b27,777.5"},
      {FormatCode::ccc, " c37,777.5"}, {FormatCode::ccd, " d47,777.5"},
      {FormatCode::cce, " e57.777,5"},
  };
  for (const Case& c : kCases) {
    const auto write = [&](Field out, double value, std::int64_t decimals) {
      EXPECT_EQ(iocv::write_currency(out, value, decimals, c.code, settings), Status::ok);
    };
    EXPECT_EQ(written(write, -7777.5, 10, 1), c.text);
  }
}

TEST_F(CurrencyOutput, IgnoresAnyOtherCode) {
  for (const FormatCode code : {FormatCode::f, FormatCode::pct, static_cast<FormatCode>(0)}) {
    const auto write = [code](Field out, double value, std::int64_t decimals) {
      EXPECT_EQ(iocv::write_currency(out, value, decimals, code, kPoint), Status::ok);
    };
    EXPECT_EQ(written(write, 5, 3, 0), "xxx");
  }
}

TEST_F(CurrencyOutput, WritesNothingInAnEmptyField) {
  expect_nothing_in_an_empty_field();
  NumberWriter<write_in<FormatCode::dollar>>::expect_nothing_in_an_empty_field();
}

TEST(FlatCurrencyOutput, GroupsDigitsInTheGivenMarks) {
  const RecordsGuard guard;
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

TEST(FlatCurrencyOutput, CutsThePatternByTheLengths) {
  const RecordsGuard guard;
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
    const Guarded pattern(c.pattern);
    obocc_(&c.value, &width, &decimals, ",.", c.lengths.data(), pattern.data(), text.data(),
           &status, 2, static_cast<std::int64_t>(c.pattern.size()), 15);
    EXPECT_EQ(text, std::string(c.text) + "xx") << c.pattern;
    EXPECT_EQ(status, 0);
  }
}

TEST(FlatCurrencyOutput, IsReachedThroughEveryDoor) {
  const RecordsGuard guard;
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
    text = repeated('x', 14);
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

TEST_F(CurrencyOutput, ShowsEverySpecialValueInEveryWidth) {
  iocv::Currencies currencies;
  currencies[0].Set("minus,pre,suf,end");
  const Settings settings = {.currencies = &currencies};
  sweep(writer(settings), [](const std::string& text, double, std::int64_t, std::int64_t) {
    // Blanks, then pieces of the decoration and digits without a gap; blanks for the
    // negative end.
    EXPECT_EQ(text.find_first_not_of("0123456789.,-+E* minuspresufend"), text.npos);
    EXPECT_EQ(text.find('x'), text.npos);
  });
}

}  // namespace
}  // namespace test
