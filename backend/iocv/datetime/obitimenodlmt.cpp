#include "datetime/obitimenodlmt.h"

#include <iocv/date_input.h>

#include <array>
#include <cmath>

#include "datetime/str2digit.h"
#include "frame/record_pointers.h"
#include "numeric/powers.h"

namespace iocv {
namespace {

constexpr std::size_t kShortest = 4;        // hhmm
constexpr std::size_t kWithSeconds = 6;     // hhmmss
constexpr std::size_t kFractionDigits = 7;  // hhmmss. and digits

std::string_view without_trailing_blanks(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

// A run of four characters or more without colon or blank, with one decimal mark at most behind it.
bool is_undelimited(std::string_view text, char decimal) {
  if (text.find_first_of(": ") != text.npos) return false;
  const std::size_t mark = text.find(decimal);
  if (mark == text.npos) return text.size() >= kShortest;
  return mark >= kShortest && text.find(decimal, mark + 1) == text.npos;
}

// Two digits of text, none of them behind its end and together at most last.
std::optional<double> two_digits(std::string_view text, std::size_t offset, double last) {
  const std::optional<double> value = str2digit(text.substr(offset, 2));
  return text.size() >= offset + 2 && value && *value <= last ? value : std::nullopt;
}

struct Clock {
  double seconds;
  std::size_t length;
};

// The fields of a run of at least four characters.
std::optional<Clock> read_clock(std::string_view run, char decimal) {
  const auto hours = two_digits(run, 0, kLastHour);
  const auto minutes = two_digits(run, 2, kLastMinuteOrSecond);
  if (!hours || !minutes) return std::nullopt;
  const double of_minutes = kSecondsPerHour * *hours + kSecondsPerMinute * *minutes;
  if (run.size() < kWithSeconds) return Clock{of_minutes, kShortest};

  const auto seconds = two_digits(run, 4, kLastMinuteOrSecond);
  if (!seconds) return std::nullopt;
  if (run.size() < kFractionDigits) return Clock{of_minutes + *seconds, kWithSeconds};

  const std::string_view digits = run.substr(kFractionDigits);
  const auto fraction = str2digit(digits);
  if (run[kWithSeconds] != decimal || !fraction) return std::nullopt;
  const double scale = power_of_ten(static_cast<std::int64_t>(digits.size()));
  return Clock{of_minutes + *seconds + *fraction / scale, run.size()};
}

}  // namespace

UndelimitedRead read_undelimited_time(std::string_view text, const Settings& settings) noexcept {
  const double missing = settings.system_missing;
  const UndelimitedRead not_taken = {false, missing, Status::ok, 0};
  const UndelimitedRead failed = {true, missing, Status::time_digits, 0};

  const std::size_t skipped = !text.empty() && (text[0] == ' ' || text[0] == 'T') ? 1 : 0;
  if (text.size() - skipped < kShortest) return not_taken;
  const std::string_view run = without_trailing_blanks(text.substr(skipped));
  if (!is_undelimited(run, settings.decimal)) return not_taken;

  const std::optional<Clock> clock = read_clock(run, settings.decimal);
  if (!clock || !std::isfinite(clock->seconds)) return failed;
  const std::size_t consumed = skipped + clock->length;
  if (consumed < text.size() && !is_delimiter(text[consumed])) return failed;
  return {true, clock->seconds, Status::ok, consumed};
}

}  // namespace iocv

extern "C" std::int64_t obitimenodlmt_(const char* text, std::int64_t* position,
                                       const std::int64_t* width, double* value,
                                       std::int64_t* consumed, std::int64_t* status) {
  // The decimal character is that of the record which the host named, as the object layer's is.
  iocv::Settings settings = iocv::Settings::current();
  settings.decimal = static_cast<char>(iocv::record_pointers.locale->decimal);
  return iocv::store(
      iocv::read_undelimited_time(iocv::rest_of_field(text, *position, *width), settings), position,
      value, consumed, status);
}
