// One text after another, flush with an unmapped page behind it and with another before it.
#pragma once

#include <date/date.h>
#include <iocv/iocv.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <ostream>
#include <span>
#include <string_view>

#include "support/guarded.h"
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

struct Reading {
  double value;
  std::int64_t status;

  friend bool operator==(const Reading& a, const Reading& b) {
    return std::bit_cast<std::uint64_t>(a.value) == std::bit_cast<std::uint64_t>(b.value) &&
           a.status == b.status;
  }
};

inline void PrintTo(const Reading& reading, std::ostream* out) {
  *out << described(reading.value) << ", " << reading.status;
}

inline constexpr double kMissing = -1.7976931348623157e308;

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

struct TextCase {
  std::string_view text;
  int code;
  double value;
  std::int64_t status;
};

inline void expect_all(std::span<const TextCase> cases) {
  for (const TextCase& c : cases) {
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

}  // namespace test
