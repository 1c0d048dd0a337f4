// JDATE, MONTH, MOYR, QYR, WKDAY and WKYR.
#include <iocv/iocv.h>

#include "datetime/reading.h"

namespace test {
namespace {

using PeriodInput = DateTimeInput;

TEST_F(PeriodInput, BlankFieldsAreMissing) {
  for (const int code : {24, 26, 27, 28, 29, 30}) {
    EXPECT_EQ(read_text("", code), (Reading{kMissing, 0}));
    EXPECT_EQ(read_text("    ", code), (Reading{kMissing, 0}));
  }
}

TEST_F(PeriodInput, DaysOfAYear) {
  expect_readings({
      {"2000001", kJdate, day(2000, 1, 1), 0},
      {"00001", kJdate, day(1900, 1, 1), 0},
      {"99365", kJdate, day(1999, 12, 31), 0},
      {"0050001", kJdate, day(1950, 1, 1), 0},
      {"2001366", kJdate, day(2002, 1, 1), 0},
      {"2000366", kJdate, day(2000, 12, 31), 0},
      {"2000367", kJdate, kMissing, 1142},
      {"2000999", kJdate, kMissing, 1142},
      {"2000000", kJdate, day(1999, 12, 31), 0},
      {"00000", kJdate, day(1899, 12, 31), 0},
      {"  2000001  ", kJdate, day(2000, 1, 1), 0},
      // With a separator.
      {"2000-123", kJdate, day(2000, 5, 2), 0},
      {"2000 - 123", kJdate, day(2000, 5, 2), 0},
      {"00.123", kJdate, day(1900, 5, 3), 0},
      {"00,1", kJdate, day(1900, 1, 1), 0},
      {"00/001", kJdate, day(1900, 1, 1), 0},
      {"2000-366", kJdate, day(2000, 12, 31), 0},
      {"2000-367", kJdate, kMissing, 1142},
      {"2000-0", kJdate, kMissing, 1142},
      {"2000-99999999999999999999", kJdate, kMissing, 1142},
      {"2000-0000000001", kJdate, day(2000, 1, 1), 0},
      {"2000", kJdate, kMissing, 1142},
      {"2000-", kJdate, kMissing, 1142},
      {"2000 123", kJdate, kMissing, 1142},
      {"2000:123", kJdate, kMissing, 1142},
      {"2000-x", kJdate, kMissing, 1142},
      // No other number of digits, nothing behind.
      {"1", kJdate, kMissing, 1142},
      {"001", kJdate, kMissing, 1142},
      {"200001", kJdate, kMissing, 1142},
      {"20000001", kJdate, kMissing, 1142},
      {"x2000001", kJdate, kMissing, 1142},
      {"-2000001", kJdate, kMissing, 1142},
      {"2000001x", kJdate, kMissing, 1142},
      {"2000001-", kJdate, kMissing, 1142},
      {"2000001 x", kJdate, kMissing, 1142},
      {"2000-1-", kJdate, kMissing, 1142},
      // Years.
      {"1581365", kJdate, kMissing, 1142},
      {"1582288", kJdate, kMissing, 1142},
      {"1583001", kJdate, day(1583, 1, 1), 0},
      {"0100001", kJdate, kMissing, 1142},
      {"9999365", kJdate, day(9999, 12, 31), 0},
  });
  cmndtm_.century_begin = 1500;
  EXPECT_EQ(read_text("50001", kJdate), (Reading{kMissing, 1142}));
}

TEST_F(PeriodInput, Months) {
  expect_readings({
      {"sep", kMonth, 9, 0},
      {"September", kMonth, 9, 0},
      {"IX", kMonth, 9, 0},
      {"9", kMonth, 9, 0},
      {" 9 ", kMonth, 9, 0},
      {"0000000009", kMonth, 9, 0},
      {"janxyz#$@", kMonth, 1, 0},
      {"VIIIX", kMonth, 8, 0},
      {"viii", kMonth, 8, 0},
      {"xii", kMonth, 12, 0},
      {"XIII", kMonth, kMissing, 1143},
      {"IXX", kMonth, kMissing, 1143},
      {"1", kMonth, 1, 0},
      {"12", kMonth, 12, 0},
      {"0", kMonth, kMissing, 1143},
      {"13", kMonth, kMissing, 1143},
      {"99999999999999999999", kMonth, kMissing, 1143},
      {"Septembers", kMonth, kMissing, 1143},  // ten bytes
      {"MAR\xC3\xA9\xC3\xA9\xC3\xA9", kMonth, 3, 0},
      {"MAR\xC3\xA9\xC3\xA9\xC3\xA9x", kMonth, kMissing, 1143},
      {"JA", kMonth, kMissing, 1143},
      {"-9", kMonth, kMissing, 1143},
      {"9-", kMonth, kMissing, 1143},
      {"9 x", kMonth, kMissing, 1143},
      {"sep9", kMonth, kMissing, 1143},
  });
}

TEST_F(PeriodInput, DaysOfTheWeek) {
  constexpr std::string_view kNames[] = {"SUNDAY",   "monday", "Tuesday", "WEDNESDAY",
                                         "thursday", "friDAY", "SATURDAY"};
  for (std::size_t i = 0; i < std::size(kNames); ++i) {
    const Reading expected = {static_cast<double>(i + 1), 0};
    EXPECT_EQ(read_text(kNames[i], kWkday), expected);
    EXPECT_EQ(read_text(kNames[i].substr(0, 2), kWkday), expected);
    EXPECT_EQ(read_text("  " + std::string(kNames[i].substr(0, 3)) + " ", kWkday), expected);
    EXPECT_EQ(read_text(kNames[i].substr(0, 1), kWkday), (Reading{kMissing, 1147}));
  }
  expect_readings({
      {"tu", kWkday, 3, 0},
      {"TUxyzabc#", kWkday, 3, 0},
      {"TUxyzabc#x", kWkday, kMissing, 1147},
      {"MO\xC3\xA9\xC3\xA9\xC3\xA9", kWkday, 2, 0},
      {"MO\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9", kWkday, kMissing, 1147},
      {"3", kWkday, kMissing, 1147},
      {"XX", kWkday, kMissing, 1147},
      {"-tu", kWkday, kMissing, 1147},
      {"tu-", kWkday, kMissing, 1147},
      {"tu x", kWkday, kMissing, 1147},
      {"tu3", kWkday, kMissing, 1147},
  });
}

TEST_F(PeriodInput, MonthsOfAYear) {
  expect_readings({
      {"JAN 2000", kMoyr, day(2000, 1, 1), 0},
      {"1/2000", kMoyr, day(2000, 1, 1), 0},
      {"JAN-00", kMoyr, day(1900, 1, 1), 0},
      {"1.2000", kMoyr, day(2000, 1, 1), 0},
      {"1,2000", kMoyr, day(2000, 1, 1), 0},
      {"  xii - 1999  ", kMoyr, day(1999, 12, 1), 0},
      {"VIIIX 2000", kMoyr, day(2000, 8, 1), 0},
      {"JAN:2000", kMoyr, kMissing, 1144},
      {"JAN!2000", kMoyr, kMissing, 1144},
      {"JAN2000", kMoyr, kMissing, 1144},
      {"JAN", kMoyr, kMissing, 1144},
      {"JAN ", kMoyr, kMissing, 1144},
      {"13/2000", kMoyr, kMissing, 1144},
      {"0/2000", kMoyr, kMissing, 1144},
      {"Septembers 2000", kMoyr, kMissing, 1144},
      {"JAN x", kMoyr, kMissing, 1144},
      {"JAN 2000x", kMoyr, kMissing, 1144},
      {"JAN 2000-", kMoyr, kMissing, 1144},
      {"-JAN 2000", kMoyr, kMissing, 1144},
      // Years.
      {"FEB 1500", kMoyr, kMissing, 1144},
      {"FEB 100", kMoyr, kMissing, 1144},
      {"OCT 1582", kMoyr, kMissing, 1144},
      {"NOV 1582", kMoyr, day(1582, 11, 1), 0},
      {"1/5867441", kMoyr, 185108606208000.0, 0},
      {"1/5867442", kMoyr, kMissing, 1144},
      {"1/99999999999999999999", kMoyr, kMissing, 1144},
  });
}

TEST_F(PeriodInput, Quarters) {
  expect_readings({
      {"4 Q 2000", kQyr, day(2000, 10, 1), 0},
      {"3 Q 2001", kQyr, day(2001, 7, 1), 0},
      {"3Q2001", kQyr, day(2001, 7, 1), 0},
      {"3 Q2001", kQyr, day(2001, 7, 1), 0},
      {"3Q  2001", kQyr, day(2001, 7, 1), 0},
      {"Q 3 2001", kQyr, day(2001, 7, 1), 0},
      {"Q3 2001", kQyr, day(2001, 7, 1), 0},
      {" 1 Q 00 ", kQyr, day(1900, 1, 1), 0},
      {"2Q99", kQyr, day(1999, 4, 1), 0},
      {"Q32001", kQyr, kMissing, 1145},
      {"0 Q 2000", kQyr, kMissing, 1145},
      {"5 Q 2000", kQyr, kMissing, 1145},
      {"99999999999999999999 Q 2000", kQyr, kMissing, 1145},
      {"3 q 2001", kQyr, kMissing, 1145},
      {"3 QQ 2001", kQyr, kMissing, 1145},
      {"3 X 2001", kQyr, kMissing, 1145},
      {"Q Q 2001", kQyr, kMissing, 1145},
      {"3 3 2001", kQyr, kMissing, 1145},
      {"3-Q-2001", kQyr, kMissing, 1145},
      {"3 Q-2001", kQyr, kMissing, 1145},
      {"Q-3 2001", kQyr, kMissing, 1145},
      {"3 Q", kQyr, kMissing, 1145},
      {"3 Q x", kQyr, kMissing, 1145},
      {"3", kQyr, kMissing, 1145},
      {"Q", kQyr, kMissing, 1145},
      {"3 Q 2001x", kQyr, kMissing, 1145},
      {"4 Q 1582", kQyr, kMissing, 1145},
      {"1 Q 1583", kQyr, day(1583, 1, 1), 0},
      {"1 Q 100", kQyr, kMissing, 1145},
      {"1 Q 5867441", kQyr, 185108606208000.0, 0},
      {"1 Q 5867442", kQyr, kMissing, 1145},
  });
}

TEST_F(PeriodInput, Weeks) {
  expect_readings({
      {"2 WK 2001", kWkyr, day(2001, 1, 8), 0},
      {"2WK2001", kWkyr, day(2001, 1, 8), 0},
      {"2 WK2001", kWkyr, day(2001, 1, 8), 0},
      {"  02WK   2001  ", kWkyr, day(2001, 1, 8), 0},
      {"1 WK 00", kWkyr, day(1900, 1, 1), 0},
      {"9 WK 2000", kWkyr, day(2000, 2, 26), 0},
      {"10 WK 2000", kWkyr, day(2000, 3, 4), 0},
      {"10 WK 2001", kWkyr, day(2001, 3, 5), 0},
      {"53 WK 2001", kWkyr, day(2001, 12, 31), 0},
      {"53 WK 2000", kWkyr, day(2000, 12, 30), 0},
      {"54 WK 2001", kWkyr, kMissing, 1148},
      {"0 WK 2001", kWkyr, kMissing, 1148},
      {"99999999999999999999 WK 2001", kWkyr, kMissing, 1148},
      {"2 wk 2001", kWkyr, kMissing, 1148},
      {"2 WKS 2001", kWkyr, kMissing, 1148},
      {"2 W 2001", kWkyr, kMissing, 1148},
      {"WK 2 2001", kWkyr, kMissing, 1148},
      {"2-WK-2001", kWkyr, kMissing, 1148},
      {"2 WK-2001", kWkyr, kMissing, 1148},
      {"2 WK", kWkyr, kMissing, 1148},
      {"2", kWkyr, kMissing, 1148},
      {"2 WK x", kWkyr, kMissing, 1148},
      {"2 WK 2001x", kWkyr, kMissing, 1148},
      {"42 WK 1582", kWkyr, 86400, 0},
      {"41 WK 1582", kWkyr, kMissing, 1148},
      {"1 WK 100", kWkyr, kMissing, 1148},
      {"1 WK 5867441", kWkyr, 185108606208000.0, 0},
      {"1 WK 5867442", kWkyr, kMissing, 1148},
  });
}

TEST_F(PeriodInput, EveryPeriodOfEveryYearBegins) {
  for (int year = 1583; year <= 9999; ++year) {
    const std::string y = std::to_string(year);
    const double january = day(year, 1, 1);
    for (unsigned month = 1; month <= 12; ++month) {
      const Reading first = {day(year, month, 1), 0};
      ASSERT_EQ(read_text(std::to_string(month) + "/" + y, kMoyr), first) << month << " " << y;
    }
    for (unsigned quarter = 1; quarter <= 4; ++quarter) {
      const Reading first = {day(year, 3 * quarter - 2, 1), 0};
      ASSERT_EQ(read_text(std::to_string(quarter) + "Q" + y, kQyr), first) << quarter << " " << y;
    }
    for (int week = 1; week <= 53; ++week) {
      const Reading first = {january + (week - 1) * 7 * 86400, 0};
      ASSERT_EQ(read_text(std::to_string(week) + " WK " + y, kWkyr), first) << week << " " << y;
    }
  }
}

TEST_F(PeriodInput, FlatRoutinesLeaveThePositionBehindTheirText) {
  struct FlatCase {
    decltype(&obijdt_) routine;
    std::string_view text;
    double value;
    std::int64_t status;
  };
  const FlatCase cases[] = {
      {obijdt_, "2001366 ", day(2002, 1, 1), 0},
      {obijdt_, "?", kMissing, 1142},
      {obimon_, "September", 9, 0},
      {obimon_, "?", kMissing, 1143},
      {obimoy_, "JAN 2000", day(2000, 1, 1), 0},
      {obimoy_, "?", kMissing, 1144},
      {obiqyr_, "4 Q 2000", day(2000, 10, 1), 0},
      {obiqyr_, "?", kMissing, 1145},
      {obiwkd_, " Tuesday ", 3, 0},
      {obiwkd_, "?", kMissing, 1147},
      {obiwky_, "53 WK 2001", day(2001, 12, 31), 0},
      {obiwky_, "?", kMissing, 1148},
      {obijdt_, "", kMissing, 0},
  };
  for (const FlatCase& c : cases) {
    const Guarded field(c.text);
    const auto width = static_cast<std::int64_t>(c.text.size());
    double value = 12345;
    std::int64_t status = -1;
    std::int64_t position = -1;
    c.routine(field.data(), &width, &value, &status, &position, width);
    EXPECT_EQ(value, c.value) << c.text;
    EXPECT_EQ(status, c.status) << c.text;
    if (c.status == 0) {
      EXPECT_EQ(position, width + 1) << c.text;
    }
  }
}

}  // namespace
}  // namespace test
