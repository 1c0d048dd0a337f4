// Fields read by the date and time readers through the dispatcher, one text after another, flush
// with an unmapped page behind it and with another before it.
#pragma once

#include <date/date.h>
#include <iocv/iocv.h>

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

#include "support/code_page_guard.h"
#include "support/conversions.h"
#include "support/guarded.h"
#include "support/records_guard.h"
#include "support/values.h"

namespace test {

class FieldEdges {
 public:
  static constexpr std::size_t kLongest = 4096;

  std::string_view at_end(std::string_view text) {
    return placed(text, end_.data() + (kLongest - text.size()));
  }
  std::string_view at_begin(std::string_view text) { return placed(text, begin_.data()); }

 private:
  static std::string_view placed(std::string_view text, char* target) {
    std::copy(text.begin(), text.end(), target);
    return {target, text.size()};
  }

  Guarded end_{kLongest, Edge::end};
  Guarded begin_{kLongest, Edge::begin};
};

// Through the input dispatcher, in the place where the field lies.
inline Reading read_in_place(std::string_view field, int code) {
  const std::int32_t type = code;
  const auto width = static_cast<std::int64_t>(field.size());
  const std::int64_t decimals = 0;
  OBS value = {.number = 12345.0};
  std::int64_t status = -1;
  obicv_(field.data(), &type, &width, &decimals, &value, &status, 0);
  return {value.number, status};
}

// The same at both edges; not-a-number and status -2 when the two differ.
inline Reading read_text(std::string_view text, int code) {
  static FieldEdges edges;
  const Reading at_end = read_in_place(edges.at_end(text), code);
  const Reading at_begin = read_in_place(edges.at_begin(text), code);
  return at_end == at_begin ? at_end : Reading{0.0 / 0.0, -2};
}

enum Code {
  kDate = 20,
  kTime = 21,
  kDatetime = 22,
  kAdate = 23,
  kJdate = 24,
  kDtime = 25,
  kWkday = 26,
  kMonth = 27,
  kMoyr = 28,
  kQyr = 29,
  kWkyr = 30,
  kEdate = 38,
  kSdate = 39,
  kYearFirst = 86
};

struct TextRow {
  std::string_view text;
  int code;
  double value;
  std::int64_t status;
};

inline void expect_readings(const std::vector<TextRow>& rows) {
  for (const TextRow& c : rows) {
    EXPECT_EQ(read_text(c.text, c.code), (Reading{c.value, c.status}))
        << "|" << shown(c.text) << "| type " << c.code;
  }
}

// The stored value of a day, by the date library.
inline double day(int year, unsigned month, unsigned of_month) {
  const date::sys_days origin = date::year{1582} / 10 / 14;
  const date::sys_days day = date::year{year} / date::month{month} / date::day{of_month};
  return static_cast<double>((day - origin).count()) * 86400;
}

// Readers under a decimal point and UTF-8; a test may change the settings.
class DateTimeInput : public testing::Test {
 protected:
  DateTimeInput() { iocvsetdecchardot_(); }

  RecordsGuard records_;
  CodePageGuard page_{"UTF-8"};
};

}  // namespace test
