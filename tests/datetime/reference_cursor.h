// The characters of a field as the reference readers take them.
#pragma once

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace test {

using Number = std::optional<double>;

inline constexpr std::string_view kDateMarks = " .,:-/";
inline constexpr std::array<std::string_view, 12> kMonths = {
    "JAN", "FEB", "MAR", "APR", "MAY", "JUN", "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
inline constexpr std::array<std::string_view, 12> kRomans = {
    "I", "II", "III", "IV", "V", "VI", "VII", "VIII", "IX", "X", "XI", "XII"};

inline bool digit(char c) { return c >= '0' && c <= '9'; }
inline bool letter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

inline std::string upper(std::string_view text) {
  std::string result;
  for (const char c : text) result += letter(c) ? static_cast<char>(c & ~0x20) : c;
  return result;
}

inline Number folded(std::string_view digits) {
  double value = 0;
  for (const char c : digits) {
    if (!digit(c)) return std::nullopt;
    value = value * 10 + (c - '0');
  }
  return value;
}

inline double tenth_powers(std::size_t n) {
  double power = 1;
  for (std::size_t i = 0; i < n; ++i) power *= 10;  // exact up to 22, which is all that is compared
  return power;
}

// A place in a field; each member takes what it names, or nothing.
class Cursor {
 public:
  Cursor(std::string_view text, char decimal) : rest_(text), decimal_(decimal) {}

  [[nodiscard]] bool end() const { return rest_.empty(); }
  [[nodiscard]] std::string_view rest() const { return rest_; }
  [[nodiscard]] bool word_ahead() const { return word_bytes(rest_) > 0; }

  [[nodiscard]] bool mark_ahead() const { return !end() && !digit(rest_[0]) && !word_ahead(); }

  void skip(std::size_t count) { rest_.remove_prefix(count); }

  std::size_t blanks() {
    const std::size_t count = std::min(rest_.find_first_not_of(' '), rest_.size());
    skip(count);
    return count;
  }

  std::string_view digits() {
    std::size_t count = 0;
    while (count < rest_.size() && digit(rest_[count])) ++count;
    return take(count);
  }

  std::string_view word() {
    std::size_t count = 0;
    while (count < rest_.size() && word_bytes(rest_.substr(count)) > 0) {
      count += word_bytes(rest_.substr(count));
    }
    return take(count);
  }

  // One of the marks, with the blanks around it.
  char mark(std::string_view marks) {
    const std::string_view before = rest_;
    blanks();
    if (!end() && marks.find(rest_[0]) != marks.npos) {
      const char found = rest_[0];
      skip(1);
      blanks();
      return found;
    }
    rest_ = before;
    return 0;
  }

  // What separates the parts of a date: a mark or blanks alone.
  bool date_delimiter() { return mark(".,-/") || blanks() > 0; }
  // What separates the parts of a time: a colon, the decimal mark or blanks alone.
  bool time_delimiter() { return clock_mark() || blanks() > 0; }
  bool clock_mark() { return mark(std::string{':', decimal_}) != 0; }

  // Any one character that is no mark of a date or time and no part of a word or number.
  bool stray() {
    blanks();
    if (end() || digit(rest_[0]) || word_ahead() || kDateMarks.find(rest_[0]) != kDateMarks.npos) {
      return false;
    }
    skip(1);
    return true;
  }

 private:
  std::string_view take(std::size_t count) {
    const std::string_view taken = rest_.substr(0, count);
    skip(count);
    return taken;
  }

  static std::size_t word_bytes(std::string_view text) {
    if (text.starts_with("\xC3\xA9")) return 2;
    return !text.empty() && (letter(text[0]) ||
                             std::string_view("#$@").find(text[0]) != std::string_view::npos)
               ? 1
               : 0;
  }

  std::string_view rest_;
  char decimal_;
};

}  // namespace test
