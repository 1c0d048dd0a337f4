// PCT: a number as F shows it, and a percent sign where it has a column.
#include "numeric/obopct.h"

#include <iocv/iocv.h>

#include "numeric/obof.h"
#include "support/exact_f.h"
#include "support/records_guard.h"
#include "support/writers.h"

namespace test {
namespace {

using iocv::Field;
using iocv::Settings;
using iocv::Status;

using PercentOutput = NumberWriter<iocv::write_percent>;
using FOutput = NumberWriter<iocv::write_f>;

TEST_F(PercentOutput, PutsTheSignBehindTheNumber) {
  expect_rows({
      {12.34, 6, 1, " 12.3%"},
      {12.34, 5, 1, "12.3%"},
      {-12.34, 6, 1, "-12.3%"},
      {0, 6, 1, "   .0%"},
      {-0.001, 6, 2, "  .00%"},
      {5, 2, 0, "5%"},
      {1234.5, 8, -2, "   1235%"},
      {1234.5, 8, kLowest, "   1235%"},
      {1234.5, 8, kHighest, "1234.50%"},
  });
  expect_rows({{0.5, 6, 1, "  0.5%"}}, kLeadingZero);
  expect_rows({{12.34, 6, 1, " 12,3%"}}, kComma);
}

TEST_F(PercentOutput, GivesUpDecimalsAndTurnsToAnExponentBeforeTheSignGoes) {
  expect_rows({
      {12.34, 4, 1, " 12%"},
      {12.34, 3, 1, "12%"},
      {12.34, 2, 1, "12"},
      {12.34, 1, 1, "*"},
      {-12.34, 3, 1, "-12"},
      {-12.34, 2, 1, "**"},
      {5, 1, 0, "5"},
      {5.5, 1, 1, "6"},
      {12345678, 7, 0, "1E+007%"},
      {12345678, 6, 0, "1E+007"},
      {12345678, 8, 0, " 1E+007%"},
      {12345678, 9, 0, "12345678%"},
      {12345678, 5, 0, "*****"},
      {123456, 6, 0, "123456"},
  });
}

TEST_F(PercentOutput, ShowsSpecialValues) {
  expect_rows({
      {kMissing, 8, 2, "    .   "},
      {kMissing, 8, 0, "      . "},
      {kMissing, 2, 5, ". "},
      {kMissing, 2, 0, ". "},
      {kMissing, 1, 0, "."},
      {kMissing, 8, kHighest, ".       "},
      {kMissing, 8, kLowest, "      . "},
      {kInfinity, 8, 2, "       ."},
      {-kInfinity, 8, 2, "       ."},
      {kNan, 8, 2, "       ."},
      {kNan, 0, 2, ""},
  });
  expect_rows({{0, 6, 2, "  ?   "}}, {.system_missing = 0, .system_missing_char = '?'});
}

TEST_F(PercentOutput, WritesNothingInAnEmptyField) { expect_nothing_in_an_empty_field(); }

TEST_F(PercentOutput, IsReachedThroughEveryDoor) {
  const RecordsGuard guard;
  cmnloc_.decimal = ',';
  expect_doors(obopct_, 31, {-0.5, 6, 1, "  -,5%"});
}

void expect_percent_text(const Settings& settings, const std::string& text, double value,
                         std::int64_t width, std::int64_t decimals) {
  if (width == 0) return;
  if (is_special(value)) {
    const std::int64_t places = std::clamp<std::int64_t>(decimals, 0, width);
    EXPECT_EQ(text, marked(width, value == kMissing ? width - 2 - places : width - 1));
    return;
  }
  const std::string narrow = FOutput::text_of(value, width - 1, decimals, settings);
  if (narrow.find_first_not_of('*') != narrow.npos) {
    EXPECT_EQ(text, narrow + "%");
  } else {
    EXPECT_EQ(text, FOutput::text_of(value, width, decimals, settings));
  }
}

TEST_F(PercentOutput, IsFWithASignBehindInEveryWidth) {
  for (const Settings& settings : {kPoint, kComma, kLeadingZero}) {
    sweep(writer(settings),
          [&](const std::string& text, double value, std::int64_t width, std::int64_t decimals) {
            expect_percent_text(settings, text, value, width, decimals);
          });
  }
}

TEST_F(PercentOutput, PrintsTheCorrectlyRoundedDigitsOfOrdinaryValues) {
  std::mt19937_64 random = random_source();
  SCOPED_TRACE(seed_text());
  int compared = 0;
  for (int i = 0; i < 50000; ++i) {
    const double value = ordinary_double(random);
    const int width = 2 + static_cast<int>(random() % 16);
    const int decimals = static_cast<int>(random() % 8);
    auto expected = exact_f(value, width - 1, decimals);
    if (!expected) continue;
    *expected += "%";
    if ((*expected)[0] == '*') expected = exact_f(value, width, decimals);
    ++compared;
    ASSERT_EQ(shown(text_of(value, width, decimals)), shown(*expected))
        << described(value) << ", width " << width << ", decimals " << decimals;
  }
  EXPECT_GT(compared, 25000);
}

}  // namespace
}  // namespace test
