// Which fast attempts stand in front of which plain writer, in the order in which they are tried.
// Every door makes its own code of these lists.
#pragma once

#include "frame/attempts.h"
#include "frame/writer_rows.h"

namespace iocv {

template <auto Plain, class... Attempts>
struct Steps {};

// A writer without attempts.
template <class Source, FormatCode Code, auto Core>
constexpr auto steps_of(Row<Code, Core>) {
  return Steps<Core>();
}

template <class>
constexpr auto steps_of(Row<FormatCode::f, write_f>) {
  return Steps<write_f_plain, FixedWriter<Reach::nine_digits>,
               SpecialWriter<MissingPlace::decimal_character>,
               FixedWriter<Reach::sixteen_digits>>();
}

template <class>
constexpr auto steps_of(Row<FormatCode::pct, write_percent>) {
  return Steps<write_percent_plain, PercentWriter<Reach::nine_digits>,
               SpecialWriter<MissingPlace::before_percent>, PercentWriter<Reach::sixteen_digits>>();
}

template <class>
constexpr auto steps_of(Row<FormatCode::e, write_e>) {
  return Steps<write_e_plain, ExponentialWriter, SpecialWriter<MissingPlace::mantissa>>();
}

template <FormatCode Code, GroupedStyle kStyle>
constexpr auto grouped_steps() {
  return Steps<write_currency_plain<Code>, GroupedWriter<kStyle, Reach::nine_digits>,
               SpecialWriter<MissingPlace::decimal_character>,
               GroupedWriter<kStyle, Reach::sixteen_digits>>();
}

template <class>
constexpr auto steps_of(Row<FormatCode::comma, write_currency>) {
  return grouped_steps<FormatCode::comma, kCommaStyle>();
}

template <class>
constexpr auto steps_of(Row<FormatCode::dot, write_currency>) {
  return grouped_steps<FormatCode::dot, kDotStyle>();
}

template <class>
constexpr auto steps_of(Row<FormatCode::dollar, write_currency>) {
  return grouped_steps<FormatCode::dollar, kDollarStyle>();
}

template <class>
constexpr auto steps_of(Row<FormatCode::z, write_z>) {
  return Steps<write_z_plain, ZonedWriter<Reach::nine_digits>,
               SpecialWriter<MissingPlace::last_column>, ZonedWriter<Reach::sixteen_digits>>();
}

template <class>
constexpr auto steps_of(Row<FormatCode::p, write_p>) {
  return Steps<write_p_plain, PackedWriter>();
}

template <class>
constexpr auto steps_of(Row<FormatCode::ib, write_ib>) {
  return Steps<write_ib_plain, BinaryWriter<true>>();
}

template <class>
constexpr auto steps_of(Row<FormatCode::pib, write_pib>) {
  return Steps<write_pib_plain, BinaryWriter<false>>();
}

}  // namespace iocv
