// TIME, DTIME, DATETIME and the year-first date-time (86), and the state machine of times.
#include <iocv/iocv.h>

#include "datetime/obitim_states.h"
#include "datetime/reading.h"

namespace test {
namespace {

using TimeInput = DateTimeInput;

TEST_F(TimeInput, Times) {
  expect_readings({
      {"12:30", kTime, 45000, 0},          {"12:30:15", kTime, 45015, 0},
      {"12:30:15.25", kTime, 45015.25, 0}, {"12.30", kTime, 45000, 0},
      {"12 30 15", kTime, 45015, 0},       {"-1:00", kTime, -3600, 0},
      {"+1:00", kTime, 3600, 0},           {"T12:30", kTime, 45000, 0},
      {"100:00", kTime, 360000, 0},        {"25:00", kTime, 90000, 0},
      {"1:30 ", kTime, 5400, 0},           {"1:30 x", kTime, kMissing, 1146},
      {"1:60", kTime, kMissing, 1146},     {"1:59:60", kTime, kMissing, 1146},
      {"1:59:59", kTime, 7199, 0},         {"12", kTime, kMissing, 1146},
      {"1:", kTime, kMissing, 1146},       {"", kTime, kMissing, 0},
      {"     ", kTime, kMissing, 0},       {" 1:30", kTime, 5400, 0},
      {" -1:30", kTime, -5400, 0},         {" - 1:30", kTime, -5400, 0},
      {"-0:00", kTime, -0.0, 0},           {"0:00", kTime, 0, 0},
  });
}

TEST_F(TimeInput, TheDecimalMarkBringsAFractionOnlyAfterTheSeconds) {
  expect_readings({
      {"12:30.5", kTime, 45005, 0},
      {"1.30.5", kTime, 5405, 0},
      {"1:30:15:25", kTime, 5415.25, 0},
      {"1:30:15.", kTime, kMissing, 1146},
      {"1:30:15 25", kTime, kMissing, 1146},
      {"1:30:15.25.5", kTime, kMissing, 1146},
      {"1:30:15.25  ", kTime, 5415.25, 0},
      {"1:30:15.25 x", kTime, kMissing, 1146},
      {"1:30:15 . 25", kTime, 5415.25, 0},
      {"1:30:15,25", kTime, kMissing, 1146},
      {"12,30", kTime, kMissing, 1192},
  });
  iocvsetdeccharcomma_();
  EXPECT_EQ(read_text("1:30:15,25", kTime), (Reading{5415.25, 0}));
  EXPECT_EQ(read_text("1:30:15.25", kTime), (Reading{kMissing, 1146}));
  EXPECT_EQ(read_text("1,30", kTime), (Reading{5400, 0}));
}

TEST_F(TimeInput, FractionsAreFoldedInDoubles) {
  EXPECT_EQ(read_text("0:00:00.12415868344978690736625", kTime), (Reading{0.12415868344978691, 0}));
  EXPECT_EQ(read_text("0:00:00.85878310122283459", kTime), (Reading{0.8587831012228347, 0}));
}

// g++ 12 warns of sums of a string literal and a string of characters.
std::string nines(std::size_t count, const std::string& before, const std::string& behind) {
  std::string text = before;
  for (std::size_t i = 0; i < count; ++i) text += '9';
  return text += behind;
}

TEST_F(TimeInput, NoTimeIsEndless) {
  EXPECT_EQ(read_text(nines(308, "0:00:00.", ""), kTime).status, 0);
  EXPECT_NEAR(read_text(nines(308, "0:00:00.", ""), kTime).value, 1.0, 1e-14);
  EXPECT_EQ(read_text(nines(309, "0:00:00.", ""), kTime), (Reading{kMissing, 1146}));
  EXPECT_EQ(read_text(nines(310, "", ":00"), kTime), (Reading{kMissing, 1146}));
  EXPECT_EQ(read_text(nines(306, "", ":00"), kTime).status, 1146);  // infinite in seconds
  EXPECT_EQ(read_text(nines(304, "", ":00"), kTime).status, 0);
  EXPECT_EQ(read_text(nines(310, "", ""), kDtime), (Reading{kMissing, 1138}));
  EXPECT_EQ(read_text(nines(308, "", ""), kDtime), (Reading{kMissing, 1138}));
  EXPECT_EQ(read_text(nines(303, "", ""), kDtime).status, 0);
  EXPECT_EQ(read_text(nines(309, "1-JAN-2000 0:00:00.", ""), kDatetime), (Reading{kMissing, 1139}));
  EXPECT_EQ(read_text(nines(309, "2000-1-1 0:00:00.", ""), kYearFirst), (Reading{kMissing, 1190}));
}

TEST_F(TimeInput, OneStrayCharacterMayEndATime) {
  const double noon = day(2000, 1, 1) + 5400;
  expect_readings({
      {"1:30!", kTime, 5400, 0},
      {"1:30:15 ? ", kTime, 5415, 0},
      {"1:30 +", kTime, 5400, 0},
      {"1:30!!", kTime, kMissing, 1146},
      {"1:30! !", kTime, kMissing, 1146},
      {"1:30!x", kTime, kMissing, 1146},
      {"1:30-", kTime, kMissing, 1146},
      {"1:30x", kTime, kMissing, 1146},
      {"1:30:15.25!", kTime, kMissing, 1146},
      {"1!30", kTime, kMissing, 1192},
      {"1-JAN-2000 1:30!", kDatetime, noon, 0},
      {"1-JAN-2000 1:30!!", kDatetime, kMissing, 1139},
      {std::string_view("1:30\0", 5), kTime, 5400, 0},
  });
}

TEST_F(TimeInput, AMarkOfATimeIsAnUpperCaseTAtItsVeryBeginning) {
  const double noon = day(2000, 1, 1) + 45000;
  expect_readings({
      {"t12:30", kTime, kMissing, 1146},
      {" T12:30", kTime, kMissing, 1146},
      {"TT12:30", kTime, kMissing, 1146},
      {"T 12:30", kTime, kMissing, 1146},
      {"T-12:30", kTime, kMissing, 1146},
      {"T", kTime, kMissing, 1146},
      {"1-JAN-2000 T12:30", kDatetime, kMissing, 1139},
      {"1-JAN-2000T12:30", kDatetime, noon, 0},
      {"2000-01-01T12:30:15.5", kYearFirst, noon + 15.5, 0},
  });
}

// The table as digits, a for the tenth action; word, number, decimal mark, colon, separator,
// blanks, other.
constexpr std::string_view kTable[] = {
    "a3aa121",  // sign or hours
    "a3aaaaa",  // hours
    "aa22a2a",  // after the hours
    "a4aaaaa",  // minutes
    "aa22a97",  // after the minutes
    "a5aaaaa",  // seconds
    "aa22a87",  // after the seconds
    "a6aaa8a",  // fraction
};

TEST_F(TimeInput, TheTableHoldsItsActions) {
  ASSERT_EQ(iocv::kTimeActions.size(), std::size(kTable));
  for (std::size_t state = 0; state < std::size(kTable); ++state) {
    for (std::size_t type = 0; type < iocv::kTokenTypes; ++type) {
      const char told = kTable[state][type];
      EXPECT_EQ(static_cast<int>(iocv::kTimeActions[state][type]), told == 'a' ? 10 : told - '0')
          << state + 1 << " " << type + 1;
    }
  }
}

// Blanks cannot follow the delimiter before minutes, seconds or a fraction: three cells that no
// text reaches. All others, in the order of the table; two leading blanks keep the reader without
// delimiters away where it would take the text.
TEST_F(TimeInput, EveryCellThatATextReachesActsAsTold) {
  expect_readings({
      // sign or hours: word, number, decimal mark, colon, separator, blanks, other, end
      {"x1:30", kTime, kMissing, 1146},
      {"1:30", kTime, 5400, 0},
      {".1:30", kTime, kMissing, 1146},
      {":1:30", kTime, kMissing, 1146},
      {"-1:30", kTime, -5400, 0},
      {"/1:30", kTime, kMissing, 1146},
      {",1:30", kTime, kMissing, 1146},
      {"  1:30", kTime, 5400, 0},
      {"+1:30", kTime, 5400, 0},
      {"!1:30", kTime, kMissing, 1146},
      // hours
      {"-x:30", kTime, kMissing, 1146},
      {"-1:30", kTime, -5400, 0},
      {"-.:30", kTime, kMissing, 1146},
      {"-::30", kTime, kMissing, 1146},
      {"--1:30", kTime, kMissing, 1146},
      {"T 1:30", kTime, kMissing, 1146},
      {"-+1:30", kTime, kMissing, 1146},
      {"-", kTime, kMissing, 1146},
      // after the hours
      {"  1x30", kTime, kMissing, 1146},
      {"1.30", kTime, 5400, 0},
      {"1:30", kTime, 5400, 0},
      {"  1-30", kTime, kMissing, 1146},
      {"1 30", kTime, 5400, 0},
      {"  1!30", kTime, kMissing, 1146},
      {"1", kTime, kMissing, 1146},
      // minutes
      {"1:x", kTime, kMissing, 1146},
      {"1:30", kTime, 5400, 0},
      {"1:.", kTime, kMissing, 1146},
      {"1::", kTime, kMissing, 1146},
      {"1:-", kTime, kMissing, 1146},
      {"1:!", kTime, kMissing, 1146},
      {"1:", kTime, kMissing, 1146},
      // after the minutes
      {"1:30x", kTime, kMissing, 1146},
      {"1:30.15", kTime, 5415, 0},
      {"1:30:15", kTime, 5415, 0},
      {"1:30-15", kTime, kMissing, 1146},
      {"1:30 15", kTime, 5415, 0},
      {"1:30  ", kTime, 5400, 0},
      {"1:30!", kTime, 5400, 0},
      {"1:30!15", kTime, kMissing, 1146},
      // seconds
      {"1:30:x", kTime, kMissing, 1146},
      {"1:30:15", kTime, 5415, 0},
      {"1:30:.", kTime, kMissing, 1146},
      {"1:30::", kTime, kMissing, 1146},
      {"1:30:-", kTime, kMissing, 1146},
      {"1:30:!", kTime, kMissing, 1146},
      {"1:30:", kTime, kMissing, 1146},
      {"1:30 x", kTime, kMissing, 1146},
      // after the seconds
      {"1:30:15x", kTime, kMissing, 1146},
      {"1:30:15.5", kTime, 5415.5, 0},
      {"1:30:15:5", kTime, 5415.5, 0},
      {"1:30:15-5", kTime, kMissing, 1146},
      {"1:30:15  ", kTime, 5415, 0},
      {"1:30:15 5", kTime, kMissing, 1146},
      {"1:30:15 55", kTime, kMissing, 1146},
      {"1:30:15!", kTime, 5415, 0},
      {"1:30:15!5", kTime, kMissing, 1146},
      // fraction
      {"1:30:15.x", kTime, kMissing, 1146},
      {"1:30:15.5", kTime, 5415.5, 0},
      {"1:30:15..", kTime, kMissing, 1146},
      {"1:30:15.:", kTime, kMissing, 1146},
      {"1:30:15.-", kTime, kMissing, 1146},
      {"1:30:15.!", kTime, kMissing, 1146},
      {"1:30:15.", kTime, kMissing, 1146},
  });
}

TEST_F(TimeInput, Durations) {
  expect_readings({
      {"5", kDtime, 432000, 0},
      {"5 ", kDtime, 432000, 0},
      {"-5", kDtime, -432000, 0},
      {"+5", kDtime, 432000, 0},
      {" - 5 ", kDtime, -432000, 0},
      {"5:", kDtime, 432000, 0},
      {"5 12:30", kDtime, 477000, 0},
      {"5:12:30", kDtime, 477000, 0},
      {"5:12:30:15.5", kDtime, 477015.5, 0},
      {"-5 12:30", kDtime, -477000, 0},
      {"  5  12:30  ", kDtime, 477000, 0},
      {"5 1230", kDtime, 477000, 0},
      {"5 T1230", kDtime, 477000, 0},
      {"5 T12:30", kDtime, 477000, 0},
      {"5:-1:00", kDtime, 428400, 0},
      {"5 -1:00", kDtime, kMissing, 1138},
      {"1000000 23:59:59", kDtime, 86400086399.0, 0},
      {"5 24:00", kDtime, kMissing, 1138},
      {"5 2400", kDtime, kMissing, 1138},
      {"5 12", kDtime, kMissing, 1138},
      {"5.12:30", kDtime, kMissing, 1138},
      {"5-12:30", kDtime, kMissing, 1138},
      {"5x", kDtime, kMissing, 1138},
      {"5!", kDtime, kMissing, 1138},
      {"x", kDtime, kMissing, 1138},
      {"-", kDtime, kMissing, 1138},
      {"--5", kDtime, kMissing, 1138},
      {"!5", kDtime, kMissing, 1138},
      {"/5", kDtime, kMissing, 1138},
      {"-x", kDtime, kMissing, 1138},
      {":5", kDtime, kMissing, 1138},
      {"", kDtime, kMissing, 0},
      {"   ", kDtime, kMissing, 0},
      {"-0", kDtime, -0.0, 0},
  });
}

TEST_F(TimeInput, DateTimesNeedBothParts) {
  const double midnight = day(2000, 1, 1);
  expect_readings({
      {"1-JAN-2000 12:30", kDatetime, midnight + 45000, 0},
      {"1-JAN-2000 12:30:15.25", kDatetime, midnight + 45015.25, 0},
      {"1/1/2000 1230", kDatetime, midnight + 45000, 0},
      {"1 1 2000 12 30", kDatetime, midnight + 45000, 0},
      {"1-JAN-2000 -12:30", kDatetime, midnight - 45000, 0},
      {"1-JAN-2000 12:30  ", kDatetime, midnight + 45000, 0},
      {"1-JAN-2000 25:00", kDatetime, kMissing, 1139},
      {"1-JAN-2000", kDatetime, kMissing, 1139},
      {"1-JAN-2000   ", kDatetime, kMissing, 1139},
      {"12:30", kDatetime, kMissing, 1139},
      {"32-JAN-2000 12:30", kDatetime, kMissing, 1139},
      {"1-JAN-2000 12:60", kDatetime, kMissing, 1139},
      {"1-JAN-2000 12:30 x", kDatetime, kMissing, 1139},
      {"x", kDatetime, kMissing, 1139},
      {"", kDatetime, kMissing, 0},
      {"      ", kDatetime, kMissing, 0},
      {"15-OCT-1582 -23:59", kDatetime, 86400 - 86340, 0},  // the sum is not tested
      {"2000-JAN-1 12:30", kYearFirst, midnight + 45000, 0},
      {"2000/1/1 12:30", kYearFirst, midnight + 45000, 0},
      {"1/1/2000 12:30", kYearFirst, kMissing, 1190},
      {"2000/1/1", kYearFirst, kMissing, 1190},
      {"2000/1/1 24:00", kYearFirst, kMissing, 1190},
      {"    ", kYearFirst, kMissing, 0},
  });
}

void put_two(char* target, int value) {
  target[0] = static_cast<char>('0' + value / 10);
  target[1] = static_cast<char>('0' + value % 10);
}

TEST_F(TimeInput, EverySecondOfADayReadsBack) {
  struct Layout {
    const char* text;
    int code;
    std::size_t hour;
    std::size_t minute;
    std::size_t second;
    double base;
  };
  const double midnight = day(2000, 1, 1);
  const Layout layouts[] = {
      {"hh:mm:ss", kTime, 0, 3, 6, 0},
      {"hhmmss", kTime, 0, 2, 4, 0},
      {"-hh mm.ss", kTime, 1, 4, 7, 0},
      {"3 hh:mm:ss", kDtime, 2, 5, 8, 3 * 86400},
      {"01-JAN-2000 hh:mm:ss", kDatetime, 12, 15, 18, midnight},
      {"01012000 hhmmss", kDatetime, 9, 11, 13, midnight},
      {"2000-01-01Thh:mm:ss", kYearFirst, 11, 14, 17, midnight},
      {"20000101hhmmss", kYearFirst, 8, 10, 12, midnight},
  };
  for (const Layout& layout : layouts) {
    std::string text = layout.text;
    const double sign = text[0] == '-' ? -1 : 1;
    for (int second = 0; second < 86400; ++second) {
      put_two(text.data() + layout.hour, second / 3600);
      put_two(text.data() + layout.minute, second / 60 % 60);
      put_two(text.data() + layout.second, second % 60);
      ASSERT_EQ(read_text(text, layout.code), (Reading{sign * (layout.base + second), 0})) << text;
    }
  }
}

// --- the flat routines ---

struct Flat {
  double value;
  std::int64_t status;
  std::int64_t position;

