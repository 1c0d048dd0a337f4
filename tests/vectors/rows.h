// One line of a vector file, as README.md tells the format.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vectors {

struct Row {
  bool reads = false;
  std::int32_t type = 0;
  std::int64_t width = 0;
  std::int64_t decimals = 0;
  std::string field;             // the text that is read, or the one that must be written
  bool field_untouched = false;  // nothing must be written
  // The bytes of the value, a number's in native order; none when the reader must not store one.
  std::optional<std::string> value;
  std::int64_t status = 0;

  [[nodiscard]] bool is_string() const { return type == 1 || type == 2; }
};

struct Setting {
  std::string name;
  std::string value;
};

struct Line {
  enum class Kind { nothing, settings, row };
  Kind kind = Kind::nothing;
  std::vector<Setting> settings;
  Row row;
};

// Throws std::runtime_error, whose text says what is wrong with the line.
Line parse(std::string_view line);

// A number as it stands in a row: "decimal@bits", of which the bits count.
double number_of(std::string_view word);

// The eight bytes of a number as decimal and bits, for messages.
std::string described(const std::string& bytes);

}  // namespace vectors
