// Peers that write numbers as text. All write a zero before the decimal point, a minus before what
// rounds to zero, and exponents of two digits at least; ours have no such zero and minus, and three
// digits. The comparison looks past that.
#include <absl/strings/str_format.h>
#include <double-conversion/double-conversion.h>
#include <fmt/compile.h>
#include <fmt/format.h>
#include <locale.h>

#include <charconv>
#include <cstdio>
#include <cstring>

#include "harness.h"

namespace bench {
namespace {

using double_conversion::DoubleToStringConverter;
using double_conversion::StringBuilder;

// The number without blanks, sign of zero and zero before the point.
std::string bare(std::string_view text) {
  std::string number(text.substr(std::min(text.find_first_not_of(' '), text.size())));
  const bool negative = number.starts_with('-');
  if (negative) number.erase(0, 1);
  if (number.starts_with("0.")) number.erase(0, 1);
  const bool is_zero = number.find_first_of("123456789") == number.npos;
  return negative && !is_zero ? '-' + number : number;
}

bool same_number(std::string_view ours, std::string_view theirs) {
  return ours == theirs || bare(ours) == bare(theirs);
}

// The exponent's third digit pushes the rest one column to the left.
bool same_exponential(std::string_view ours, std::string_view theirs) {
  std::string wider(theirs.substr(1));
  wider.insert(wider.size() - 2, 1, '0');
  return ours == wider;
}

// Moves a text to the right of its field.
void right_align(std::string_view text, char* field, std::size_t width) {
  const std::size_t length = std::min(text.size(), width);
  std::memset(field, ' ', width - length);
  std::memcpy(field + width - length, text.data(), length);
}

// No package groups digits fast, so the program does: text has the digits of a whole number, a
// point and decimals.
void right_align_grouped(std::string_view text, char* field, std::size_t width) {
  const std::size_t first = text.starts_with('-') ? 1 : 0;
  std::size_t point = std::min(text.find('.'), text.size());
  char* end = field + width - (text.size() - point);
  std::memcpy(end, text.data() + point, text.size() - point);
  for (; point - first > 3; point -= 3) {
    end -= 4;
    end[0] = ',';
    std::memcpy(end + 1, text.data() + point - 3, 3);
  }
  end -= point;
  std::memcpy(end, text.data(), point);
  std::memset(field, ' ', static_cast<std::size_t>(end - field));
}

const DoubleToStringConverter& converter() {
  static const DoubleToStringConverter made(DoubleToStringConverter::EMIT_POSITIVE_EXPONENT_SIGN,
                                            "inf", "nan", 'E', 0, 0, 0, 0, 2);
  return made;
}

std::string_view fixed_chars(double value, int decimals, char (&text)[64]) {
  const auto end =
      std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, decimals).ptr;
  return {text, end};
}

std::string_view fixed_conversion(double value, int decimals, char (&text)[64]) {
  StringBuilder builder(text, sizeof text);
  converter().ToFixed(value, decimals, &builder);
  const auto length = static_cast<std::size_t>(builder.position());
  builder.Finalize();
  return {text, length};
}

template <class Compiled>
void add_fmt(const Row& row, const Compiled& format, SameField* same) {
  add_writer(
      row, "fmt", [=](double value, char* field) { fmt::format_to(field, format, value); }, same);
}

void add_fixed(const Row& row) {
  const auto width = static_cast<std::size_t>(row.width);
  const auto columns = static_cast<int>(row.width);
  const auto decimals = static_cast<int>(row.decimals);
  const auto add = [&](const char* subject, auto write) {
    add_writer(row, subject, write, same_number);
  };
  add("snprintf", [=](double value, char* field) {
    std::snprintf(field, width + 1, "%*.*f", columns, decimals, value);
  });
  add("absl::SNPrintF", [=](double value, char* field) {
    absl::SNPrintF(field, width + 1, "%*.*f", columns, decimals, value);
  });
  add("std::to_chars", [=](double value, char* field) {
    char text[64];
    right_align(fixed_chars(value, decimals, text), field, width);
  });
  add("double-conversion", [=](double value, char* field) {
    char text[64];
    right_align(fixed_conversion(value, decimals, text), field, width);
  });
}

void add_exponential(const Row& row) {
  const auto width = static_cast<std::size_t>(row.width);
  const auto columns = static_cast<int>(row.width);
  const auto decimals = static_cast<int>(row.decimals);
  const auto add = [&](const char* subject, auto write) {
    add_writer(row, subject, write, same_exponential);
  };
  add("snprintf", [=](double value, char* field) {
    std::snprintf(field, width + 1, "%*.*E", columns, decimals, value);
  });
  add("absl::SNPrintF", [=](double value, char* field) {
    absl::SNPrintF(field, width + 1, "%*.*E", columns, decimals, value);
  });
  add("std::to_chars", [=](double value, char* field) {
    char text[64];
    const auto end =
        std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, decimals).ptr;
    end[-4] = 'E';  // it writes a small one
    right_align({text, end}, field, width);
  });
  add("double-conversion", [=](double value, char* field) {
    char text[64];
    StringBuilder builder(text, sizeof text);
    converter().ToExponential(value, decimals, &builder);
    const auto length = static_cast<std::size_t>(builder.position());
    builder.Finalize();
    right_align({text, length}, field, width);
  });
}

// Groups of three. snprintf and fmt know a locale's.
void add_grouped(const Row& row) {
  const auto width = static_cast<std::size_t>(row.width);
  const auto columns = static_cast<int>(row.width);
  const auto decimals = static_cast<int>(row.decimals);
  const auto add = [&](const char* subject, auto write) {
    add_writer(row, subject, write, same_number);
  };
  add("std::to_chars", [=](double value, char* field) {
    char text[64];
    right_align_grouped(fixed_chars(value, decimals, text), field, width);
  });
  add("double-conversion", [=](double value, char* field) {
    char text[64];
    right_align_grouped(fixed_conversion(value, decimals, text), field, width);
  });
  add("fmt", [=](double value, char* field) {
    char text[64];
    const auto end = fmt::format_to(text, FMT_COMPILE("{:.2f}"), value);
    right_align_grouped({text, end}, field, width);
  });
  static const std::locale english("en_US.UTF-8");
  add("fmt (locale)", [=](double value, char* field) {
    char text[64];  // fmt 9 counts one column too many when it is to pad groups
    const auto end = fmt::format_to(text, english, FMT_STRING("{:.2Lf}"), value);
    right_align({text, end}, field, width);
  });
  static const locale_t grouping = newlocale(LC_NUMERIC_MASK, "en_US.UTF-8", nullptr);
  const char* pattern = "%'*.*f";  // POSIX's, not C++'s
  add("snprintf", [=](double value, char* field) {
    const locale_t before = uselocale(grouping);
    std::snprintf(field, width + 1, pattern, columns, decimals, value);
    uselocale(before);
  });
}

}  // namespace

void add_number_writers() {
  add_fixed(kF8_2);
  add_fmt(kF8_2, FMT_COMPILE("{:8.2f}"), same_number);
  add_fixed(kF12_4);
  add_fmt(kF12_4, FMT_COMPILE("{:12.4f}"), same_number);
  add_exponential(kE12_3);
  add_fmt(kE12_3, FMT_COMPILE("{:12.3E}"), same_exponential);
  add_grouped(kComma12_2);
}

}  // namespace bench
