// Peers that read numbers from text. They do not know widths, nor most of them leading blanks; what
// a program does about that is counted as theirs.
#include <absl/strings/charconv.h>
#include <absl/strings/numbers.h>
#include <double-conversion/double-conversion.h>
#include <fast_float/fast_float.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "harness.h"

namespace bench {
namespace {

const char* skip_blanks(const char* first, const char* last) {
  while (first != last && *first == ' ') ++first;
  return first;
}

// With a zero behind.
struct Terminated {
  Terminated(const char* field, std::size_t width) {
    std::memcpy(text, field, width);
    text[width] = 0;
  }
  char text[32];
};

// Without blanks and grouping characters, which no peer knows.
struct Ungrouped {
  Ungrouped(const char* field, std::size_t width) : end(text) {
    for (std::size_t i = 0; i < width; ++i) {
      if (field[i] != ',' && field[i] != ' ') *end++ = field[i];
    }
    *end = 0;
  }
  char text[32];
  char* end;
};

double by_from_chars(const char* first, const char* last) {
  double value = 0;
  std::from_chars(first, last, value);
  return value;
}

double by_fast_float(const char* first, const char* last) {
  double value = 0;
  fast_float::from_chars(first, last, value);
  return value;
}

double by_absl(const char* first, const char* last) {
  double value = 0;
  absl::from_chars(first, last, value);
  return value;
}

double by_conversion(const char* first, const char* last) {
  using double_conversion::StringToDoubleConverter;
  static const StringToDoubleConverter converter(StringToDoubleConverter::ALLOW_LEADING_SPACES, 0,
                                                 0, nullptr, nullptr);
  int used = 0;
  return converter.StringToDouble(first, static_cast<int>(last - first), &used);
}

void add_numbers(const Row& row) {
  const auto width = static_cast<std::size_t>(row.width);
  add_reader(row, "strtod", [=](const char* field) {
    const Terminated copy(field, width);
    return std::strtod(copy.text, nullptr);
  });
  add_reader(row, "sscanf", [=](const char* field) {
    const Terminated copy(field, width);
    double value = 0;
    std::sscanf(copy.text, "%lf", &value);
    return value;
  });
  add_reader(row, "std::from_chars", [=](const char* field) {
    return by_from_chars(skip_blanks(field, field + width), field + width);
  });
  add_reader(row, "fast_float", [=](const char* field) {
    return by_fast_float(skip_blanks(field, field + width), field + width);
  });
  add_reader(row, "absl::from_chars", [=](const char* field) {
    return by_absl(skip_blanks(field, field + width), field + width);
  });
  add_reader(row, "double-conversion",
             [=](const char* field) { return by_conversion(field, field + width); });
}

void add_grouped(const Row& row) {
  const auto width = static_cast<std::size_t>(row.width);
  add_reader(row, "strtod", [=](const char* field) {
    const Ungrouped digits(field, width);
    return std::strtod(digits.text, nullptr);
  });
  add_reader(row, "std::from_chars", [=](const char* field) {
    const Ungrouped digits(field, width);
    return by_from_chars(digits.text, digits.end);
  });
  add_reader(row, "fast_float", [=](const char* field) {
    const Ungrouped digits(field, width);
    return by_fast_float(digits.text, digits.end);
  });
  add_reader(row, "absl::from_chars", [=](const char* field) {
    const Ungrouped digits(field, width);
    return by_absl(digits.text, digits.end);
  });
  add_reader(row, "double-conversion", [=](const char* field) {
    const Ungrouped digits(field, width);
    return by_conversion(digits.text, digits.end);
  });
}

// Of "-0" they make 0, which has no sign, and so do ours.
void add_integers(const Row& row) {
  const auto width = static_cast<std::size_t>(row.width);
  add_reader(row, "std::from_chars (int)", [=](const char* field) {
    int value = 0;
    std::from_chars(skip_blanks(field, field + width), field + width, value);
    return static_cast<double>(value);
  });
  add_reader(row, "strtol", [=](const char* field) {
    const Terminated copy(field, width);
    return static_cast<double>(std::strtol(copy.text, nullptr, 10));
  });
  add_reader(row, "absl::SimpleAtoi", [=](const char* field) {
    int value = 0;
    return absl::SimpleAtoi(absl::string_view(field, width), &value) ? static_cast<double>(value)
                                                                     : -1;
  });
  add_reader(row, "fast_float", [=](const char* field) {
    return by_fast_float(skip_blanks(field, field + width), field + width);
  });
}

}  // namespace

void add_number_readers() {
  add_numbers(kF8_2);
  add_numbers(kF12_4);
  add_numbers(kE12_3);
  add_grouped(kComma12_2);
  add_integers(kF8_0);
}

}  // namespace bench
