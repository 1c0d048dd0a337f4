// N and Z: digits with leading zeros, written and, for Z, read back.
#include <iocv/iocv.h>

#include "numeric/obiz.h"
#include "numeric/obon.h"
#include "numeric/oboz.h"
#include "support/big_decimal.h"
#include "support/records_guard.h"
#include "support/writers.h"

namespace {

using iocv::Field;
using iocv::Settings;
using iocv::Status;
using test::described;
using test::Edge;
using test::Guarded;
using test::shown;

constexpr auto kLowest = std::numeric_limits<std::int64_t>::min();
constexpr auto kHighest = std::numeric_limits<std::int64_t>::max();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kMissing = iocv::kSystemMissing;

const Settings kPoint = {};
const Settings kComma = {.decimal = ','};

auto n_writer(const Settings& settings) {
  return [settings](Field out, double value, std::int64_t decimals) {
    const bool negative =
        !out.empty() && std::isfinite(value) && value < 0 && value != settings.system_missing;
    EXPECT_EQ(iocv::write_n(out, value, decimals, settings),
              negative ? Status::n_negative : Status::ok);
  };
}

auto z_writer(const Settings& settings) {
  return [settings](Field out, double value, std::int64_t decimals) {
    EXPECT_EQ(iocv::write_z(out, value, decimals, settings), Status::ok);
  };
}

void expect_n(const std::vector<test::Row>& rows) { test::expect_rows(n_writer(kPoint), rows); }
void expect_z(const std::vector<test::Row>& rows) { test::expect_rows(z_writer(kPoint), rows); }

std::string stars(std::size_t width) { return std::string(width, '*'); }

TEST(N, FillsWithZeros) {
  expect_n({
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

TEST(N, WritesTheDecimalCharacter) {
  test::expect_rows(n_writer(kPoint),
                    {
                        {1.5, 6, 2, "001.50"},
                        {1.5, 4, 2, "1.50"},
                        {0, 3, 2, ".00"},
                        {0, 4, 2, "0.00"},
                        {0.05, 5, 2, "00.05"},
                        {1.005, 6, 2, "001.01"},  // 100.99999999999999 with the half
                        {1.00499, 6, 2, "001.00"},
                        {12.345, 8, 2, "00012.35"},
                    });
  test::expect_rows(n_writer(kComma), {{1.5, 6, 2, "001,50"}});
}

// The fit is tested without the decimal character's column.
TEST(N, IsAllAsterisksWhenTheDecimalCharacterHasNoColumn) {
  expect_n({
      {1.5, 3, 2, "***"},
      {12.5, 4, 2, "****"},
      {0, 3, 3, "***"},
      {0, 3, 5, "***"},
      {0.5, 1, 1, "*"},
      {1.5, 2, 2, "**"},
  });
}

TEST(N, ShowsANegativeValueAsSystemMissingWithAStatus) {
  expect_n({
      {-7, 4, 0, "   ."},
      {-0.2, 4, 0, "   ."},
      {-1e300, 4, 2, "   ."},
  });
  test::expect_rows(n_writer({.system_missing_char = '?', .decimal = ','}), {{-7, 4, 2, "   ?"}});
}

TEST(NAndZ, ShowSpecialValuesInTheLastColumn) {
  const std::vector<test::Row> rows = {
      {kMissing, 5, 2, "    ."},        {kMissing, 1, 0, "."},  {kInfinity, 5, 2, "    ."},
      {-kInfinity, 5, 2, "    ."},      {kNaN, 5, 2, "    ."},  {kMissing, 0, 0, ""},
      {kMissing, 5, kHighest, "    ."}, {-kInfinity, 0, 0, ""},
  };
  expect_n(rows);
  expect_z(rows);
}

TEST(Z, ImpliesTheDecimals) {
  expect_z({
      {123, 5, 0, "00123"},
      {1.5, 5, 2, "00150"},
      {1.5, 3, 2, "150"},
      {1.5, 2, 2, "**"},
      {0, 5, 2, "00000"},
      {0, 2, 300, "00"},
      {1234, 8, -2, "00001234"},
      {12345, 3, 0, "***"},
  });
}

TEST(Z, PutsTheSignIntoTheLastDigit) {
  expect_z({
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
    EXPECT_EQ(test::written(z_writer(kPoint), -40 - digit, 3, 0), "04" + last);
    EXPECT_EQ(test::written(z_writer(kPoint), 40 + digit, 3, 0), "04" + std::to_string(digit));
  }
}

TEST(NAndZ, AreAllAsterisksWhenTheSumWithTheHalfHasADigitMore) {
  const double value = 99.4999999999999;
  expect_n({{value, 2, 0, "**"}, {value, 3, 0, "100"}});
  test::expect_rows(
      z_writer(kPoint),
      {{value, 2, 0, "**"}, {-value, 2, 0, "**"}, {value, 3, 0, "100"}, {-value, 3, 0, "10}"}});
}

TEST(NAndZ, AreAllAsterisksWhenTheScaledValueIsInfinite) {
  const std::vector<test::Row> rows = {
      {1, 8, 309, stars(8)},         {0, 8, 309, stars(8)},       {0, 8, kHighest, stars(8)},
      {1e200, 400, 200, stars(400)}, {1e300, 350, 9, stars(350)},
  };
  expect_n(rows);
  expect_z(rows);
  expect_z({{-1, 8, 309, stars(8)}, {-1e200, 400, 200, stars(400)}});
}

// The fit is tested by a count of digits and zeros that knows the decimals.
TEST(Z, CountsDigitsWithTheDecimals) {
  expect_z({
      {1e39, 49, 10, stars(49)},
      {99999999999999.97, 20, 6, stars(20)},
      {99999999999999.97, 21, 6, "099999999999999960000"},
  });
}

TEST(NAndZ, WriteNothingInAnEmptyField) {
  char untouched = 'x';
  for (const std::int64_t width : {std::int64_t{0}, std::int64_t{-1}, kLowest}) {
    EXPECT_EQ(iocv::write_n(Field(&untouched, width), -5, 2, kPoint), Status::ok);
    EXPECT_EQ(iocv::write_z(Field(&untouched, width), -5, 2, kPoint), Status::ok);
    EXPECT_EQ(untouched, 'x');
  }
}

// The exact digits behind zeros, unless they are more than a double holds or next to a half.
void expect_digits(const std::string& text, double value, std::int64_t width, std::int64_t decimals,
                   bool with_point) {
  const auto places = static_cast<int>(std::clamp<std::int64_t>(decimals, 0, 400));
  const double scaled = std::fabs(value) * std::pow(10.0, places);
  if (!(scaled < 1e14)) return;
  const test::Rounded exact = test::rounded(test::exact_decimal(value), places);
  if (exact.from_half < 1e-12 + scaled * 1e-15) return;
  std::string digits = exact.whole + (with_point && places > 0 ? "." : "") + exact.fraction;
  if (!with_point) digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
  const auto columns = static_cast<std::size_t>(width);
  EXPECT_EQ(text, digits.size() > columns ? stars(columns)
                                          : std::string(columns - digits.size(), '0') + digits);
}

TEST(N, ShowsEverySpecialValueInEveryWidth) {
  test::sweep(n_writer(kPoint),
              [](const std::string& text, double value, std::int64_t width, std::int64_t decimals) {
                if (width == 0) return;
                if (test::is_special(value) || value < 0) {
                  EXPECT_EQ(text, test::marked(width, width - 1));
                  return;
                }
                EXPECT_EQ(text.find_first_not_of("0123456789.*"), text.npos);
                EXPECT_EQ(text.find('*') == text.npos, text.find_first_not_of('*') != text.npos);
                expect_digits(text, value, width, decimals, true);
              });
}

TEST(Z, ShowsEverySpecialValueInEveryWidth) {
  test::sweep(z_writer(kPoint), [](std::string text, double value, std::int64_t width,
                                   std::int64_t decimals) {
    if (width == 0) return;
    if (test::is_special(value)) {
      EXPECT_EQ(text, test::marked(width, width - 1));
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

TEST(N, DiffersUnderADecimalCommaInNothingElse) {
  test::sweep(n_writer(kComma),
              [](const std::string& text, double value, std::int64_t width, std::int64_t decimals) {
                std::string expected = test::written(n_writer(kPoint), value, width, decimals);
                if (!test::is_special(value) && value >= 0) {
                  std::replace(expected.begin(), expected.end(), '.', ',');
                }
                EXPECT_EQ(text, expected);
              });
}

// ---- Z input

struct Reading {
  std::string field;
  std::int64_t decimals;
  double value;
  std::int64_t status;
};

void expect_readings(const std::vector<Reading>& readings) {
  for (const Reading& r : readings) {
    for (const Edge edge : {Edge::end, Edge::begin}) {
      const Guarded buffer(r.field, edge);
      const auto result = iocv::read_z({buffer.data(), buffer.size()}, r.decimals, kPoint);
      EXPECT_EQ(result.value, r.value) << r.field << ", decimals " << r.decimals;
      EXPECT_EQ(std::signbit(result.value), std::signbit(r.value)) << r.field;
      EXPECT_EQ(static_cast<std::int64_t>(result.status), r.status) << r.field;
    }
  }
}

TEST(ReadZ, ReadsDigitsAndTheZoneOfTheLast) {
  expect_readings({
      {"0012L", 0, -123, 0},
      {"12}", 0, -120, 0},
      {"12A", 0, 121, 0},
      {"12{", 0, 120, 0},
      {"123", 0, 123, 0},
      {"7", 0, 7, 0},
      {"R", 0, -9, 0},
      {"  12L  ", 0, -123, 0},
      {"12345678901234567890", 0, 1.234567890123457e19, 0},  // folded in doubles
  });
}

TEST(ReadZ, ImpliesDecimalsUnlessAPointStands) {
  expect_readings({
      {"00150", 2, 1.5, 0},
      {"15J", 2, -1.51, 0},
      {"1.5J", 2, -1.51, 0},
      {"1.5J", 0, -1.51, 0},
      {".5", 2, 0.5, 0},
      {"1.J", 5, -1.1, 0},
      {"12", -2, 12, 0},
      {"12", kLowest, 12, 0},
      {"12", 400, 0, 0},
      {"12", kHighest, 0, 0},
      // A point at the end cancels the implied decimals and has no digits.
      {"12.", 2, 12, 0},
      {"1J.", 0, -11, 0},
      {"1J.", 2, -11, 0},
      {" 12. ", 2, 12, 0},
  });
}

TEST(ReadZ, KeepsTheSignOfZero) {
  expect_readings({
      {"0}", 0, -0.0, 0},
      {"}", 0, -0.0, 0},
      {"0}", 2, -0.0, 0},
      {"0", 0, 0.0, 0},
      {"0{", 0, 0.0, 0},
  });
}

TEST(ReadZ, ReadsABlankFieldAsTheBlankValue) {
  const Settings settings = {.system_missing = -9, .blank_value = 5};
  for (const char* field : {" ", "     "}) {
    const auto result = iocv::read_z(field, 2, settings);
    EXPECT_EQ(result.value, 5);
    EXPECT_EQ(result.status, Status::ok);
  }
  const auto result = iocv::read_z("", 2, settings);
  EXPECT_EQ(result.value, -9);
  EXPECT_EQ(result.status, Status::ok);
}

TEST(ReadZ, NamesWhatIsWrong) {
  const auto ones = [](std::size_t count) { return std::string(count, '1'); };
  double nines = 0;
  for (int i = 0; i < 308; ++i) nines = nines * 10 + 9;
  expect_readings({
      {"12X", 0, kMissing, 1109},
      {"12-", 0, kMissing, 1109},
      {"12S", 0, kMissing, 1109},
      {"12j", 0, kMissing, 1109},
      {std::string("12\0", 3), 0, kMissing, 1109},
      {"12 .", 0, kMissing, 1109},  // nothing is trimmed behind a closing point
      {"..", 0, kMissing, 1109},
      {"1.2.3", 0, kMissing, 1102},
      {"1.2.", 0, kMissing, 1102},
      {".", 0, kMissing, 1102},
      {"  . ", 0, kMissing, 1102},
      {"1 2", 0, kMissing, 1102},
      {"-12", 0, kMissing, 1102},
      {"1J2", 0, kMissing, 1102},
      {"1,2", 0, kMissing, 1102},
      {"\t12", 0, kMissing, 1102},
      {"1X?", 0, kMissing, 1102},
      {std::string("1\0"
                   "2",
                   3),
       0, kMissing, 1102},
      // Numbers beyond a double, and their quotient by a power beyond it.
      {std::string(308, '9'), 0, nines, 0},
      {std::string(309, '9'), 0, kMissing, 1133},
      {ones(309) + "J", 0, kMissing, 1133},
      {"." + ones(400), 0, kMissing, 1133},
      {"." + ones(309), 0, 0, 0},
  });
  EXPECT_EQ(iocv::read_z("12X", 0, {.system_missing = 7}).value, 7);
}

// All fields of one and two bytes, against the rules written as questions about each byte.
TEST(ReadZ, ReadsEveryFieldOfTwoBytes) {
  const auto digit_of = [](char c) {
    if ('0' <= c && c <= '9') return c - '0';
    if ('A' <= c && c <= 'I') return c - 'A' + 1;
    if ('J' <= c && c <= 'R') return -(c - 'J' + 1);
    return 0;
  };
  const auto is_zone = [](char c) {
    return ('0' <= c && c <= '9') || ('A' <= c && c <= 'R') || c == '{' || c == '}';
  };
  const auto is_digit = [](char c) { return '0' <= c && c <= '9'; };
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      const std::string field = {static_cast<char>(first), static_cast<char>(second)};
      std::string text = field;
      std::erase(text, ' ');
      double value = kMissing;
      std::int64_t status = 0;
      if (text.size() == 2) {
        const char a = text[0];
        const char b = text[1];
        const double sign = digit_of(b) < 0 || b == '}' ? -1 : 1;
        if (b == '.') {  // closing
          status = a == '.' || !is_zone(a) ? 1109 : 0;
          value = a == '}' ? -0.0 : digit_of(a);
        } else if (!is_digit(a) && a != '.') {
          status = 1102;
        } else if (!is_zone(b)) {
          status = 1109;
        } else if (a == '.') {
          value = sign * std::abs(digit_of(b)) / 10.0;
        } else {
          value = sign * (10 * digit_of(a) + std::abs(digit_of(b))) / 10.0;  // one implied decimal
        }
      } else if (text.size() == 1) {
        status = text[0] == '.' ? 1102 : is_zone(text[0]) ? 0 : 1109;
        value = text[0] == '}' ? -0.0 : digit_of(text[0]) / 10.0;
      }
      if (status != 0) value = kMissing;
      const auto result = iocv::read_z(field, 1, kPoint);
      ASSERT_EQ(static_cast<std::int64_t>(result.status), status) << shown(field);
      ASSERT_EQ(result.value, value) << shown(field);
      ASSERT_EQ(std::signbit(result.value), std::signbit(value)) << shown(field);
    }
  }
}

TEST(ReadZ, ReadsBackWhatIsWritten) {
  std::mt19937_64 random = test::random_source();
  SCOPED_TRACE(test::seed_text());
  for (int i = 0; i < 100000; ++i) {
    const auto decimals = static_cast<std::int64_t>(random() % 8);
    const auto whole = static_cast<std::int64_t>(random() % 1000000000000);
    const double value =
        static_cast<double>(i % 2 == 0 ? whole : -whole) / std::pow(10.0, decimals);
    const std::string text = test::written(z_writer(kPoint), value, 15, decimals);
    const auto result = iocv::read_z(text, decimals, kPoint);
    ASSERT_EQ(result.value, value) << text << " " << decimals;
    ASSERT_EQ(result.status, Status::ok);
  }
}

TEST(NAndZ, AreReachedThroughEveryDoor) {
  const test::RecordsGuard guard;
  cmnloc_.decimal = ',';
  const double value = -12.5;
  const double positive = 12.5;
  const std::int64_t width = 6;
  const std::int64_t decimals = 1;
  std::int64_t status = 7;
  std::string text = "xxxxxxxx";
  obon_(&positive, &width, &decimals, text.data(), &status, 8);
  EXPECT_EQ(text, "0012,5xx");
  EXPECT_EQ(status, 0);
  obon_(&value, &width, &decimals, text.data(), &status, 8);
  EXPECT_EQ(text, "     .xx");
  EXPECT_EQ(status, 1128);
  oboz_(&value, &width, &decimals, text.data(), &status, 8);
  EXPECT_EQ(text, "00012Nxx");
  EXPECT_EQ(status, 0);
  double read = 7;
  obiz_(text.data(), &width, &decimals, &read, &status, 8);
  EXPECT_EQ(read, -12.5);
  EXPECT_EQ(status, 0);

  OBS stored = {.number = value};
  EXPECT_EQ(IocvConvertOutput(&stored, 15, 1, text.data(), 6), 0);
  EXPECT_EQ(text, "00012Nxx");
  EXPECT_EQ(IocvConvertOutput(&stored, 16, 1, text.data(), 6), 1128);
  EXPECT_EQ(text, "     .xx");
  EXPECT_EQ(IocvConvertInput("00012N", 6, 15, 1, &stored), 0);
  EXPECT_EQ(stored.number, -12.5);
  EXPECT_EQ(IocvConvertInput("00012?", 6, 15, 1, &stored), 1109);
  EXPECT_EQ(stored.number, kMissing);
}

}  // namespace
