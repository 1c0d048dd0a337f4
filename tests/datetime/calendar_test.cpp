// Calendar arithmetic, against an independent calendar.
#include "datetime/calendar.h"

#include <date/date.h>
#include <iocv/iocv.h>

#include "datetime/names.h"
#include "support/records_guard.h"
#include "support/values.h"

namespace {

using iocv::Settings;
using iocv::Status;

constexpr double kMissing = iocv::kSystemMissing;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr std::int64_t kLowest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kHighest = std::numeric_limits<std::int64_t>::max();

constexpr date::sys_days kOrigin = date::year{1582} / 10 / 14;
constexpr date::sys_days kLastDay = date::year{9999} / 12 / 31;

double reference_number(date::sys_days day) { return static_cast<double>((day - kOrigin).count()); }

Settings window(std::int64_t begin) { return {.century_begin = begin}; }

TEST(DayNumber, OfKnownDatesAndOfFieldsThatAreNone) {
  constexpr Status kBad = Status::calendar_date;
  struct Case {
    double year;
    double month;
    double day;
    double number;
    Status status;
  };
  constexpr Case kCases[] = {
      {1582, 10, 15, 1, Status::ok},
      {1900, 1, 1, 115861, Status::ok},
      {1970, 1, 1, 141428, Status::ok},
      {2000, 2, 29, 152444, Status::ok},
      {2024, 1, 1, 161151, Status::ok},
      // Before the first day.
      {1582, 10, 14, kMissing, kBad},
      {1582, 10, 16, 2, Status::ok},
      {1582, 1, 1, kMissing, kBad},
      {1582, 11, 0, 17, Status::ok},
      {1582, 10, 0, kMissing, kBad},
      // Two-digit years, years without dates, the bounds.
      {99, 12, 31, 152384, Status::ok},
      {0, 1, 1, 115861, Status::ok},
      {-0.0, 1, 1, 115861, Status::ok},
      {100, 1, 1, kMissing, kBad},
      {1581, 12, 31, kMissing, kBad},
      {-1, 1, 1, kMissing, kBad},
      {5867441, 1, 1, 2142460720, Status::ok},
      {5867441, 13, 31, 2142461115, Status::ok},
      {5867442, 1, 1, kMissing, kBad},
      // Months and days that run on.
      {1999, 13, 1, 152385, Status::ok},
      {2000, 1, 1, 152385, Status::ok},
      {2000, 1, 0, 152384, Status::ok},
      {1999, 12, 31, 152384, Status::ok},
      {2001, 2, 31, 152812, Status::ok},
      {2001, 3, 3, 152812, Status::ok},
      {1900, 2, 29, 115920, Status::ok},
      {1900, 3, 1, 115920, Status::ok},
      {2000, 0, 1, kMissing, kBad},
      {2000, 14, 1, kMissing, kBad},
      {2000, 1, -1, kMissing, kBad},
      {2000, 1, 32, kMissing, kBad},
      // Fields that are not whole, to the last bit.
      {2000.5, 1, 1, kMissing, kBad},
      {2000.0000000000002, 1, 1, kMissing, kBad},
      {2000, 1.5, 1, kMissing, kBad},
      {2000, 1.0000000000000002, 1, kMissing, kBad},
      {2000, 1, 1.5, kMissing, kBad},
      {2000, 1, 5e-324, kMissing, kBad},
      {2000, 1, -5e-324, kMissing, kBad},
      {kNan, 1, 1, kMissing, kBad},
      {2000, kNan, 1, kMissing, kBad},
      {2000, 1, kNan, kMissing, kBad},
      {kInfinity, 1, 1, kMissing, kBad},
      {-kInfinity, 1, 1, kMissing, kBad},
      {1e300, 1, 1, kMissing, kBad},
      {2000, 1e300, 1, kMissing, kBad},
      {2000, 1, -1e300, kMissing, kBad},
      // The system-missing number comes through, whatever stands beside it.
      {kMissing, 1, 1, kMissing, Status::ok},
      {2000, kMissing, 1, kMissing, Status::ok},
      {2000, 1, kMissing, kMissing, Status::ok},
      {kNan, 99, kMissing, kMissing, Status::ok},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(testing::Message() << c.year << " " << c.month << " " << c.day);
    const iocv::Read<double> read = iocv::day_number(c.year, c.month, c.day, Settings{});
    EXPECT_EQ(read.value, c.number);
    EXPECT_EQ(read.status, c.status);
    std::int64_t status = -7;
    EXPECT_EQ(yrmoda_(&c.year, &c.month, &c.day, &status), c.number);
    EXPECT_EQ(status, static_cast<std::int64_t>(c.status));
  }
}

TEST(DayNumber, FollowsTheSettingsMissingNumberAndWindow) {
  Settings settings;
  settings.system_missing = 1;
  EXPECT_EQ(iocv::day_number(2000, 1, 5, settings).status, Status::ok);
  EXPECT_EQ(iocv::day_number(2000, 1, 5, settings).value, 1);
  EXPECT_EQ(iocv::day_number(2000, 14, 5, settings).value, 1);
  EXPECT_EQ(iocv::day_number(2000, 14, 5, settings).status, Status::calendar_date);

  EXPECT_EQ(iocv::day_number(49, 1, 1, window(1950)).value, iocv::day_number(2049, 1, 1, {}).value);
  EXPECT_EQ(iocv::day_number(50, 1, 1, window(1950)).value, iocv::day_number(1950, 1, 1, {}).value);
  // The range of a year is tested as it is written, so a window may lead to days before the first.
  EXPECT_EQ(iocv::day_number(50, 1, 1, window(1500)).status, Status::calendar_date);
  EXPECT_EQ(iocv::day_number(82, 10, 15, window(1500)).value, 1);
  EXPECT_EQ(iocv::day_number(82, 10, 14, window(1500)).status, Status::calendar_date);
  EXPECT_EQ(iocv::day_number(0, 1, 1, window(-300)).status, Status::calendar_date);
}

TEST(DayNumber, AWindowBeyondExactDayNumbersHasNone) {
  // 2^53 days are some 2.466e13 years; 400 years are 146097 days.
  EXPECT_EQ(iocv::day_number(0, 1, 1, window(24'000'000'000'000)).value,
            (24'000'000'000'000.0 - 2000) / 400 * 146097 + 152385);
  EXPECT_EQ(iocv::day_number(0, 1, 1, window(25'000'000'000'000)).status, Status::calendar_date);
  // Day 2^53, 23 October of this year, is the first that the next day has the number of.
  EXPECT_EQ(iocv::day_number(79, 10, 22, window(24'660'873'954'400)).value, 0x1p53 - 1);
  EXPECT_EQ(iocv::day_number(79, 10, 23, window(24'660'873'954'400)).status, Status::calendar_date);
  for (const std::int64_t begin : {kLowest, kLowest + 1, kHighest - 1, kHighest}) {
    EXPECT_EQ(iocv::day_number(0, 1, 1, window(begin)).status, Status::calendar_date);
    EXPECT_EQ(iocv::day_number(99, 12, 31, window(begin)).status, Status::calendar_date);
  }
}

// What one walk over all days compares; the first difference ends it.
testing::AssertionResult same_day(date::sys_days day) {
  const date::year_month_day ymd = day;
  const auto year = static_cast<std::int64_t>(static_cast<int>(ymd.year()));
  const auto month = static_cast<std::int64_t>(static_cast<unsigned>(ymd.month()));
  const auto of_month = static_cast<std::int64_t>(static_cast<unsigned>(ymd.day()));
  const double number = reference_number(day);
  const date::sys_days new_year = ymd.year() / 1 / 1;
  const std::int64_t of_year = (day - new_year).count() + 1;

  const auto result = iocv::day_number(static_cast<double>(year), static_cast<double>(month),
                                       static_cast<double>(of_month), Settings{});
  const iocv::CalendarDate date = iocv::date_of(number * 86400);
  const iocv::CalendarDate evening = iocv::date_of(number * 86400 + 86399.999);
  const iocv::MonthDay back = iocv::month_and_day(year, of_year);
  const bool same = result.value == number && result.status == Status::ok && date.year == year &&
                    date.month == month && date.day == of_month && evening.year == year &&
                    evening.month == month && evening.day == of_month &&
                    iocv::day_of_year(year, month, of_month) == of_year && back.month == month &&
                    back.day == of_month &&
                    VeltDay(static_cast<int>(of_month), static_cast<int>(month),
                            static_cast<int>(year)) == static_cast<int>(number);
  if (same) return testing::AssertionSuccess();
  return testing::AssertionFailure() << year << "-" << month << "-" << of_month;
}

TEST(Calendar, EveryDayFrom1582To9999) {
  std::int64_t days = 0;
  for (date::sys_days day = kOrigin + date::days{1}; day <= kLastDay; day += date::days{1}) {
    ASSERT_TRUE(same_day(day));
    ++days;
  }
  EXPECT_EQ(days, 3'074'324);
}

TEST(Calendar, DaysBackToTheFirstOfMarchOfYear0TakeApart) {
  const date::sys_days first = date::year{0} / 3 / 1;
  for (date::sys_days day = first; day <= kOrigin; day += date::days{1}) {
    const date::year_month_day ymd = day;
    const iocv::CalendarDate date = iocv::date_of(reference_number(day) * 86400);
    ASSERT_EQ(date.year, static_cast<int>(ymd.year()));
    ASSERT_EQ(date.month, static_cast<unsigned>(ymd.month()));
    ASSERT_EQ(date.day, static_cast<unsigned>(ymd.day()));
  }
}

TEST(Calendar, EveryYearUpToTheLastBeginsWhereTheYearBeforeEnds) {
  const auto is_leap = [](std::int64_t year) {
    return year % 400 == 0 || (year % 4 == 0 && year % 100 != 0);
  };
  double number = reference_number(date::year{1583} / 1 / 1);
  for (std::int64_t year = 1583; year <= iocv::kLastYear; ++year) {
    const auto y = static_cast<double>(year);
    const double march = number + (is_leap(year) ? 60 : 59);
    ASSERT_EQ(iocv::day_number(y, 1, 1, Settings{}).value, number) << year;
    ASSERT_EQ(iocv::day_number(y, 3, 1, Settings{}).value, march) << year;
    const iocv::CalendarDate date = iocv::date_of(march * 86400);
    ASSERT_TRUE(date.year == year && date.month == 3 && date.day == 1) << year;
    number += is_leap(year) ? 366 : 365;
  }
  EXPECT_EQ(iocv::day_number(5867441, 1, 1, Settings{}).value * 86400, 185108606208000.0);
}

TEST(Calendar, EveryMonthUpTo13AndDayUpTo31RunsOn) {
  for (int year = 1583; year <= 2400; ++year) {
    for (int month = 1; month <= 13; ++month) {
      const date::sys_days first = month <= 12 ? date::sys_days{date::year{year} / month / 1}
                                               : date::sys_days{date::year{year + 1} / 1 / 1};
      for (int day = 0; day <= 31; ++day) {
        ASSERT_EQ(iocv::day_number(year, month, day, Settings{}).value,
                  reference_number(first) + day - 1)
            << year << "-" << month << "-" << day;
      }
    }
  }
}

TEST(Calendar, LeapYearsAndMonthLengths) {
  for (int year = -400; year <= 9999; ++year) {
    ASSERT_EQ(iocv::is_leap(year), date::year{year}.is_leap()) << year;
    for (int month = 1; month <= 12; ++month) {
      const date::year_month_day_last last = date::year{year} / month / date::last;
      const unsigned length = static_cast<unsigned>(last.day());
      ASSERT_EQ(iocv::month_length(year, month), length) << year << "-" << month;
    }
  }
}

TEST(MonthAndDay, OutsideTheYear) {
  struct Case {
    std::int64_t year;
    std::int64_t day_of_year;
    std::int64_t month;
    std::int64_t day;
  };
  constexpr Case kCases[] = {
      {2000, 60, 2, 29},   {2001, 60, 3, 1},   {1900, 60, 3, 1},   {2000, 366, 12, 31},
      {2001, 365, 12, 31}, {2001, 366, 13, 1}, {2000, 367, 13, 1}, {2001, 0, 0, 30},
      {2001, 395, 13, 30}, {2001, 396, 14, 1},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(testing::Message() << c.year << " " << c.day_of_year);
    std::int64_t month = -7;
    std::int64_t day = -7;
    obcldr_(&c.year, &c.day_of_year, &month, &day);
    EXPECT_EQ(month, c.month);
    EXPECT_EQ(day, c.day);
  }
  for (const std::int64_t far : {kLowest, kHighest, kHighest - 100}) {
    const std::int64_t month = iocv::month_and_day(2000, far).month;
    EXPECT_TRUE(month < 1 || month > 13);
    iocv::month_and_day(far, far);
  }
}

TEST(CenturyWindow, EveryBeginYearPlacesTwoDigitsInItsHundred) {
  for (std::int64_t begin = 0; begin <= 9900; begin += 50) {
    for (std::int64_t digits = 0; digits <= 99; ++digits) {
      std::int64_t expected = begin;
      while (expected % 100 != digits) ++expected;
      ASSERT_EQ(iocv::full_year(digits, window(begin)), expected) << begin << " " << digits;
    }
    for (std::int64_t year = begin - 150; year <= begin + 250; ++year) {
      ASSERT_EQ(iocv::in_century(year, window(begin)), year >= begin && year - begin < 100);
    }
  }
  for (std::int64_t begin = 1850; begin <= 2050; ++begin) {
    for (std::int64_t digits = 0; digits <= 99; ++digits) {
      const std::int64_t year = iocv::full_year(digits, window(begin));
      ASSERT_TRUE(iocv::in_century(year, window(begin)));
      ASSERT_EQ(year % 100, digits);
    }
  }
}

TEST(CenturyWindow, FlatRoutinesFollowTheRecord) {
  const test::RecordsGuard guard;
  struct Case {
    std::int64_t begin;
    std::int64_t year;
    std::int64_t full;
    std::int64_t in_window;  // of the full year
  };
  constexpr Case kCases[] = {
      {1900, 0, 1900, -1},   {1900, 99, 1999, -1},  {1950, 49, 2049, -1},
      {1950, 50, 1950, -1},  {1900, 100, 100, 0},   {1900, -5, 1995, -1},
      {1900, 2000, 2000, 0}, {1900, 1899, 1899, 0}, {1930, -100, 1900, 0},
  };
  for (const Case& c : kCases) {
    cmndtm_.century_begin = c.begin;
    EXPECT_EQ(year4_(&c.year), c.full) << c.begin << " " << c.year;
    EXPECT_EQ(q2digy_(&c.full), c.in_window) << c.begin << " " << c.full;
  }
  for (const std::int64_t begin : {kLowest, kHighest}) {
    for (const std::int64_t year : {kLowest, std::int64_t{50}, kHighest}) {
      cmndtm_.century_begin = begin;
      year4_(&year);
      q2digy_(&year);
    }
  }
}

TEST(VeltDay, KnownDaysAndAnyIntegers) {
  EXPECT_EQ(VeltDay(15, 10, 1582), 1);
  EXPECT_EQ(VeltDay(14, 10, 1582), 0);
  EXPECT_EQ(VeltDay(1, 1, 1970), 141428);
  EXPECT_EQ(VeltDay(29, 2, 2000), 152444);
  for (const int any : {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    VeltDay(any, any, any);
    VeltDay(1, any, 2000);
    VeltDay(1, 1, any);
  }
}

TEST(Names, CellsOutsideATableAreEmpty) {
  using iocv::name_cell;
  EXPECT_EQ(name_cell(iocv::kRomanMonths, iocv::kMonthCell, 8), "VIII");
  EXPECT_EQ(name_cell(iocv::kMonthAbbreviations, iocv::kMonthCell, 12), "DEC ");
  EXPECT_EQ(name_cell(iocv::kMonthNames, iocv::kNameCell, 9), "SEPTEMBER");
  EXPECT_EQ(name_cell(iocv::kDayNames, iocv::kNameCell, 1), "SUNDAY   ");
  for (const std::int64_t number :
       {kLowest, std::int64_t{-1}, std::int64_t{0}, std::int64_t{13}, kHighest}) {
    EXPECT_EQ(name_cell(iocv::kMonthNames, iocv::kNameCell, number), "");
  }
  for (std::int64_t month = 1; month <= 12; ++month) {
    EXPECT_EQ(iocv::month_letters(month),
              name_cell(iocv::kMonthNames, iocv::kNameCell, month).substr(0, 3));
    EXPECT_EQ(iocv::month_letters(month),
              name_cell(iocv::kMonthAbbreviations, iocv::kMonthCell, month).substr(0, 3));
  }
}

}  // namespace
