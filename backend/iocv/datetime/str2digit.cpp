#include "datetime/str2digit.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "datetime/letters.h"
#include "datetime/names.h"

namespace iocv {
namespace {

using MonthKey = std::array<char, 4>;

constexpr std::array<MonthKey, kMonths> kRomanKeys = {{
    {'I'},
    {'I', 'I'},
    {'I', 'I', 'I'},
    {'I', 'V'},
    {'V'},
    {'V', 'I'},
    {'V', 'I', 'I'},
    {'V', 'I', 'I', 'I'},
    {'I', 'X', ' '},  // kept apart by its blank: without delimiters nine is SEP or 09
    {'X'},
    {'X', 'I'},
    {'X', 'I', 'I'},
}};

MonthKey key_of(std::string_view text) {
  MonthKey key = {};
  for (std::size_t i = 0; i < std::min(text.size(), key.size()); ++i) key[i] = upper(text[i]);
  return key;
}

}  // namespace

std::optional<double> str2digit(std::string_view text) noexcept {
  double value = 0;
  for (const char c : text) {
    if (!is_digit(c)) return std::nullopt;
    value = 10 * value + (c - '0');
  }
  return value;
}

std::optional<double> str2month(std::string_view text) noexcept {
  if (text.empty() || !is_letter(text.front())) return str2digit(text);
  const MonthKey key = key_of(text);
  for (std::int64_t month = 1; month <= kMonths; ++month) {
    if (std::string_view(key.data(), 3) == month_letters(month)) return static_cast<double>(month);
  }
  const auto roman = std::find(kRomanKeys.begin(), kRomanKeys.end(), key);
  if (roman == kRomanKeys.end()) return std::nullopt;
  return static_cast<double>(roman - kRomanKeys.begin() + 1);
}

}  // namespace iocv
