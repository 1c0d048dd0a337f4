// The fast ways of dates and times as input beside their plain ways.
#include "fast_reading.h"

#include <date/date.h>

namespace {

using namespace test::fast_reading;

constexpr std::int64_t kCenturies[] = {1900, 1900, 1950, 1969,      1582,     1583,
                                       1999, 9900, 9901, 9999,      0,        -50,
                                       100,  99,   5000, INT64_MIN, INT64_MAX};

class FastReading : public testing::Test {
 protected:
  void expect_same(const Way& way, std::string_view text) { fields_.expect_same(way, text); }

  void walk_days(unsigned stride, bool every_layout) {
    std::mt19937_64 random = test::random_source();
    SCOPED_TRACE(test::seed_text());
    const date::sys_days last = date::year{9999} / 12 / 31;
    unsigned turn = 0;
    for (date::sys_days day = date::year{1582} / 10 / 10; day <= last && !HasFailure();
         day += date::days{stride}, ++turn) {
      const date::year_month_day ymd{day};
      const Parts parts = {static_cast<unsigned>(ymd.day()), static_cast<unsigned>(ymd.month()),
                           static_cast<unsigned>(static_cast<int>(ymd.year())),
                           static_cast<unsigned>(random() % 86400)};
      for (std::size_t i = 0; i < std::size(kWays); ++i) {
        if (!every_layout && turn % std::size(kWays) != i) continue;
        const std::string text = composed(kWays[i].pattern, parts);
        expect_same(kWays[i], text);
        expect_same(kWays[i], disturbed(text, random));
      }
    }
  }

  void read_as_written(int count) {
    std::mt19937_64 random = test::random_source();
    SCOPED_TRACE(test::seed_text());
    for (int i = 0; i < count && !HasFailure(); ++i) {
      cmndtm_.century_begin = kCenturies[random() % std::size(kCenturies)];
      cmnloc_.decimal = random() % 4 == 0 ? ',' : '.';
      for (const Way& way : kWays) {
        std::string text;
        if (way.type != Format::TIME) {
          text = random() % 4 == 0 ? some_run(random) : some_date(way.type, random);
        }
        if (way.pattern.find('H') != std::string_view::npos) text += some_time(random);
        expect_same(way, random() % 8 == 0 ? disturbed(text + ' ', random) : text);
      }
      for (const Way& way : kPeriods) {
        const std::string text = some_period(way.type, random);
        expect_same(way, random() % 8 == 0 ? disturbed(text + ' ', random) : text);
      }
    }
  }

