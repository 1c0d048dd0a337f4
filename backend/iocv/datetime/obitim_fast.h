// The fast way of times as input: hh:mm:ss, hh:mm and hh:mm:ss.f with up to seven digits behind the
// decimal character, each filling its field, as words (read_words.h), where a tens digit of the
// hour may be blank; and a walk (cursor_fast.h) over h:mm, h:mm:ss and h:mm:ss.f between blanks,
// with as many digits of the hour and of the fraction as nine, and over a blank field.
//
// Such a text has a colon behind its hour, so that it is none without delimiters, and its tokens
// are its numbers and the marks between them. The decimal character begins the fraction. Hours,
// minutes and seconds add up to a whole number without rounding; the fraction's digits make another
// one, which is divided and added as the plain way does it.
#pragma once

#include "datetime/calendar.h"
#include "datetime/cursor_fast.h"
#include "datetime/read_words.h"
#include "frame/constants.h"
#include "frame/outlined.h"
#include "frame/settings.h"
#include "numeric/powers.h"

namespace iocv::fast {

inline constexpr std::int64_t kClockWidth = 8;
inline constexpr std::int64_t kShortClockWidth = 5;
inline constexpr std::int64_t kMostFractionInWord = 7;

// The seconds of the eight bytes, or kNone; hours run to 99.
inline std::uint32_t read_clock(const char* text) noexcept {
  constexpr Limits kLimits("00:00:00", "99:59:59");
  const std::uint64_t bytes = load<std::uint64_t>(text) | zero_for_blank(text[0]);
  const std::uint64_t digits = bytes - kLimits.least;
  if ((excess(digits, kLimits) & kTopBits) != 0) return kNone;
  const std::uint64_t parts = pairs(digits);
  return 3600 * byte(parts, 0) + 60 * byte(parts, 3) + byte(parts, 6);
}

// The seconds of the five bytes hh:mm, or kNone.
inline std::uint32_t read_short_clock(const char* text) noexcept {
  constexpr Limits kLimits("00:00", "99:59");
  const std::uint64_t last = static_cast<unsigned char>(text[kShortClockWidth - 1]);
  const std::uint64_t bytes = load<std::uint32_t>(text) | last << 32 | zero_for_blank(text[0]);
  const std::uint64_t digits = bytes - kLimits.least;
  if ((excess(digits, kLimits) & kTopBits) != 0) return kNone;
  const std::uint64_t parts = pairs(digits);
  return 3600 * byte(parts, 0) + 60 * byte(parts, 3);
}

// The number that the last digits of eight bytes make, [1, 8] of them, or kNone.
inline std::uint32_t read_last_digits(const char* text, std::int64_t count) noexcept {
  constexpr Limits kLimits("00000000", "99999999");
  const std::int64_t others = 8 * (8 - count);  // bits in front
  const std::uint64_t digits = (load<std::uint64_t>(text) >> others) - (kLimits.least >> others);
  if ((excess(digits, kLimits) & kTopBits) != 0) return kNone;
  const std::uint64_t twos = pairs(digits << others) & 0x00FF'00FF'00FF'00FF;
  const std::uint64_t fours = (twos * 100 + (twos >> 16)) & 0x0000'FFFF'0000'FFFF;
  return static_cast<std::uint32_t>(fours * 10'000 + (fours >> 32));
}

// The character that a token of a decimal mark has.
constexpr char decimal_mark(const Settings& settings) noexcept {
  return settings.decimal == '.' ? '.' : ',';
}

// Whether a text is hh:mm:ss.f with so many digits behind the mark, [1, kMostFractionInWord].
inline bool read_clock_and_fraction(const char* text, std::int64_t count, char mark,
                                    double& time) noexcept {
  const std::uint32_t seconds = read_clock(text);
  const std::uint32_t fraction = read_last_digits(text + 1 + count, count);
  if (seconds == kNone || fraction == kNone || text[kClockWidth] != mark) return false;
  time = seconds + fraction / kSmallPowers[static_cast<std::size_t>(count)];
  return true;
}

// False when the plain way is to judge.
[[gnu::always_inline]] inline bool walk_clock(Cursor& cursor, char mark, double& seconds) noexcept {
  const std::uint32_t words = cursor.left() < kClockWidth ? kNone : read_clock(cursor.at());
  seconds = words;
  if (words != kNone) {
    cursor.skip(kClockWidth);
  } else {
    const Digits hours = cursor.digits();
    if (hours.count == 0 || hours.count > 9 || !cursor.take(':')) return false;
    const std::uint32_t minutes = cursor.number();
    if (minutes >= 60) return false;
    seconds = static_cast<double>(std::int64_t{3600} * hours.value + std::int64_t{60} * minutes);
    if (!cursor.take(':')) return true;
    const std::uint32_t whole = cursor.number();
    if (whole >= 60) return false;
    seconds += whole;
  }
  if (!cursor.take(mark)) return true;
  const Digits fraction = cursor.digits();
  if (fraction.count == 0 || fraction.count > 9) return false;
  seconds += fraction.value / kSmallPowers[static_cast<std::size_t>(fraction.count)];
  return true;
}

// An attempt at fields of TIME: made once, called for each.
struct TimeInput {
  static constexpr std::int64_t kWordsWidth = kClockWidth;

  std::int64_t width;
  double missing;
  char mark;

  // False when all fields of the format are the plain way's.
  static bool make(std::int64_t width, std::int64_t, const Settings& settings,
                   TimeInput& input) noexcept {
    input = {width, settings.system_missing, decimal_mark(settings)};
    return serves(settings.system_missing) && width > 0 && width <= kWidestField;
  }

  // False when the field is the plain way's.
  bool operator()(const char* field, double& value) const noexcept {
    return read_field(*this, field, value);
  }

  static bool serves(const double&) noexcept { return kReadsWords; }

  // Of a field of that width.
  [[gnu::always_inline]] static Words words(const char* field, double& value) noexcept {
    const std::uint32_t seconds = read_clock(field);
    value = seconds;
    return seconds == kNone ? Words::neither : Words::value;
  }

  // False when the plain way is to judge.
  static bool may_walk(const char* field, std::int64_t width) noexcept {
    constexpr Limits kLimits("        ", "::::::::");
    const char first = TextBegin(field, width).first;
    if (first != ' ' && !is_digit(first)) return false;
    if (width < 8) return true;
    const std::uint64_t bytes = load<std::uint64_t>(field + width - 8) - kLimits.least;
    return (excess(bytes, kLimits) & kTopBits) == 0;
  }

  // Of a field of another width.
  [[gnu::always_inline]] bool other_words(const char* field, double& value) const noexcept {
    const std::int64_t fraction = width - kClockWidth - 1;
    if (fraction >= 1 && fraction <= kMostFractionInWord) {
      return read_clock_and_fraction(field, fraction, mark, value);
    }
    if (width != kShortClockWidth) return false;
    const std::uint32_t seconds = read_short_clock(field);
    value = seconds;
    return seconds != kNone;
  }

  [[gnu::always_inline]] bool walk(const char* field, double& value) const noexcept {
    if (other_words(field, value)) return true;
    Cursor cursor(field, width);
    if (cursor.only_blanks_left()) {
      value = missing;
      return true;
    }
    return walk_clock(cursor, mark, value) && cursor.only_blanks_left();
  }
};

}  // namespace iocv::fast
