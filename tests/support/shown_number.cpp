#include "support/shown_number.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace test {
namespace {

// Takes a run of characters of a kind off the text.
template <class Kind>
std::string take(std::string_view& text, Kind kind) {
  std::size_t length = 0;
  while (length < text.size() && kind(text[length])) ++length;
  const std::string run(text.substr(0, length));
  text.remove_prefix(length);
  return run;
}

bool is_digit(char c) { return '0' <= c && c <= '9'; }

bool take_one(std::string_view& text, char c) {
  if (text.empty() || text.front() != c) return false;
  text.remove_prefix(1);
  return true;
}

double number(const std::string& text) {
  double value = std::numeric_limits<double>::quiet_NaN();
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

}  // namespace

double ShownNumber::value() const {
  const std::string text =
      "0" + whole + "." + fraction + "0e" + std::to_string(exponent.value_or(0));
  return negative ? -number(text) : number(text);
}

double ShownNumber::unit() const {
  const auto places = static_cast<int>(fraction.size());
  return number("1e" + std::to_string(exponent.value_or(0) - places));
}

bool ShownNumber::is_zero() const {
  return (whole + fraction).find_first_not_of('0') == std::string::npos;
}

std::optional<ShownNumber> shown_number(std::string_view text, char decimal) {
  ShownNumber shown;
  shown.blanks = take(text, [](char c) { return c == ' '; }).size();
  shown.negative = take_one(text, '-');
  shown.whole = take(text, is_digit);
  shown.point = take_one(text, decimal);
  if (shown.point) shown.fraction = take(text, is_digit);
  if (shown.whole.empty() && shown.fraction.empty()) return std::nullopt;
  if (take_one(text, 'E')) {
    const bool below = take_one(text, '-');
    if (!below && !take_one(text, '+')) return std::nullopt;
    const std::string digits = take(text, is_digit);
    if (digits.size() != 3) return std::nullopt;
    shown.exponent = below ? -std::stoi(digits) : std::stoi(digits);
  }
  if (!text.empty()) return std::nullopt;
  return shown;
}

bool shows(const ShownNumber& shown, double value) {
  constexpr double kTolerance = 2e-12;
  if (shown.exponent.value_or(0) >= 300) {  // a rounded text may lie beyond the largest double
    ShownNumber lower = shown;
    *lower.exponent -= 20;
    return shows(lower, value * 1e-20);
  }
  const double unit = shown.unit();
  return std::fabs(shown.value() - value) <=
         unit * (0.5 + kTolerance) + std::fabs(value) * kTolerance;
}

bool all_asterisks(std::string_view text) { return text.find_first_not_of('*') == text.npos; }

}  // namespace test
