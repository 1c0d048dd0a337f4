// PCT: a number as F shows it, and a percent sign where it has a column.
#include "numeric/obopct.h"

#include <iocv/iocv.h>

#include "numeric/obof.h"
#include "support/exact_f.h"
#include "support/records_guard.h"
#include "support/writers.h"

namespace {

using iocv::Field;
using iocv::Settings;
using iocv::Status;
using test::described;
using test::shown;

constexpr auto kLowest = std::numeric_limits<std::int64_t>::min();
constexpr auto kHighest = std::numeric_limits<std::int64_t>::max();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kMissing = iocv::kSystemMissing;

const Settings kPoint = {};
const Settings kComma = {.decimal = ','};
const Settings kLeadingZero = {.leading_zero = true};

auto writer(const Settings& settings) {
  return [settings](Field out, double value, std::int64_t decimals) {
    EXPECT_EQ(iocv::write_percent(out, value, decimals, settings), Status::ok);
  };
}

auto f_writer(const Settings& settings) {
  return [settings](Field out, double value, std::int64_t decimals) {
    iocv::write_f(out, value, decimals, settings);
  };
}

void expect_rows(const std::vector<test::Row>& rows, const Settings& settings = kPoint) {
  test::expect_rows(writer(settings), rows);
}

TEST(Percent, PutsTheSignBehindTheNumber) {
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

TEST(Percent, GivesUpDecimalsAndTurnsToAnExponentBeforeTheSignGoes) {
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

TEST(Percent, ShowsSpecialValues) {
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
      {kNaN, 8, 2, "       ."},
      {kNaN, 0, 2, ""},
  });
  expect_rows({{0, 6, 2, "  ?   "}}, {.system_missing = 0, .system_missing_char = '?'});
}

TEST(Percent, WritesNothingInAnEmptyField) {
  char untouched = 'x';
  for (const std::int64_t width : {std::int64_t{0}, std::int64_t{-1}, kLowest}) {
    EXPECT_EQ(iocv::write_percent(Field(&untouched, width), 5, 2, kPoint), Status::ok);
    EXPECT_EQ(untouched, 'x');
  }
}

TEST(Percent, IsReachedThroughEveryDoor) {
  const test::RecordsGuard guard;
  cmnloc_.decimal = ',';
  const double value = -0.5;
  const OBS stored = {.number = value};
  const std::int64_t width = 6;
  const std::int64_t decimals = 1;
  const std::int32_t type = 31;
  std::int64_t status = 7;
  std::string text = "xxxxxxxx";
  obopct_(&value, &width, &decimals, text.data(), &status, 8);
  EXPECT_EQ(text, "  -,5%xx");
  EXPECT_EQ(status, 0);
  text = "xxxxxxxx";
  status = 7;
  obocv_(&stored, &type, &width, &decimals, text.data(), &status, 8);
  EXPECT_EQ(text, "  -,5%xx");
  EXPECT_EQ(status, 0);
}

void expect_percent_text(const Settings& settings, const std::string& text, double value,
                         std::int64_t width, std::int64_t decimals) {
  if (width == 0) return;
  if (test::is_special(value)) {
    const std::int64_t places = std::clamp<std::int64_t>(decimals, 0, width);
    EXPECT_EQ(text, test::marked(width, value == kMissing ? width - 2 - places : width - 1));
    return;
  }
  const std::string narrow = test::written(f_writer(settings), value, width - 1, decimals);
  if (narrow.find_first_not_of('*') != narrow.npos) {
    EXPECT_EQ(text, narrow + "%");
  } else {
    EXPECT_EQ(text, test::written(f_writer(settings), value, width, decimals));
  }
}

TEST(Percent, IsFWithASignBehindInEveryWidth) {
  for (const Settings& settings : {kPoint, kComma, kLeadingZero}) {
    test::sweep(writer(settings), [&](const std::string& text, double value, std::int64_t width,
                                      std::int64_t decimals) {
      expect_percent_text(settings, text, value, width, decimals);
    });
  }
}

TEST(Percent, PrintsTheCorrectlyRoundedDigitsOfOrdinaryValues) {
  std::mt19937_64 random = test::random_source();
  SCOPED_TRACE(test::seed_text());
  int compared = 0;
  for (int i = 0; i < 50000; ++i) {
    const double value = test::ordinary_double(random);
    const int width = 2 + static_cast<int>(random() % 16);
    const int decimals = static_cast<int>(random() % 8);
    auto expected = test::exact_f(value, width - 1, decimals);
    if (!expected) continue;
    *expected += "%";
    if ((*expected)[0] == '*') expected = test::exact_f(value, width, decimals);
    ++compared;
    ASSERT_EQ(shown(test::written(writer(kPoint), value, width, decimals)), shown(*expected))
        << described(value) << ", width " << width << ", decimals " << decimals;
  }
  EXPECT_GT(compared, 25000);
}

}  // namespace
