// Columns under test beside the doors for single fields, which tell what a column must hold.
#pragma once

#include <iocv/column.h>

#include <cstdint>
#include <ostream>
#include <random>
#include <string>
#include <vector>

namespace iocv::column {

inline void PrintTo(const Result& result, std::ostream* out) {
  *out << result.failed << " failed, first " << result.first_failed;
}

}  // namespace iocv::column

namespace test {

using iocv::column::Format;
using iocv::column::Result;
using iocv::column::Settings;

// The 45 types, 85 and 86, and codes of nobody.
const std::vector<int>& all_types();

constexpr bool is_string(int type) { return type == VELT_Format::A || type == VELT_Format::AHEX; }

// Values and fields as a type has them, among others that it does not. Fields have the format's
// width.
double sample_value(int type, std::mt19937_64& random);
std::string sample_field(const Format& format, std::mt19937_64& random);
std::string sample_string(std::size_t size, std::mt19937_64& random);

// A field, or a value that was read, with its status.
struct Written {
  std::string field;
  std::int64_t status;
};
struct ReadNumber {
  double value;
  std::int64_t status;
};
struct ReadString {
  std::string bytes;
  std::int64_t status;
};

// Single conversions under the process's settings over what was there before. Custom currencies are
// read as F. Type 86, whose writer is a Java machine, writes the system-missing number only.
Written write_alone(double value, const Format& format, const std::string& before);
Written write_alone(const std::string& value, const Format& format, const std::string& before);
ReadNumber read_alone(const std::string& field, const Format& format, double before);
ReadString read_alone(const std::string& field, const Format& format, const std::string& before);

// Process-wide settings that differ from the initial ones in everything.
void change_process_settings();

}  // namespace test
