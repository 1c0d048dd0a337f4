// Dates as text: DATE, ADATE, EDATE, SDATE, JDATE, MOYR, QYR, WKYR, WKDAY and MONTH.
#include "datetime/oboida.h"

#include <iocv/date_output.h>

#include <cmath>

#include "datetime/date_leaf.h"
#include "datetime/names.h"
#include "frame/qobosp.h"
#include "numeric/encdic.h"

namespace iocv {
namespace {

// A layout shows the field with its two-digit year; with the century it is two columns wider.
// Lower-case letters and M stand for a part of the date, all else for itself:
//   dd day  mm month  MMM month's letters  yy year  jjj day of the year  q quarter  ww week
using Layout = std::string_view;

constexpr Layout kDate = "dd-MMM-yy";
constexpr Layout kMonthFirst = "mm/dd/yy";
constexpr Layout kDayFirstPoints = "dd.mm.yy";
constexpr Layout kDayFirstSlashes = "dd/mm/yy";
constexpr Layout kYearFirst = "yy/mm/dd";
constexpr Layout kDayOfYear = "yyjjj";
constexpr Layout kMonthAndYear = "MMM yy";
constexpr Layout kQuarterAndYear = "q Q yy";
constexpr Layout kWeekAndYear = "ww WK yy";

constexpr Layout numeric_layout(FormatCode code) {
  switch (code) {
    case FormatCode::adate: return kMonthFirst;
    case FormatCode::edate: return kDayFirstPoints;
    case FormatCode::sdate: return kYearFirst;
    default: return kDayFirstSlashes;
  }
}

std::int64_t day_in_year(const CalendarDate& date) {
  return day_of_year(date.year, date.month, date.day);
}

void write_text(Field out, std::string_view text) {
  const std::int64_t length = std::min(out.width(), static_cast<std::int64_t>(text.size()));
  if (length > 0) std::memcpy(out.data(), text.data(), static_cast<std::size_t>(length));
}

// Writes one part of a layout, whose columns are all named by the same letter.
void write_part(Field part, char letter, const CalendarDate& date) {
  switch (letter) {
    case 'd': write_two_digits(part, 0, date.day); break;
    case 'm': write_two_digits(part, 0, date.month); break;
    case 'M': write_text(part, month_letters(date.month)); break;
    case 'j':
      part.put(0, static_cast<char>('0' + day_in_year(date) / 100));
      write_two_digits(part, 1, day_in_year(date) % 100);
      break;
    case 'q': part.put(0, static_cast<char>('0' + (date.month - 1) / 3 + 1)); break;
    case 'w': write_integer(part, (day_in_year(date) - 1) / 7 + 1); break;
    case 'y':
      if (part.width() == 2) {
        write_two_digits(part, 0, date.year % 100);
      } else {
        write_integer(part, date.year);
      }
      break;
    default: part.fill(letter); break;
  }
}

void write_layout(Field out, Layout layout, bool with_century, const CalendarDate& date) {
  out.blank();
  std::int64_t column = 0;
  while (!layout.empty()) {
    const char letter = layout.front();
    const std::size_t run = std::min(layout.find_first_not_of(letter), layout.size());
    const std::int64_t width =
        static_cast<std::int64_t>(run) + (letter == 'y' && with_century ? 2 : 0);
    write_part(out.part(column, width), letter, date);
    column += width;
    layout.remove_prefix(run);
  }
}

// The frame of all writers with a year.
Status write_laid_out(Field out, double value, Layout layout, const Settings& settings) {
  if (write_special(out, value, out.width() - 1, settings)) return Status::ok;
  if (value < kFirstDate) return refuse_value(out, Status::date_too_early, settings);
  const CalendarDate date = date_of(value);
  const auto short_width = static_cast<std::int64_t>(layout.size());
  const bool with_century = out.width() >= short_width + 2;
  if (date.year > kLastFourDigitYear || out.width() < short_width ||
      (!with_century && !in_century(date.year, settings))) {
    out.overflow();
  } else {
    write_layout(out, layout, with_century, date);
  }
  return Status::ok;
}

// The number, from 1, that a bare value below limit + 1 is; 0 for any other.
std::int64_t bare_number(double value, std::int64_t limit) {
  return value >= 1 && value < static_cast<double>(limit + 1) ? static_cast<std::int64_t>(value)
                                                              : 0;
}

// From 1, Sunday. In doubles: the last moment of a day may already count as the next day.
std::int64_t weekday_of(double date) {
  return static_cast<std::int64_t>(
      std::fmod(date / static_cast<double>(kSecondsPerDay) + 4, kWeekdays) + 1);
}

}  // namespace

Status refuse_value(Field out, Status status, const Settings& settings) noexcept {
  out.mark(out.width() - 1, settings.decimal);
  return status;
}

Status write_date_plain(Field out, double value, std::int64_t, const Settings& settings) noexcept {
  return write_laid_out(out, value, kDate, settings);
}

Status write_numeric_date_plain(Field out, double value, std::int64_t, FormatCode code,
                                const Settings& settings) noexcept {
  return write_laid_out(out, value, numeric_layout(code), settings);
}

Status write_day_of_year_plain(Field out, double value, std::int64_t,
                               const Settings& settings) noexcept {
  return write_laid_out(out, value, kDayOfYear, settings);
}

Status write_month_or_quarter_plain(Field out, double value, std::int64_t, FormatCode code,
                                    const Settings& settings) noexcept {
  const Layout layout = code == FormatCode::qyr ? kQuarterAndYear : kMonthAndYear;
  return write_laid_out(out, value, layout, settings);
}

Status write_week_plain(Field out, double value, std::int64_t, const Settings& settings) noexcept {
  return write_laid_out(out, value, kWeekAndYear, settings);
}

Status write_name_plain(Field out, double value, std::int64_t, FormatCode code,
                        const Settings& settings) noexcept {
  if (write_special(out, value, out.width() - 1, settings)) return Status::ok;
  if (value < 0) return refuse_value(out, Status::date_too_early, settings);
  const bool is_date = value >= kFirstDate;
  const bool is_weekday = code == FormatCode::wkday;
  if (!is_weekday && value >= kTooLarge) {
    out.overflow();
    return Status::ok;
  }
  const std::int64_t number = is_weekday
                                  ? (is_date ? weekday_of(value) : bare_number(value, 7))
                                  : (is_date ? date_of(value).month : bare_number(value, 12));
  const std::string_view name = name_cell(is_weekday ? kDayNames : kMonthNames, kNameCell, number);
  if (name.empty()) return refuse_value(out, Status::name_number, settings);
  out.blank();
  write_text(out, name);
  return Status::ok;
}

void record_written_date(Field out, double value, const Settings& settings) noexcept {
  const bool taken_apart = !out.empty() && std::isfinite(value) && value >= kFirstDate &&
                           value != settings.system_missing;
  if (taken_apart) record_breakdown(break_down(value));
}

}  // namespace iocv

