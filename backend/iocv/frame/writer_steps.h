// Which fast attempts stand in front of which plain writer, in the order in which they are tried.
// Every door makes its own code of these lists.
#pragma once

#include "frame/writer_rows.h"

namespace iocv {

// An attempt is (first, width, value, decimals, source of settings) -> whether it has written.
template <auto Plain, auto... Attempts>
struct Steps {};

// A writer without attempts.
template <class Source, FormatCode Code, auto Core>
constexpr auto steps_of(Row<Code, Core>) {
  return Steps<Core>();
}

template <class Source>
constexpr auto steps_of(Row<FormatCode::f, write_f>) {
  return Steps<write_f_plain, write_number_fast<Reach::eight_columns, Source>,
               write_number_fast<Reach::nine_digits, Source>,
               write_number_fast<Reach::twelve_digits, Source>>();
}

template <class Source>
constexpr auto steps_of(Row<FormatCode::pct, write_percent>) {
  return Steps<write_percent_plain, write_percent_fast<Reach::eight_columns, Source>,
               write_percent_fast<Reach::twelve_digits, Source>>();
}

template <class Source>
constexpr auto steps_of(Row<FormatCode::e, write_e>) {
  return Steps<write_e_plain, write_exponential_fast<Source>>();
}

template <class Source, FormatCode Code, GroupedStyle kStyle>
constexpr auto grouped_steps() {
  return Steps<write_currency_plain<Code>, write_grouped_fast<kStyle, Reach::nine_digits, Source>,
               write_grouped_fast<kStyle, Reach::twelve_digits, Source>>();
}

template <class Source>
constexpr auto steps_of(Row<FormatCode::comma, write_currency>) {
  return grouped_steps<Source, FormatCode::comma, kCommaStyle>();
}

template <class Source>
constexpr auto steps_of(Row<FormatCode::dot, write_currency>) {
  return grouped_steps<Source, FormatCode::dot, kDotStyle>();
}

template <class Source>
constexpr auto steps_of(Row<FormatCode::dollar, write_currency>) {
  return grouped_steps<Source, FormatCode::dollar, kDollarStyle>();
}

template <class Source>
constexpr auto steps_of(Row<FormatCode::z, write_z>) {
  return Steps<write_z_plain, write_zoned_fast<Reach::eight_columns, Source>,
               write_zoned_fast<Reach::twelve_digits, Source>>();
}

template <class Source>
constexpr auto steps_of(Row<FormatCode::p, write_p>) {
  return Steps<write_p_plain, write_packed_fast<Source>>();
}

template <class Source>
constexpr auto steps_of(Row<FormatCode::ib, write_ib>) {
  return Steps<write_ib_plain, write_binary_fast<true, Source>>();
}

template <class Source>
constexpr auto steps_of(Row<FormatCode::pib, write_pib>) {
  return Steps<write_pib_plain, write_binary_fast<false, Source>>();
}

}  // namespace iocv
