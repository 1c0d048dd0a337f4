// Dates as text.
#include "datetime/oboida.h"

#include "datetime/writing.h"
#include "support/records_guard.h"
#include "support/values.h"

namespace test {
namespace {

constexpr int kDateTypes[] = {Format::DATE,  Format::ADATE, Format::EDATE, Format::SDATE,
                              Format::JDATE, Format::MOYR,  Format::QYR,   Format::WKYR,
                              Format::WKDAY, Format::MONTH};

constexpr double kNewYear1999 = on(1999, 1, 1);
constexpr double kNewYear2000 = on(2000, 1, 1);
constexpr double kLeapDay = on(2000, 2, 29);
constexpr double kLastOf2000 = on(2000, 12, 31);
constexpr double kLastDay = on(9999, 12, 31);

TEST(DateOutput, LayoutsByWidth) {
  expect_written({
      {Format::DATE, 8, 0, kNewYear1999, "********"},
      {Format::DATE, 9, 0, kNewYear1999, "01-JAN-99"},
      {Format::DATE, 10, 0, kNewYear1999, "01-JAN-99 "},
      {Format::DATE, 11, 0, kNewYear1999, "01-JAN-1999"},
      {Format::DATE, 12, 0, kNewYear1999, "01-JAN-1999 "},
      {Format::DATE, 40, 0, kNewYear1999, "01-JAN-1999                             "},
      {Format::ADATE, 7, 0, kNewYear1999, "*******"},
      {Format::ADATE, 8, 0, on(1999, 2, 3), "02/03/99"},
      {Format::ADATE, 9, 0, on(1999, 2, 3), "02/03/99 "},
      {Format::ADATE, 10, 0, kLastOf2000, "12/31/2000"},
      {Format::ADATE, 12, 0, kLastOf2000, "12/31/2000  "},
      {Format::EDATE, 7, 0, kNewYear1999, "*******"},
      {Format::EDATE, 8, 0, on(1999, 2, 3), "03.02.99"},
      {Format::EDATE, 9, 0, on(1999, 2, 3), "03.02.99 "},
      {Format::EDATE, 10, 0, kLastOf2000, "31.12.2000"},
      {Format::SDATE, 7, 0, kNewYear1999, "*******"},
      {Format::SDATE, 8, 0, on(1999, 2, 3), "99/02/03"},
      {Format::SDATE, 9, 0, on(1999, 2, 3), "99/02/03 "},
      {Format::SDATE, 10, 0, kLastOf2000, "2000/12/31"},
      {Format::SDATE, 11, 0, kLastOf2000, "2000/12/31 "},
      {Format::JDATE, 4, 0, kNewYear1999, "****"},
      {Format::JDATE, 5, 0, kNewYear1999, "99001"},
      {Format::JDATE, 6, 0, on(1999, 12, 31), "99365 "},
      {Format::JDATE, 7, 0, kLastOf2000, "2000366"},
      {Format::JDATE, 7, 0, on(2001, 4, 10), "2001100"},
      {Format::JDATE, 8, 0, on(1582, 10, 15), "1582288 "},
      {Format::MOYR, 5, 0, kNewYear1999, "*****"},
      {Format::MOYR, 6, 0, kNewYear1999, "JAN 99"},
      {Format::MOYR, 7, 0, kNewYear1999, "JAN 99 "},
      {Format::MOYR, 8, 0, on(2001, 8, 15), "AUG 2001"},
      {Format::MOYR, 10, 0, on(2001, 8, 15), "AUG 2001  "},
      {Format::QYR, 5, 0, kNewYear1999, "*****"},
      {Format::QYR, 6, 0, on(1999, 12, 31), "4 Q 99"},
      {Format::QYR, 7, 0, on(1999, 6, 30), "2 Q 99 "},
      {Format::QYR, 8, 0, on(2001, 8, 15), "3 Q 2001"},
      {Format::QYR, 8, 0, on(2001, 3, 31), "1 Q 2001"},
      {Format::WKYR, 7, 0, kNewYear1999, "*******"},
      {Format::WKYR, 8, 0, kNewYear1999, " 1 WK 99"},
      {Format::WKYR, 9, 0, on(1999, 12, 31), "53 WK 99 "},
      {Format::WKYR, 10, 0, on(2001, 1, 7), " 1 WK 2001"},
      {Format::WKYR, 10, 0, on(2001, 1, 8), " 2 WK 2001"},
      {Format::WKYR, 10, 0, on(2001, 12, 30), "52 WK 2001"},
      {Format::WKYR, 10, 0, on(2001, 12, 31), "53 WK 2001"},
      {Format::WKYR, 11, 0, on(2000, 12, 30), "53 WK 2000 "},
      // The time of day does not show, decimals do not count.
      {Format::DATE, 11, 7, kLeapDay + 86399.999, "29-FEB-2000"},
      {Format::DATE, 11, kHighest, kLeapDay, "29-FEB-2000"},
      {Format::DATE, 11, kLowest, kLeapDay, "29-FEB-2000"},
      {Format::DATE, 11, 0, 172799.99999999997, "15-OCT-1582"},
  });
}

TEST(DateOutput, TwoDigitsShowOnlyAYearOfTheCenturyWindow) {
  const RecordsGuard guard;
  struct Case {
    std::int64_t begin;
    WritingCase writing;
  };
  const Case kCases[] = {
      {1900, {Format::DATE, 9, 0, kNewYear2000, "*********"}},
      {1900, {Format::DATE, 10, 0, kNewYear2000, "**********"}},
      {1900, {Format::DATE, 11, 0, kNewYear2000, "01-JAN-2000"}},
      {1900, {Format::DATE, 9, 0, on(1899, 12, 31), "*********"}},
      {1900, {Format::DATE, 9, 0, on(1900, 1, 1), "01-JAN-00"}},
      {1950, {Format::DATE, 9, 0, kNewYear2000, "01-JAN-00"}},
      {1950, {Format::DATE, 9, 0, on(1949, 12, 31), "*********"}},
      {1950, {Format::DATE, 9, 0, on(2049, 12, 31), "31-DEC-49"}},
      {1950, {Format::DATE, 9, 0, on(2050, 1, 1), "*********"}},
      {1900, {Format::ADATE, 8, 0, kNewYear2000, "********"}},
      {1900, {Format::EDATE, 9, 0, kNewYear2000, "*********"}},
      {1900, {Format::SDATE, 8, 0, kNewYear2000, "********"}},
      {1900, {Format::JDATE, 6, 0, kNewYear2000, "******"}},
      {1900, {Format::MOYR, 7, 0, kNewYear2000, "*******"}},
      {1900, {Format::QYR, 6, 0, kNewYear2000, "******"}},
      {1900, {Format::WKYR, 9, 0, kNewYear2000, "*********"}},
      {1982, {Format::WKYR, 9, 0, kNewYear2000, " 1 WK 00 "}},
  };
  for (const Case& c : kCases) {
    cmndtm_.century_begin = c.begin;
    expect_written(c.writing);
  }
}

TEST(DateOutput, EveryWindowShowsItsHundredYears) {
  iocv::Settings settings;
  char field[9];
  for (std::int64_t begin = 0; begin <= 9900; begin += 50) {
    settings.century_begin = begin;
    for (int year = 1583; year <= 9999; year += 7) {
      iocv::write_date({field, 9}, on(year, 1, 1), 0, settings);
      const bool shown = year >= begin && year < begin + 100;
      ASSERT_EQ(field[0] == '0', shown) << begin << " " << year;
      if (shown) {
        ASSERT_EQ((field[7] - '0') * 10 + field[8] - '0', year % 100);
      }
    }
  }
}

TEST(DateOutput, SpecialValuesStandInTheLastColumnWhateverTheDecimals) {
  for (const int type : kDateTypes) {
    for (const double value : {kMissing, kInfinity, -kInfinity, kNan}) {
      expect_written({type, 11, 2, value, "          ."});
      expect_written({type, 1, 0, value, "."});
      expect_written({type, 0, 0, value, ""});
      expect_written({type, -5, 0, value, ""});
    }
  }
}

TEST(DateOutput, RefusesValuesBeforeTheFirstDateBeforeItLooksAtTheWidth) {
  const RecordsGuard guard;
  for (const int type : {Format::DATE, Format::ADATE, Format::EDATE, Format::SDATE, Format::JDATE,
                         Format::MOYR, Format::QYR, Format::WKYR}) {
    for (const double value : {86399.0, 86399.99999999999, 0.0, -0.0, -1.0, 5e-324, -1e300}) {
      expect_written({type, 11, 0, value, "          .", 1140});
      expect_written({type, 3, 0, value, "  .", 1140});
    }
    cmnloc_.decimal = ',';
    cmasys_.system_missing = '#';
    expect_written({type, 3, 0, 0, "  ,", 1140});
    expect_written({type, 3, 0, kMissing, "  #"});
    expect_written({type, 0, 0, 0, ""});
    cmnloc_.decimal = '.';
    cmasys_.system_missing = '.';
  }
}

TEST(DateOutput, AYearAbove9999DoesNotFit) {
  for (const int type : {Format::DATE, Format::ADATE, Format::EDATE, Format::SDATE, Format::JDATE,
                         Format::MOYR, Format::QYR, Format::WKYR}) {
    for (const double value : {kLastDay + 86400, on(10000, 6, 1), 1e12, 1e17, 1e300}) {
      expect_written({type, 12, 0, value, "************"});
      expect_written({type, 1, 0, value, "*"});
    }
  }
  expect_written({Format::DATE, 11, 0, kLastDay + 86399, "31-DEC-9999"});
  expect_written({Format::DATE, 11, 0, on(1582, 10, 15), "15-OCT-1582"});
}

TEST(DateOutput, NamesOfDaysAndMonths) {
  expect_written({
      {Format::WKDAY, 9, 0, 3, "TUESDAY  "},
      {Format::WKDAY, 9, 0, 3.999, "TUESDAY  "},
      {Format::WKDAY, 2, 0, 1, "SU"},
      {Format::WKDAY, 1, 0, 7.5, "S"},
      {Format::WKDAY, 9, 0, 4, "WEDNESDAY"},
      {Format::WKDAY, 12, 0, 4, "WEDNESDAY   "},
      {Format::WKDAY, 9, 0, 86400, "FRIDAY   "},
      {Format::WKDAY, 9, 0, kNewYear2000, "SATURDAY "},
      {Format::WKDAY, 9, 0, 172799, "FRIDAY   "},
      // In doubles the last moment of the day counts as the next one.
      {Format::WKDAY, 9, 0, 172799.99999999997, "SATURDAY "},
      {Format::WKDAY, 9, 0, 1e300, "SUNDAY   "},
      {Format::MONTH, 9, 0, 1, "JANUARY  "},
      {Format::MONTH, 9, 0, 9, "SEPTEMBER"},
      {Format::MONTH, 9, 0, 12.9, "DECEMBER "},
      {Format::MONTH, 3, 0, 1, "JAN"},
      {Format::MONTH, 11, 0, kLeapDay, "FEBRUARY   "},
      {Format::MONTH, 3, 0, 86400, "OCT"},
      {Format::MONTH, 3, 0, on(10000, 1, 1), "JAN"},
      {Format::MONTH, 9, 0, 1e17, "*********"},
      {Format::MONTH, 9, 0, 1e300, "*********"},
      // Numbers that name nothing.
      {Format::WKDAY, 9, 0, 8, "        .", 1141},
      {Format::WKDAY, 9, 0, 86399.99, "        .", 1141},
      {Format::WKDAY, 9, 0, 0, "        .", 1141},
      {Format::WKDAY, 9, 0, -0.0, "        .", 1141},
      {Format::WKDAY, 9, 0, 0.9999999999999999, "        .", 1141},
      {Format::WKDAY, 9, 0, 7.999999999999999, "SATURDAY "},
      {Format::MONTH, 9, 0, 13, "        .", 1141},
      {Format::MONTH, 9, 0, 12.999999999999998, "DECEMBER "},
      {Format::MONTH, 9, 0, 86399, "        .", 1141},
      {Format::MONTH, 9, 0, 0.5, "        .", 1141},
      {Format::MONTH, 9, 0, -0.0, "        .", 1141},
      // Negative ones.
      {Format::WKDAY, 9, 0, -5e-324, "        .", 1140},
      {Format::WKDAY, 1, 0, -3, ".", 1140},
      {Format::MONTH, 9, 0, -1, "        .", 1140},
      {Format::MONTH, 9, 0, -1e300, "        .", 1140},
      {Format::WKDAY, 0, 0, -1, ""},
  });
  const RecordsGuard guard;
  cmnloc_.decimal = ',';
  expect_written({Format::WKDAY, 3, 0, 8, "  ,", 1141});
  expect_written({Format::MONTH, 3, 0, -8, "  ,", 1140});
}

TEST(DateOutput, EveryNameUnderEveryWidth) {
  constexpr const char* kDays[] = {"SUNDAY",   "MONDAY", "TUESDAY", "WEDNESDAY",
                                   "THURSDAY", "FRIDAY", "SATURDAY"};
  constexpr const char* kMonths[] = {"JANUARY",   "FEBRUARY", "MARCH",    "APRIL",
                                     "MAY",       "JUNE",     "JULY",     "AUGUST",
                                     "SEPTEMBER", "OCTOBER",  "NOVEMBER", "DECEMBER"};
  for (std::int64_t width = 1; width <= 12; ++width) {
    const auto cut = [&](std::string name) {
      name.resize(static_cast<std::size_t>(width), ' ');
      return name;
    };
    const WrittenField field(width);
    for (int day = 1; day <= 7; ++day) {
      field.write(Format::WKDAY, 0, day);
      EXPECT_EQ(field.text(), cut(kDays[day - 1]));
      field.write(Format::WKDAY, 0, on(2023, 1, 0U + static_cast<unsigned>(day)));  // 1: Sunday
      EXPECT_EQ(field.text(), cut(kDays[day - 1]));
    }
    for (int month = 1; month <= 12; ++month) {
      field.write(Format::MONTH, 0, month);
      EXPECT_EQ(field.text(), cut(kMonths[month - 1]));
      field.write(Format::MONTH, 0, on(2001, static_cast<unsigned>(month), 28, 86399.5));
      EXPECT_EQ(field.text(), cut(kMonths[month - 1]));
    }
  }
}

// Codes that a routine has no format for take one of its layouts.
TEST(DateOutput, FlatRoutinesUnderOtherTypeCodes) {
  const std::int64_t width = 10;
  const std::int64_t decimals = 0;
  const double value = on(2001, 8, 15);
  const auto text = [&](auto routine, std::int32_t code) {
    char field[10];
    std::int64_t status = -7;
    routine(field, code, status);
    EXPECT_EQ(status, 0);
    return std::string(field, sizeof field);
  };
  const auto numeric = [&](char* field, const std::int32_t& code, std::int64_t& status) {
    oboada_(&value, &width, &decimals, field, &code, &status, width);
  };
  const auto period = [&](char* field, const std::int32_t& code, std::int64_t& status) {
    oboqmo_(&value, &width, &decimals, field, &status, &code, width);
  };
  const auto name = [&](char* field, const std::int32_t& code, std::int64_t& status) {
    obowmo_(&value, &width, &decimals, field, &status, &code, width);
  };
  for (const std::int32_t code : {0, -1, 20, 85, 1'000'000}) {
    EXPECT_EQ(text(numeric, code), "15/08/2001") << code;
    EXPECT_EQ(text(period, code), "AUG 2001  ") << code;
    EXPECT_EQ(text(name, code), "AUGUST    ") << code;
  }
}

TEST(DateOutput, FollowsTheSettingsMissingNumber) {
  const RecordsGuard guard;
  cmnglb_.system_missing = kNewYear2000;
  expect_written({Format::DATE, 11, 0, kNewYear2000, "          ."});
  expect_written({Format::DATE, 11, 0, kNewYear2000 + 1, "01-JAN-2000"});
  expect_written({Format::DATE, 11, 0, kMissing, "          .", 1140});
  cmnglb_.system_missing = 0;
  expect_written({Format::WKDAY, 3, 0, -0.0, "  ."});
}

TEST(DateRecord, HoldsTheDateThatAFlatWriterOrTheDispatcherTookApart) {
  const RecordsGuard guard;
  const double value = on(2001, 8, 15, 45296.75);  // 12:34:56.75
  for (const Door door : {Door::dispatcher, Door::flat}) {
    for (const int type : kDateTypes) {
      SCOPED_TRACE(type);
      cmndtm_.seconds = -1;
      cmndtm_.year = cmndtm_.month = cmndtm_.day = cmndtm_.hour = cmndtm_.minute = -1;
      const WrittenField field(11);
      field.write(type, 0, value, door);
      EXPECT_EQ(cmndtm_.seconds, 56.75);
      EXPECT_EQ(cmndtm_.year, 2001);
      EXPECT_EQ(cmndtm_.month, 8);
      EXPECT_EQ(cmndtm_.day, 15);
      EXPECT_EQ(cmndtm_.hour, 12);
      EXPECT_EQ(cmndtm_.minute, 34);
      EXPECT_EQ(std::string(cmadtm_.month, 3), "AUG");
      EXPECT_EQ(cmndtm_.century_begin, 1900);
      EXPECT_EQ(cmndtm_.century_mode, 1);
    }
  }
}

TEST(DateRecord, StaysWhenNothingWasTakenApart) {
  const RecordsGuard guard;
  cmndtm_.year = -1;
  for (const int type : kDateTypes) {
    for (const double value : {kMissing, kInfinity, kNan, 86399.0, -1.0}) {
      const WrittenField field(11);
      field.write(type, 0, value);
      field.write(type, 0, value, Door::flat);
    }
    const WrittenField empty(0);
    empty.write(type, 0, kNewYear2000);
  }
  // The core leaves the records to the flat routines.
  char field[11];
  iocv::write_date({field, 11}, kNewYear2000, 0, iocv::Settings{});
  EXPECT_EQ(cmndtm_.year, -1);
}

}  // namespace
}  // namespace test
