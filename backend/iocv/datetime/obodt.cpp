// Date-times as text: DATETIME.
#include "datetime/obodt.h"

#include <iocv/date_output.h>

#include "datetime/date_leaf.h"
#include "datetime/names.h"
#include "datetime/oboida.h"
#include "datetime/obotim.h"
#include "numeric/encdic.h"
#include "numeric/powers.h"

namespace iocv {
namespace {

// Widths from which a date-time shows its next part.
constexpr std::int64_t kWithDate = 12;
constexpr std::int64_t kWithHour = 14;
constexpr std::int64_t kWithMinute = 17;
constexpr std::int64_t kWithSecond = 20;
constexpr std::int64_t kWithFraction = 22;

// Columns before the first digit of the fraction.
constexpr std::int64_t kBeforeFraction = 21;

std::int64_t leading_blanks(std::int64_t width, std::int64_t fraction_columns) {
  if (fraction_columns > 0) return width - fraction_columns - kBeforeFraction;
  if (width >= kWithSecond) return width - kWithSecond;
  return (width + 1) % 3;
}

// The fraction times ten is rounded before its first digit is cut off it, unless that would carry
// into the seconds.
void write_rounded_fraction(Field out, double fraction) {
  double tenths = fraction * 10;
  const double rounded = tenths + 0.5 * power_of_ten(1 - out.width());
  if (rounded < 10) tenths = rounded;
  const auto first = static_cast<int>(tenths);  // [0, 9]
  out.put(0, static_cast<char>('0' + first));
  write_fraction(out.part(1, out.width() - 1), tenths - first);
}

void write_fields(Field out, const Breakdown& fields, std::int64_t fraction_columns, char decimal) {
  const std::int64_t width = out.width();
  const std::int64_t at = leading_blanks(width, fraction_columns);
  out.blank();
  write_two_digits(out, at, fields.day);
  out.put(at + 2, '-');
  for (std::int64_t i = 0; i < kMonthLettersCell; ++i) {
    out.put(at + 3 + i, month_letters(fields.month)[static_cast<std::size_t>(i)]);
  }
  out.put(at + 6, '-');
  write_integer(out.part(at + 7, 4), fields.year);  // asterisks above 9999
  if (width >= kWithHour) write_two_digits(out, at + 12, fields.hour);
  if (width >= kWithMinute) {
    out.put(at + 14, ':');
    write_two_digits(out, at + 15, fields.minute);
  }
  if (width < kWithSecond) return;
  const auto seconds = static_cast<std::int64_t>(fields.seconds);
  out.put(at + 17, ':');
  write_two_digits(out, at + 18, seconds);
  if (fraction_columns == 0) return;
  out.put(at + 20, decimal);
  write_rounded_fraction(out.part(at + kBeforeFraction, fraction_columns),
                         fields.seconds - static_cast<double>(seconds));
}

}  // namespace

Status write_date_time_plain(Field out, double value, std::int64_t decimals,
                             const Settings& settings) noexcept {
  if (write_special_time(out, value, decimals, settings)) return Status::ok;
  if (value < kFirstDate) return refuse_value(out, Status::date_too_early, settings);
  if (out.width() < kWithDate) return write_date(out, value, decimals, settings);
  if (value >= kTooLarge) {
    out.overflow();
    return Status::ok;
  }
  const bool with_fraction = decimals > 0 && out.width() >= kWithFraction;
  const std::int64_t fraction_columns =
      with_fraction ? std::min(decimals, out.width() - kBeforeFraction) : 0;
  write_fields(out, break_down(value), fraction_columns, settings.decimal);
  return Status::ok;
}

}  // namespace iocv

using iocv::FormatCode;

extern "C" void obodt_(const double* value, const std::int64_t* width, const std::int64_t* decimals,
                       char* text, std::int64_t* status, std::int64_t) {
  const OBS stored = {.number = *value};
  iocv::write_date_row<iocv::write_date_time, FormatCode::datetime>(
      &stored, &iocv::type_code<FormatCode::datetime>, width, decimals, text, status);
}
