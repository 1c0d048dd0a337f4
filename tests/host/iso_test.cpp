// ISO 8601 text.
#include <iocv/host.h>

#include <clocale>
#include <locale>
#include <sstream>

#include "datetime/writing.h"
#include "support/records_guard.h"
#include "support/values.h"

namespace {

using test::kInfinity;
using test::kMissing;
using test::kNan;
using test::on;

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();

constexpr double kFebruary = on(2021, 2, 1, 47045);        // 13:04:05
constexpr double kQuarterPast = on(2000, 1, 1, 45015.25);  // 12:30:15.25

TEST(IsoDateTime, CutsTheFieldsOutOfTheLibrarysOwnTexts) {
  struct Case {
    double value;
    int decimals;
    bool drop;
    bool use_t;
    const char* text;
    int status = 0;
  };
  const Case kCases[] = {
      {kFebruary, 0, false, true, "2021-02-01T13:04:05"},
      {kFebruary, 0, false, false, "2021-02-01 13:04:05"},
      {kFebruary, 2, false, true, "2021-02-01T13:04:05.00"},
      {kFebruary, 2, true, true, "2021-02-01T13:04:05"},
      {kQuarterPast, 0, false, true, "2000-01-01T12:30:15"},
      {kQuarterPast, 1, false, true, "2000-01-01T12:30:15.3"},
      {kQuarterPast, 2, true, true, "2000-01-01T12:30:15.25"},
      {kQuarterPast, 2, false, false, "2000-01-01 12:30:15.25"},
      {on(2000, 1, 1, 45015.125), 2, true, true, "2000-01-01T12:30:15.13"},
      {on(1999, 12, 31, 86399.996), 2, false, true, "1999-12-31T23:59:59.99"},
      {86400, 0, false, true, "1582-10-15T00:00:00"},
      {on(9999, 12, 31, 86399), 0, false, true, "9999-12-31T23:59:59"},
      // No date of four-digit year.
      {on(10000, 1, 1), 0, false, true, ""},
      {on(10000, 1, 1), 3, true, true, ""},
      {kMissing, 0, false, true, ""},
      {kMissing, 2, false, true, ""},
      {kInfinity, 0, false, true, ""},
      {-kInfinity, 2, true, true, ""},
      {kNan, 0, false, true, ""},
      {1e300, 0, false, true, ""},
      {86399, 0, false, true, "", 1140},
      {0, 0, false, true, "", 1140},
      {-5, 3, true, false, "", 1140},
      // Wider than 40 columns: the field is cut, and with it the fraction.
      {kQuarterPast, 17, false, true, "2000-01-01T12:30:15.25000000000000000"},
      {kQuarterPast, 18, false, true, "2000-01-01T12:30:15.250000000000000000"},
      {kQuarterPast, 19, false, true, "2000-01-01T12:30:15.2500000000000000000"},
      {kQuarterPast, 20, false, true, "2000-01-01T12:30:15.2500000000000000000"},
      {kQuarterPast, 100, false, true, "2000-01-01T12:30:15.2500000000000000000"},
      // Negative decimals narrow the field.
      {kQuarterPast, -1, false, true, "2000-01-01T12:30:15"},
      {kQuarterPast, -3, false, true, "2000-01-01T12:30:15"},
      {kQuarterPast, -4, false, true, "2000-01-01T12:30:"},
      {kQuarterPast, -6, false, true, "2000-01-01T12:30:"},
      {kQuarterPast, -7, false, true, "2000-01-01T12::"},
      {kQuarterPast, -10, false, true, "2000-01-01T::"},
      {kQuarterPast, -12, false, true, "2000-01-01T::"},
      {kQuarterPast, -14, false, true, ""},  // two digits do not name 2000: asterisks
      {on(1999, 1, 1), -14, false, true, "99-01-01T::"},
      {kQuarterPast, -23, false, true, "-01-T::"},  // only the month, which is cut elsewhere
      {kQuarterPast, -24, false, true, "-01-T::"},
      {kQuarterPast, kLowest, false, true, "-01-T::"},
      {on(2000, 1, 1), kLowest, true, true, "2000-01-01T00:00:00"},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(test::described(c.value) + " decimals " + std::to_string(c.decimals));
    std::string out = "before";
    EXPECT_EQ(ToISODateTime(out, c.value, c.decimals, c.drop, c.use_t), c.status);
    EXPECT_EQ(out, c.text);
  }
}

TEST(IsoDateTime, AnyNumberOfDecimalsIsHarmless) {
  for (const double value : {kQuarterPast, kMissing, 1e300, 86400.0}) {
    for (int decimals = -70; decimals <= 600; ++decimals) {
      std::string out;
      ToISODateTime(out, value, decimals, false, true);
    }
    for (const int decimals : {kLowest, kLowest + 23, -65559, -65536, 65513, 65536, kHighest - 23,
                               kHighest - 22, kHighest}) {
      std::string out;
      ToISODateTime(out, value, decimals, false, true);
      ToISOTime(out, std::min(value, 86399.0), decimals, false);
      ToISODuration(out, value, decimals, false);
    }
  }
}

TEST(IsoDateTime, FollowsTheMissingCharacterAndNoDecimalCharacter) {
  const test::RecordsGuard guard;
  std::string out;
  cmasys_.system_missing = ' ';
  EXPECT_EQ(ToISODateTime(out, kMissing, 0, false, true), 0);
  EXPECT_EQ(out, "--T::");
  cmnloc_.decimal = ',';
  EXPECT_EQ(ToISODateTime(out, kQuarterPast, 2, false, true), 0);
  EXPECT_EQ(out, "2000-01-01T12:30:15.25");
  EXPECT_EQ(ToISOTime(out, 15.25, 2, false), 0);
  EXPECT_EQ(out, "00:00:15.25");
}

TEST(IsoTime, CutsTheFieldsOutOfTheLibrarysOwnText) {
  struct Case {
    double value;
    int decimals;
    bool drop;
    const char* text;
  };
  const Case kCases[] = {
      {3725, 0, false, "01:02:05"},
      {3725.5, 1, false, "01:02:05.5"},
      {3725.5, 1, true, "01:02:05.5"},
      {3725, 1, true, "01:02:05"},
      {3725, 1, false, "01:02:05.0"},
      {59, 0, false, "00:00:59"},
      {0, 0, false, "00:00:00"},
      {0, 3, true, "00:00:00"},
      {36000, 0, false, "10:00:00"},
      {86399, 0, false, "23:59:59"},
      {86399.99999999999, 2, false, "23:59:59.99"},
      {59.999, 0, false, "00:00:59"},
      {59.996, 2, false, "00:00:59.99"},
      // Only the upper bound is asserted; the cuts stay where they are.
      {-5, 0, false, ":0::0:"},
      {-36000, 0, false, ":10:00"},
      {-1e9, 0, false, ":**:**"},
      {-kInfinity, 0, false, "::"},
      {kMissing, 0, false, "::"},
      {kMissing, 2, false, ":  :."},
      // The field is cut at 40 columns from 32 decimals on.
      {15.25, 30, false, "00:00:15.250000000000000000000000000000"},
      {15.25, 32, false, "00:00:15.25000000000000000000000000000000"},
      {15.25, 33, false, "00:00:15.25000000000000000000000000000000"},
      {15.25, 40, false, "00:00:15.25000000000000000000000000000000"},
      // Negative decimals narrow the field.
      {3725, -1, false, "01:02:05"},
      {3725, -2, false, "01:02:05"},
      {3725, -3, false, "01:02:"},
      {3725, -5, false, "01:02:"},
      {3725, -6, false, ":**:"},
      {3725, -8, false, "::"},
      {3725, -9, false, "::"},
      {3725, -10, false, "::"},
      {3725, kLowest, true, "01:02:05"},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(test::described(c.value) + " decimals " + std::to_string(c.decimals));
    std::string out = "before";
    EXPECT_EQ(ToISOTime(out, c.value, c.decimals, c.drop), 0);
    EXPECT_EQ(out, c.text);
  }
}

TEST(IsoTimeDeathTest, ADayOrMoreFailsTheAssertion) {
  constexpr const char* kMessage =
      "^backend/iocv/isodatetime: ToISOTime: Assertion `\\(dataValue < 24\\*60\\*60\\) && "
      "\"Incorrect data for time format\\.\"' failed\\.\n$";
  std::string out;
  for (const double value : {86400.0, 86400.00000000001, 1e300, kInfinity, kNan}) {
    EXPECT_DEATH(ToISOTime(out, value, 0, false), kMessage) << value;
  }
  EXPECT_DEATH(ToISOTime(out, 86400, 2, true), kMessage);
}

TEST(IsoDuration, WritesDesignatorsAndSignificantDigits) {
  struct Case {
    double value;
    int decimals;
    bool drop;
    const char* text;
  };
  const Case kCases[] = {
      {90061, 0, false, "P1DT1H1M1S"},
      {-5, 0, false, "-PT0H0M5S"},
      {0, 0, false, "PT0H0M0S"},
      {-0.0, 0, false, "PT0H0M0S"},
      {5.37, 2, false, "PT0H0M5.4S"},
      {5.37, 2, true, "PT0H0M5.4S"},
      {5.37, 3, false, "PT0H0M5.37S"},
      {5.37, 1, false, "PT0H0M5S"},
      {47, 0, false, "PT0H0M5e+01S"},
      {47, 1, false, "PT0H0M5e+01S"},
      {47, 2, false, "PT0H0M47S"},
      {47, 2, true, "PT0H0M5e+01S"},
      {47.25, 2, true, "PT0H0M47S"},
      {47, 10, false, "PT0H0M47S"},
      {0.00001234, 3, false, "PT0H0M1.23e-05S"},
      {0.0001234, 3, false, "PT0H0M0.000123S"},
      {90065.37, 2, false, "P1DT1H1M5.4S"},
      {86399, 2, false, "PT23H59M59S"},
      {86400, 0, false, "P1DT0H0M0S"},
      {-86400, 0, false, "-P1DT0H0M0S"},
      {3600, 0, false, "PT1H0M0S"},
      // Days by division, the rest by remainder, and no carry.
      {172799.99999999997, 2, false, "P1DT23H59M60S"},
      {172799.99999999997, 0, false, "P1DT23H59M6e+01S"},
      // Days in full, however many.
      {1e15, 6, false, "P11574074074DT1H46M40S"},
      {86400.0 * 18446744073709551616.0, 6, false, "P18446744073709551616DT0H0M0S"},
      // A negative precision acts as 6.
      {47, -5, false, "PT0H0M47S"},
      {47.123456789, -1, false, "PT0H0M47.1235S"},
      {47.123456789, kLowest, false, "PT0H0M47.1235S"},
      // Nothing to write.
      {kMissing, 0, false, ""},
      {kInfinity, 0, false, ""},
      {-kInfinity, 2, true, ""},
      {kNan, 0, false, ""},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(test::described(c.value) + " decimals " + std::to_string(c.decimals));
    std::string out = "before";
    EXPECT_EQ(ToISODuration(out, c.value, c.decimals, c.drop), 0);
    EXPECT_EQ(out, c.text);
  }
}

TEST(IsoDuration, ComparesWithTheMissingConstantAndNotWithTheSettings) {
  const test::RecordsGuard guard;
  cmnglb_.system_missing = 5;
  std::string out;
  ToISODuration(out, 5, 0, false);
  EXPECT_EQ(out, "PT0H0M5S");
  ToISODuration(out, kMissing, 0, false);
  EXPECT_EQ(out, "");
}

TEST(IsoDuration, TheLargestValueShowsAllItsDays) {
  std::string out;
  EXPECT_EQ(ToISODuration(out, std::numeric_limits<double>::max(), 2, false), 0);
  // (2^1024 - 2^971) / 86400, rounded to a double, is an integer of 304 digits.
  EXPECT_EQ(out.size(), 304 + std::string("PDT14H26M8S").size());
  EXPECT_EQ(out.substr(0, 21), "P20806633505350877528");
  EXPECT_EQ(out.substr(out.size() - 30), "55299541295104524288DT14H26M8S");
}

// The definition: a stream in the classic locale with the decimals as its precision.
std::string streamed(double seconds, int precision) {
  std::ostringstream stream;
  stream.imbue(std::locale::classic());
  stream.precision(precision);
  stream << "PT0H0M" << seconds << "S";
  return stream.str();
}

TEST(IsoDuration, SecondsAreThoseOfAClassicStream) {
  SCOPED_TRACE(test::seed_text());
  std::mt19937_64 random = test::random_source();
  std::vector<double> values = {0,   5e-324,   2.2250738585072014e-308, 1e-5, 1e-4,
                                9.5, 59.96,    59.999999999999993,      0.1,  1.0 / 3,
                                47,  9.9999995};
  for (int i = 0; i < 2000; ++i) {
    values.push_back(std::ldexp(static_cast<double>(random() >> 11), -53) * 60);
    values.push_back(std::ldexp(static_cast<double>(random() >> 11), -53 - i % 1000));
  }
  std::string out;
  for (const double value : values) {
    for (int precision = -2; precision <= 20; ++precision) {
      ToISODuration(out, value, precision, false);
      ASSERT_EQ(out, streamed(value, precision)) << test::described(value) << " " << precision;
    }
  }
  for (std::size_t i = 0; i < 60; ++i) {
    for (const int precision : {40, 100, 766, 767, 768, 799, 800, 801, 5000}) {
      ToISODuration(out, values[i], precision, false);
      ASSERT_EQ(out, streamed(values[i], precision)) << test::described(values[i]);
    }
  }
}

TEST(IsoDuration, DoesNotFollowTheProcessesLocales) {
  const std::locale global = std::locale();
  struct Commas : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  std::locale::global(std::locale(global, new Commas));
  std::string out;
  ToISODuration(out, 86400.0 * 123456 + 5.25, 3, false);
  std::locale::global(global);
  EXPECT_EQ(out, "P123456DT0H0M5.25S");
}

TEST(IsoText, AgreesWithAnIndependentCalendarOnEveryDay) {
  std::string out;
  constexpr date::sys_days first = date::year{1582} / 10 / 15;
  constexpr date::sys_days last = date::year{9999} / 12 / 31;
  double value = 86400;
  for (date::sys_days day = first; day <= last; day += date::days{29}, value += 29 * 86400.0) {
    const date::year_month_day ymd = day;
    char expected[32];
    std::snprintf(expected, sizeof expected, "%04d-%02u-%02uT00:00:00",
                  static_cast<int>(ymd.year()), static_cast<unsigned>(ymd.month()),
                  static_cast<unsigned>(ymd.day()));
    ToISODateTime(out, value, 0, false, true);
    ASSERT_EQ(out, expected);
  }
}

}  // namespace
