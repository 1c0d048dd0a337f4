#include "datetime/oboida_fast.h"

#include "datetime/oboida.h"
#include "frame/outlined.h"

namespace iocv {

namespace {

using fast::DateText;
using fast::DayFirstText;
using fast::MonthFirstText;
using fast::YearFirstText;

// The row of a plain writer, as it is: inlined it would cost the fast rows a frame.
template <auto Plain>
IOCV_OUTLINED void write_plain(const OBS* value, const std::int32_t* type,
                               const std::int64_t* width, const std::int64_t* decimals, char* text,
                               std::int64_t* status) {
  write_date_leaf<Plain>(value, type, width, decimals, text, status, *width);
}

// The row of an ordinary moment in a field of the text's own width. Text and records come from one
// breakdown.
template <class Text, auto Plain>
IOCV_OUTLINED void write_row(const OBS* value, const std::int32_t* type, const std::int64_t* width,
                             const std::int64_t* decimals, char* text, std::int64_t* status,
                             std::int64_t) {
  const std::uint64_t bits = fast::bits_of(value->number);
  if (*width != Text::kWidth || !fast::is_ordinary_moment(bits, cmnglb_.system_missing)) {
    return write_plain<Plain>(value, type, width, decimals, text, status);
  }
  const auto number = std::bit_cast<double>(bits);
  const fast::Moment moment = fast::moment_of(number);
  Text::put(text, moment);
  fast::record_date(moment);
  if (moment.second_of_day == 0) {  // most dates have no time
    fast::record_time(moment, {0, 0, 0}, number);
  } else {
    fast::record_time(moment, fast::clock_of(moment.second_of_day), number);
  }
  store(status, Status::ok);
}

template <class Text>
bool write_text(Field out, double value, const Settings& settings) {
  const bool ordinary = out.width() == Text::kWidth &&
                        fast::is_ordinary_moment(fast::bits_of(value), settings.system_missing);
  if (ordinary) Text::put(out.data(), fast::moment_of(value));
  return ordinary;
}

bool write_numeric_text(Field out, double value, FormatCode code, const Settings& settings) {
  switch (code) {
    case FormatCode::adate: return write_text<MonthFirstText>(out, value, settings);
    case FormatCode::edate: return write_text<DayFirstText<'.'>>(out, value, settings);
    case FormatCode::sdate: return write_text<YearFirstText>(out, value, settings);
    default: return write_text<DayFirstText<'/'>>(out, value, settings);
  }
}

}  // namespace

Status write_date(Field out, double value, std::int64_t decimals,
                  const Settings& settings) noexcept {
  if (write_text<DateText>(out, value, settings)) return Status::ok;
  return write_date_plain(out, value, decimals, settings);
}

Status write_numeric_date(Field out, double value, std::int64_t decimals, FormatCode code,
                          const Settings& settings) noexcept {
  if (write_numeric_text(out, value, code, settings)) return Status::ok;
  return write_numeric_date_plain(out, value, decimals, code, settings);
}

template <>
void write_date_leaf<write_date>(const OBS* value, const std::int32_t* type,
                                 const std::int64_t* width, const std::int64_t* decimals,
                                 char* text, std::int64_t* status, std::int64_t text_length) {
  write_row<DateText, write_date_plain>(value, type, width, decimals, text, status, text_length);
}

template <>
void write_date_leaf<write_numeric_date>(const OBS* value, const std::int32_t* type,
                                         const std::int64_t* width, const std::int64_t* decimals,
                                         char* text, std::int64_t* status,
                                         std::int64_t text_length) {
  constexpr auto plain = write_numeric_date_plain;
  switch (static_cast<FormatCode>(*type)) {
    case FormatCode::adate:
      return write_row<MonthFirstText, plain>(value, type, width, decimals, text, status,
                                              text_length);
    case FormatCode::edate:
      return write_row<DayFirstText<'.'>, plain>(value, type, width, decimals, text, status,
                                                 text_length);
    case FormatCode::sdate:
      return write_row<YearFirstText, plain>(value, type, width, decimals, text, status,
                                             text_length);
    default:
      return write_row<DayFirstText<'/'>, plain>(value, type, width, decimals, text, status,
                                                 text_length);
  }
}

}  // namespace iocv
