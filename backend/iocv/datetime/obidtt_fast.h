// The fast way of date-times as input: a date (obidat_fast.h), a blank or, behind a date that
// begins with its year, perhaps a T, and a time of day (obitim_fast.h), by words or by a walk. A
// blank field is walked over as well. A negative system-missing number is neither the date nor the
// time, which the plain way compares with it; under any other all is the plain way's.
#pragma once

#include "datetime/obidat_fast.h"
#include "datetime/obitim_fast.h"

namespace iocv::fast {

// An attempt at fields of one format: made once, called for each.
template <FormatCode kCode>
struct DateTimeInput {
  static constexpr bool kYearFirst = kCode == FormatCode::year_first;
  static constexpr std::int64_t kDateWidth = kDateWords<kCode>;
  static constexpr std::int64_t kWordsWidth = kDateWidth + 1 + kClockWidth;

  std::int64_t width;
  std::int64_t century_begin;
  double missing;
  char mark;

  // False when all fields of the format are the plain way's.
  static bool make(std::int64_t width, std::int64_t, const Settings& settings,
                   DateTimeInput& input) noexcept {
    input = {width, settings.century_begin, settings.system_missing, decimal_mark(settings)};
    return serves(settings.system_missing) && width > 0 && width <= kWidestField;
  }

  // False when the field is the plain way's.
  bool operator()(const char* field, double& value) const noexcept {
    return read_field(*this, field, value);
  }

  // False when all fields are the plain way's under that system-missing number.
  static bool serves(const double& missing) noexcept { return kReadsWords && missing < 0; }

  // Of a field of that width.
  [[gnu::always_inline]] static Words words(const char* field, double& value) noexcept {
    if (field[kDateWidth] != ' ') return Words::neither;
    const std::uint32_t day = read_date_words<kCode>(field);
    const std::uint32_t time = read_clock(field + kDateWidth + 1);
    if (!is_day(day) || time >= kSecondsPerDay) {
      return day == kNoDay ? Words::plain : Words::neither;
    }
    value = static_cast<double>(std::int64_t{day} * kSecondsPerDay + time);
    return Words::value;
  }

  // False when the plain way is to judge.
  static bool may_walk(const char* field, std::int64_t width) noexcept {
    constexpr std::int64_t kShortest = 11;  // d/m/yy h:mm
    return DateInput<kCode>::may_walk(field, width, kShortest);
  }

  [[gnu::always_inline]] bool walk(const char* field, double& value) const noexcept {
    Cursor cursor(field, width);
    if (cursor.only_blanks_left()) {
      value = missing;
      return true;
    }
    double date = 0;
    if (!store_day(walk_date<kCode>(cursor, century_begin), date)) return false;
    const bool marked = kYearFirst && cursor.take('T');
    if (cursor.blanks() == marked) return false;  // blanks or the mark, not both
    double time = 0;
    if (!walk_clock(cursor, mark, time) || time >= kSecondsPerDay) return false;
    value = date + time;
    return cursor.only_blanks_left();
  }
};

}  // namespace iocv::fast