using iocv::FormatCode;

namespace {

// Any other code shows the day first, with slashes.
iocv::WriteLeaf* numeric_leaf(FormatCode code) {
  switch (code) {
    case FormatCode::adate:
      return iocv::write_date_row<iocv::write_numeric_date, FormatCode::adate>;
    case FormatCode::edate:
      return iocv::write_date_row<iocv::write_numeric_date, FormatCode::edate>;
    case FormatCode::sdate:
      return iocv::write_date_row<iocv::write_numeric_date, FormatCode::sdate>;
    default: return iocv::write_date_leaf<iocv::write_numeric_date_plain>;
  }
}

iocv::WriteLeaf* month_or_quarter_leaf(FormatCode code) {
  return code == FormatCode::qyr
             ? iocv::write_date_row<iocv::write_month_or_quarter, FormatCode::qyr>
             : iocv::write_date_row<iocv::write_month_or_quarter, FormatCode::moyr>;
}

iocv::WriteLeaf* name_leaf(FormatCode code) {
  return code == FormatCode::wkday ? iocv::write_date_row<iocv::write_name, FormatCode::wkday>
                                   : iocv::write_date_row<iocv::write_name, FormatCode::month>;
}

}  // namespace

extern "C" {

void oboida_(const double* value, const std::int64_t* width, const std::int64_t* decimals,
             char* text, std::int64_t* status, std::int64_t) {
  const OBS stored = {.number = *value};
  iocv::write_date_row<iocv::write_date, FormatCode::date>(
      &stored, &iocv::type_code<FormatCode::date>, width, decimals, text, status);
}

void oboada_(const double* value, const std::int64_t* width, const std::int64_t* decimals,
             char* text, const std::int32_t* type, std::int64_t* status, std::int64_t) {
  const OBS stored = {.number = *value};
  numeric_leaf(static_cast<FormatCode>(*type))(&stored, type, width, decimals, text, status);
}

void obojda_(const double* value, const std::int64_t* width, const std::int64_t* decimals,
             char* text, std::int64_t* status, std::int64_t) {
  const OBS stored = {.number = *value};
  iocv::write_date_row<iocv::write_day_of_year, FormatCode::jdate>(
      &stored, &iocv::type_code<FormatCode::jdate>, width, decimals, text, status);
}

void oboqmo_(const double* value, const std::int64_t* width, const std::int64_t* decimals,
             char* text, std::int64_t* status, const std::int32_t* type, std::int64_t) {
  const OBS stored = {.number = *value};
  month_or_quarter_leaf(static_cast<FormatCode>(*type))(&stored, type, width, decimals, text,
                                                        status);
}

void obowyr_(const double* value, const std::int64_t* width, const std::int64_t* decimals,
             char* text, std::int64_t* status, std::int64_t) {
  const OBS stored = {.number = *value};
  iocv::write_date_row<iocv::write_week, FormatCode::wkyr>(
      &stored, &iocv::type_code<FormatCode::wkyr>, width, decimals, text, status);
}

void obowmo_(const double* value, const std::int64_t* width, const std::int64_t* decimals,
             char* text, std::int64_t* status, const std::int32_t* type, std::int64_t) {
  const OBS stored = {.number = *value};
  name_leaf(static_cast<FormatCode>(*type))(&stored, type, width, decimals, text, status);
}

}  // extern "C"
