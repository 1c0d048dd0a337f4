// The fast ways of dates and times as input beside their plain ways: the same bits of the value and
// the same status, with the field flush with a page that must not be read.
#include <date/date.h>
#include <iocv/column.h>
#include <iocv/iocv.h>

#include <bit>
#include <memory>

#include "datetime/obidat.h"
#include "datetime/obidtm.h"
#include "datetime/obidtt.h"
#include "datetime/obijdt.h"
#include "datetime/obimon.h"
#include "datetime/obiqyr.h"
#include "datetime/obitim.h"
#include "datetime/obiwky.h"
#include "support/guarded.h"
#include "support/records_guard.h"
#include "support/values.h"

namespace {

using iocv::ReadLeaf;
using Format = VELT_Format;

constexpr ReadLeaf* kPlainDate = iocv::read_leaf<iocv::read_date_plain>;

constexpr ReadLeaf* kPlainDatetime = iocv::read_leaf<iocv::read_datetime_plain>;

constexpr int kYearFirst = 86;

// A pattern shows day, month, month's letters and year as dd, mm, MMM and yyyy, and hours, minutes
// and seconds as HH, NN and SS.
struct Way {
  int type;
  ReadLeaf* plain;
  std::string_view pattern;
};

constexpr Way kWays[] = {
    {Format::DATE, kPlainDate, "dd-MMM-yyyy"},
    {Format::ADATE, kPlainDate, "mm/dd/yyyy"},
    {Format::EDATE, kPlainDate, "dd.mm.yyyy"},
    {Format::SDATE, kPlainDate, "yyyy/mm/dd"},
    {Format::DATETIME, kPlainDatetime, "dd-MMM-yyyy HH:NN:SS"},
    {Format::TIME, iocv::read_leaf<iocv::read_time_plain>, "HH:NN:SS"},
    {kYearFirst, kPlainDatetime, "yyyy-mm-dd HH:NN:SS"},
};

// Each with a text that its fast way reads.
constexpr Way kPeriods[] = {
    {Format::JDATE, iocv::read_leaf<iocv::read_jdate_plain>, "2024366"},
    {Format::MONTH, iocv::read_leaf<iocv::read_month_plain>, "SEPTEMBER"},
    {Format::MOYR, iocv::read_leaf<iocv::read_moyr_plain>, "FEB 2024"},
    {Format::QYR, iocv::read_leaf<iocv::read_qyr_plain>, "4 Q 2024"},
    {Format::WKYR, iocv::read_leaf<iocv::read_wkyr_plain>, "53 WK 2024"},
    {Format::DTIME, iocv::read_leaf<iocv::read_dtime_plain>, "12 23:59:59.5"},
};

struct Reading {
  std::uint64_t bits;
  std::int64_t status;
  bool operator==(const Reading&) const = default;
};

Reading read_by(ReadLeaf* leaf, int type, const char* text, std::int64_t width) {
  OBS value = {.number = 4711};
  std::int64_t status = -1;
  const std::int64_t decimals = 0;
  const std::int32_t code = type;
  leaf(text, &code, &width, &decimals, &value, &status, width);
  return {std::bit_cast<std::uint64_t>(value.number), status};
}

// A field at either edge of its pages.
class Fields {
 public:
  explicit Fields(std::size_t width) : end_(width), begin_(width, test::Edge::begin) {}

  void expect_same(const Way& way, std::string_view text) {
    for (const test::Guarded* field : {&end_, &begin_}) {
      std::memcpy(field->data(), text.data(), text.size());
      const auto width = static_cast<std::int64_t>(text.size());
      const Reading fast = read_by(obicv_, way.type, field->data(), width);
      const Reading plain = read_by(way.plain, way.type, field->data(), width);
      if (fast != plain) {
        FAIL() << "type " << way.type << " |" << test::shown(text)
               << "|: " << test::described(std::bit_cast<double>(fast.bits)) << ' ' << fast.status
               << ", plain " << test::described(std::bit_cast<double>(plain.bits)) << ' '
               << plain.status;
      }
    }
  }

