// Times, durations and date-times as text.
#include "datetime/writing.h"
#include "support/records_guard.h"
#include "support/values.h"

namespace test {
namespace {

constexpr int kTimeTypes[] = {Format::TIME, Format::DTIME, Format::DATETIME};
constexpr double kNoon2000 = on(2000, 1, 1, 43200);
constexpr double kHalfPastNoon = on(2000, 1, 1, 45015.5);  // 12:30:15.5

TEST(TimeOutput, ShowsWhatTheWidthHolds) {
  expect_written({
      {Format::TIME, 8, 0, 3723.5, " 1:02:03"},
      {Format::TIME, 5, 0, 3723.5, " 1:02"},
      {Format::TIME, 4, 0, 3723.5, "1:02"},
      {Format::TIME, 3, 0, 3723.5, "***"},
      {Format::TIME, 6, 0, 3723.5, "  1:02"},
      {Format::TIME, 7, 0, 3723.5, "1:02:03"},
      {Format::TIME, 10, 1, 3723.5, " 1:02:03.5"},
      {Format::TIME, 9, 1, 3723.5, "1:02:03.5"},
      {Format::TIME, 8, 1, 3723.5, " 1:02:03"},  // no room for a digit behind the point
      {Format::TIME, 9, 5, 3723.5, "1:02:03.5"},
      {Format::TIME, 12, 3, 3723.25, " 1:02:03.250"},
      {Format::TIME, 12, 9, 3723.25, "1:02:03.2500"},
      {Format::TIME, 12, -2, 3723.25, "     1:02:03"},
      {Format::TIME, 12, kLowest, 3723.25, "     1:02:03"},
      {Format::TIME, 12, kHighest, 3723.25, "1:02:03.2500"},
      {Format::TIME, 8, 0, 0, " 0:00:00"},
      {Format::TIME, 8, 0, 59.999, " 0:00:59"},  // seconds are cut
      {Format::TIME, 4, 0, 3599, "0:59"},
      {Format::TIME, 8, 0, 360000, "  100:00"},
      {Format::TIME, 9, 0, 360000, "100:00:00"},
      {Format::TIME, 12, 2, 360000.5, "100:00:00.50"},
      {Format::TIME, 28, 2, 9.9e16, "     27500000000000:00:00.00"},
      // Negative ones.
      {Format::TIME, 5, 0, -3600, "-1:00"},
      {Format::TIME, 4, 0, -3600, "****"},
      {Format::TIME, 9, 0, -3723.5, " -1:02:03"},
      {Format::TIME, 10, 1, -3723.5, "-1:02:03.5"},
      {Format::TIME, 8, 0, -0.4, "-0:00:00"},
      {Format::TIME, 8, 0, -0.0, " 0:00:00"},
      {Format::TIME, 1, 0, 5, "*"},
      {Format::TIME, 0, 0, 5, ""},
      {Format::TIME, -3, 0, 5, ""},
  });
}

TEST(TimeOutput, TheFractionRoundsButNeverIntoTheSeconds) {
  expect_written({
      {Format::TIME, 10, 2, 12.375, "0:00:12.37"},
      {Format::TIME, 10, 2, 12.386, "0:00:12.39"},
      {Format::TIME, 10, 2, 12.384, "0:00:12.38"},
      {Format::TIME, 10, 2, 59.996, "0:00:59.99"},
      {Format::TIME, 10, 2, 59.995, "0:00:59.99"},
      {Format::TIME, 10, 2, 59.99, "0:00:59.99"},
      {Format::TIME, 10, 1, 59.96, " 0:00:59.9"},
      {Format::TIME, 9, 1, 0.95, "0:00:00.9"},  // 0.95 + 0.05 is 1
      {Format::TIME, 9, 1, 0.5, "0:00:00.5"},
      {Format::TIME, 9, 1, 0.45, "0:00:00.5"},
      {Format::TIME, 9, 1, 0.25, "0:00:00.3"},
      {Format::TIME, 24, 16, 0.5, "0:00:00.5000000000000000"},
      {Format::TIME, 10, 2, -12.386, "-0:00:12.4"},
      {Format::DTIME, 13, 2, 12.386, "  00:00:12.39"},
      {Format::DTIME, 13, 2, 59.996, "  00:00:59.99"},
  });
}

TEST(DtimeOutput, ShowsDaysAndBlanksForNone) {
  expect_written({
      {Format::DTIME, 8, 0, 90000, " 1 01:00"},
      {Format::DTIME, 7, 0, 90000, "1 01:00"},
      {Format::DTIME, 7, 0, 3600, "  01:00"},
      {Format::DTIME, 8, 0, 3600, "   01:00"},
      {Format::DTIME, 10, 0, 90061, "1 01:01:01"},
      {Format::DTIME, 9, 0, 90061, "  1 01:01"},
      {Format::DTIME, 12, 0, 86400 * 100.0 + 86399, "100 23:59:59"},
      {Format::DTIME, 12, 1, 90061.5, "1 01:01:01.5"},
      {Format::DTIME, 13, 1, 90061.5, " 1 01:01:01.5"},
      {Format::DTIME, 13, 2, 90061.5, "1 01:01:01.50"},
      {Format::DTIME, 8, 0, -3600, "-  01:00"},
      {Format::DTIME, 9, 0, -3600, " -  01:00"},
      {Format::DTIME, 8, 0, -90000, "-1 01:00"},
      {Format::DTIME, 8, 0, 0, "   00:00"},
      {Format::DTIME, 8, 0, -0.0, "   00:00"},
      // Too narrow for hours and minutes: whole days, rounded.
      {Format::DTIME, 3, 0, 864000, " 10"},
      {Format::DTIME, 2, 0, 864000, "10"},
      {Format::DTIME, 1, 0, 864000, "*"},
      {Format::DTIME, 6, 0, 90000, "     1"},
      {Format::DTIME, 3, 0, 43199.999, "  0"},
      {Format::DTIME, 3, 0, 43200, "  1"},
      {Format::DTIME, 1, 0, 86400 * 9.5, "*"},
      {Format::DTIME, 1, 0, 86400 * 9.499, "9"},
      {Format::DTIME, 7, 0, -90000, "     -1"},
      {Format::DTIME, 3, 0, -3600, "  0"},
      {Format::DTIME, 2, 0, -3600, " 0"},
      {Format::DTIME, 1, 0, -3600, "*"},
      {Format::DTIME, 2, 0, -864000, "**"},
      {Format::DTIME, 3, 0, -864000, "-10"},
      {Format::DTIME, 1, 0, 0, "0"},
      {Format::DTIME, 13, 0, 9.9e16, "1145833333333"},
  });
}

TEST(DatetimeOutput, ShowsMorePartsWithMoreWidth) {
  expect_written({
      {Format::DATETIME, 8, 0, kHalfPastNoon, "********"},
      {Format::DATETIME, 9, 0, on(1999, 1, 1, 1), "01-JAN-99"},
      {Format::DATETIME, 9, 0, kHalfPastNoon, "*********"},
      {Format::DATETIME, 11, 0, kHalfPastNoon, "01-JAN-2000"},
      {Format::DATETIME, 12, 0, kHalfPastNoon, " 01-JAN-2000"},
      {Format::DATETIME, 13, 0, kHalfPastNoon, "  01-JAN-2000"},
      {Format::DATETIME, 14, 0, kHalfPastNoon, "01-JAN-2000 12"},
      {Format::DATETIME, 15, 0, kHalfPastNoon, " 01-JAN-2000 12"},
      {Format::DATETIME, 16, 0, kHalfPastNoon, "  01-JAN-2000 12"},
      {Format::DATETIME, 17, 0, kHalfPastNoon, "01-JAN-2000 12:30"},
      {Format::DATETIME, 18, 0, kHalfPastNoon, " 01-JAN-2000 12:30"},
      {Format::DATETIME, 19, 0, kHalfPastNoon, "  01-JAN-2000 12:30"},
      {Format::DATETIME, 20, 0, kHalfPastNoon, "01-JAN-2000 12:30:15"},
      {Format::DATETIME, 20, 0, kNoon2000, "01-JAN-2000 12:00:00"},
      {Format::DATETIME, 21, 0, kHalfPastNoon, " 01-JAN-2000 12:30:15"},
      {Format::DATETIME, 21, 5, kHalfPastNoon, " 01-JAN-2000 12:30:15"},
      {Format::DATETIME, 14, 5, kHalfPastNoon, "01-JAN-2000 12"},
      // A fraction from width 22 on, where there are decimals.
      {Format::DATETIME, 22, 0, kHalfPastNoon, "  01-JAN-2000 12:30:15"},
      {Format::DATETIME, 22, -1, kHalfPastNoon, "  01-JAN-2000 12:30:15"},
      {Format::DATETIME, 25, kLowest, kHalfPastNoon, "     01-JAN-2000 12:30:15"},
      {Format::DATETIME, 22, 1, kHalfPastNoon, "01-JAN-2000 12:30:15.5"},
      {Format::DATETIME, 22, 9, kHalfPastNoon, "01-JAN-2000 12:30:15.5"},
      {Format::DATETIME, 22, kHighest, kHalfPastNoon, "01-JAN-2000 12:30:15.5"},
      {Format::DATETIME, 23, 1, kHalfPastNoon, " 01-JAN-2000 12:30:15.5"},
      {Format::DATETIME, 23, 2, kHalfPastNoon, "01-JAN-2000 12:30:15.50"},
      {Format::DATETIME, 23, 3, kHalfPastNoon, "01-JAN-2000 12:30:15.50"},
      {Format::DATETIME, 26, 2, kHalfPastNoon, "   01-JAN-2000 12:30:15.50"},
      // Rounded at the last digit, but never into the seconds.
      {Format::DATETIME, 24, 3, on(5270, 12, 4, 0.8125), "04-DEC-5270 00:00:00.813"},
      {Format::DATETIME, 23, 2, on(1999, 12, 31, 86399.996), "31-DEC-1999 23:59:59.99"},
      {Format::DATETIME, 22, 1, on(1999, 12, 31, 86399.9375), "31-DEC-1999 23:59:59.9"},
      {Format::DATETIME, 22, 1, 86400.950001, "15-OCT-1582 00:00:00.9"},
      {Format::DATETIME, 22, 1, on(1999, 12, 31, 0.25), "31-DEC-1999 00:00:00.3"},
      {Format::DATETIME, 22, 1, on(1999, 12, 31, 0.1875), "31-DEC-1999 00:00:00.2"},
      // Years of more than four digits.
      {Format::DATETIME, 20, 0, on(10000, 1, 1), "01-JAN-**** 00:00:00"},
      {Format::DATETIME, 12, 0, on(10000, 1, 1), " 01-JAN-****"},
      {Format::DATETIME, 11, 0, on(10000, 1, 1), "***********"},
      {Format::DATETIME, 20, 0, on(9999, 12, 31, 86399), "31-DEC-9999 23:59:59"},
      {Format::DATETIME, 20, 0, 86400, "15-OCT-1582 00:00:00"},
      {Format::DATETIME, 20, 0, 86399, "                   .", 1140},
      {Format::DATETIME, 3, 0, 0, "  .", 1140},
      {Format::DATETIME, 20, 5, -1e300, "                   .", 1140},
      {Format::DATETIME, 0, 0, -1, ""},
  });
}

TEST(TimeOutput, MagnitudesFrom1e17OnAreAsterisks) {
  for (const double value :
       {1e17, 1.0000000000000002e17, 1e300, std::numeric_limits<double>::max()}) {
    expect_written({Format::TIME, 30, 0, value, "******************************"});
    expect_written({Format::DTIME, 30, 3, value, "******************************"});
    expect_written({Format::DTIME, 5, 0, value, "*****"});
    expect_written({Format::DATETIME, 20, 0, value, "********************"});
    expect_written({Format::DATETIME, 5, 0, value, "*****"});
  }
  for (const double value : {-1e17, -1e300}) {
    expect_written({Format::TIME, 30, 0, value, "******************************"});
    expect_written({Format::DTIME, 30, 0, value, "******************************"});
  }
  expect_written({Format::DATETIME, 20, 0, 9.9e16, "16-DEC-**** 08:00:00"});
}

TEST(TimeOutput, TheMissingCharacterStandsInTheDecimalCharactersColumn) {
  const RecordsGuard guard;
  for (const int type : kTimeTypes) {
    expect_written({type, 10, 2, kMissing, "       .  "});
    expect_written({type, 10, 0, kMissing, "         ."});
    expect_written({type, 10, -2, kMissing, "         ."});
    expect_written({type, 10, kLowest, kMissing, "         ."});
    expect_written({type, 3, 5, kMissing, ".  "});
    expect_written({type, 3, 3, kMissing, ".  "});
    expect_written({type, 3, 2, kMissing, ".  "});
    expect_written({type, 3, 1, kMissing, " . "});
    expect_written({type, 3, kHighest, kMissing, ".  "});
    expect_written({type, 0, 2, kMissing, ""});
    for (const double value : {kInfinity, -kInfinity, kNan, -kNan}) {
      expect_written({type, 10, 2, value, "         ."});
    }
  }
  cmasys_.system_missing = '#';
  cmnglb_.system_missing = 90000;
  expect_written({Format::DTIME, 6, 2, 90000, "   #  "});
  expect_written({Format::TIME, 6, 2, kInfinity, "     #"});
}

TEST(TimeOutput, WritesTheDecimalCharacterOfTheSettings) {
  const RecordsGuard guard;
  cmnloc_.decimal = ',';
  expect_written({Format::TIME, 9, 1, 3723.5, "1:02:03,5"});
  expect_written({Format::DTIME, 10, 1, 3723.5, "  01:02:03"});
  expect_written({Format::DTIME, 12, 1, 3723.5, "  01:02:03,5"});
  expect_written({Format::DATETIME, 22, 1, kHalfPastNoon, "01-JAN-2000 12:30:15,5"});
  expect_written({Format::DATETIME, 5, 1, 0, "    ,", 1140});
}

}  // namespace
}  // namespace test
