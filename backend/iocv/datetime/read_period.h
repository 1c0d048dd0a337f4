// The frame of every reader of periods: MONTH, MOYR, WKDAY, QYR, WKYR and JDATE.
#pragma once

#include <optional>
#include <string_view>

#include "datetime/obdtps.h"
#include "datetime/read_date.h"

namespace iocv {

inline constexpr std::int64_t kLongestName = 9;  // bytes of a month or day of the week

// A blank field is the system-missing number. In any other, take(first token, scanner, settings)
// reads a value or none, and only blanks may follow it.
template <class Take>
DateRead read_period(std::string_view field, Status bad_text, const Settings& settings,
                     Take take) noexcept {
  const double missing = settings.system_missing;
  Scanner scanner(field, settings.decimal);
  const Token first = scanner.next_item();
  if (first.type == TokenType::blanks) return {missing, Status::ok, scanner.position()};
  const std::optional<double> value = take(first, scanner, settings);
  if (!value || !scanner.only_blanks_left()) return {missing, bad_text, scanner.position()};
  return {*value, Status::ok, scanner.position()};
}

// The number of a token when it is one from first to last.
inline std::optional<std::int64_t> number_between(const Token& token, std::int64_t first,
                                                  std::int64_t last) noexcept {
  if (token.type != TokenType::number || token.value < static_cast<double>(first) ||
      token.value > static_cast<double>(last)) {
    return std::nullopt;
  }
  return static_cast<std::int64_t>(token.value);
}

// The year of a token when it is a number that means one.
inline std::optional<std::int64_t> year_of(const Token& token, const Settings& settings) noexcept {
  if (token.type != TokenType::number) return std::nullopt;
  return year_named(token.value, kLastYear, settings);
}

}  // namespace iocv
