// Which core function has which fast way.
//
// Where a format is known, a caller makes the attempt once and calls it for each value; what an
// attempt does not answer, it hands to the plain function:
//   FastWay<write_date, FormatCode::date>::Attempt attempt;
//   if (attempt.make(width, decimals, settings, attempt) && attempt(field, value)) ...
// An attempt that answers has done all that the function does, with status 0; a reader's has read
// the whole field.
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
#include "datetime/obotim.h"
#include "datetime/obotim_fast.h"
#include "datetime/period_input_fast.h"

namespace iocv {

template <class AttemptType, auto Plain>
struct Way {
  using Attempt = AttemptType;
  static constexpr auto plain = Plain;
};

// Empty for a function without.
template <auto Core, FormatCode kCode>
struct FastWay {};

template <auto Core, FormatCode kCode>
concept HasFastWay = requires {
  typename FastWay<Core, kCode>::Attempt;
};

// clang-format off
template <FormatCode kCode> struct FastWay<write_date, kCode> : Way<fast::DateFields<kCode>, write_date_plain> {};
template <FormatCode kCode> struct FastWay<write_numeric_date, kCode> : Way<fast::DateFields<kCode>, write_numeric_date_plain> {};
template <FormatCode kCode> struct FastWay<write_day_of_year, kCode> : Way<fast::DateFields<kCode>, write_day_of_year_plain> {};
template <FormatCode kCode> struct FastWay<write_month_or_quarter, kCode> : Way<fast::DateFields<kCode>, write_month_or_quarter_plain> {};
template <FormatCode kCode> struct FastWay<write_week, kCode> : Way<fast::DateFields<kCode>, write_week_plain> {};
template <FormatCode kCode> struct FastWay<write_name, kCode> : Way<fast::NameFields<kCode>, write_name_plain> {};
template <FormatCode kCode> struct FastWay<write_date_time, kCode> : Way<fast::DateTimeFields, write_date_time_plain> {};
template <FormatCode kCode> struct FastWay<write_time, kCode> : Way<fast::TimeFields<kCode>, write_time_plain> {};

template <FormatCode kCode> struct FastWay<read_date, kCode> : Way<fast::DateInput<kCode>, read_date_plain> {};
template <FormatCode kCode> struct FastWay<read_datetime, kCode> : Way<fast::DateTimeInput<kCode>, read_datetime_plain> {};
template <FormatCode kCode> struct FastWay<read_time, kCode> : Way<fast::TimeInput, read_time_plain> {};
template <FormatCode kCode> struct FastWay<read_dtime, kCode> : Way<fast::PeriodInput<kCode>, read_dtime_plain> {};
template <FormatCode kCode> struct FastWay<read_jdate, kCode> : Way<fast::PeriodInput<kCode>, read_jdate_plain> {};
template <FormatCode kCode> struct FastWay<read_month, kCode> : Way<fast::PeriodInput<kCode>, read_month_plain> {};
template <FormatCode kCode> struct FastWay<read_moyr, kCode> : Way<fast::PeriodInput<kCode>, read_moyr_plain> {};
template <FormatCode kCode> struct FastWay<read_qyr, kCode> : Way<fast::PeriodInput<kCode>, read_qyr_plain> {};
template <FormatCode kCode> struct FastWay<read_wkyr, kCode> : Way<fast::PeriodInput<kCode>, read_wkyr_plain> {};
// clang-format on

}  // namespace iocv
