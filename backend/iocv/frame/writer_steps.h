// Which fast attempts stand in front of which plain writer, in the order in which they are tried.
// Every door makes its own code of these lists.
#pragma once

#include "datetime/fast_ways.h"
#include "frame/steps.h"
#include "frame/writer_rows.h"

namespace iocv {

template <FormatCode Code, auto Core>
constexpr auto date_steps() {
  using Way = FastWay<Core, Code>;
  using Fields = typename Way::Attempt;
  return Steps<Way::plain, fast::FullWidth<Fields>, fast::OtherWidth<Fields>>();
}

// A writer without attempts.
template <FormatCode Code, auto Core>
constexpr auto writer_steps(Row<Code, Core>) {
  return Steps<Core>();
}
template <FormatCode Code, auto Core>
constexpr auto writer_steps(DateRow<Code, Core>) {
  return date_steps<Code, Core>();
}

constexpr auto writer_steps(Row<FormatCode::f, write_f>) {
  return Steps<write_f_plain, FixedWriter<Reach::nine_digits>, FixedWriter<Reach::eleven_digits>,
               FixedWriter<Reach::sixteen_digits>,
               SpecialWriter<MissingPlace::decimal_character>>();
}

constexpr auto writer_steps(Row<FormatCode::pct, write_percent>) {
  return Steps<write_percent_plain, PercentWriter<Reach::nine_digits>,
               PercentWriter<Reach::eleven_digits>, PercentWriter<Reach::sixteen_digits>,
               SpecialWriter<MissingPlace::before_percent>>();
}

constexpr auto writer_steps(Row<FormatCode::e, write_e>) {
  return Steps<write_e_plain, ExponentialWriter, SpecialWriter<MissingPlace::mantissa>>();
}

template <FormatCode Code, GroupedStyle kStyle>
constexpr auto grouped_steps() {
  return Steps<write_currency_plain<Code>, GroupedWriter<kStyle, Reach::nine_digits>,
               GroupedWriter<kStyle, Reach::sixteen_digits>,
               SpecialWriter<MissingPlace::decimal_character>>();
}

constexpr auto writer_steps(Row<FormatCode::comma, write_currency>) {
  return grouped_steps<FormatCode::comma, kCommaStyle>();
}

constexpr auto writer_steps(Row<FormatCode::dot, write_currency>) {
  return grouped_steps<FormatCode::dot, kDotStyle>();
}

constexpr auto writer_steps(Row<FormatCode::dollar, write_currency>) {
  return grouped_steps<FormatCode::dollar, kDollarStyle>();
}

constexpr auto writer_steps(Row<FormatCode::z, write_z>) {
  return Steps<write_z_plain, ZonedWriter<Reach::nine_digits>, ZonedWriter<Reach::sixteen_digits>,
               SpecialWriter<MissingPlace::last_column>>();
}

constexpr auto writer_steps(Row<FormatCode::p, write_p>) {
  return Steps<write_p_rest, PackedWriter>();
}

constexpr auto writer_steps(Row<FormatCode::ib, write_ib>) {
  return Steps<write_ib_rest, BinaryWriter<true>>();
}

constexpr auto writer_steps(Row<FormatCode::pib, write_pib>) {
  return Steps<write_pib_rest, BinaryWriter<false>>();
}

template <FormatCode Code>
constexpr auto writer_steps(Row<Code, write_time>) {
  return date_steps<Code, write_time>();
}

}  // namespace iocv
