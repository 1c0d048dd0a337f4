// Stored values taken apart into calendar and clock fields, and the records that hold them.
#include "datetime/calendar.h"
#include "datetime/writing.h"
#include "support/records_guard.h"
#include "support/values.h"

namespace {

using test::kHighest;
using test::kMissing;

TEST(Breakdown, KnownValues) {
  struct Case {
    double value;
    std::int64_t year;
    std::int64_t month;
    std::int64_t day;
    std::int64_t hour;
    std::int64_t minute;
    double seconds;
  };
  constexpr Case kCases[] = {
      {86400, 1582, 10, 15, 0, 0, 0},
      {86399.5, 1582, 10, 14, 23, 59, 59.5},
      {0, 1582, 10, 14, 0, 0, 0},
      {172799.99999999997, 1582, 10, 15, 23, 59, 59.99999999997090},
      {3661.25, 1582, 10, 14, 1, 1, 1.25},
      {13166116215.5, 2000, 1, 1, 14, 30, 15.5},
      {12219379200, 1970, 1, 1, 0, 0, 0},
      // Truncation: the day before the origin is taken for the origin, its time is negative.
      {-1, 1582, 10, 14, 0, 0, -1},
      {-3661.25, 1582, 10, 14, -1, -1, -1.25},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(test::described(c.value));
    std::int64_t year = 0;
    std::int64_t month = 0;
    std::int64_t day = 0;
    std::int64_t hour = 0;
    std::int64_t minute = 0;
    double seconds = 0;
    obdtexp_(&c.value, &year, &month, &day, &hour, &minute, &seconds);
    EXPECT_EQ(year, c.year);
    EXPECT_EQ(month, c.month);
    EXPECT_EQ(day, c.day);
    EXPECT_EQ(hour, c.hour);
    EXPECT_EQ(minute, c.minute);
    EXPECT_DOUBLE_EQ(seconds, c.seconds);
    year = month = day = hour = minute = -7;
    seconds = -7;
    obdtxdate_(&c.value, &year, &month, &day);
    EXPECT_TRUE(year == c.year && month == c.month && day == c.day);
    obdtxtime_(&c.value, &hour, &minute, &seconds);
    EXPECT_TRUE(hour == c.hour && minute == c.minute);
    EXPECT_DOUBLE_EQ(seconds, c.seconds);
  }
}

TEST(Breakdown, EverySecondAndQuarterOfADay) {
  for (int second = 0; second < 86400; ++second) {
    for (const double part : {0.0, 0.25, 0.5, 0.984375}) {
      const iocv::Breakdown fields = iocv::break_down(13166064000.0 + second + part);
      ASSERT_TRUE(fields.year == 2000 && fields.month == 1 && fields.day == 1);
      ASSERT_EQ(fields.hour, second / 3600);
      ASSERT_EQ(fields.minute, second / 60 % 60);
      ASSERT_EQ(fields.seconds, second % 60 + part);
    }
  }
}

TEST(Breakdown, AnyBitsAreHarmless) {
  std::mt19937_64 random = test::random_source();
  for (int i = 0; i < 200'000; ++i) iocv::break_down(test::any_double(random));
  for (const double value : test::special_values()) {
    const iocv::Breakdown fields = iocv::break_down(value);
    EXPECT_TRUE(std::abs(fields.hour) < 24) << test::described(value);
    EXPECT_TRUE(std::abs(fields.minute) < 60) << test::described(value);
    EXPECT_TRUE(std::abs(fields.seconds) < 60) << test::described(value);
    if (value >= 1e12) {
      EXPECT_GT(fields.year, 9999) << test::described(value);
    }
  }
}

TEST(Breakdown, OfTheMissingNumberSetsOnlyTheSeconds) {
  const test::RecordsGuard guard;
  for (const double missing : {kMissing, 86400.0}) {
    cmnglb_.system_missing = missing;
    std::int64_t fields[5] = {1, 2, 3, 4, 5};
    double seconds = 6;
    obdtexp_(&missing, &fields[0], &fields[1], &fields[2], &fields[3], &fields[4], &seconds);
    EXPECT_EQ(seconds, missing);
    for (int i = 0; i < 5; ++i) EXPECT_EQ(fields[i], i + 1);
  }
}

std::string month_text() { return {cmadtm_.month, sizeof cmadtm_.month}; }

TEST(Breakdown, FillsTheRecord) {
  const test::RecordsGuard guard;
  const double value = 13166116215.5;
  obdtex_(&value);
  EXPECT_EQ(cmndtm_.seconds, 15.5);
  EXPECT_EQ(cmndtm_.year, 2000);
  EXPECT_EQ(cmndtm_.month, 1);
  EXPECT_EQ(cmndtm_.day, 1);
  EXPECT_EQ(cmndtm_.hour, 14);
  EXPECT_EQ(cmndtm_.minute, 30);
  EXPECT_EQ(cmndtm_.century_begin, 1900);
  EXPECT_EQ(month_text(), "JAN");

  // The missing number replaces the seconds; the letters are those of the record's month.
  cmndtm_.month = 5;
  obdtex_(&kMissing);
  EXPECT_EQ(cmndtm_.seconds, kMissing);
  EXPECT_EQ(cmndtm_.year, 2000);
  EXPECT_EQ(cmndtm_.minute, 30);
  EXPECT_EQ(month_text(), "MAY");

  // No month of the table: before the first of March of year 0, or put there by a host.
  const double without_month = -49950864000.0;
  obdtex_(&without_month);
  EXPECT_EQ(cmndtm_.month, 0);
  EXPECT_EQ(month_text(), "   ");
  cmndtm_.month = kHighest;
  obdtex_(&kMissing);
  EXPECT_EQ(month_text(), "   ");
  for (const double any : test::special_values()) obdtex_(&any);
}

TEST(Breakdown, WritesTheLettersOfEveryMonth) {
  const test::RecordsGuard guard;
  constexpr const char* kLetters[] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                      "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
  for (int month = 1; month <= 12; ++month) {
    const double value = test::on(2001, static_cast<unsigned>(month), 17);
    obdtex_(&value);
    EXPECT_EQ(month_text(), kLetters[month - 1]);
  }
}

}  // namespace
