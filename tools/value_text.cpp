#include "value_text.h"

#include <iocv/convert.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "civil.h"
#include "common_text.h"

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

char* put_number(char* at, double value) noexcept {
  if (char* const end = put_common_number(at, value)) return end;
  if (std::isnan(value)) return std::copy_n("nan", 3, at);
  const double magnitude = std::fabs(value);
  const bool plain = magnitude == 0 || (magnitude >= kPlainFrom && magnitude < kPlainBelow);
  return plain ? std::to_chars(at, at + kNumberRoom, value, std::chars_format::fixed).ptr
               : std::to_chars(at, at + kNumberRoom, value).ptr;
}

void append_number(std::string& text, double value) {
  char digits[kNumberRoom];
  text.append(digits, static_cast<std::size_t>(put_number(digits, value) - digits));
}

bool append_iso(std::string& text, double value, IsoForm form) {
  char common[kCommonRoom];
  if (const char* const end = put_common_iso(common, value, form)) {
    text.append(common, static_cast<std::size_t>(end - common));
    return true;
  }
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
