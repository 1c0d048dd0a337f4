// ISO 8601 text of date-times, times and durations.
#include <iocv/convert.h>
#include <iocv/iso_text.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

#include "datetime/calendar.h"
#include "frame/constants.h"
#include "host/assertion.h"

namespace {

using iocv::kSecondsPerDay;
using iocv::kSecondsPerHour;
using iocv::kSecondsPerMinute;

constexpr std::string_view kDigits = "0123456789";

// A double below 60 has fewer significant digits than this.
constexpr int kMostDigits = 800;

int decimals_shown(double value, int decimals, bool drop_whole_fraction) {
  return drop_whole_fraction && std::fmod(value, 1.0) == 0 ? 0 : decimals;
}

// The text of a value without its leading blanks. The format may be narrower than the width asked
// for, or, for a width below 0, wider: then nothing is left of its text.
int write_text(std::string& text, double value, VELT_Format::FormatType type, std::int64_t width,
               int decimals) {
  const VELT_Format format(type, static_cast<int>(width), decimals);
  text.assign(format.Width(), ' ');
  const OBS stored = {.number = value};
  const int status = ToString(&stored, format, text.data());
  text.resize(static_cast<std::size_t>(std::clamp<std::int64_t>(width, 0, format.Width())));
  text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
  return status;
}

// Columns of a text, as far as they are there.
std::string_view cut(std::string_view text, std::size_t first, int count) {
  if (first >= text.size()) return {};
  return text.substr(first, static_cast<std::size_t>(count));
}

// Digits with separators, and whether all that ought to be digits are.
class IsoText {
 public:
  IsoText& digits(std::string_view part) {
    text_ += part;
    sound_ = sound_ && part.find_first_not_of(kDigits) == part.npos;
    return *this;
  }
  IsoText& separator(char c) {
    text_ += c;
    return *this;
  }
  // Empty unless sound.
  std::string take() { return sound_ ? std::move(text_) : std::string(); }

 private:
  std::string text_;
  bool sound_ = true;
};

void append_number(std::string& out, double value, std::chars_format format, int precision) {
  char digits[kMostDigits + 40];
  const auto end = std::to_chars(digits, digits + sizeof digits, value, format, precision).ptr;
  out.append(digits, end);
}

// A whole number in full, however large.
void append_whole(std::string& out, double value) {
  append_number(out, std::trunc(value), std::chars_format::fixed, 0);
}

// Takes whole units off a remainder, by division; the rest is a remainder again.
double take_units(double& rest, std::int64_t seconds) {
  const auto unit = static_cast<double>(seconds);
  const double units = rest / unit;
  rest = std::fmod(rest, unit);
  return units;
}

}  // namespace

int ToISODateTime(std::string& out, double value, int decimals, bool dropWholeFraction, bool useT) {
  out.clear();
  decimals = decimals_shown(value, decimals, dropWholeFraction);
  const std::int64_t width = decimals != 0 ? std::int64_t{decimals} + 23 : 22;
  std::string date_time;  // dd-MMM-yyyy hh:mm:ss.f
  if (const int status = write_text(date_time, value, VELT_Format::DATETIME, width, decimals)) {
    return status;
  }
  std::string date;  // mm/dd/yyyy: the month as a number
  if (const int status = write_text(date, value, VELT_Format::ADATE, 10, 0)) return status;

  IsoText text;
  text.digits(cut(date_time, 7, 4)).separator('-');
  text.digits(cut(date, 0, 2)).separator('-');
  text.digits(cut(date_time, 0, 2)).separator(useT ? 'T' : ' ');
  text.digits(cut(date_time, 12, 2)).separator(':');
  text.digits(cut(date_time, 15, 2)).separator(':');
  text.digits(cut(date_time, 18, 2));
  if (decimals > 0) text.separator('.').digits(cut(date_time, 21, decimals));
  out = text.take();
  return 0;
}

int ToISOTime(std::string& out, double value, int decimals, bool dropWholeFraction) {
  iocv::require(value < static_cast<double>(kSecondsPerDay), "backend/iocv/isodatetime",
                "ToISOTime", "(dataValue < 24*60*60) && \"Incorrect data for time format.\"");
  decimals = decimals_shown(value, decimals, dropWholeFraction);
  const std::int64_t width = decimals != 0 ? std::int64_t{decimals} + 9 : 8;
  std::string time;  // h:mm:ss.f
  if (const int status = write_text(time, value, VELT_Format::TIME, width, decimals)) {
    return status;
  }
  const std::size_t hours = std::min(time.find_first_not_of(kDigits), time.size());
  out = hours == 1 ? "0" : "";
  out += time.substr(0, hours);
  const std::string_view rest = std::string_view(time).substr(hours);  // :mm:ss.f
  out += ':';
  out += cut(rest, 1, 2);
  out += ':';
  out += cut(rest, 4, 2);
  if (decimals > 0) {
    out += '.';
    out += cut(rest, 7, decimals);
  }
  return 0;
}

int ToISODuration(std::string& out, double value, int decimals, bool dropWholeFraction) {
  out.clear();
  if (!std::isfinite(value) || value == iocv::kSystemMissing) return 0;
  decimals = decimals_shown(value, decimals, dropWholeFraction);
  if (value < 0) out += '-';
  out += 'P';
  double rest = std::abs(value);
  if (rest >= static_cast<double>(kSecondsPerDay)) {
    append_whole(out, take_units(rest, kSecondsPerDay));
    out += 'D';
  }
  out += 'T';
  append_whole(out, take_units(rest, kSecondsPerHour));
  out += 'H';
  append_whole(out, take_units(rest, kSecondsPerMinute));
  out += 'M';
  append_number(out, rest, std::chars_format::general,
                decimals < 0 ? 6 : std::min(decimals, kMostDigits));
  out += 'S';
  return 0;
}
