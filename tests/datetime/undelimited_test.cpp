// Dates and times without delimiters.
#include <iocv/iocv.h>

#include "datetime/reading.h"
#include "datetime/str2digit.h"

namespace test {
namespace {

using UndelimitedInput = DateTimeInput;

TEST(Str2Digit, FoldsDigitsOnly) {
  EXPECT_EQ(iocv::str2digit("00123"), 123.0);
  EXPECT_EQ(iocv::str2digit(""), 0.0);
  EXPECT_EQ(iocv::str2digit("12 "), std::nullopt);
  EXPECT_EQ(iocv::str2digit("-1"), std::nullopt);
  EXPECT_EQ(iocv::str2digit("1.2"), std::nullopt);
  EXPECT_EQ(iocv::str2digit("75434533567018233"), 7.543453356701822e16);
}

TEST(Str2Month, KnowsDigitsAbbreviationsAndRomanNumeralsButNine) {
  EXPECT_EQ(iocv::str2month("07"), 7.0);
  EXPECT_EQ(iocv::str2month("13"), 13.0);
  EXPECT_EQ(iocv::str2month("99"), 99.0);
  EXPECT_EQ(iocv::str2month(""), 0.0);
  EXPECT_EQ(iocv::str2month("1x"), std::nullopt);
  constexpr std::string_view kNames[] = {"jan", "FEB", "Mar", "apr", "may", "jun",
                                         "jul", "aug", "sep", "oct", "nov", "dec"};
  constexpr std::string_view kRomans[] = {"i",   "II",   "iii", "IV", "v",  "VI",
                                          "vii", "VIII", "",    "X",  "xi", "xii"};
  for (std::size_t i = 0; i < 12; ++i) {
    const auto month = static_cast<double>(i + 1);
    EXPECT_EQ(iocv::str2month(kNames[i]), month);
    EXPECT_EQ(iocv::str2month(std::string(kNames[i]) + "uary"), month);
    if (!kRomans[i].empty()) {
      EXPECT_EQ(iocv::str2month(kRomans[i]), month);
    }
  }
  EXPECT_EQ(iocv::str2month("IX"), std::nullopt);
  EXPECT_EQ(iocv::str2month("ix"), std::nullopt);
  EXPECT_EQ(iocv::str2month("IX "), 9.0);  // what its table holds
  EXPECT_EQ(iocv::str2month("VIIIx"), 8.0);
  EXPECT_EQ(iocv::str2month("XIII"), std::nullopt);
  EXPECT_EQ(iocv::str2month("IVx"), std::nullopt);
  EXPECT_EQ(iocv::str2month("JA"), std::nullopt);
  // Cells end in zero bytes, so that a text may, too.
  EXPECT_EQ(iocv::str2month(std::string_view("I\0", 2)), 1.0);
}

TEST_F(UndelimitedInput, DatesReadInTheOrderOfTheirFormat) {
  expect_readings({
      {"01012000", kDate, day(2000, 1, 1), 0},
      {"31122000", kEdate, day(2000, 12, 31), 0},
      {"12312000", kAdate, day(2000, 12, 31), 0},
      {"20001231", kSdate, day(2000, 12, 31), 0},
      {"01JAN2000", kDate, day(2000, 1, 1), 0},
      {"01january2000", kDate, day(2000, 1, 1), 0},
      {"01VIII2000", kDate, day(2000, 8, 1), 0},
      {"01V2000", kDate, day(2000, 5, 1), 0},
      {"31x1999", kEdate, day(1999, 10, 31), 0},
      {"01viiixyz2000", kEdate, day(2000, 8, 1), 0},
      {"2000XI31", kSdate, day(2000, 12, 1), 0},
      {"2000IX31", kSdate, kMissing, 1193},
      {"01IX2000", kDate, kMissing, 1196},
      {"01SEP2000", kDate, day(2000, 9, 1), 0},
      {"JAN012000", kAdate, kMissing, 1136},  // begins with no digit: left to the other reader
      {"1JAN2000", kDate, kMissing, 1196},
      {"15JAN 2000", kDate, kMissing, 1196},
      {"20000-12-31", kSdate, kMissing, 1193},
  });
}

TEST_F(UndelimitedInput, SixDigitsHaveATwoDigitYearOnlyAtTheEndOfTheField) {
  expect_readings({
      {"010100", kDate, day(1900, 1, 1), 0},
      {"010100 ", kDate, kMissing, 1196},
      {"010100   ", kDate, kMissing, 1196},
      {" 010100", kDate, day(1900, 1, 1), 0},
      {"123199", kAdate, day(1999, 12, 31), 0},
      {"991231", kSdate, day(1999, 12, 31), 0},
      {"991231 ", kSdate, kMissing, 1193},
      {"01JAN00", kDate, day(1900, 1, 1), 0},
      {"01JAN00 ", kDate, kMissing, 1196},
      {"01JAN0", kDate, kMissing, 1196},
      {"01I00", kDate, kMissing, 1137},
      {"01V00 ", kDate, kMissing, 1196},
      {"01II00", kDate, day(1900, 2, 1), 0},
      {"01012000 ", kDate, day(2000, 1, 1), 0},
      {"01JAN2000 ", kDate, day(2000, 1, 1), 0},
  });
}

TEST_F(UndelimitedInput, AMissingDigitFailsLikeAnyOtherCharacter) {
  expect_readings({
      {"0101200", kDate, kMissing, 1196},
      {"010120", kDate, day(1920, 1, 1), 0},
      {"15JAN200", kDate, kMissing, 1196},
      {"2000123", kSdate, kMissing, 1193},
      {"1231200", kAdate, kMissing, 1195},
      {"0x012000", kDate, kMissing, 1196},
      {"01x12000", kDate, kMissing, 1196},
      {"010x2000", kDate, kMissing, 1196},
      {"0101200x", kDate, kMissing, 1196},
      {"01\xC3\xA9"
       "02000",
       kDate, kMissing, 1196},
      {"01JAN20x0", kDate, kMissing, 1196},
      {"01JANUARY", kDate, kMissing, 1196},
      {"01JANUARYX", kDate, kMissing, 1196},
  });
}

TEST_F(UndelimitedInput, OneDelimiterMayStandBefore) {
  for (const char delimiter : std::string_view(" .,:-/")) {
    EXPECT_EQ(read_text(delimiter + std::string("01012000"), kDate), (Reading{day(2000, 1, 1), 0}));
  }
  expect_readings({
      {"  01012000", kDate, kMissing, 1137},
      {"!01012000", kDate, kMissing, 1137},
      {"+01012000", kDate, kMissing, 1137},
      {"-", kDate, kMissing, 1137},
      {" 01012000x", kDate, kMissing, 1196},
      {" 01012000 x", kDate, day(2000, 1, 1), 0},
  });
}

TEST_F(UndelimitedInput, AnyTextMayFollowADelimiterBehindTheDate) {
  for (const char delimiter : std::string_view(" .,:-/")) {
    EXPECT_EQ(read_text(std::string("01012000") + delimiter + "junk", kDate),
              (Reading{day(2000, 1, 1), 0}));
  }
  expect_readings({
      {"01012000 xyz", kDate, day(2000, 1, 1), 0},
      {"01012000-junk", kDate, day(2000, 1, 1), 0},
      {"01012000x", kDate, kMissing, 1196},
      {"010120001", kDate, kMissing, 1196},
      {"01012000!", kDate, kMissing, 1196},
      {"20000101T1230", kSdate, kMissing, 1193},
  });
}

TEST_F(UndelimitedInput, TheCalendarRunsOnAndFailsWith608) {
  expect_readings({
      {"31022001", kDate, day(2001, 3, 3), 0},
      {"01132000", kDate, day(2001, 1, 1), 0},
      {"00012000", kDate, day(1999, 12, 31), 0},
      {"30022000", kEdate, day(2000, 3, 1), 0},
      {"01142000", kDate, kMissing, 608},
      {"01002000", kDate, kMissing, 608},
      {"32012000", kDate, kMissing, 608},
      {"01011500", kDate, kMissing, 608},
      {"14101582", kDate, kMissing, 608},
      {"15101582", kDate, 86400, 0},
      {"13312000", kAdate, day(2001, 1, 31), 0},
      {"14012000", kAdate, kMissing, 608},
      {"20001400", kSdate, kMissing, 608},
      {"01011500", kDatetime, kMissing, 1139},
  });
  cmndtm_.century_begin = 1500;
  EXPECT_EQ(read_text("010150", kDate), (Reading{kMissing, 608}));
  EXPECT_EQ(read_text("1-JAN-50", kDate), (Reading{kMissing, 1137}));
}

TEST_F(UndelimitedInput, EachFormatHasItsStatus) {
  expect_readings({
      {"0101x000", kDate, kMissing, 1196},
      {"0101x000", kAdate, kMissing, 1195},
      {"0101x000", kEdate, kMissing, 1194},
      {"0101x000", kSdate, kMissing, 1193},
      {"0101x000 1", kDatetime, kMissing, 1139},
      {"0101x000 1", kYearFirst, kMissing, 1190},
  });
}

TEST_F(UndelimitedInput, Times) {
  expect_readings({
      {"1230", kTime, 45000, 0},         {"123015", kTime, 45015, 0},
      {"123015.25", kTime, 45015.25, 0}, {"T1230", kTime, 45000, 0},
      {" 1230", kTime, 45000, 0},        {"1230  ", kTime, 45000, 0},
      {" 123015.5 ", kTime, 45015.5, 0}, {"123015.", kTime, 45015, 0},
      {"1230.", kTime, 45000, 0},        {"0000", kTime, 0, 0},
      {"2359", kTime, 86340, 0},         {"235959.999", kTime, 86399.999, 0},
      {"2400", kTime, kMissing, 1192},   {"2500", kTime, kMissing, 1192},
      {"25:00", kTime, 90000, 0},        {"1260", kTime, kMissing, 1192},
      {"123060", kTime, kMissing, 1192}, {"  1230", kTime, kMissing, 1146},
      {"t1230", kTime, kMissing, 1192},  {"TT1230", kTime, kMissing, 1192},
      {" T1230", kTime, kMissing, 1192}, {"T 1230", kTime, kMissing, 1146},
  });
}

TEST_F(UndelimitedInput, TimesOwnWhatTheyTake) {
  expect_readings({
      {"12-30", kTime, kMissing, 1192},     {"noon", kTime, kMissing, 1192},
      {"-1230", kTime, kMissing, 1192},     {"12AB", kTime, kMissing, 1192},
      {"12301", kTime, kMissing, 1192},     {"1230-", kTime, 45000, 0},
      {"1230/", kTime, 45000, 0},           {"1230,", kTime, 45000, 0},
      {"1230x", kTime, kMissing, 1192},     {"123015-25", kTime, kMissing, 1192},
      {"123015,25", kTime, kMissing, 1192}, {"1230.5", kTime, kMissing, 1192},
      {"1230.15", kTime, kMissing, 1192},   {"123015.2x", kTime, kMissing, 1192},
      {"123015.2.5", kTime, 442854125, 0},  {"1230.1.", kTime, kMissing, 1146},
      {"1230 15", kTime, 4428900, 0},       {"1230:15", kTime, 4428900, 0},
      {"12.30", kTime, 45000, 0},           {"123.0", kTime, 442800, 0},
      {"12", kTime, kMissing, 1146},        {"123", kTime, kMissing, 1146},
      {"T123", kTime, kMissing, 1146},      {"12 ", kTime, kMissing, 1146},
      {"123 ", kTime, kMissing, 1146},
  });
}

TEST_F(UndelimitedInput, OnlyTheStopSetOfTimesFollowsTheSettings) {
  iocvsetdeccharcomma_();
  expect_readings({
      {"12.30", kTime, kMissing, 1192},
      {"12,30", kTime, 45000, 0},
      {"123015,25", kTime, 45015.25, 0},
      {"123015.25", kTime, kMissing, 1192},
      {"1230.", kTime, 45000, 0},
      {"01012000.x", kDate, day(2000, 1, 1), 0},
      {"01012000,x", kDate, day(2000, 1, 1), 0},
  });
}

TEST_F(UndelimitedInput, FractionsAreFoldedInDoublesAndNeverEndless) {
  EXPECT_EQ(read_text("000000.12345678901234567890", kTime), (Reading{0.12345678901234569, 0}));
  const auto with_fraction = [](std::size_t digits, char digit) {
    return std::string("000000.").append(digits, digit);
  };
  EXPECT_EQ(read_text(with_fraction(308, '9'), kTime).status, 0);
  EXPECT_NEAR(read_text(with_fraction(308, '9'), kTime).value, 1.0, 1e-14);
  EXPECT_EQ(read_text(with_fraction(309, '9'), kTime), (Reading{kMissing, 1192}));
  EXPECT_EQ(read_text(with_fraction(310, '0'), kTime), (Reading{0.0, 0}));
}

TEST_F(UndelimitedInput, DateTimes) {
  const double noon = day(2000, 1, 1) + 45000;
  expect_readings({
      {"01012000 1230", kDatetime, noon, 0},
      {"01012000-1230", kDatetime, kMissing, 1139},
      {"01012000  1230", kDatetime, kMissing, 1139},
      {"01012000T1230", kDatetime, kMissing, 1139},
      {"010120001230", kDatetime, kMissing, 1139},
      {"01JAN2000 123015.5", kDatetime, noon + 15.5, 0},
      {"20000101T1230", kYearFirst, noon, 0},
      {"200001011230", kYearFirst, noon, 0},
      {"20000101 1230", kYearFirst, noon, 0},
      {"20000101 12:30", kYearFirst, noon, 0},
      {"20000101", kYearFirst, kMissing, 1190},
      {"01012000", kDatetime, kMissing, 1139},
  });
}

// --- the flat routines ---

struct Flat {
  std::int64_t taken;
  double value;
  std::int64_t consumed;
  std::int64_t status;
  std::int64_t position;

