// The fast way of TIME and DTIME as text: of a value from 0 to below 100 hours or days that is not
// the system-missing number, in a field whose columns for minutes, seconds and up to six digits of
// the fraction are the same whether the number before them has one digit or two. The text ends the
// field, and a tens digit of 0 is blank, as is a whole number of 0 days.
//
// Seconds are cut to whole ones before they are divided, which cuts to the same hours and minutes
// as the plain way's division of doubles: its quotients never round up to the next whole number
// below 2^57. A product with an inverse of 64 bits is the quotient, as in moment_fast.h.
//
// The fraction is the value less its whole seconds, an exact difference, and half a unit, as in the
// plain way. That takes off digits by products with 10, each of which errs by 2^-50 at most, a
// tenth of that after the next, so by less than 2^-53 of the whole fraction in all; one product
// with a power of ten errs by 2^-53 of it, too. So when that is 2^-30 or more away from a whole
// number, for both are within 2^-31 of the true one, its whole part has the digits.
#pragma once

#include <array>
#include <cstddef>

#include "datetime/moment_fast.h"
#include "frame/constants.h"
#include "frame/format_code.h"
#include "frame/in_register.h"

namespace iocv::fast {

// A digit of 0 in front is blank.
inline std::uint64_t two_or_one(std::size_t number) noexcept {
  return two_digits(number) - std::uint64_t{number < 10} * ('0' - ' ');  // no branch: they vary
}

// 0.5 * power_of_ten(-digits).
inline constexpr auto kHalfUnits = [] {
  std::array<double, 7> halves = {};
  for (std::size_t i = 0; i < halves.size(); ++i) halves[i] = 0.5 * (1 / kSmallPowers[i]);
  return halves;
}();

inline constexpr std::uint64_t kBlanks = text_word("        ");

// What stands before minutes, of a whole number of seconds below 2^26.
template <FormatCode kCode>
struct TimeText;

struct Hours {
  std::uint64_t text;      // two bytes
  std::uint64_t fraction;  // times 2^64
};

template <>
struct TimeText<FormatCode::time> {  // hh
  static constexpr std::int64_t kBeforeHour = 0;
  static constexpr double kEnd = 100.0 * kSecondsPerHour;

  static Hours put_before_hour(char*, std::uint64_t seconds) noexcept {
    constexpr std::uint64_t kInverseOfHour = ~std::uint64_t{0} / kSecondsPerHour + 1;
    const FixedPoint hours = times(kInverseOfHour, seconds);
    return {two_or_one(hours.whole), hours.fraction};
  }
};

template <>
struct TimeText<FormatCode::dtime> {  // dd hh
  static constexpr std::int64_t kBeforeHour = 3;
  static constexpr double kEnd = 100.0 * kSecondsPerDay;

  static Hours put_before_hour(char* text, std::uint64_t seconds) noexcept {
    const FixedPoint days = times(kInverseOfDay, seconds);
    const FixedPoint hours = times(days.fraction, kHoursPerDay);
    put_word(text, static_cast<std::uint16_t>(two_or_one(days.whole)));
    if (days.whole == 0) text[1] = ' ';
    text[2] = ' ';
    return {two_digits(hours.whole), hours.fraction};
  }
};

// An attempt at values under one format: made once, called for each.
template <FormatCode kCode>
struct TimeFields {
  using Text = TimeText<kCode>;
  static constexpr std::int64_t kMinutes = Text::kBeforeHour + 5;  // columns up to the minutes
  static constexpr std::int64_t kFull = kMinutes + 3;
  static constexpr std::int64_t kMostFraction = 6;  // digits

  std::int64_t blanks;    // before the text
  std::int64_t fraction;  // columns; 0: no decimal character either
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
      if (decimals >= fields.blanks || decimals > kMostFraction) return false;
      fields.fraction = decimals;
      fields.blanks -= 1 + decimals;
    }
    return true;
  }

  // False, with the field as it was, when the value is the plain way's.
  [[gnu::always_inline]] bool operator()(char* field, double value) const noexcept {
    if (!is_ordinary(value, missing)) return false;
    const int whole = static_cast<int>(value);
    std::uint64_t digits = 0;
    if (fraction > 0 && !find_fraction(value - whole, digits)) return false;
    if (!seconds) {
      *field = ' ';  // none or one
      put_clock<false>(field + blanks, static_cast<std::uint64_t>(whole));
      return true;
    }
    char* const text = field + blanks;
    while (field < text) field = put_blanks(field);
    put_clock<true>(text, static_cast<std::uint64_t>(whole));
    if (fraction > 0) put_fraction(text + kFull, digits);
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
    put_clock<true>(text, static_cast<std::uint64_t>(static_cast<int>(value)));
  }

 private:
  template <bool kSeconds>
  static void put_clock(char* text, std::uint64_t whole) noexcept {
    const Hours hours = Text::put_before_hour(text, whole);
    const FixedPoint minutes = times(hours.fraction, 60);
    const std::uint64_t to_minutes = hours.text | text_word(":", 2) | two_digits(minutes.whole, 3);
    char* const hour = text + Text::kBeforeHour;
    if constexpr (kSeconds) {
      const std::size_t second = times(minutes.fraction, 60).whole;
      put_word(hour, to_minutes | text_word(":", 5) | two_digits(second, 6));
    } else {
      put_word(hour, static_cast<std::uint32_t>(to_minutes));
      hour[4] = static_cast<char>(to_minutes >> 32);
    }
  }

  // Eight of them: behind fewer, the text that is to stand there is no shorter.
  static char* put_blanks(char* field) noexcept {
    put_word(field, kBlanks);
    return in_register(field + sizeof kBlanks);  // a call to fill memory would take longer
  }

  bool find_fraction(double part, std::uint64_t& digits) const noexcept {
    constexpr double kMargin = 0x1p-30;
    const auto index = static_cast<std::size_t>(fraction);
    if (part + kHalfUnits[index] < 1) part += kHalfUnits[index];
    const double product = part * kSmallPowers[index];
    digits = static_cast<std::uint64_t>(static_cast<std::int64_t>(product - kMargin));
    return digits == static_cast<std::uint64_t>(static_cast<std::int64_t>(product + kMargin));
  }

  void put_fraction(char* text, std::uint64_t digits) const noexcept {
    text[0] = decimal;
    std::int64_t columns = fraction;
    for (; columns > 2; columns -= 2, digits /= 100) put_two(text + columns - 1, digits % 100);
    if (columns == 2) {
      put_two(text + 1, digits);
    } else {
      text[1] = static_cast<char>('0' + digits);
    }
  }
};

}  // namespace iocv::fast
