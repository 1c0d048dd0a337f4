// A field that shows a number, taken apart by its grammar.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace test {

// Blanks, "-", digits, a decimal character, digits, "E" with a sign and three digits; every part
// may be absent, but there is a digit.
struct ShownNumber {
  std::size_t blanks = 0;
  bool negative = false;
  std::string whole;
  bool point = false;
  std::string fraction;
  std::optional<int> exponent;

  // What the text says.
  [[nodiscard]] double value() const;
  // One in its last place.
  [[nodiscard]] double unit() const;
  [[nodiscard]] bool is_zero() const;
};

// Nothing unless the whole text is such a number.
std::optional<ShownNumber> shown_number(std::string_view text, char decimal = '.');

// Whether the text is that of value, rounded to its last place. The tolerance with which writers
// round, and digits cut behind the sixteenth, may move it a little further.
bool shows(const ShownNumber& shown, double value);

bool all_asterisks(std::string_view text);

}  // namespace test
