// N and Z: digits with leading zeros.
#include <iocv/iocv.h>

#include "numeric/obon.h"
#include "numeric/oboz.h"
#include "support/big_decimal.h"
#include "support/records_guard.h"
#include "support/writers.h"

namespace test {
namespace {

using iocv::Field;
using iocv::Settings;
using iocv::Status;

// N, which fails for a value below zero and for no other.
Status write_n(Field out, double value, std::int64_t decimals, const Settings& settings) {
  const bool negative =
      !out.empty() && std::isfinite(value) && value < 0 && value != settings.system_missing;
  EXPECT_EQ(iocv::write_n(out, value, decimals, settings),
            negative ? Status::n_negative : Status::ok);
  return Status::ok;
}

using NOutput = NumberWriter<write_n>;
using ZOutput = NumberWriter<iocv::write_z>;

class NAndZOutput : public testing::Test {
 protected:
  static void expect_n(const std::vector<Row>& rows) { NOutput::expect_rows(rows); }
  static void expect_z(const std::vector<Row>& rows) { ZOutput::expect_rows(rows); }
};

TEST_F(NOutput, FillsWithZeros) {
  expect_rows({
      {7, 4, 0, "0007"},
      {0, 4, 0, "0000"},
      {-0.0, 4, 0, "0000"},
      {12345, 5, 0, "12345"},
      {12345, 3, 0, "***"},
      {0.5, 3, 0, "001"},
      {0.49, 3, 0, "000"},
      {1234, 8, -2, "00001234"},
      {1234, 8, kLowest, "00001234"},
      {1e20, 25, 0, "0000100000000000000000000"},
  });
}

TEST_F(NOutput, WritesTheDecimalCharacter) {
  expect_rows({
      {1.5, 6, 2, "001.50"},
      {1.5, 4, 2, "1.50"},
      {0, 3, 2, ".00"},
      {0, 4, 2, "0.00"},
      {0.05, 5, 2, "00.05"},
      {1.005, 6, 2, "001.01"},  // 100.99999999999999 with the half
      {1.00499, 6, 2, "001.00"},
      {12.345, 8, 2, "00012.35"},
  });
  expect_rows({{1.5, 6, 2, "001,50"}}, kComma);
}

// The fit is tested without the decimal character's column.
TEST_F(NOutput, IsAllAsterisksWhenTheDecimalCharacterHasNoColumn) {
  expect_rows({
      {1.5, 3, 2, "***"},
      {12.5, 4, 2, "****"},
      {0, 3, 3, "***"},
      {0, 3, 5, "***"},
      {0.5, 1, 1, "*"},
      {1.5, 2, 2, "**"},
  });
}

TEST_F(NOutput, ShowsANegativeValueAsSystemMissingWithAStatus) {
  expect_rows({
      {-7, 4, 0, "   ."},
      {-0.2, 4, 0, "   ."},
      {-1e300, 4, 2, "   ."},
  });
  expect_rows({{-7, 4, 2, "   ?"}}, {.system_missing_char = '?', .decimal = ','});
}

TEST_F(NAndZOutput, ShowSpecialValuesInTheLastColumn) {
  const std::vector<Row> rows = {
      {kMissing, 5, 2, "    ."},        {kMissing, 1, 0, "."},  {kInfinity, 5, 2, "    ."},
      {-kInfinity, 5, 2, "    ."},      {kNan, 5, 2, "    ."},  {kMissing, 0, 0, ""},
      {kMissing, 5, kHighest, "    ."}, {-kInfinity, 0, 0, ""},
  };
  expect_n(rows);
  expect_z(rows);
}

TEST_F(ZOutput, ImpliesTheDecimals) {
  expect_rows({
      {123, 5, 0, "00123"},
      {1.5, 5, 2, "00150"},
      {1.5, 3, 2, "150"},
      {1.5, 2, 2, "**"},
      {1.5 - 0x1p-45, 3, 0, "002"},  // almost a half
      {4096.5 - 0x1p-40, 5, 0, "04096"},
      {0, 5, 2, "00000"},
      {0, 2, 300, "00"},
      {1234, 8, -2, "00001234"},
      {12345, 3, 0, "***"},
  });
}

TEST_F(ZOutput, PutsTheSignIntoTheLastDigit) {
  expect_rows({
      {-123, 5, 0, "0012L"},
      {-120, 5, 0, "0012}"},
      {-1.5, 5, 2, "0015}"},
      {-1e20, 21, 0, "10000000000000000000}"},
      // A value that shows as zero has none.
      {-0.2, 5, 0, "00000"},
      {-0.0, 5, 0, "00000"},
      {-0.4999999999999, 5, 0, "00000"},
      {-0.5, 5, 0, "0000J"},
  });
  for (int digit = 0; digit < 10; ++digit) {
    const std::string last(1, "}JKLMNOPQR"[digit]);
    EXPECT_EQ(text_of(-40 - digit, 3, 0), "04" + last);
    EXPECT_EQ(text_of(40 + digit, 3, 0), "04" + std::to_string(digit));
  }
}

TEST_F(NAndZOutput, AreAllAsterisksWhenTheSumWithTheHalfHasADigitMore) {
  const double value = 99.4999999999999;
  expect_n({{value, 2, 0, "**"}, {value, 3, 0, "100"}});
  expect_z(
      {{value, 2, 0, "**"}, {-value, 2, 0, "**"}, {value, 3, 0, "100"}, {-value, 3, 0, "10}"}});
}

TEST_F(NAndZOutput, AreAllAsterisksWhenTheScaledValueIsInfinite) {
  const std::vector<Row> rows = {
      {1, 8, 309, stars(8)},         {0, 8, 309, stars(8)},       {0, 8, kHighest, stars(8)},
      {1e200, 400, 200, stars(400)}, {1e300, 350, 9, stars(350)},
  };
  expect_n(rows);
  expect_z(rows);
  expect_z({{-1, 8, 309, stars(8)}, {-1e200, 400, 200, stars(400)}});
}

// The fit is tested by a count of digits and zeros that knows the decimals.
TEST_F(ZOutput, CountsDigitsWithTheDecimals) {
  expect_rows({
      {1e39, 49, 10, stars(49)},
      {99999999999999.97, 20, 6, stars(20)},
      {99999999999999.97, 21, 6, "099999999999999960000"},
  });
}

TEST_F(NAndZOutput, WriteNothingInAnEmptyField) {
  NOutput::expect_nothing_in_an_empty_field();
  ZOutput::expect_nothing_in_an_empty_field();
}

// The exact digits behind zeros, unless they are more than a double holds or next to a half.
void expect_digits(const std::string& text, double value, std::int64_t width, std::int64_t decimals,
                   bool with_point) {
  const auto places = static_cast<int>(std::clamp<std::int64_t>(decimals, 0, 400));
  const double scaled = std::fabs(value) * std::pow(10.0, places);
  if (!(scaled < 1e14)) return;
  const Rounded exact = rounded(exact_decimal(value), places);
  if (exact.from_half < 1e-12 + scaled * 1e-15) return;
  std::string digits = exact.whole + (with_point && places > 0 ? "." : "") + exact.fraction;
  if (!with_point) digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
  const auto columns = static_cast<std::size_t>(width);
  EXPECT_EQ(text, digits.size() > columns ? stars(width)
                                          : std::string(columns - digits.size(), '0') + digits);
}

TEST_F(NOutput, ShowsEverySpecialValueInEveryWidth) {
  sweep(writer(),
        [](const std::string& text, double value, std::int64_t width, std::int64_t decimals) {
          if (width == 0) return;
          if (is_special(value) || value < 0) {
            EXPECT_EQ(text, marked(width, width - 1));
            return;
          }
          EXPECT_EQ(text.find_first_not_of("0123456789.*"), text.npos);
          EXPECT_EQ(text.find('*') == text.npos, text.find_first_not_of('*') != text.npos);
          expect_digits(text, value, width, decimals, true);
        });
}

TEST_F(ZOutput, ShowsEverySpecialValueInEveryWidth) {
  sweep(writer(), [](std::string text, double value, std::int64_t width, std::int64_t decimals) {
    if (width == 0) return;
    if (is_special(value)) {
      EXPECT_EQ(text, marked(width, width - 1));
      return;
    }
    constexpr std::string_view kZones = "}JKLMNOPQR";
    const std::size_t zone = kZones.find(text.back());
    if (zone != kZones.npos) {
      EXPECT_LT(value, 0);
      text.back() = static_cast<char>('0' + zone);
      EXPECT_NE(text.find_first_not_of('0'), text.npos);
    } else {
      EXPECT_TRUE(value >= 0 || text.find_first_not_of('0') == text.npos || text.back() == '*');
    }
    EXPECT_EQ(text.find_first_not_of("0123456789*"), text.npos);
    expect_digits(text, value, width, decimals, false);
  });
}

TEST_F(NOutput, DiffersUnderADecimalCommaInNothingElse) {
  expect_a_comma_for_the_point([](double value) { return is_special(value) || value < 0; });
}

TEST_F(NAndZOutput, AreReachedThroughEveryDoor) {
  const RecordsGuard guard;
  cmnloc_.decimal = ',';
  expect_doors(obon_, 16, {12.5, 6, 1, "0012,5"});
  expect_doors(obon_, 16, {-12.5, 6, 1, "     ."}, 1128);
  expect_doors(oboz_, 15, {-12.5, 6, 1, "00012N"});
  const OBS stored = {.number = -12.5};
  std::string text = "xxxxxxxx";
  EXPECT_EQ(IocvConvertOutput(&stored, 15, 1, text.data(), 6), 0);
  EXPECT_EQ(text, "00012Nxx");
  EXPECT_EQ(IocvConvertOutput(&stored, 16, 1, text.data(), 6), 1128);
  EXPECT_EQ(text, "     .xx");
}

}  // namespace
}  // namespace test