  bool operator==(const Flat&) const = default;
};

Flat time_flat(std::string_view text, std::int64_t unbounded, std::int64_t position) {
  const Guarded field(text);
  const auto width = static_cast<std::int64_t>(text.size());
  Flat flat = {12345, -1, position};
  obitim_(field.data(), &width, &unbounded, &flat.value, &flat.status, &flat.position, width);
  return flat;
}

TEST_F(TimeInput, FlatTimesReadFromThePositionOnlyWhenBounded) {
  EXPECT_EQ(time_flat("99:00", -1, 77), (Flat{356400, 0, 6}));
  EXPECT_EQ(time_flat("99:00", 0, 1).status, 1146);
  EXPECT_EQ(time_flat("99:00", 0, 2), (Flat{32400, 0, 6}));
  EXPECT_EQ(time_flat("xx 12:30", 0, 3), (Flat{45000, 0, 9}));
  EXPECT_EQ(time_flat("xx 1230 ", 0, 3), (Flat{45000, 0, 8}));
  EXPECT_EQ(time_flat("xxT12:30", 0, 3), (Flat{45000, 0, 9}));
  // Past the end there is an end, not a blank field.
  for (const std::int64_t position : {std::int64_t{6}, std::int64_t{7}, INT64_MAX}) {
    EXPECT_EQ(time_flat("12:30", 0, position).status, 1146) << position;
    EXPECT_EQ(time_flat("12:30", 0, position).value, kMissing) << position;
  }
  EXPECT_EQ(time_flat("", 0, 1).status, 0);
  EXPECT_EQ(time_flat("", 0, 2).status, 1146);
  EXPECT_EQ(time_flat("12:30", 0, -9), (Flat{45000, 0, 6}));
}

TEST_F(TimeInput, FlatDurationsAndDateTimes) {
  const auto flat = [](auto routine, std::string_view text, auto... type) {
    const Guarded field(text);
    const auto width = static_cast<std::int64_t>(text.size());
    Flat result = {12345, -1, -1};
    routine(field.data(), &width, type..., &result.value, &result.status, &result.position, width);
    return result;
  };
  const double noon = day(2000, 1, 1) + 45000;
  EXPECT_EQ(flat(obidtm_, "5 12:30 "), (Flat{477000, 0, 9}));
  EXPECT_EQ(flat(obidtm_, "5").position, 2);
  EXPECT_EQ(flat(obidtm_, "x").status, 1138);
  for (const std::int32_t type : {22, 20, 5, -1}) {
    EXPECT_EQ(flat(obidtt_, "1-JAN-2000 12:30", &type), (Flat{noon, 0, 17}));
    EXPECT_EQ(flat(obidtt_, "x", &type).status, 1139);
  }
  const std::int32_t year_first = 86;
  EXPECT_EQ(flat(obidtt_, "2000-1-1 12:30", &year_first), (Flat{noon, 0, 15}));
  EXPECT_EQ(flat(obidtt_, "x", &year_first).status, 1190);
}

// The date or time that equals the missing number of the settings counts as missing.
TEST_F(TimeInput, AMissingPartOfADateTimeIsNoPart) {
  cmnglb_.system_missing = 45000;
  EXPECT_EQ(read_text("1-JAN-2000 12:30", kDatetime), (Reading{45000, 1139}));
  cmnglb_.system_missing = day(2000, 1, 1);
  EXPECT_EQ(read_text("1-JAN-2000 12:30", kDatetime), (Reading{day(2000, 1, 1), 1139}));
  EXPECT_EQ(read_text("2-JAN-2000 12:30", kDatetime), (Reading{day(2000, 1, 2) + 45000, 0}));
}

}  // namespace
}  // namespace test