  // hh:mm and hh:mm:ss.f, three in eight of them with other bytes in places.
  void read_clocks(int count) {
    std::mt19937_64 random = test::random_source();
    SCOPED_TRACE(test::seed_text());
    for (int i = 0; i < count && !HasFailure(); ++i) {
      if (i % 1000 == 0) cmnloc_.decimal = random() % 2 == 0 ? ',' : '.';
      std::string text = "HH:NN";
      if (random() % 4 != 0) {
        text += random() % 8 == 0 ? ":SS;" : cmnloc_.decimal == '.' ? ":SS." : ":SS,";
      }
      text = composed(text, {28, 2, 2024, static_cast<unsigned>(random() % 360'000)});
      if (text.size() > 5) {
        for (std::uint64_t digits = random() % 10; digits > 0; --digits) {
          text += static_cast<char>('0' + random() % 10);
        }
      }
      if (random() % 4 == 0) text[0] = ' ';
      expect_same(kWays[5], random() % 8 < 3 ? disturbed(text, random) : text);
    }
  }

  // With the hour's tens as a digit and as a blank.
  void walk_seconds(unsigned first, unsigned end) {
    std::mt19937_64 random = test::random_source();
    SCOPED_TRACE(test::seed_text());
    for (const Way& way : {kWays[4], kWays[5]}) {
      const std::size_t hour = way.pattern.find('H');
      for (unsigned second = first; second < end && !HasFailure(); ++second) {
        std::string text = composed(way.pattern, {28, 2, 2024, second});
        expect_same(way, text);
        text[hour] = ' ';
        expect_same(way, text);
        if (second % 4 == 0) expect_same(way, disturbed(text, random));
      }
    }
  }

 private:
  const test::RecordsGuard guard_;
  AllFields fields_;
};
using LongFastReading = FastReading;

TEST_F(FastReading, EveryThirteenthDayInOneLayout) { walk_days(13, false); }

TEST_F(LongFastReading, EveryDayInEveryLayout) { walk_days(1, true); }

TEST_F(FastReading, FieldsAsPeopleWriteThem) { read_as_written(50'000); }

TEST_F(LongFastReading, FieldsAsPeopleWriteThem) { read_as_written(2'000'000); }

TEST_F(FastReading, BlankFieldsOfEveryWidth) {
  const auto expect_same_blanks = [&](const Way& way) {
    for (std::size_t width = 0; width <= 40; ++width) {
      expect_same(way, std::string(width, ' '));
      if (width > 0) expect_same(way, std::string(width - 1, ' ') + '.');
      if (width > 0) expect_same(way, std::string(width - 1, ' ') + '1');
    }
  };
  for (const double missing : {iocv::kSystemMissing, -1.0, 0.0, 15.0, test::kNan}) {
    cmnglb_.system_missing = missing;
    for (const Way& way : kWays) expect_same_blanks(way);
    for (const Way& way : kPeriods) expect_same_blanks(way);
  }
}

TEST_F(FastReading, EveryByteAtEveryColumnOfAPeriod) {
  for (const Way& way : kPeriods) {
    std::string text(way.pattern);
    for (char& c : text) {
      const char before = c;
      for (int byte = 0; byte < 256; ++byte) {
        c = static_cast<char>(byte);
        expect_same(way, text);
        expect_same(way, text + ' ');
        expect_same(way, ' ' + text);
      }
      c = before;
    }
    for (int byte = 0; byte < 256; ++byte) expect_same(way, text + static_cast<char>(byte));
  }
}

TEST_F(FastReading, EveryYearQuarterMonthWeekAndDay) {
  for (unsigned year = 1500; year <= 10'001; year += year < 1600 ? 1 : 7) {
    const std::string four = std::to_string(year);
    const std::string two = some_number(year % 100, 2);
    for (const std::string& text : {four, two}) {
      for (unsigned n = 0; n <= 55; ++n) {
        expect_same(kPeriods[0], text + some_number(n * 67 / 10, 3));
        expect_same(kPeriods[2], std::to_string(n) + "/" + text);
        expect_same(kPeriods[3], std::to_string(n) + " Q " + text);
        expect_same(kPeriods[4], std::to_string(n) + " WK " + text);
      }
    }
  }
}

TEST_F(FastReading, EverySecondOfADay) { walk_seconds(0, 86'400); }

TEST_F(LongFastReading, EverySecondOfHundredHours) { walk_seconds(0, 360'000); }

TEST_F(FastReading, SecondsBeyondADay) { walk_seconds(350'000, 360'000); }

TEST_F(FastReading, ClocksWithoutSecondsAndWithFractions) { read_clocks(1'000'000); }

TEST_F(LongFastReading, ClocksWithoutSecondsAndWithFractions) { read_clocks(20'000'000); }

TEST_F(FastReading, EveryByteAtEveryColumnOfAClock) {
  for (const std::string_view clock :
       {"00:00", " 9:05", "23:59", "12:34:56.7", " 1:23:45.67", "99:59:59.9999999", "0:00:00.00"}) {
    std::string text(clock);
    for (char& c : text) {
      const char before = c;
      for (int byte = 0; byte < 256; ++byte) {
        c = static_cast<char>(byte);
        expect_same(kWays[5], text);
      }
      c = before;
    }
  }
}

TEST_F(FastReading, HoursMinutesAndSecondsThatDoNotExist) {
  for (const Way& way : {kWays[4], kWays[5]}) {
    std::string text = composed(way.pattern, {28, 2, 2024});
    for (const std::size_t column : {text.size() - 8, text.size() - 5, text.size() - 2}) {
      for (unsigned number = 0; number < 100; ++number) {
        text[column] = static_cast<char>('0' + number / 10);
        text[column + 1] = static_cast<char>('0' + number % 10);
        expect_same(way, text);
      }
      text.replace(column, 2, "05");
    }
  }
}

constexpr unsigned kYears[] = {0,    1,    99,   100,  999,  1581, 1582,
                               1583, 1600, 1900, 2000, 2023, 2024, 9999};

TEST_F(FastReading, DaysAndMonthsThatDoNotExist) {
  for (const Way& way : kWays) {
    for (const unsigned year : kYears) {
      for (unsigned month = 0; month <= 99; month += month < 22 ? 1 : 11) {
        for (unsigned day = 0; day <= 99; day += day < 45 ? 1 : 9) {
          expect_same(way, composed(way.pattern, {day, month, year}));
        }
      }
    }
  }
}

TEST_F(FastReading, EveryByteAtEveryColumn) {
  for (const Way& way : kWays) {
    for (const Parts parts :
         {Parts{1, 1, 2000}, Parts{28, 12, 1583, 86399}, Parts{10, 9, 9999, 36000}}) {
      std::string text = composed(way.pattern, parts);
      for (char& c : text) {
        const char before = c;
        for (int byte = 0; byte < 256; ++byte) {
          c = static_cast<char>(byte);
          expect_same(way, text);
        }
        c = before;
      }
    }
  }
}

TEST_F(FastReading, WhatStandsBetweenDateAndTime) {
  for (const Way& way : {kWays[4], kWays[6]}) {
    for (const std::string_view date : {"28-FEB-2024", "2024-02-28", "20240228", "28022024"}) {
      for (const std::string_view between : {"", " ", "  ", "T", "T ", " T", "TT", "t", ":", "-"}) {
        for (const std::string_view time :
             {"06:53:37", "6:53:37.25", "6:53", "16:53:37 ", "065337"}) {
          expect_same(way, std::string(date).append(between).append(time));
          expect_same(way, std::string(" ").append(date).append(between).append(time));
        }
      }
    }
  }
}

TEST_F(FastReading, EveryMonthInEveryCase) {
  for (unsigned month = 1; month <= 12; ++month) {
    const std::string text = composed(kWays[0].pattern, {15, month, 2001});
    for (unsigned lower = 0; lower < 8; ++lower) {
      std::string cased = text;
      for (unsigned i = 0; i < 3; ++i) {
        if (lower >> i & 1) cased[3 + i] = static_cast<char>(cased[3 + i] | 0x20);
      }
      expect_same(kWays[0], cased);
    }
  }
}

// The hundred years of two digits, from several years on.
TEST_F(FastReading, EverySixthDayOfACenturyInTwoDigits) {
  constexpr const char* kPatterns[] = {"dd-MMM-yy", "mm/dd/yy", "dd.mm.yy", "yy/mm/dd"};
  std::mt19937_64 random = test::random_source();
  SCOPED_TRACE(test::seed_text());
  for (const std::int64_t begin : kCenturies) {
    cmndtm_.century_begin = begin;
    for (int number = 0; number < 36'524 && !HasFailure(); number += 6) {
      const date::year_month_day day{date::sys_days{date::year{2000} / 1 / 1} + date::days{number}};
      const Parts parts = {static_cast<unsigned>(day.day()), static_cast<unsigned>(day.month()),
                           static_cast<unsigned>(static_cast<int>(day.year()))};
      for (std::size_t i = 0; i < std::size(kPatterns); ++i) {
        const std::string text = composed(kPatterns[i], parts);
        expect_same(kWays[i], text);
        if (number % 4 == 0) expect_same(kWays[i], disturbed(text, random));
      }
    }
  }
}

TEST_F(FastReading, EveryByteAtEveryColumnOfAShortDate) {
  constexpr const char* kTexts[] = {"29-feb-96", "02/29/96", "29.02.96", "96/02/29"};
  cmndtm_.century_begin = 1930;
  for (std::size_t i = 0; i < std::size(kTexts); ++i) {
    const std::string text = kTexts[i];
    for (std::size_t column = 0; column < text.size(); ++column) {
      for (int byte = 0; byte < 256; ++byte) {
        std::string other = text;
        other[column] = static_cast<char>(byte);
        expect_same(kWays[i], other);
      }
    }
  }
}

}  // namespace