  bool operator==(const Flat&) const = default;
};

// The field is all that there is: text(1..width).
Flat date_flat(std::string_view text, std::int64_t position, int code) {
  const Guarded field(text);
  const std::int32_t type = code;
  const auto width = static_cast<std::int64_t>(text.size());
  Flat flat = {7, 12345, -1, -1, position};
  flat.taken = obidatenodlmt_(field.data(), &flat.position, &width, &type, &flat.value,
                              &flat.consumed, &flat.status);
  return flat;
}

Flat time_flat(std::string_view text, std::int64_t position) {
  const Guarded field(text);
  const auto width = static_cast<std::int64_t>(text.size());
  Flat flat = {7, 12345, -1, -1, position};
  flat.taken = obitimenodlmt_(field.data(), &flat.position, &width, &flat.value, &flat.consumed,
                              &flat.status);
  return flat;
}

TEST_F(UndelimitedInput, FlatDates) {
  const double january = day(2000, 1, 1);
  EXPECT_EQ(date_flat("01012000", 1, kDate), (Flat{-1, january, 8, 0, 9}));
  EXPECT_EQ(date_flat(" 01012000 x", 1, kDate), (Flat{-1, january, 9, 0, 10}));
  EXPECT_EQ(date_flat("xx01012000", 3, kDate), (Flat{-1, january, 8, 0, 11}));
  EXPECT_EQ(date_flat("xx 010100", 3, 99), (Flat{-1, day(1900, 1, 1), 7, 0, 10}));
  EXPECT_EQ(date_flat("20000101T1230", 1, kYearFirst), (Flat{-1, january, 8, 0, 9}));
  // Not taken: nothing but the value and the counts.
  EXPECT_EQ(date_flat("1-JAN-2000", 1, kDate), (Flat{0, kMissing, 0, 0, 1}));
  EXPECT_EQ(date_flat("-1-JAN-2000", 1, kDate), (Flat{0, kMissing, 0, 0, 1}));
  EXPECT_EQ(date_flat("12345", 1, kDate), (Flat{0, kMissing, 0, 0, 1}));
  EXPECT_EQ(date_flat("1234 6", 1, kDate), (Flat{0, kMissing, 0, 0, 1}));
  EXPECT_EQ(date_flat("", 1, kDate), (Flat{0, kMissing, 0, 0, 1}));
  EXPECT_EQ(date_flat(" ", 1, kDate), (Flat{0, kMissing, 0, 0, 1}));
  // A bad date leaves the position, one that the calendar refuses does not.
  const Flat failed = date_flat("010x2000", 1, kDate);
  EXPECT_EQ(failed.taken, -1);
  EXPECT_EQ(failed.status, 1196);
  EXPECT_EQ(failed.value, kMissing);
  EXPECT_EQ(failed.position, 1);
  EXPECT_EQ(date_flat("01011500", 1, kDate), (Flat{-1, kMissing, 8, 608, 9}));
  EXPECT_EQ(date_flat("010x2000", 1, kDatetime).status, 1197);
}

TEST_F(UndelimitedInput, FlatTimes) {
  EXPECT_EQ(time_flat("1230", 1), (Flat{-1, 45000, 4, 0, 5}));
  EXPECT_EQ(time_flat("123015.25", 1), (Flat{-1, 45015.25, 9, 0, 10}));
  EXPECT_EQ(time_flat("T1230  ", 1), (Flat{-1, 45000, 5, 0, 6}));
  EXPECT_EQ(time_flat("xxx 1230-", 4), (Flat{-1, 45000, 5, 0, 9}));
  EXPECT_EQ(time_flat("1230.", 1), (Flat{-1, 45000, 4, 0, 5}));
  EXPECT_EQ(time_flat("12:30", 1), (Flat{0, kMissing, 0, 0, 1}));
  EXPECT_EQ(time_flat("123", 1), (Flat{0, kMissing, 0, 0, 1}));
  EXPECT_EQ(time_flat("T123", 1), (Flat{0, kMissing, 0, 0, 1}));
  EXPECT_EQ(time_flat("", 1), (Flat{0, kMissing, 0, 0, 1}));
  const Flat failed = time_flat("2400", 1);
  EXPECT_EQ(failed.taken, -1);
  EXPECT_EQ(failed.status, 1192);
  EXPECT_EQ(failed.value, kMissing);
  EXPECT_EQ(failed.position, 1);
}

TEST_F(UndelimitedInput, PositionsOutsideTheFieldFindNothing) {
  for (const std::int64_t position : {INT64_MIN, std::int64_t{-5}, std::int64_t{0}, std::int64_t{9},
                                      std::int64_t{500}, INT64_MAX}) {
    EXPECT_EQ(date_flat("01012000", position, kDate), (Flat{0, kMissing, 0, 0, position}));
    EXPECT_EQ(time_flat("12301500", position), (Flat{0, kMissing, 0, 0, position}));
  }
}

// The object layer's view of the settings: the record that the host named last.
TEST_F(UndelimitedInput, FlatTimesFollowTheNamedRecord) {
  IocvLocaleRecord other = cmnloc_;
  other.decimal = ',';
  seecmn_(&cmnglb_, &cmaglb_, &cmnsys_, &cmasys_, &cmnmch_, &cmamch_, &other, &cmndtm_, &cmadtm_);
  EXPECT_EQ(time_flat("123015,25", 1), (Flat{-1, 45015.25, 9, 0, 10}));
  EXPECT_EQ(time_flat("123015.25", 1).status, 1192);
  seecmn_(&cmnglb_, &cmaglb_, &cmnsys_, &cmasys_, &cmnmch_, &cmamch_, &cmnloc_, &cmndtm_, &cmadtm_);
  EXPECT_EQ(time_flat("123015.25", 1), (Flat{-1, 45015.25, 9, 0, 10}));
}

}  // namespace
}  // namespace test
