#include "typed_value.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "civil.h"
#include "failure.h"
#include "format_traits.h"

namespace iocv::tool {
namespace {

// Counts and years of more digits than this are refused, so that no sum of seconds overflows.
constexpr std::size_t kMostDigits = 13;
constexpr std::size_t kMostYearDigits = 10;

constexpr OBS kBlanks = {.bytes = {' ', ' ', ' ', ' ', ' ', ' ', ' ', ' '}};

constexpr bool is_digit(char c) { return c >= '0' && c <= '9'; }

bool take(std::string_view& text, char c) {
  if (text.empty() || text.front() != c) return false;
  text.remove_prefix(1);
  return true;
}

std::string_view take_digits(std::string_view& text) {
  const auto end = std::find_if_not(text.begin(), text.end(), is_digit);
  const std::string_view digits = text.substr(0, static_cast<std::size_t>(end - text.begin()));
  text.remove_prefix(digits.size());
  return digits;
}

// A run of digits; `exactly` 0 stands for any number of them.
std::optional<std::int64_t> take_count(std::string_view& text, std::size_t exactly = 0) {
  const std::string_view digits = take_digits(text);
  if (digits.empty() || digits.size() > kMostDigits) return std::nullopt;
  if (exactly != 0 && digits.size() != exactly) return std::nullopt;
  std::int64_t count = 0;
  std::from_chars(digits.begin(), digits.end(), count);
  return count;
}

// Two digits below the limit.
std::optional<std::int64_t> take_two(std::string_view& text, std::int64_t limit) {
  const std::optional<std::int64_t> count = take_count(text, 2);
  return count && *count < limit ? count : std::nullopt;
}

// Whole seconds and the digits of a fraction.
struct Moment {
  std::int64_t whole = 0;
  std::string_view fraction;
};

// The double nearest to whole + 0.fraction.
double seconds_of(const Moment& moment) {
  if (moment.fraction.empty()) return static_cast<double>(moment.whole);
  double value = 0;
  if (moment.whole < 0) {  // only dates before the stored calendar; the fraction counts upwards
    const std::string text = "0." + std::string(moment.fraction);
    std::from_chars(text.data(), text.data() + text.size(), value);
    return static_cast<double>(moment.whole) + value;
  }
  const std::string text = std::to_string(moment.whole) + "." + std::string(moment.fraction);
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

// ".5", or nothing at all.
bool take_fraction(std::string_view& text, Moment& moment) {
  if (!take(text, '.')) return true;
  moment.fraction = take_digits(text);
  return !moment.fraction.empty();
}

// "12:30" or "12:30:15.5", to the end of the text; hours of a day stay below 24.
bool take_clock(std::string_view text, bool of_day, Moment& moment) {
  const std::optional<std::int64_t> hours = take_count(text);
  if (!hours || (of_day && *hours >= 24) || !take(text, ':')) return false;
  const std::optional<std::int64_t> minutes = take_two(text, 60);
  if (!minutes) return false;
  moment.whole += *hours * 3600 + *minutes * 60;
  if (text.empty()) return true;
  if (!take(text, ':')) return false;
  const std::optional<std::int64_t> seconds = take_two(text, 60);
  if (!seconds) return false;
  moment.whole += *seconds;
  return take_fraction(text, moment) && text.empty();
}

// "2000-01-01", with a sign for years outside 0..9999.
std::optional<CivilDate> take_date(std::string_view& text) {
  const bool negative = take(text, '-');
  const bool expanded = negative || take(text, '+');
  const std::size_t start = text.size();
  const std::optional<std::int64_t> year = take_count(text);
  const std::size_t digits = start - text.size();
  if (!year || digits < 4 || digits > (expanded ? kMostYearDigits : 4)) return std::nullopt;
  if (!take(text, '-')) return std::nullopt;
  const std::optional<std::int64_t> month = take_count(text, 2);
  if (!month || !take(text, '-')) return std::nullopt;
  const std::optional<std::int64_t> day = take_count(text, 2);
  if (!day) return std::nullopt;
  const CivilDate date{negative ? -*year : *year, static_cast<int>(*month), static_cast<int>(*day)};
  return exists(date) ? std::optional(date) : std::nullopt;
}

std::optional<double> date_and_time(std::string_view text) {
  const std::optional<CivilDate> date = take_date(text);
  if (!date) return std::nullopt;
  Moment moment{day_number(*date) * kSecondsPerDay, {}};
  if (text.empty()) return seconds_of(moment);
  if (!take(text, 'T') && !take(text, ' ')) return std::nullopt;
  if (!take_clock(text, true, moment)) return std::nullopt;
  return seconds_of(moment);
}

std::optional<double> time_of_any_length(std::string_view text) {
  const bool negative = take(text, '-');
  Moment moment;
  if (!take_clock(text, false, moment)) return std::nullopt;
  return negative ? -seconds_of(moment) : seconds_of(moment);
}

// "P1DT12H30M15.5S": each part may be absent, one must be there, and a T has a part behind it.
std::optional<double> duration(std::string_view text) {
  const bool negative = take(text, '-');
  if (!take(text, 'P') || text.empty()) return std::nullopt;
  struct Part {
    std::int64_t seconds;
    char unit;
    bool of_clock;
  };
  constexpr Part kParts[] = {
      {86400, 'D', false}, {3600, 'H', true}, {60, 'M', true}, {1, 'S', true}};
  Moment moment;
  bool clock = false;
  const Part* next = std::begin(kParts);
  while (!text.empty()) {
    if (!clock && take(text, 'T')) clock = true;
    const std::optional<std::int64_t> count = take_count(text);
    if (!count || !take_fraction(text, moment) || text.empty()) return std::nullopt;
    next = std::find_if(next, std::end(kParts), [&](const Part& p) { return p.unit == text[0]; });
    if (next == std::end(kParts) || next->of_clock != clock) return std::nullopt;
    if (!moment.fraction.empty() && next->unit != 'S') return std::nullopt;
    moment.whole += *count * next->seconds;
    text.remove_prefix(1);
    ++next;
  }
  return negative ? -seconds_of(moment) : seconds_of(moment);
}

StoredValue string_value(std::string_view text, std::size_t width) {
  StoredValue value(std::max(text.size(), width));
  std::memcpy(value.get(), text.data(), text.size());
  return value;
}

}  // namespace

StoredValue::StoredValue(std::size_t bytes) : units_(bytes / sizeof(OBS) + 1, kBlanks) {}

std::string_view StoredValue::trimmed(std::size_t bytes) const noexcept {
  const std::string_view all(reinterpret_cast<const char*>(units_.data()), bytes);
  return all.substr(0, all.find_last_not_of(' ') + 1);
}

std::optional<double> typed_number(std::string_view text) {
  if (text == "." || text == "missing") return VELT_SystemMissing().number;
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
  double value = 0;
  const auto [end, error] = std::from_chars(text.begin(), text.end(), value);
  if (end != text.end() || error == std::errc::invalid_argument) return std::nullopt;
  if (error != std::errc()) {
    throw UsageError("'" + std::string(text) + "' lies beyond the range of a double");
  }
  return value;
}

std::optional<double> typed_moment(std::string_view text) {
  if (const std::optional<double> value = date_and_time(text)) return value;
  if (const std::optional<double> value = time_of_any_length(text)) return value;
  return duration(text);
}

StoredValue typed_value(std::string_view text, const VELT_Format& format) {
  if (format.IsString()) return string_value(text, format.Width());
  const bool date = takes_iso(format.TypeEx());
  std::optional<double> number = typed_number(text);
  if (!number && date) number = typed_moment(text);
  if (!number) {
    throw UsageError("'" + std::string(text) + "' is " +
                     (date ? "neither a number nor an ISO 8601 date or time" : "not a number"));
  }
  StoredValue value(sizeof(OBS));
  value.get()->number = *number;
  return value;
}

}  // namespace iocv::tool
