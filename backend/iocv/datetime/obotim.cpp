// Times and durations as text: TIME and DTIME.
#include "datetime/obotim.h"

#include <iocv/date_output.h>

#include <cmath>

#include "datetime/calendar.h"
#include "frame/leaf.h"
#include "frame/qobosp.h"
#include "numeric/encdic.h"
#include "numeric/powers.h"

namespace iocv {
namespace {

// A magnitude below kTooLarge taken apart.
struct Duration {
  std::int64_t days;  // 0 for TIME
  std::int64_t hours;
  std::int64_t minutes;  // [0, 59]
  std::int64_t seconds;  // [0, 59]
  double fraction;       // [0, 1)
};

std::int64_t digits(std::int64_t n) { return decimal_exponent(static_cast<double>(n)) + 1; }

Duration take_apart(double magnitude, bool with_days) {
  const auto hours = static_cast<std::int64_t>(magnitude / static_cast<double>(kSecondsPerHour));
  const double of_hour = magnitude - static_cast<double>(kSecondsPerHour * hours);
  const auto seconds = static_cast<std::int64_t>(of_hour);  // [0, 3599]
  return {.days = with_days ? hours / kHoursPerDay : 0,
          .hours = with_days ? hours % kHoursPerDay : hours,
          .minutes = seconds / kSecondsPerMinute,
          .seconds = seconds % kSecondsPerMinute,
          .fraction = of_hour - static_cast<double>(seconds)};
}

// The columns of a field from left to right: blanks, sign, days and a blank, hours, ":" and
// minutes, ":" and seconds, decimal character and fraction.
struct Columns {
  std::int64_t blanks;
  std::int64_t days;   // 0 for TIME
  std::int64_t hours;  // 2 for DTIME
  bool seconds;
  std::int64_t fraction;  // 0: no decimal character either
};

// Room is what the field has left beside sign, days, hours and minutes.
Columns share_out(std::int64_t room, std::int64_t decimals) {
  Columns columns = {};
  columns.seconds = room >= 3;
  if (columns.seconds) room -= 3;
  if (columns.seconds && room >= 2 && decimals > 0) {
    columns.fraction = std::min(room - 1, decimals);
    room -= 1 + columns.fraction;
  }
  columns.blanks = room;
  return columns;
}

// Half a unit of the last digit shown goes on top, unless that made a whole second.
double rounded_fraction(double fraction, std::int64_t digits) {
  const double rounded = fraction + 0.5 * power_of_ten(-digits);
  return rounded < 1 ? rounded : fraction;
}

void write_columns(Field out, const Columns& columns, bool negative, const Duration& time,
                   char decimal) {
  out.blank();
  std::int64_t at = columns.blanks;
  if (negative) out.put(at++, '-');
  if (columns.days > 0) {
    if (time.days > 0) write_integer(out.part(at, columns.days), time.days);
    at += columns.days + 1;
    write_two_digits(out, at, time.hours);
  } else {
    write_integer(out.part(at, columns.hours), time.hours);
  }
  at += columns.hours;
  out.put(at, ':');
  write_two_digits(out, at + 1, time.minutes);
  at += 3;
  if (!columns.seconds) return;
  out.put(at, ':');
  write_two_digits(out, at + 1, time.seconds);
  at += 3;
  if (columns.fraction == 0) return;
  out.put(at, decimal);
  write_fraction(out.part(at + 1, columns.fraction),
                 rounded_fraction(time.fraction, columns.fraction));
}

// A duration in a field too narrow for hours and minutes: the signed number of days, rounded.
void write_days(Field out, double magnitude, bool negative) {
  constexpr auto kDay = static_cast<double>(kSecondsPerDay);
  const auto days = static_cast<std::int64_t>((magnitude + kDay / 2) / kDay);
  if (digits(days) > out.width() - (negative ? 1 : 0)) {
    out.overflow();
  } else {
    write_integer(out, negative ? -days : days);
  }
}

}  // namespace

bool write_special_time(Field out, double value, std::int64_t decimals,
                        const Settings& settings) noexcept {
  const std::int64_t behind = std::clamp<std::int64_t>(decimals, 0, out.width());
  return write_special(out, value, out.width() - behind - 1, settings);
}

void write_fraction(Field out, double fraction) noexcept {
  for (std::int64_t column = 0; column < out.width(); ++column) {
    fraction *= 10;
    const auto digit = static_cast<int>(fraction);  // [0, 9]
    out.put(column, static_cast<char>('0' + digit));
    fraction -= digit;
  }
}

Status write_time_plain(Field out, double value, std::int64_t decimals, FormatCode code,
                        const Settings& settings) noexcept {
  if (write_special_time(out, value, decimals, settings)) return Status::ok;
  const double magnitude = std::abs(value);
  if (magnitude >= kTooLarge) {
    out.overflow();
    return Status::ok;
  }
  const bool negative = value < 0;
  const bool with_days = code == FormatCode::dtime;
  const Duration time = take_apart(magnitude, with_days);
  const std::int64_t days_columns = with_days ? digits(time.days) : 0;
  const std::int64_t hours_columns = with_days ? 2 : digits(time.hours);
  const std::int64_t room =
      out.width() - (negative ? 1 : 0) - 3 - hours_columns - (with_days ? days_columns + 1 : 0);
  if (room >= 0) {
    Columns columns = share_out(room, decimals);
    columns.days = days_columns;
    columns.hours = hours_columns;
    write_columns(out, columns, negative, time, settings.decimal);
  } else if (with_days) {
    write_days(out, magnitude, negative);
  } else {
    out.overflow();
  }
  return Status::ok;
}

}  // namespace iocv

extern "C" void obotim_(const double* value, const std::int64_t* width,
                        const std::int64_t* decimals, char* text, std::int64_t* status,
                        const std::int32_t* type, std::int64_t) {
  iocv::store(status,
              iocv::write_time({text, *width}, *value, *decimals,
                               static_cast<iocv::FormatCode>(*type), iocv::Settings::current()));
}
