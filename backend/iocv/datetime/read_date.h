// What the readers of dates, times and periods answer, and what they share.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "datetime/calendar.h"
#include "frame/settings.h"
#include "frame/status.h"

namespace iocv {

inline constexpr double kLastHour = 23;  // of a day
inline constexpr double kLastMinuteOrSecond = 59;

struct DateRead {
  double value;  // the system-missing number after a failure and for a blank field
  Status status;
  std::size_t position;  // bytes of the field that were read; counts only with a value
};

// What a reader of texts without delimiters answers: whether it took the text, and if so, value and
// status are the conversion's own. Consumed bytes are 0 unless a date or time was read.
struct UndelimitedRead {
  bool taken;
  double value;
  Status status;
  std::size_t consumed;
};

// The year that a number means: two digits through the century window, or 1582..last.
inline std::optional<std::int64_t> year_named(double number, std::int64_t last,
                                              const Settings& settings) noexcept {
  const bool two_digits = number < 100;
  if (!two_digits && !(number >= kFirstYear && number <= static_cast<double>(last))) {
    return std::nullopt;
  }
  return full_year(static_cast<std::int64_t>(number), settings);
}

// The stored value of a date, if the calendar has it.
inline std::optional<double> stored_date(std::int64_t year, std::int64_t month, std::int64_t day,
                                         const Settings& settings) noexcept {
  const Read<double> number = day_number(static_cast<double>(year), static_cast<double>(month),
                                         static_cast<double>(day), settings);
  if (number.status != Status::ok) return std::nullopt;
  return number.value * kSecondsPerDay;
}

// Characters that may stand before a date and behind a date or time without delimiters of its own.
constexpr bool is_delimiter(char c) noexcept {
  return std::string_view(" .,:-/").find(c) != std::string_view::npos;
}

// Positions of the flat interface count from 1; one before the field means its first byte.
constexpr std::size_t offset_of(std::int64_t position) noexcept {
  return position < 1 ? 0 : static_cast<std::size_t>(position) - 1;
}
constexpr std::int64_t position_of(std::size_t offset) noexcept {
  return static_cast<std::int64_t>(offset) + 1;
}

// What is left of the field text(1..width) from a position on; nothing outside the field.
inline std::string_view rest_of_field(const char* text, std::int64_t position,
                                      std::int64_t width) noexcept {
  if (position < 1 || position > width) return {};
  return {text + position - 1, static_cast<std::size_t>(width - position) + 1};
}

inline void store(const DateRead& read, double* value, std::int64_t* status,
                  std::int64_t* position) noexcept {
  *value = read.value;
  *status = static_cast<std::int64_t>(read.status);
  *position = position_of(read.position);
}

// Answers the logical that tells whether the text was taken.
inline std::int64_t store(const UndelimitedRead& read, std::int64_t* position, double* value,
                          std::int64_t* consumed, std::int64_t* status) noexcept {
  *value = read.value;
  *consumed = static_cast<std::int64_t>(read.consumed);
  *status = static_cast<std::int64_t>(read.status);
  *position += *consumed;
  return read.taken ? -1 : 0;
}

}  // namespace iocv