 private:
  test::Guarded end_;
  test::Guarded begin_;
};

struct Parts {
  unsigned day;
  unsigned month;
  unsigned year;
  unsigned second_of_day = 0;  // up to 100 hours
};

std::string composed(std::string_view pattern, Parts parts) {
  static constexpr std::string_view kNames = "JANFEBMARAPRMAYJUNJULAUGSEPOCTNOVDEC";
  std::string text(pattern);
  const auto put = [&](char letter, unsigned number) {
    for (std::size_t at = text.size(); at-- > 0;) {
      if (pattern[at] != letter) continue;
      text[at] = static_cast<char>('0' + number % 10);
      number /= 10;
    }
  };
  put('d', parts.day);
  put('m', parts.month);
  put('y', parts.year);
  put('H', parts.second_of_day / 3600);
  put('N', parts.second_of_day / 60 % 60);
  put('S', parts.second_of_day % 60);
  const std::size_t name = text.find("MMM");
  if (name != std::string::npos)
    text.replace(name, 3, kNames.substr((parts.month - 1) % 12 * 3, 3));
  return text;
}

// The text as people write it: other delimiters, other case, a blank or a stray byte.
std::string disturbed(std::string text, std::mt19937_64& random) {
  static constexpr std::string_view kBytes = "-./ :,0123456789JANFEBjanfebT'@`\x80\xFF";
  for (std::uint64_t changes = random() % 4; changes > 0; --changes) {
    char& c = text[random() % text.size()];
    switch (random() % 4) {
      case 0: c = kBytes[random() % kBytes.size()]; break;
      case 1: c = static_cast<char>(random()); break;
      case 2: c = static_cast<char>(c ^ 1 << random() % 8); break;
      default: c = static_cast<char>(c ^ 0x20); break;
    }
  }
  return text;
}

template <std::size_t kCount>
std::string one_of(const std::string_view (&texts)[kCount], std::mt19937_64& random) {
  return std::string(texts[random() % kCount]);
}

std::string in_some_case(std::string text, std::mt19937_64& random) {
  const std::uint64_t lower = random() % 3 == 0 ? random() : 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (lower >> i % 64 & 1) text[i] = static_cast<char>(text[i] | 0x20);
  }
  return text;
}

std::string some_number(unsigned number, std::size_t digits) {
  std::string text = std::to_string(number);
  return text.size() < digits ? std::string(digits - text.size(), '0') + text : text;
}

std::string some_day(std::mt19937_64& random) {
  return some_number(static_cast<unsigned>(random() % 33), random() % 8 == 0 ? 3 : random() % 3);
}

std::string some_month(std::mt19937_64& random) {
  static constexpr std::string_view kNames[] = {
      "JAN",       "FEB",         "FEB",   "MAR", "APR", "MAY", "JUN",     "JUL",
      "AUG",       "SEP",         "OCT",   "NOV", "DEC", "XII", "JANUARY", "FEBRUARY",
      "SEPTEMBER", "DEC\xC4\xB1", "MAYBE", "MA",  "III", "JA@", "J"};
  if (random() % 2 == 0) {
    return some_number(static_cast<unsigned>(random() % 14), random() % 8 == 0 ? 3 : random() % 3);
  }
  return in_some_case(one_of(kNames, random), random);
}

