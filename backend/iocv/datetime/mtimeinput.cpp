#include "datetime/mtimeinput.h"

#include <iocv/host.h>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <optional>

#include "datetime/calendar.h"
#include "datetime/letters.h"
#include "frame/constants.h"

namespace iocv {
namespace {

constexpr std::size_t kShortest = 3;
constexpr std::size_t kShortestDigits = 4;

struct Parts {
  std::string_view minutes = {};
  std::string_view seconds = {};
  std::optional<std::string_view> fraction = std::nullopt;
};

std::string_view stripped(std::string_view text) {
  constexpr std::string_view kSpaces = " \t\n";
  const std::size_t first = text.find_first_not_of(kSpaces);
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(kSpaces) - first + 1);
}

std::size_t find_non_digit(std::string_view text, std::size_t from) {
  const auto found =
      std::find_if_not(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), is_digit);
  return static_cast<std::size_t>(found - text.begin());
}

// Wraps at 32 bits, as hosts have come to rely on; no text counts as 0.
std::uint32_t string_to_int(std::string_view digits) {
  std::uint32_t n = 0;
  for (const char c : digits) n = n * 10 + static_cast<std::uint32_t>(c - '0');
  return n;
}

// Cuts a text whose first character that is no digit stands at mark.
Parts cut(std::string_view text, std::size_t mark, char decimal_point) {
  const std::string_view before = text.substr(0, mark);
  const std::string_view after = text.substr(mark + 1);
  const std::size_t second = find_non_digit(after, 0);
  if (second < after.size()) {
    return {before, after.substr(0, second), after.substr(second + 1)};
  }
  if (text[mark] != decimal_point) return {before, after};
  if (mark < 3) return {{}, before, after};
  return {before.substr(0, mark - 2), before.substr(mark - 2), after};
}

}  // namespace

Read<double> read_elapsed(std::string_view text, char decimal_point) noexcept {
  const auto failed = [](Status status) { return Read<double>{kSystemMissing, status}; };
  std::string_view rest = stripped(text);
  const std::size_t length = rest.size();  // a minus sign counts: -1234 is 123 minutes, 4 seconds
  if (length < kShortest) return failed(Status::elapsed_too_short);
  const bool negative = rest.front() == '-';
  if (negative) rest.remove_prefix(1);

  Parts parts;
  const std::size_t mark = find_non_digit(rest, 0);
  if (mark < rest.size()) {
    parts = cut(rest, mark, decimal_point);
  } else {
    if (length < kShortestDigits) return failed(Status::elapsed_digits);
    parts = {rest.substr(0, length - 2), rest.substr(length - 2)};
  }

  double fraction = 0;
  if (parts.fraction) {
    const std::string_view digits = *parts.fraction;
    if (find_non_digit(digits, 0) < digits.size()) return failed(Status::elapsed_fraction);
    fraction = string_to_int(digits) / std::pow(10.0, static_cast<double>(digits.size()));
  }
  const double minutes = string_to_int(parts.minutes);
  const double seconds = string_to_int(parts.seconds);
  const double elapsed = minutes * kSecondsPerMinute + seconds + fraction;
  return {negative ? -elapsed : elapsed, Status::ok};
}

}  // namespace iocv

// NOLINTNEXTLINE(performance-unnecessary-value-param): hosts link against this signature
double mTimeInput::convertTimeStringToObs(std::string text, int, int& status) {
  // The process's locale counts here, not the library's own decimal character.
  const iocv::Read<double> read = iocv::read_elapsed(text, *std::localeconv()->decimal_point);
  if (read.status != iocv::Status::ok) status = static_cast<int>(read.status);
  return read.value;
}
