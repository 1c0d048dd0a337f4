// The fast way of TIME and DTIME as text: of a value from 0 to below 100 hours or days that is not
// the system-missing number, in a field whose columns for minutes, seconds and fraction are the
// same whether the number before them has one digit or two. The text ends the field, and a tens
// digit of 0 is blank, as is a whole number of 0 days.
//
// Seconds are cut to whole ones before they are divided, which cuts to the same hours and minutes
// as the plain way's division of doubles: its quotients never round up to the next whole number
// below 2^57. A product with an inverse of 64 bits is the quotient, as in moment_fast.h. The
// fraction is the value less its whole seconds, an exact difference, as the plain way's is, and its
// arithmetic is the plain way's.
#pragma once

#include <algorithm>
#include <cstddef>

#include "datetime/moment_fast.h"
#include "frame/constants.h"
#include "frame/format_code.h"

namespace iocv::fast {

// A digit of 0 in front is blank.
inline void put_two_or_one(char* text, std::size_t number) noexcept {
  const std::size_t blank = (number < 10) * ('0' - ' ');  // no branch: they vary
  put_word(text, static_cast<std::uint16_t>(kTables.two_digits[number] - blank));
}

// Hours, minutes and seconds of a whole number of seconds below 2^26.
template <FormatCode kCode>
struct TimeText;

template <>
struct TimeText<FormatCode::time> {  // hh:mm:ss
  static constexpr std::int64_t kBeforeMinute = 2;
  static constexpr double kEnd = 100.0 * kSecondsPerHour;

  static FixedPoint put_before_minute(char* text, std::uint64_t seconds) noexcept {
    constexpr std::uint64_t kInverseOfHour = ~std::uint64_t{0} / kSecondsPerHour + 1;
    const FixedPoint hours = times(kInverseOfHour, seconds);
    put_two_or_one(text, hours.whole);
    return hours;
  }
};

template <>
struct TimeText<FormatCode::dtime> {  // dd hh:mm:ss
  static constexpr std::int64_t kBeforeMinute = 5;
  static constexpr double kEnd = 100.0 * kSecondsPerDay;

  static FixedPoint put_before_minute(char* text, std::uint64_t seconds) noexcept {
    const FixedPoint days = times(kInverseOfDay, seconds);
    const FixedPoint hours = times(days.fraction, kHoursPerDay);
    put_two_or_one(text, days.whole);
    if (days.whole == 0) text[1] = ' ';
    text[2] = ' ';
    put_two(text + 3, hours.whole);
    return hours;
  }
};

// An attempt at values under one format: made once, called for each.
template <FormatCode kCode>
struct TimeFields {
  using Text = TimeText<kCode>;
  static constexpr std::int64_t kMinutes = Text::kBeforeMinute + 3;  // columns up to the minutes
  static constexpr std::int64_t kFull = kMinutes + 3;

  std::int64_t blanks;    // before the text
  std::int64_t fraction;  // columns; 0: no decimal character either
  double half;            // of the last digit
  double missing;
  bool seconds;
  char decimal;

  // False when all fields of the format are the plain way's.
  static bool make(std::int64_t width, std::int64_t decimals, const Settings& settings,
                   TimeFields& fields) noexcept {
    // With one digit less, seconds or digits of the fraction might have room that have none now.
    if (width < kMinutes || width == kFull - 1 || width > kWidestField) return false;
    fields.missing = settings.system_missing;
    fields.decimal = settings.decimal;
    fields.seconds = width >= kFull;
    fields.fraction = 0;
    fields.blanks = width - (fields.seconds ? kFull : kMinutes);
    if (decimals > 0 && width > kFull) {
      if (decimals >= fields.blanks) return false;
      fields.fraction = decimals;
      fields.half = half_unit(decimals);
      fields.blanks -= 1 + decimals;
    }
    return true;
  }

  // False, with the field as it was, when the value is the plain way's.
  [[gnu::always_inline]] bool operator()(char* field, double value) const noexcept {
    if (!is_ordinary(value, missing)) return false;
    put(field, value);
    return true;
  }

  // The same in a field of the text's own width.
  static bool write_full(char* field, double value, const double& missing) noexcept {
    if (!is_ordinary(value, missing)) return false;
    put_full(field, value);
    return true;
  }

  // Negative zero counts as 0, as it does in the plain way.
  static bool is_ordinary(double value, const double& missing) noexcept {
    return value >= 0 && value < Text::kEnd && value != missing;
  }

  static void put_full(char* text, double value) noexcept {
    put_minutes_and_seconds<true>(text, static_cast<std::uint64_t>(static_cast<int>(value)));
  }

  void put(char* field, double value) const noexcept {
    const int whole = static_cast<int>(value);
    char* const text = field + blanks;
    while (field < text) *field++ = ' ';
    if (!seconds) {
      put_minutes_and_seconds<false>(text, static_cast<std::uint64_t>(whole));
      return;
    }
    put_minutes_and_seconds<true>(text, static_cast<std::uint64_t>(whole));
    if (fraction > 0) put_fraction(text + kFull, value - whole);
  }

 private:
  template <bool kSeconds>
  static void put_minutes_and_seconds(char* text, std::uint64_t whole) noexcept {
    const FixedPoint hours = Text::put_before_minute(text, whole);
    const FixedPoint minutes = times(hours.fraction, 60);
    text[Text::kBeforeMinute] = ':';
    put_two(text + Text::kBeforeMinute + 1, minutes.whole);
    if constexpr (kSeconds) {
      text[kMinutes] = ':';
      put_two(text + kMinutes + 1, times(minutes.fraction, 60).whole);
    }
  }

  void put_fraction(char* text, double part) const noexcept {
    text[0] = decimal;
    if (part + half < 1) part += half;
    for (std::int64_t i = 1; i <= fraction; ++i) {
      part *= 10;
      const auto digit = static_cast<int>(part);  // [0, 9]
      text[i] = static_cast<char>('0' + digit);
      part -= digit;
    }
  }
};

}  // namespace iocv::fast
