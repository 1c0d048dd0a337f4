// The dispatchers' rows for functions of dates and times with a fast way, in steps: a field of the
// text's own width, whose row needs no frame; a field of any width; for writers of dates a value
// that is no moment at all; and the plain row. Each is jumped to with what it needs, by value where
// the step before knows it, and never made part of another: it would cost that one a frame.
#pragma once

#include <algorithm>
#include <cmath>

#include "datetime/fast_ways.h"
#include "datetime/record_date.h"
#include "frame/outlined.h"

namespace iocv {

// Writers of dates: text and records come from one and the same breakdown.

template <auto Write, FormatCode kCode>
IOCV_OUTLINED void write_date_plainly(const OBS* value, std::int64_t width, std::int64_t,
                                      const std::int64_t* decimals, char* text,
                                      std::int64_t* status) {
  constexpr auto plain = FastWay<Write, kCode>::plain;
  write_date_leaf<plain>(value, &type_code<kCode>, &width, decimals, text, status);
}

// The infinities, not-a-number and the system-missing number show the same character in all rows:
// in the last column, or for the last of them in DATETIME before the columns of its decimals.
template <FormatCode kCode>
void write_missing(double value, Field out, std::int64_t decimals) noexcept {
  const bool before_decimals = kCode == FormatCode::datetime && value == cmnglb_.system_missing;
  const std::int64_t behind =
      before_decimals ? std::min(std::max<std::int64_t>(decimals, 0), out.width()) : 0;
  out.mark(out.width() - behind - 1, Settings::current().system_missing_char);
}

// What they refuse; the formats of names take small numbers as those of days and months.
template <FormatCode kCode>
bool is_too_early(double value) noexcept {
  constexpr bool kTakesNumbers = kCode == FormatCode::wkday || kCode == FormatCode::month;
  return !kTakesNumbers && value < kFirstDate;
}

template <auto Write, FormatCode kCode>
IOCV_OUTLINED void write_no_moment(const OBS* value, std::int64_t width, std::int64_t,
                                   const std::int64_t* decimals, char* text, std::int64_t* status) {
  if (!std::isfinite(value->number) || value->number == cmnglb_.system_missing) {
    store(status, Status::ok);
    return write_missing<kCode>(value->number, Field(text, width), *decimals);
  }
  if (is_too_early<kCode>(value->number) && width > 0) {
    store(status, Status::date_too_early);
    return Field(text, width).mark(width - 1, Settings::current().decimal);
  }
  return write_date_plainly<Write, kCode>(value, width, 0, decimals, text, status);
}

// False, with field and records as they were, when the value is the plain way's.
template <class Fields>
[[gnu::always_inline]] inline bool write_and_record(char* text, std::int64_t width,
                                                    std::int64_t decimals, const double& value) {
  Fields fields;
  fast::Moment moment;
  if (!fast::take_apart(value, cmnglb_.system_missing, moment) || !Fields::takes(moment) ||
      !Fields::make(width, decimals, Settings::current(), fields)) {
    return false;
  }
  const fast::Clock clock = fast::clock_of(moment);
  fast::record_time(moment, clock);
  fields.put_time(text, moment, clock);
  const fast::Date date = fast::date_of(moment);
  fast::record_date(moment, clock, date);
  fast::record_letters(date);
  fields.put_date(text, date);
  return true;
}

// The same for a field of the text's own width.
template <class Fields>
[[gnu::always_inline]] inline bool write_full_and_record(char* text, const double& value) {
  fast::Moment moment;
  if (!fast::take_apart(value, cmnglb_.system_missing, moment) || !Fields::takes(moment)) {
    return false;
  }
  const fast::Clock clock = fast::clock_of(moment);
  fast::record_time(moment, clock);
  Fields::put_full_time(text, clock);
  const fast::Date date = fast::date_of(moment);
  fast::record_date(moment, clock, date);
  fast::record_letters(date);
  Fields::put_full_date(text, date);
  return true;
}

template <auto Write, FormatCode kCode>
IOCV_OUTLINED void write_date_of_any_width(const OBS* value, std::int64_t width, std::int64_t,
                                           const std::int64_t* decimals, char* text,
                                           std::int64_t* status) {
  using Fields = typename FastWay<Write, kCode>::Attempt;
  if (!write_and_record<Fields>(text, width, *decimals, value->number)) {
    return write_no_moment<Write, kCode>(value, width, 0, decimals, text, status);
  }
  store(status, Status::ok);
}

template <auto Write, FormatCode kCode>
IOCV_OUTLINED void write_date_row(const OBS* value, const std::int32_t*, const std::int64_t* width,
                                  const std::int64_t* decimals, char* text, std::int64_t* status) {
  using Fields = typename FastWay<Write, kCode>::Attempt;
  constexpr std::int64_t kFull = Fields::kFull;
  if (*width != kFull) [[unlikely]] {
    return write_date_of_any_width<Write, kCode>(value, *width, 0, decimals, text, status);
  }
  if (!write_full_and_record<Fields>(text, value->number)) [[unlikely]] {
    return write_no_moment<Write, kCode>(value, kFull, 0, decimals, text, status);
  }
  store(status, Status::ok);
}

// Writers of times leave nothing in the records.

template <FormatCode kCode>
IOCV_OUTLINED void write_time_plainly(const OBS* value, std::int64_t width, std::int64_t,
                                      const std::int64_t* decimals, char* text,
                                      std::int64_t* status) {
  write_leaf<write_time_plain>(value, &type_code<kCode>, &width, decimals, text, status);
}

template <FormatCode kCode>
IOCV_OUTLINED void write_time_of_any_width(const OBS* value, std::int64_t width, std::int64_t,
                                           const std::int64_t* decimals, char* text,
                                           std::int64_t* status) {
  using Fields = typename FastWay<write_time, kCode>::Attempt;
  Fields fields;
  if (!Fields::make(width, *decimals, Settings::current(), fields) ||
      !fields(text, value->number)) {
    return write_time_plainly<kCode>(value, width, 0, decimals, text, status);
  }
  store(status, Status::ok);
}

template <FormatCode kCode>
IOCV_OUTLINED void write_time_row(const OBS* value, const std::int32_t*, const std::int64_t* width,
                                  const std::int64_t* decimals, char* text, std::int64_t* status) {
  using Fields = typename FastWay<write_time, kCode>::Attempt;
  if (*width != Fields::kFull) {
    return write_time_of_any_width<kCode>(value, *width, 0, decimals, text, status);
  }
  if (!Fields::is_ordinary(value->number, cmnglb_.system_missing)) {
    return write_time_plainly<kCode>(value, Fields::kFull, 0, decimals, text, status);
  }
  Fields::put_full(text, value->number);
  store(status, Status::ok);
}

// Readers: the words of a field of usual width, for times those of other widths, a walk over any
// other field, and the plain row. None looks at decimals.

template <auto Read, FormatCode kCode>
IOCV_OUTLINED void read_date_plainly(const char* text, std::int64_t width, std::int64_t,
                                     std::int64_t, OBS* value, std::int64_t* status) {
  constexpr auto plain = FastWay<Read, kCode>::plain;
  constexpr std::int64_t kDecimals = 0;
  read_leaf<plain>(text, &type_code<kCode>, &width, &kDecimals, value, status);
}

template <auto Read, FormatCode kCode>
IOCV_OUTLINED void walk_to_end(const char* text, std::int64_t width, std::int64_t, std::int64_t,
                               OBS* value, std::int64_t* status) {
  typename FastWay<Read, kCode>::Attempt input;
  double number = 0;
  if (!input.make(width, 0, Settings::current(), input) || !input.walk(text, number)) {
    return read_date_plainly<Read, kCode>(text, width, 0, 0, value, status);
  }
  value->number = number;
  store(status, Status::ok);
}

// Apart from the walk itself, which needs a frame.
template <auto Read, FormatCode kCode>
IOCV_OUTLINED void walk_date_field(const char* text, std::int64_t width, std::int64_t, std::int64_t,
                                   OBS* value, std::int64_t* status) {
  using Input = typename FastWay<Read, kCode>::Attempt;
  if (width <= 0 || !Input::may_walk(text, width)) {
    return read_date_plainly<Read, kCode>(text, width, 0, 0, value, status);
  }
  walk_to_end<Read, kCode>(text, width, 0, 0, value, status);
}

template <auto Read, FormatCode kCode>
IOCV_OUTLINED void read_other_words(const char* text, std::int64_t width, std::int64_t,
                                    std::int64_t, OBS* value, std::int64_t* status) {
  typename FastWay<Read, kCode>::Attempt input;
  double number = 0;
  if (!input.make(width, 0, Settings::current(), input) || !input.other_words(text, number)) {
    return walk_date_field<Read, kCode>(text, width, 0, 0, value, status);
  }
  value->number = number;
  store(status, Status::ok);
}

template <auto Read, FormatCode kCode>
IOCV_OUTLINED void read_date_row(const char* text, const std::int32_t*, const std::int64_t* width,
                                 const std::int64_t*, OBS* value, std::int64_t* status) {
  using Input = typename FastWay<Read, kCode>::Attempt;
  constexpr std::int64_t kWords = Input::kWordsWidth;
  if (kWords == 0 || *width != kWords) {
    if constexpr (requires { &Input::other_words; }) {
      return read_other_words<Read, kCode>(text, *width, 0, 0, value, status);
    } else {
      return walk_date_field<Read, kCode>(text, *width, 0, 0, value, status);
    }
  }
  if constexpr (kWords != 0) {
    double number = 0;
    fast::Words words = fast::Words::plain;
    if (Input::serves(cmnglb_.system_missing)) words = Input::words(text, number);
    if (words == fast::Words::plain) {
      return read_date_plainly<Read, kCode>(text, kWords, 0, 0, value, status);
    }
    if (words == fast::Words::neither) {
      return walk_date_field<Read, kCode>(text, kWords, 0, 0, value, status);
    }
    value->number = number;
    store(status, Status::ok);
  }
}

}  // namespace iocv
