// The fast way of times as input: hh:mm:ss, or a blank and h:mm:ss, as one word (read_words.h), and
// a walk (cursor_fast.h) over h:mm, h:mm:ss and h:mm:ss.f between blanks, with as many digits of
// the hour and of the fraction as nine, and over a blank field.
//
// Such a text has a colon behind its hour, so that it is none without delimiters, and its tokens
// are its numbers and the marks between them. The decimal character begins the fraction. Hours,
// minutes and seconds add up to a whole number without rounding; the fraction is divided and added
// as the plain way does it.
#pragma once

#include <optional>

#include "datetime/calendar.h"
#include "datetime/cursor_fast.h"
#include "datetime/read_words.h"
#include "frame/constants.h"
#include "frame/outlined.h"
#include "frame/settings.h"
#include "numeric/powers.h"

namespace iocv::fast {

inline constexpr std::int64_t kClockWidth = 8;

// The seconds of the eight bytes, or kNone; hours run to 99.
inline std::uint32_t read_clock(const char* text) noexcept {
  constexpr Limits kLimits("00:00:00", "99:59:59");
  const std::uint64_t bytes = load<std::uint64_t>(text) | zero_for_blank(text[0]);
  const std::uint64_t digits = bytes - kLimits.least;
  if ((excess(digits, kLimits) & kTopBits) != 0) return kNone;
  const std::uint64_t parts = pairs(digits);
  return 3600 * byte(parts, 0) + 60 * byte(parts, 3) + byte(parts, 6);
}

// The character that a token of a decimal mark has.
constexpr char decimal_mark(const Settings& settings) noexcept {
  return settings.decimal == '.' ? '.' : ',';
}

// None when the plain way is to judge.
[[gnu::always_inline]] inline std::optional<double> walk_clock(Cursor& cursor, char mark) noexcept {
  const std::uint32_t words = cursor.left() < kClockWidth ? kNone : read_clock(cursor.at());
  double seconds = words;
  if (words != kNone) {
    cursor.skip(kClockWidth);
  } else {
    const Digits hours = cursor.digits();
    if (hours.count == 0 || hours.count > 9 || !cursor.take(':')) return std::nullopt;
    const std::uint32_t minutes = cursor.number();
    if (minutes >= 60) return std::nullopt;
    seconds = static_cast<double>(std::int64_t{3600} * hours.value + std::int64_t{60} * minutes);
    if (!cursor.take(':')) return seconds;
    const std::uint32_t whole = cursor.number();
    if (whole >= 60) return std::nullopt;
    seconds += whole;
  }
  if (!cursor.take(mark)) return seconds;
  const Digits fraction = cursor.digits();
  if (fraction.count == 0 || fraction.count > 9) return std::nullopt;
  return seconds + fraction.value / kSmallPowers[static_cast<std::size_t>(fraction.count)];
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
  static WordsRead words(const char* field) noexcept {
    const std::uint32_t seconds = read_clock(field);
    if (seconds == kNone) return {};
    return {seconds};
  }

  // False for a first byte that the plain way is to judge.
  static bool may_walk_from(char byte) noexcept { return byte <= '9'; }

  [[nodiscard, gnu::always_inline]] std::optional<double> walk(const char* field) const noexcept {
    Cursor cursor(field, width);
    if (cursor.only_blanks_left()) return missing;
    const std::optional<double> time = walk_clock(cursor, mark);
    return cursor.only_blanks_left() ? time : std::nullopt;
  }
};

}  // namespace iocv::fast
