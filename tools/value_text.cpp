#include "value_text.h"

#include <iocv/convert.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "civil.h"

namespace iocv::tool {
namespace {

constexpr double kPlainFrom = 0.00001;
constexpr double kPlainBelow = 1e17;
constexpr double kIsoBelow = 9007199254740992.0;  // 2^53: from here on whole seconds are lost

// Sixteen digits before the point, and the 343 places that the smallest double needs behind it.
constexpr std::size_t kLongestPlain = 400;

// Seconds cut at the decimal point: whole seconds and the digits of a fraction that is never
// negative, so that the value is whole + 0.fraction.
struct SplitSeconds {
  std::int64_t whole;
  std::string fraction;  // without trailing zeros; empty for none
};

// A magnitude below kIsoBelow.
SplitSeconds split_magnitude(double magnitude) {
  SplitSeconds split{static_cast<std::int64_t>(magnitude), {}};
  if (static_cast<double>(split.whole) == magnitude) return split;
  char digits[kLongestPlain];
  char* const end =
      std::to_chars(digits, digits + sizeof digits, magnitude, std::chars_format::fixed).ptr;
  split.fraction.assign(std::find(digits, end, '.') + 1, end);
  return split;
}

// 1 - 0.fraction, digit by digit: the last digit, which is not 0, from 10, the others from 9.
void complement(std::string& fraction) {
  for (char& digit : fraction) digit = static_cast<char>('0' + '9' - digit);
  ++fraction.back();
}

SplitSeconds split_floor(double value) {
  SplitSeconds split = split_magnitude(std::fabs(value));
  if (value < 0) {
    split.whole = -split.whole;
    if (!split.fraction.empty()) {
      --split.whole;
      complement(split.fraction);
    }
  }
  return split;
}

void append_integer(std::string& text, std::int64_t n, std::size_t least_digits = 1) {
  char digits[20];
  const char* const end = std::to_chars(digits, digits + sizeof digits, n).ptr;
  const auto count = static_cast<std::size_t>(end - digits);
  if (count < least_digits) text.append(least_digits - count, '0');
  text.append(digits, count);
}

void append_fraction(std::string& text, const std::string& fraction) {
  if (!fraction.empty()) text.append(1, '.').append(fraction);
}

// A separator and two digits.
void append_two(std::string& text, char separator, std::int64_t n) {
  const char digits[] = {separator, static_cast<char>('0' + n / 10),
                         static_cast<char>('0' + n % 10)};
  text.append(digits, sizeof digits);
}

void append_date(std::string& text, std::int64_t day) {
  const CivilDate date = civil_date(day);
  if (date.year < 0 || date.year > 9999) text += date.year < 0 ? '-' : '+';
  append_integer(text, std::abs(date.year), 4);
  append_two(text, '-', date.month);
  append_two(text, '-', date.day);
}

void append_clock(std::string& text, const SplitSeconds& seconds) {
  append_integer(text, seconds.whole / 3600, 2);
  append_two(text, ':', seconds.whole / 60 % 60);
  append_two(text, ':', seconds.whole % 60);
  append_fraction(text, seconds.fraction);
}

// Appends a number of at most four decimals and fifteen digits in all, and returns true; false for
// any other. A count of ten-thousandths that divides back to the very number is a decimal that
// reads back; without the zeros at its end it is the shortest one, for two different decimals of
// at most fifteen digits are never the same double.
bool append_common_decimal(std::string& text, double value) {
  constexpr double kUnits = 10000;
  constexpr double kMagnitudes = 1e11;  // times the units: fifteen digits
  const double magnitude = std::fabs(value);
  if (!(magnitude < kMagnitudes) || value == 0) return false;
  const std::int64_t units = std::llrint(magnitude * kUnits);
  if (static_cast<double>(units) / kUnits != magnitude) return false;
  if (value < 0) text += '-';
  append_integer(text, units / 10000);
  auto rest = static_cast<int>(units % 10000);
  if (rest == 0) return true;
  text += '.';
  for (int place = 1000; rest != 0; place /= 10) {
    text += static_cast<char>('0' + rest / place);
    rest %= place;
  }
  return true;
}

void append_moment(std::string& text, double value, bool always_with_time) {
  SplitSeconds seconds = split_floor(value);
  const std::int64_t second_of_day =
      (seconds.whole % kSecondsPerDay + kSecondsPerDay) % kSecondsPerDay;
  append_date(text, (seconds.whole - second_of_day) / kSecondsPerDay);
  if (!always_with_time && second_of_day == 0 && seconds.fraction.empty()) return;
  text += 'T';
  seconds.whole = second_of_day;
  append_clock(text, seconds);
}

void append_duration(std::string& text, const SplitSeconds& seconds) {
  text += 'P';
  if (const std::int64_t days = seconds.whole / kSecondsPerDay; days != 0) {
    append_integer(text, days);
    text += 'D';
  }
  text += 'T';
  append_integer(text, seconds.whole / 3600 % 24);
  text += 'H';
  append_integer(text, seconds.whole / 60 % 60);
  text += 'M';
  append_integer(text, seconds.whole % 60);
  append_fraction(text, seconds.fraction);
  text += 'S';
}

}  // namespace

bool is_missing(double value) noexcept {
  static const std::uint64_t kMissing = VELT_SystemMissing().bits;
  return OBS{.number = value}.bits == kMissing;
}

void append_number(std::string& text, double value) {
  if (append_common_decimal(text, value)) return;
  if (std::isnan(value)) {
    text += "nan";
    return;
  }
  const double magnitude = std::fabs(value);
  const bool plain = magnitude == 0 || (magnitude >= kPlainFrom && magnitude < kPlainBelow);
  char digits[32];
  char* const end =
      plain ? std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed).ptr
            : std::to_chars(digits, digits + sizeof digits, value).ptr;
  text.append(digits, static_cast<std::size_t>(end - digits));
}

bool append_iso(std::string& text, double value, IsoForm form) {
  if (!(std::fabs(value) < kIsoBelow)) return false;
  switch (form) {
    case IsoForm::none: return false;
    case IsoForm::date: append_moment(text, value, false); return true;
    case IsoForm::date_time: append_moment(text, value, true); return true;
    case IsoForm::time:
      if (value < 0) text += '-';
      append_clock(text, split_magnitude(std::fabs(value)));
      return true;
    case IsoForm::duration:
      if (value < 0) text += '-';
      append_duration(text, split_magnitude(std::fabs(value)));
      return true;
  }
  return false;
}

}  // namespace iocv::tool