std::string some_year(std::mt19937_64& random) {
  switch (random() % 8) {
    case 0: return some_number(static_cast<unsigned>(random() % 12'000), 0);
    case 1: return some_number(static_cast<unsigned>(random() % 100), random() % 5);
    case 2:
    case 3: return some_number(static_cast<unsigned>(random() % 100), 2);
    case 4: return some_number(static_cast<unsigned>(1581 + random() % 4), 0);
    default: return some_number(static_cast<unsigned>(1890 + random() % 220), 0);
  }
}

std::string some_blanks(std::mt19937_64& random) {
  const std::uint64_t kind = random() % 16;
  return std::string(kind < 10 ? 0 : kind < 15 ? kind - 9 : random() % 20, ' ');
}

std::string some_delimiter(std::mt19937_64& random) {
  static constexpr std::string_view kDelimiters[] = {"-",   "-",  "/",  "/",  ".", ",", " ", "  ",
                                                     " - ", ". ", " ,", "--", "",  ":", "+", "T"};
  return one_of(kDelimiters, random);
}

// A date as people write it, in the order of its format.
std::string some_date(int type, std::mt19937_64& random) {
  const std::string day = some_day(random);
  const std::string month = some_month(random);
  const std::string year = some_year(random);
  const std::string before = some_blanks(random);
  const std::string first = some_delimiter(random);
  const std::string second = random() % 4 == 0 ? some_delimiter(random) : first;
  const std::string behind = some_blanks(random);
  switch (type) {
    case Format::ADATE: return before + month + first + day + second + year + behind;
    case Format::SDATE:
    case kYearFirst: return before + year + first + month + second + day + behind;
    default: return before + day + first + month + second + year + behind;
  }
}

// A date without delimiters of its own, mostly.
std::string some_run(std::mt19937_64& random) {
  std::string text;
  const std::uint64_t kind = random() % 8;
  const std::size_t digits = kind < 5 ? 8 : kind < 6 ? 6 : random() % 12;
  for (std::size_t i = 0; i < digits; ++i) {
    text += static_cast<char>('0' + random() % (i % 2 == 0 ? 3 : 10));
  }
  static constexpr std::string_view kBehind[] = {"", "", "", " ", "  ", "-", "x", " 1", "T"};
  return std::string(random() % 3, ' ') + text + one_of(kBehind, random);
}

std::string some_time(std::mt19937_64& random) {
  static constexpr std::string_view kMarks[] = {":", ":", ":", ":", ":", ":", ":",
                                                ".", ",", " ", "",  "-", ": "};
  std::string text = some_blanks(random);
  if (random() % 16 == 0) text += "T";
  if (random() % 16 == 0) text += random() % 2 == 0 ? '-' : '+';
  text += some_number(static_cast<unsigned>(random() % 26), random() % 4);
  if (random() % 16 == 0) text += some_number(static_cast<unsigned>(random()), random() % 12);
  const std::string mark = one_of(kMarks, random);
  text += mark + some_number(static_cast<unsigned>(random() % 62), random() % 4);
  if (random() % 4 != 0) {
    text += mark + some_number(static_cast<unsigned>(random() % 62), random() % 4);
    if (random() % 2 == 0) {
      text += random() % 2 == 0 ? '.' : ',';
      text += some_number(static_cast<unsigned>(random() % 1'000'000), random() % 12);
    }
  }
  return text + some_blanks(random);
}

std::string some_period(int type, std::mt19937_64& random) {
  const std::string before = some_blanks(random);
  const std::string behind = some_blanks(random);
  const std::string between = random() % 3 == 0 ? some_delimiter(random) : some_blanks(random);
  const bool marked = random() % 8 != 0;
  const auto number = [&](unsigned end) {
    return some_number(static_cast<unsigned>(random() % end), random() % 4);
  };
  switch (type) {
    case Format::JDATE: {
      const std::string day =
          some_number(static_cast<unsigned>(random() % 370), random() % 8 ? 3 : 2);
      return before + some_year(random) + (random() % 4 ? "" : between) + day + behind;
    }
    case Format::MONTH: return before + some_month(random) + behind;
    case Format::MOYR:
      return before + some_month(random) + some_delimiter(random) + some_year(random) + behind;
    case Format::QYR:
      return before + number(6) + between + (marked ? "Q" : "q") + between + some_year(random) +
             behind;
    case Format::WKYR:
      return before + number(56) + between + (marked ? "WK" : "W") + between + some_year(random) +
             behind;
    default: {
      const std::string days = random() % 8 ? number(400) : std::to_string(random());
      return before + days + between + (random() % 8 ? some_time(random) : "");
    }
  }
}

constexpr std::int64_t kCenturies[] = {1900, 1900, 1950, 1969,      1582,     1583,
                                       1999, 9900, 9901, 9999,      0,        -50,
                                       100,  99,   5000, INT64_MIN, INT64_MAX};

class FastReading : public testing::Test {
 protected:
  void expect_same(const Way& way, std::string_view text) {
    while (fields_.size() <= text.size()) {
      fields_.push_back(std::make_unique<Fields>(fields_.size()));
    }
    fields_[text.size()]->expect_same(way, text);
  }

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
  std::vector<std::unique_ptr<Fields>> fields_;
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

TEST_F(FastReading, EveryWidthAndSettings) {
  std::mt19937_64 random = test::random_source();
  SCOPED_TRACE(test::seed_text());
  const double missing[] = {iocv::kSystemMissing, 1,   12,    15,    2001, 0, -0.0, -1, NAN, -NAN,
                            13'191'292'800,       1e3, -1e-9, 86'400};
  for (const char decimal : {'.', ','}) {
    for (const double number : missing) {
      cmnloc_.decimal = decimal;
      cmnglb_.system_missing = number;
      cmndtm_.century_begin = decimal == '.' ? 1900 : 1950;
      for (const Way& way : kWays) {
        for (const Parts parts :
             {Parts{15, 1, 2001}, Parts{1, 12, 2001, 12}, Parts{12, 9, 2015, 1}}) {
          const std::string text = composed(way.pattern, parts);
          for (std::size_t width = 0; width <= text.size(); ++width) {
            expect_same(way, std::string_view(text).substr(0, width));
            expect_same(way, std::string(width, ' ') + text);
            expect_same(way, text + std::string(width, ' '));
          }
          expect_same(way, text + "x");
          for (int i = 0; i < 50; ++i) expect_same(way, disturbed(text, random));
        }
      }
    }
  }
}

iocv::DateRead read_by_core(const Way& way, std::string_view text, bool fast) {
  using namespace iocv;
  const Settings settings;
  const auto code = static_cast<FormatCode>(way.type);
  switch (way.type) {
    case Format::DATETIME:
    case kYearFirst: return (fast ? read_datetime : read_datetime_plain)(text, 0, code, settings);
    case Format::TIME: return (fast ? read_time : read_time_plain)(text, 0, settings);
    case Format::JDATE: return (fast ? read_jdate : read_jdate_plain)(text, 0, settings);
    case Format::MONTH: return (fast ? read_month : read_month_plain)(text, 0, settings);
    case Format::MOYR: return (fast ? read_moyr : read_moyr_plain)(text, 0, settings);
    case Format::QYR: return (fast ? read_qyr : read_qyr_plain)(text, 0, settings);
    case Format::WKYR: return (fast ? read_wkyr : read_wkyr_plain)(text, 0, settings);
    case Format::DTIME: return (fast ? read_dtime : read_dtime_plain)(text, 0, settings);
    default: return (fast ? read_date : read_date_plain)(text, 0, code, settings);
  }
}

// The core that columns call, with the position of what it read.
TEST_F(FastReading, TheCoreAnswersAsItsPlainWay) {
  std::mt19937_64 random = test::random_source();
  SCOPED_TRACE(test::seed_text());
  const auto expect_same_core = [](const Way& way, const std::string& text) {
    const iocv::DateRead fast = read_by_core(way, text, true);
    const iocv::DateRead plain = read_by_core(way, text, false);
    ASSERT_TRUE(fast.value == plain.value && fast.status == plain.status &&
                (fast.value == iocv::kSystemMissing || fast.position == plain.position))
        << way.type << ' ' << text;
  };
  for (int i = 0; i < 100'000 && !HasFatalFailure(); ++i) {
    const Way& way = kWays[random() % std::size(kWays)];
    const auto part = [&](unsigned last) { return static_cast<unsigned>(1 + random() % last); };
    std::string text = composed(way.pattern, {part(31), part(12), 1580 + part(500), part(90'000)});
    if (i % 2 == 0) text = disturbed(text, random);
    expect_same_core(way, text);
    const Way& period = kPeriods[random() % std::size(kPeriods)];
    expect_same_core(period, some_period(period.type, random));
    expect_same_core(way, some_date(way.type, random) + some_time(random));
  }
}

int read_by_convert(const Way& way, const std::string& text, double& value) {
  OBS stored = {.number = 4711};
  const int status =
      IocvConvertInput(text.data(), static_cast<unsigned>(text.size()), way.type, 0, &stored);
  value = stored.number;
  return status;
}

TEST_F(FastReading, OtherDoorsAndColumnsAnswerAsThePlainWay) {
  constexpr std::size_t kCount = 50;
  std::mt19937_64 random = test::random_source();
  SCOPED_TRACE(test::seed_text());
  cmndtm_.century_begin = 1950;
  const std::unique_ptr<iocv_settings, void (*)(iocv_settings*)> settings(iocv_settings_new(),
                                                                          iocv_settings_free);
  const auto some_text = [&](const Way& way, std::size_t width) {
    const bool has_date = way.pattern.find('y') != std::string_view::npos;
    const auto part = [&](unsigned last) { return static_cast<unsigned>(1 + random() % last); };
    std::string text;
    if (&way >= std::begin(kPeriods) && &way < std::end(kPeriods)) {
      text = some_period(way.type, random);
    } else if (random() % 2 == 0) {
      text = composed(way.pattern, {part(31), part(12), 1580 + part(500), part(90'000)});
    } else {
      text = (has_date ? some_date(way.type, random) : "") +
             (way.pattern.find('H') != std::string_view::npos ? some_time(random) : "");
    }
    text.resize(width, ' ');
    return text;
  };
  const auto expect_same_column = [&](const Way& way) {
    const std::size_t usual = way.pattern.size();
    const std::size_t width =
        random() % 2 ? usual : std::max<std::size_t>(usual + random() % 9, 4) - 4;
    std::string fields;
    for (std::size_t n = 0; n < kCount; ++n) fields += some_text(way, width);
    std::vector<double> values(kCount);
    std::vector<std::int32_t> statuses(kCount);
    iocv_read_column(fields.data(), width, kCount, way.type, static_cast<std::int64_t>(width), 0,
                     settings.get(), values.data(), statuses.data(), nullptr);
    for (std::size_t n = 0; n < kCount; ++n) {
      const std::string text = fields.substr(n * width, width);
      const Reading plain =
          read_by(way.plain, way.type, text.data(), static_cast<std::int64_t>(width));
      double converted = 0;
      const int status = read_by_convert(way, text, converted);
      EXPECT_EQ((Reading{std::bit_cast<std::uint64_t>(values[n]), statuses[n]}), plain) << text;
      EXPECT_EQ((Reading{std::bit_cast<std::uint64_t>(converted), status}), plain) << text;
    }
  };
  for (int i = 0; i < 1000 && !HasFailure(); ++i) {
    for (const Way& way : kWays) expect_same_column(way);
    for (const Way& way : kPeriods) expect_same_column(way);
  }
}

}  // namespace
