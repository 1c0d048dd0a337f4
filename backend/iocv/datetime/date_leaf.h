// Rows of the dispatcher for dates with a fast way.
//
// Writers: text and records come from one and
// the same breakdown. A field of the text's own width has a row without a frame; any other is
// passed on to a second one, and what that does not write to the plain row.
#pragma once

#include "datetime/obidat.h"
#include "datetime/obidat_fast.h"
#include "datetime/obidtm.h"
#include "datetime/obidtt.h"
#include "datetime/obidtt_fast.h"
#include "datetime/obijdt.h"
#include "datetime/obimon.h"
#include "datetime/obiqyr.h"
#include "datetime/obitim.h"
#include "datetime/obitim_fast.h"
#include "datetime/obiwky.h"
#include "datetime/obodt.h"
#include "datetime/obodt_fast.h"
#include "datetime/oboida.h"
#include "datetime/oboida_fast.h"
#include "datetime/period_input_fast.h"
#include "frame/outlined.h"

namespace iocv {

// The plain row of one type, as it is: inlined it would cost the fast ones a frame. The width goes
// by value, a known one by nothing but its constant.
template <FormatCode kCode, auto Plain>
IOCV_OUTLINED void write_date_plainly(const OBS* value, std::int64_t width, std::int64_t,
                                      const std::int64_t* decimals, char* text,
                                      std::int64_t* status) {
  write_date_leaf<Plain>(value, &type_code<kCode>, &width, decimals, text, status, width);
}

// Fields is an attempt at the fields of one format, as fast::DateFields.
template <class Fields, FormatCode kCode, auto Plain>
IOCV_OUTLINED void write_date_of_any_width(const OBS* value, std::int64_t width, std::int64_t,
                                           const std::int64_t* decimals, char* text,
                                           std::int64_t* status) {
  Fields fields;
  fast::Moment moment;
  if (!Fields::make(width, *decimals, Settings::current(), fields) ||
      !fast::take_apart(value->number, fields.missing, moment)) {
    return write_date_plainly<kCode, Plain>(value, width, 0, decimals, text, status);
  }
  const fast::Clock clock = fast::clock_of(moment);
  fast::record_time(moment, clock);
  fields.put_time(text, moment, clock);
  const fast::Date date = fast::date_of(moment);
  fast::record_date(date);
  fields.put_date(text, date);
  store(status, Status::ok);
}

template <class Fields, FormatCode kCode, auto Plain>
IOCV_OUTLINED void write_date_row(const OBS* value, const std::int32_t*, const std::int64_t* width,
                                  const std::int64_t* decimals, char* text, std::int64_t* status,
                                  std::int64_t) {
  if (*width != Fields::kFull) {
    return write_date_of_any_width<Fields, kCode, Plain>(value, *width, 0, decimals, text, status);
  }
  fast::Moment moment;
  if (!fast::take_apart(value->number, cmnglb_.system_missing, moment)) {
    return write_date_plainly<kCode, Plain>(value, Fields::kFull, 0, decimals, text, status);
  }
  const fast::Clock clock = fast::clock_of(moment);
  fast::record_time(moment, clock);
  Fields::put_full_time(text, clock);
  const fast::Date date = fast::date_of(moment);
  fast::record_date(date);
  Fields::put_full_date(text, date);
  store(status, Status::ok);
}

// The row of a format type.
template <auto Write, FormatCode kCode>
inline constexpr WriteLeaf* kDateLeaf = write_date_leaf<Write>;

template <FormatCode kCode>
inline constexpr WriteLeaf* kDateLeaf<write_date, kCode> =
    write_date_row<fast::DateFields<kCode>, kCode, write_date_plain>;

template <FormatCode kCode>
inline constexpr WriteLeaf* kDateLeaf<write_numeric_date, kCode> =
    write_date_row<fast::DateFields<kCode>, kCode, write_numeric_date_plain>;

template <FormatCode kCode>
inline constexpr WriteLeaf* kDateLeaf<write_day_of_year, kCode> =
    write_date_row<fast::DateFields<kCode>, kCode, write_day_of_year_plain>;

template <FormatCode kCode>
inline constexpr WriteLeaf* kDateLeaf<write_month_or_quarter, kCode> =
    write_date_row<fast::DateFields<kCode>, kCode, write_month_or_quarter_plain>;

template <FormatCode kCode>
inline constexpr WriteLeaf* kDateLeaf<write_week, kCode> =
    write_date_row<fast::DateFields<kCode>, kCode, write_week_plain>;

template <FormatCode kCode>
inline constexpr WriteLeaf* kDateLeaf<write_date_time, kCode> =
    write_date_row<fast::DateTimeFields, kCode, write_date_time_plain>;

// Readers: a field of the words of its usual width, a walk over any other, and the plain row. None
// looks at decimals.

// As it is: inlined it would cost the fast ones a frame.
template <FormatCode kCode, auto Plain>
IOCV_OUTLINED void read_date_plainly(const char* text, std::int64_t width, std::int64_t,
                                     std::int64_t, OBS* value, std::int64_t* status) {
  constexpr std::int64_t kDecimals = 0;
  read_leaf<Plain>(text, &type_code<kCode>, &width, &kDecimals, value, status, width);
}

// Input is an attempt at the fields of one format, as fast::DateInput.
template <class Input, FormatCode kCode, auto Plain>
IOCV_OUTLINED void walk_date_field(const char* text, std::int64_t width, std::int64_t, std::int64_t,
                                   OBS* value, std::int64_t* status) {
  Input input;
  if (!Input::make(width, 0, Settings::current(), input) || !Input::may_walk_from(text[0])) {
    return read_date_plainly<kCode, Plain>(text, width, 0, 0, value, status);
  }
  const std::optional<double> read = input.walk(text);
  if (!read) return read_date_plainly<kCode, Plain>(text, width, 0, 0, value, status);
  value->number = *read;
  store(status, Status::ok);
}

template <class Input, FormatCode kCode, auto Plain>
IOCV_OUTLINED void read_date_row(const char* text, const std::int32_t*, const std::int64_t* width,
                                 const std::int64_t*, OBS* value, std::int64_t* status,
                                 std::int64_t) {
  if (Input::kWordsWidth == 0 || *width != Input::kWordsWidth) {
    return walk_date_field<Input, kCode, Plain>(text, *width, 0, 0, value, status);
  }
  if constexpr (Input::kWordsWidth != 0) {
    const std::optional<double> read = Input::words(text, cmnglb_.system_missing);
    if (!read) {
      return walk_date_field<Input, kCode, Plain>(text, Input::kWordsWidth, 0, 0, value, status);
    }
    value->number = *read;
    store(status, Status::ok);
  }
}

// The row of a format type.
template <auto Read, FormatCode kCode>
inline constexpr ReadLeaf* kReadLeaf = read_leaf<Read>;

template <FormatCode kCode>
inline constexpr ReadLeaf* kReadLeaf<read_date, kCode> =
    read_date_row<fast::DateInput<kCode>, kCode, read_date_plain>;

template <FormatCode kCode>
inline constexpr ReadLeaf* kReadLeaf<read_datetime, kCode> =
    read_date_row<fast::DateTimeInput<kCode>, kCode, read_datetime_plain>;

template <FormatCode kCode>
inline constexpr ReadLeaf* kReadLeaf<read_time, kCode> =
    read_date_row<fast::TimeInput, kCode, read_time_plain>;

template <FormatCode kCode>
inline constexpr ReadLeaf* kReadLeaf<read_jdate, kCode> =
    read_date_row<fast::PeriodInput<kCode>, kCode, read_jdate_plain>;

template <FormatCode kCode>
inline constexpr ReadLeaf* kReadLeaf<read_month, kCode> =
    read_date_row<fast::PeriodInput<kCode>, kCode, read_month_plain>;

template <FormatCode kCode>
inline constexpr ReadLeaf* kReadLeaf<read_moyr, kCode> =
    read_date_row<fast::PeriodInput<kCode>, kCode, read_moyr_plain>;

template <FormatCode kCode>
inline constexpr ReadLeaf* kReadLeaf<read_qyr, kCode> =
    read_date_row<fast::PeriodInput<kCode>, kCode, read_qyr_plain>;

template <FormatCode kCode>
inline constexpr ReadLeaf* kReadLeaf<read_wkyr, kCode> =
    read_date_row<fast::PeriodInput<kCode>, kCode, read_wkyr_plain>;

template <FormatCode kCode>
inline constexpr ReadLeaf* kReadLeaf<read_dtime, kCode> =
    read_date_row<fast::PeriodInput<kCode>, kCode, read_dtime_plain>;

}  // namespace iocv
