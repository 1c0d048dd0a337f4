// Dates with delimiters: DATE, ADATE, EDATE, SDATE, and the state machine under them.
#include "datetime/obidat.h"

#include <date/date.h>
#include <iocv/iocv.h>

#include "datetime/obidat_states.h"
#include "datetime/reading.h"
#include "support/values.h"

namespace test {
namespace {

using DateInput = DateTimeInput;

TEST_F(DateInput, ReadsDatesInTheOrderOfTheirFormat) {
  const double january = day(2000, 1, 1);
  ASSERT_EQ(january, 13166064000.0);
  expect_readings({
      {"1-JAN-2000", kDate, january, 0},
      {"1-JAN-2000 ", kDate, january, 0},
      {"01 JAN 2000", kDate, january, 0},
      {"1/1/2000", kDate, january, 0},
      {"1.I.2000", kDate, january, 0},
      {"1 january 00", kDate, day(1900, 1, 1), 0},
      {"  1 - JAN  /2000   ", kDate, january, 0},
      {"1JAN2000", kDate, kMissing, 1196},  // taken by the reader without delimiters
      {"1 JAN2000", kDate, kMissing, 1137},
      {"1--JAN-2000", kDate, kMissing, 1137},
      {"1-1-99", kDate, day(1999, 1, 1), 0},
      {"2/29/2000", kAdate, day(2000, 2, 29), 0},
      {"FEB/29/2000", kAdate, day(2000, 2, 29), 0},
      {"2/29/2001", kAdate, kMissing, 1136},
      {"29.2.2000", kEdate, day(2000, 2, 29), 0},
      {"29.XII.2000", kEdate, day(2000, 12, 29), 0},
      {"2/29/2000", kEdate, kMissing, 1151},
      {"2000/12/31", kSdate, day(2000, 12, 31), 0},
      {"00-dec-31", kSdate, day(1900, 12, 31), 0},
      {"12/31/2000", kSdate, kMissing, 1152},
      {"15-OCT-1582", kDate, 86400, 0},
      {"14-OCT-1582", kDate, kMissing, 1137},
  });
}

TEST_F(DateInput, BlankFieldsAreMissing) {
  expect_readings({
      {"", kDate, kMissing, 0},
      {" ", kAdate, kMissing, 0},
      {"  ", kEdate, kMissing, 0},
      {"           ", kSdate, kMissing, 0},
  });
}

TEST_F(DateInput, MonthsAreNumbersAbbreviationsOrRomanNumerals) {
  constexpr std::string_view kAbbreviations[] = {"jan", "Feb", "MAR", "apr", "may", "jun",
                                                 "jul", "aug", "sep", "oct", "nov", "dec"};
  constexpr std::string_view kRomans[] = {"i",   "II",   "iii", "IV", "v",  "VI",
                                          "Vii", "viii", "IX",  "X",  "xi", "xii"};
  for (unsigned month = 1; month <= 12; ++month) {
    const Reading expected = {day(2000, month, 7), 0};
    const std::string abbreviation(kAbbreviations[month - 1]);
    const std::string roman(kRomans[month - 1]);
    EXPECT_EQ(read_text("7-" + std::to_string(month) + "-2000", kDate), expected);
    EXPECT_EQ(read_text("7-00" + std::to_string(month) + "-2000", kDate), expected);
    EXPECT_EQ(read_text("7-" + abbreviation + "-2000", kDate), expected);
    EXPECT_EQ(read_text("7-" + abbreviation + "x-2000", kDate), expected);
    EXPECT_EQ(read_text("7-" + abbreviation + "uaryuaryuary-2000", kDate), expected);
    EXPECT_EQ(read_text("7-" + abbreviation + "\xC3\xA9-2000", kDate), expected);
    EXPECT_EQ(read_text("7-" + roman + "-2000", kDate), expected);
  }
  expect_readings({
      {"7-viiiX-2000", kDate, day(2000, 8, 7), 0},  // four characters count
      {"7-VIIIxyz-2000", kDate, day(2000, 8, 7), 0},
      {"7-XIII-2000", kDate, kMissing, 1137},
      {"7-IIII-2000", kDate, kMissing, 1137},
      {"7-IXa-2000", kDate, kMissing, 1137},
      {"7-ja-2000", kDate, kMissing, 1137},
      {"7-#AN-2000", kDate, kMissing, 1137},
      {"7-J\xC3\xA9-2000", kDate, kMissing, 1137},
      {"7-0-2000", kDate, kMissing, 1137},
      {"7-13-2000", kDate, kMissing, 1137},
      {"7-99999999999999999999-2000", kDate, kMissing, 1137},
  });
}

TEST_F(DateInput, NoDayLiesOutsideItsMonth) {
  for (const int year : {1900, 1999, 2000, 2004, 2100}) {
    for (unsigned month = 1; month <= 12; ++month) {
      const auto last = date::year{year} / date::month{month} / date::last;
      for (unsigned n = 0; n <= 40; ++n) {
        const std::string text =
            std::to_string(year) + "-" + std::to_string(month) + "-" + std::to_string(n);
        const bool exists = n >= 1 && date::day{n} <= last.day();
        const Reading expected = exists ? Reading{day(year, month, n), 0} : Reading{kMissing, 1152};
        EXPECT_EQ(read_text(text, kSdate), expected) << text;
      }
    }
  }
}

TEST_F(DateInput, YearsHaveTwoDigitsOrLieFrom1582To5867440) {
  expect_readings({
      {"31.12.0", kDate, day(1900, 12, 31), 0},
      {"31.12.0099", kDate, day(1999, 12, 31), 0},
      {"31.12.100", kDate, kMissing, 1137},
      {"31.12.1581", kDate, kMissing, 1137},
      {"31.12.1582", kDate, day(1582, 12, 31), 0},
      {"31.12.9999", kDate, day(9999, 12, 31), 0},
      {"1.1.10000", kDate, day(9999, 12, 31) + 86400, 0},
      {"1/1/5867440", kDate, 185108574585600.0, 0},
      {"1/1/5867441", kDate, kMissing, 1137},
      {"1/1/99999999999999999999999", kDate, kMissing, 1137},
  });
}

TEST_F(DateInput, OnlyBlanksMayFollow) {
  expect_readings({
      {"1-JAN-2000X", kDate, kMissing, 1137},
      {"1-JAN-2000 x", kDate, kMissing, 1137},
      {"1-JAN-2000-", kDate, kMissing, 1137},
      {"1-JAN-2000 !", kDate, kMissing, 1137},
      {"1-JAN-2000 12", kDate, kMissing, 1137},
      {"1-JAN-2000    ", kDate, day(2000, 1, 1), 0},
      {"01012000 x", kDate, day(2000, 1, 1), 0},  // not tested without delimiters
      {std::string_view("1-JAN-2000\0", 11), kDate, kMissing, 1137},
  });
}

TEST_F(DateInput, BothMarksDelimitUnderEitherDecimalCharacter) {
  iocvsetdeccharcomma_();
  expect_readings({
      {"1.1.2000", kDate, day(2000, 1, 1), 0},
      {"1,1,2000", kDate, day(2000, 1, 1), 0},
      {"1,I.2000", kDate, day(2000, 1, 1), 0},
  });
}

// The table as digits: 1 month, 2 skip, 3 day, 4 year, 5 error; word, number, decimal mark, colon,
// separator, blanks, other.
constexpr std::string_view kTable[] = {
    "5525225",  // before the day
    "5355555",  // the day
    "5525225",  // before the month
    "1155555",  // the month
    "5525225",  // before the year
    "5455555",  // the year
};

TEST_F(DateInput, TheTableHoldsItsActions) {
  ASSERT_EQ(iocv::kDateActions.size(), std::size(kTable));
  for (std::size_t state = 0; state < std::size(kTable); ++state) {
    for (std::size_t type = 0; type < iocv::kTokenTypes; ++type) {
      EXPECT_EQ(static_cast<int>(iocv::kDateActions[state][type]), kTable[state][type] - '0')
          << state + 1 << " " << type + 1;
    }
  }
}

// What each state finds in front of it, one text a token type. Blanks cannot follow the delimiter
// before a day, month or year, nor begin a date: three cells that no text reaches.
TEST_F(DateInput, EveryCellThatATextReachesActsAsTold) {
  const double january = day(2000, 1, 2);
  constexpr std::string_view kTokens[] = {"x", "9", ".", ":", "-", " ", "!"};
  struct State {
    std::string_view before;  // what leads to the state
    std::string_view behind;  // what completes the date when the token is a delimiter
    int code;
    std::int64_t failure;
  };
  const State states[] = {
      {"JAN", "2-2000", kAdate, 1136},  // before the day
      {"2000-JAN", "2", kSdate, 1152},  // before the day
      {"2", "JAN-2000", kDate, 1137},   // before the month
      {"2000", "JAN-2", kSdate, 1152},  // before the month
      {"2-JAN", "2000", kEdate, 1151},  // before the year
      {"JAN-2", "2000", kAdate, 1136},  // before the year
  };
  for (const State& state : states) {
    for (const std::string_view token : kTokens) {
      // A word or number must not run into the token under test.
      if (token == "x" || token == "9") {
        const bool after_word = state.before.ends_with("JAN");
        if (after_word != (token == "9")) continue;
      }
      const bool delimits = std::string_view(". -").find(token) != std::string_view::npos;
      // Two blanks keep the reader without delimiters away.
      const std::string text =
          std::string("  ").append(state.before).append(token).append(state.behind);
      EXPECT_EQ(read_text(text, state.code),
                (delimits ? Reading{january, 0} : Reading{kMissing, state.failure}))
          << text;
    }
    EXPECT_EQ(read_text("  " + std::string(state.before), state.code),
              (Reading{kMissing, state.failure}));
  }

  expect_readings({
      // day: word, number, decimal mark, colon, separator, other, end
      {"x-JAN-2000", kDate, kMissing, 1137},
      {"2-JAN-2000", kDate, january, 0},
      {".-JAN-2000", kDate, kMissing, 1137},
      {":-JAN-2000", kDate, kMissing, 1137},
      {"--JAN-2000", kDate, kMissing, 1137},
      {"!-JAN-2000", kDate, kMissing, 1137},
      {"JAN-x-2000", kAdate, kMissing, 1136},
      {"JAN-.-2000", kAdate, kMissing, 1136},
      {"JAN-:-2000", kAdate, kMissing, 1136},
      {"JAN---2000", kAdate, kMissing, 1136},
      {"JAN-!-2000", kAdate, kMissing, 1136},
      {"JAN-", kAdate, kMissing, 1136},
      // month
      {"2-JAN-2000", kDate, january, 0},
      {"2-1-2000", kDate, january, 0},
      {"2-.-2000", kDate, kMissing, 1137},
      {"2-:-2000", kDate, kMissing, 1137},
      {"2---2000", kDate, kMissing, 1137},
      {"2-!-2000", kDate, kMissing, 1137},
      {"2-", kDate, kMissing, 1137},
      // year
      {"2-JAN-x", kDate, kMissing, 1137},
      {"2-JAN-2000", kDate, january, 0},
      {"2-JAN-.", kDate, kMissing, 1137},
      {"2-JAN-:", kDate, kMissing, 1137},
      {"2-JAN--", kDate, kMissing, 1137},
      {"2-JAN-!", kDate, kMissing, 1137},
      {"2-JAN-", kDate, kMissing, 1137},
  });
}

// --- the flat routine ---

struct Flat {
  double value;
  std::int64_t status;
  std::int64_t position;
};

Flat read_flat(std::string_view text, std::int64_t width, std::int64_t allow_trailing, int code) {
  const Guarded field(text);
  const std::int32_t type = code;
  Flat flat = {12345, -1, -1};
  obidat_(field.data(), &width, &allow_trailing, &flat.value, &type, &flat.status, &flat.position,
          static_cast<std::int64_t>(text.size()));
  return flat;
}

TEST_F(DateInput, FlatRoutineLeavesThePositionBehindTheDate) {
  struct FlatCase {
    std::string_view text;
    std::int64_t width;
    std::int64_t allow_trailing;
    int code;
    double value;
    std::int64_t status;
    std::int64_t position;  // 0: does not count
  };
  const double january = day(2000, 1, 1);
  const FlatCase cases[] = {
      {"1-JAN-2000", 10, 0, 20, january, 0, 11},
      {"1-JAN-2000  ", 12, 0, 20, january, 0, 13},
      {"1-JAN-2000 12:30", 16, -1, 20, january, 0, 11},
      {"1-JAN-2000T12:30", 16, -1, 22, january, 0, 11},
      {"1-JAN-2000 12:30", 16, 0, 20, kMissing, 1137, 0},
      {"1-JAN-2000 12:30", 10, 0, 20, january, 0, 11},
      {"01012000 12:30", 14, 0, 20, january, 0, 9},
      {" 01012000", 9, 0, 20, january, 0, 10},
      {"01011500", 8, 0, 20, kMissing, 608, 0},
      {"2000-1-1 12:30", 14, -1, 86, january, 0, 9},
      {"20000101T1230", 13, -1, 86, january, 0, 9},
      {"1/1/2000", 8, 0, 5, january, 0, 9},  // any other code reads as DATE
      {"x", 1, 0, 5, kMissing, 1137, 0},
      {"010x2000", 8, 0, 5, kMissing, 1196, 0},
      {"x", 1, 0, 22, kMissing, 1137, 0},
      {"010x2000", 8, 0, 22, kMissing, 1197, 0},
      {"x", 1, 0, 86, kMissing, 1152, 0},
      {"2000010x", 8, 0, 86, kMissing, 1190, 0},
      {"1-JAN-2000", 0, 0, 20, kMissing, 0, 0},
      {"1-JAN-2000", -3, 0, 20, kMissing, 0, 0},
  };
  for (const FlatCase& c : cases) {
    const Flat flat = read_flat(c.text, c.width, c.allow_trailing, c.code);
    EXPECT_EQ(flat.value, c.value) << c.text;
    EXPECT_EQ(flat.status, c.status) << c.text;
    if (c.position != 0) {
      EXPECT_EQ(flat.position, c.position) << c.text;
    }
  }
}

TEST_F(DateInput, TheMissingNumberIsThatOfTheSettings) {
  cmnglb_.system_missing = -7;
  EXPECT_EQ(read_text("x", kDate), (Reading{-7, 1137}));
  EXPECT_EQ(read_text("010x2000", kDate), (Reading{-7, 1196}));
  EXPECT_EQ(read_text("", kDate), (Reading{-7, 0}));
}

}  // namespace
}  // namespace test
