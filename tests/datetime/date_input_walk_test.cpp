// Every day in every layout, and every two-digit year of every century window.
#include <date/date.h>
#include <iocv/iocv.h>

#include "datetime/reading.h"
#include "support/records_guard.h"

namespace {

using test::day;
using test::kMissing;
using test::read_text;
using test::Reading;

enum Code { kDate = 20, kAdate = 23, kEdate = 38, kSdate = 39 };

class DateInputWalk : public testing::Test {
 protected:
  DateInputWalk() { iocvsetdecchardot_(); }
  test::RecordsGuard guard_;
};

void put(char* target, unsigned value, int digits) {
  for (int i = digits - 1; i >= 0; --i, value /= 10)
    target[i] = static_cast<char>('0' + value % 10);
}

// A layout of a text: dd, mm, MMM, yyyy and jjj (the day of the year) stand for the parts of a day.
struct Layout {
  std::string_view pattern;
  int code;
};

constexpr Layout kDelimited[] = {
    {"dd-MMM-yyyy", 20}, {"dd/mm/yyyy", 20}, {"mm/dd/yyyy", 23},
    {"dd.mm.yyyy", 38},  {"yyyy/mm/dd", 39}, {"yyyy-jjj", 24},
};
constexpr Layout kUndelimited[] = {
    {"ddmmyyyy", 20}, {"ddMMMyyyy", 20}, {"mmddyyyy", 23},
    {"ddmmyyyy", 38}, {"yyyymmdd", 39},  {"yyyyjjj", 24},
};

// Places the parts of a day in the text of a layout.
class LayoutText {
 public:
  explicit LayoutText(std::string_view pattern)
      : text_(pattern),
        day_(pattern.find("dd")),
        month_(pattern.find("mm")),
        name_(pattern.find("MMM")),
        year_(pattern.find("yyyy")),
        of_year_(pattern.find("jjj")) {}

  std::string_view text(const date::year_month_day& date, unsigned day_of_year) {
    constexpr const char* kNames = "JANFEBMARAPRMAYJUNJULAUGSEPOCTNOVDEC";
    const auto month = static_cast<unsigned>(date.month());
    put_at(day_, static_cast<unsigned>(date.day()), 2);
    put_at(month_, month, 2);
    put_at(year_, static_cast<unsigned>(static_cast<int>(date.year())), 4);
    put_at(of_year_, day_of_year, 3);
    if (name_ != std::string::npos) text_.replace(name_, 3, kNames + 3 * (month - 1), 3);
    return text_;
  }

 private:
  void put_at(std::size_t column, unsigned value, int digits) {
    if (column != std::string::npos) put(text_.data() + column, value, digits);
  }

  std::string text_;
  std::size_t day_;
  std::size_t month_;
  std::size_t name_;
  std::size_t year_;
  std::size_t of_year_;
};

void expect_days(std::span<const Layout> layouts, int stride) {
  const date::sys_days first = date::year{1582} / 10 / 15;
  const date::sys_days last = date::year{9999} / 12 / 31;
  std::vector<LayoutText> composed;
  for (const Layout& layout : layouts) composed.emplace_back(layout.pattern);
  double expected = 86400;
  for (date::sys_days day = first; day <= last;
       day += date::days{stride}, expected += stride * 86400.0) {
    const date::year_month_day date{day};
    const date::sys_days january = date.year() / 1 / 1;
    const auto of_year = static_cast<unsigned>((day - january).count() + 1);
    for (std::size_t i = 0; i < layouts.size(); ++i) {
      const int code = layouts[i].code;
      const std::string_view text = composed[i].text(date, of_year);
      // JDATE's arithmetic begins with a date that no year 1582 has.
      const bool readable = code != 24 || date.year() > date::year{1582};
      const Reading wanted = readable ? Reading{expected, 0} : Reading{kMissing, 1142};
      ASSERT_EQ(test::read_in_place(text, code), wanted) << text << " type " << code;
    }
  }
  EXPECT_GT(expected, 3'074'324 * 86400.0);
}

TEST_F(DateInputWalk, EveryDayTo9999ReadsBack) {
  expect_days(std::span(kDelimited).first(1), 1);
  expect_days(kDelimited, 13);
  expect_days(kUndelimited, 13);
}

using LongDateInputWalk = DateInputWalk;

TEST_F(LongDateInputWalk, EveryDayTo9999ReadsBackWithDelimiters) { expect_days(kDelimited, 1); }

TEST_F(LongDateInputWalk, EveryDayTo9999ReadsBackWithoutDelimiters) {
  expect_days(kUndelimited, 1);
}

TEST_F(DateInputWalk, TwoDigitsNameAYearOfEveryCenturyWindow) {
  for (int begin = 0; begin <= 9900; begin += 50) {
    cmndtm_.century_begin = begin;
    for (int digits = 0; digits < 100; ++digits) {
      int year = digits;
      while (year < begin) year += 100;
      const bool exists = year > 1582;
      char two[3] = {};
      put(two, static_cast<unsigned>(digits), 2);
      const std::string yy = two;
      const double expected = exists ? day(year, 1, 1) : kMissing;
      const auto want = [&](std::int64_t failure) {
        return Reading{expected, exists ? 0 : failure};
      };
      ASSERT_EQ(read_text("1-JAN-" + yy, kDate), want(1137)) << begin << " " << yy;
      ASSERT_EQ(read_text("1/1/" + yy, kAdate), want(1136)) << begin << " " << yy;
      ASSERT_EQ(read_text("1.1." + yy, kEdate), want(1151)) << begin << " " << yy;
      ASSERT_EQ(read_text(yy + "/1/1", kSdate), want(1152)) << begin << " " << yy;
      ASSERT_EQ(read_text("0101" + yy, kDate), want(608)) << begin << " " << yy;
      ASSERT_EQ(read_text("01JAN" + yy, kDate), want(608)) << begin << " " << yy;
      ASSERT_EQ(read_text(yy + "0101", kSdate), want(608)) << begin << " " << yy;
      ASSERT_EQ(read_text(yy + "001", 24), want(1142)) << begin << " " << yy;
      ASSERT_EQ(read_text(yy + "-1", 24), want(1142)) << begin << " " << yy;
      ASSERT_EQ(read_text("1 " + yy, 28), want(1144)) << begin << " " << yy;
      ASSERT_EQ(read_text("1 Q " + yy, 29), want(1145)) << begin << " " << yy;
      ASSERT_EQ(read_text("1 WK " + yy, 30), want(1148)) << begin << " " << yy;
      ASSERT_EQ(read_text("1-JAN-" + yy + " 0:00", 22), want(1139)) << begin << " " << yy;
    }
  }
}

}  // namespace
