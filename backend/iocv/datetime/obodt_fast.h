// The fast way of DATETIME as text: an ordinary moment (moment_fast.h) in a field of 17 columns or
// more, as dd-MMM-yyyy hh:mm, with ":ss" from 20 columns on and with a fraction of the second from
// 22 on, if there are decimals. The columns are the plain way's, and so is the arithmetic of the
// fraction. That starts from the value less its whole seconds, an exact difference, as the plain
// way's is.
#pragma once

#include "datetime/oboida_fast.h"

namespace iocv::fast {

// An attempt at values under one format: made once, called for each.
struct DateTimeFields {
  static constexpr std::int64_t kFull = 20;
  static constexpr std::int64_t kWithMinute = 17;
  static constexpr std::int64_t kBeforeFraction = 21;

  std::int64_t blanks;    // before the text
  std::int64_t fraction;  // columns; 0: no decimal character either
  double half;            // of the last digit, times 10
  double missing;
  bool seconds;
  char decimal;

  // False when all fields of the format are the plain way's.
  static bool make(std::int64_t width, std::int64_t decimals, const Settings& settings,
                   DateTimeFields& fields) noexcept {
    fields.missing = settings.system_missing;
    fields.decimal = settings.decimal;
    fields.seconds = width >= kFull;
    fields.fraction = 0;
    if (width < kWithMinute || width > kWidestField) return false;
    if (!fields.seconds) {
      fields.blanks = width - kWithMinute;
    } else if (decimals <= 0 || width <= kBeforeFraction) {
      fields.blanks = width - kFull;
    } else {
      fields.fraction = std::min(decimals, width - kBeforeFraction);
      fields.blanks = width - kBeforeFraction - fields.fraction;
      fields.half = half_unit(fields.fraction - 1);
    }
    return true;
  }

  // False, with the field as it was, when the value is the plain way's.
  [[gnu::always_inline]] bool operator()(char* field, double value) const noexcept {
    Moment moment;
    if (!take_apart(value, missing, moment)) return false;
    put_time(field, moment, clock_of(moment));
    put_date(field, date_of(moment));
    return true;
  }

  // The same in a field of the text's own width.
  static bool write_full(char* field, double value, const double& missing) noexcept {
    return write_full_date<DateTimeFields>(field, value, missing);
  }

  static bool takes(const Moment&) noexcept { return true; }

  static void put_full_time(char* text, const Clock& clock) noexcept {
    put_word(text + 11, text_word(" ") | two_digits(clock.hour, 1) | text_word(":", 3) |
                            two_digits(clock.minute, 4) | text_word(":", 6));
    put_two(text + 18, clock.second);
  }

  static void put_full_date(char* text, const Date& date) noexcept {
    TextOf<FormatCode::date>::put<Year::four_digits>(text, date);
  }

  void put_time(char* field, const Moment& moment, const Clock& clock) const noexcept {
    char* const text = field + blanks;
    put_minutes(text, clock);
    if (!seconds) return;
    put_seconds(text, clock);
    if (fraction == 0) return;
    const auto whole = static_cast<double>(static_cast<std::int64_t>(moment.whole));
    text[kFull] = decimal;
    put_fraction(text + kBeforeFraction, moment.value - whole);
  }

  void put_date(char* field, const Date& date) const noexcept {
    for (std::int64_t column = 0; column < blanks; ++column) field[column] = ' ';
    put_full_date(field + blanks, date);
  }

 private:
  static void put_minutes(char* text, const Clock& clock) noexcept {
    text[11] = ' ';
    put_two(text + 12, clock.hour);
    text[14] = ':';
    put_two(text + 15, clock.minute);
  }

  static void put_seconds(char* text, const Clock& clock) noexcept {
    text[17] = ':';
    put_two(text + 18, clock.second);
  }

  void put_fraction(char* text, double part) const noexcept {
    double tenths = part * 10;
    if (tenths + half < 10) tenths += half;
    for (std::int64_t i = 0;;) {
      const auto digit = static_cast<int>(tenths);  // [0, 9]
      text[i] = static_cast<char>('0' + digit);
      if (++i == fraction) return;
      tenths = (tenths - digit) * 10;
    }
  }
};

}  // namespace iocv::fast
