// Which fast attempts stand in front of which plain writer, in the order in which they are tried.
// Every door makes its own code of these lists.
#pragma once

#include "frame/writer_rows.h"

namespace iocv {

// An attempt is made for a format and a source of settings (make(width, decimals, settings,
// attempt) -> whether it serves them) and then called for each value: (first, value) -> whether it
// has written.
template <auto Plain, class... Attempts>
struct Steps {};

// An attempt that is one function: (first, width, value, decimals, settings) -> whether it has
// written.
template <class Source, auto Try>
class OneByOne {
 public:
  static bool make(std::int64_t width, std::int64_t decimals, Source settings,
                   OneByOne& attempt) noexcept {
    attempt.width_ = width;
    attempt.decimals_ = decimals;
    attempt.settings_ = settings;
    return true;
  }
  [[gnu::always_inline]] bool operator()(char* field, double value) const noexcept {
    return Try(field, width_, value, decimals_, settings_);
  }

 private:
  std::int64_t width_ = 0;
  std::int64_t decimals_ = 0;
  Source settings_;
};

// A writer without attempts.
template <class Source, FormatCode Code, auto Core>
constexpr auto steps_of(Row<Code, Core>) {
  return Steps<Core>();
}

template <class>
constexpr auto steps_of(Row<FormatCode::f, write_f>) {
  return Steps<write_f_plain, FixedWriter<Reach::nine_digits>,
               FixedWriter<Reach::sixteen_digits>>();
}

template <class Source>
constexpr auto steps_of(Row<FormatCode::pct, write_percent>) {
  return Steps<write_percent_plain,
               OneByOne<Source, write_percent_fast<Reach::nine_digits, Source>>,
               OneByOne<Source, write_percent_fast<Reach::sixteen_digits, Source>>>();
}

template <class Source>
constexpr auto steps_of(Row<FormatCode::e, write_e>) {
  return Steps<write_e_plain, OneByOne<Source, write_exponential_fast<Source>>>();
}

template <FormatCode Code, GroupedStyle kStyle>
constexpr auto grouped_steps() {
  return Steps<write_currency_plain<Code>, GroupedWriter<kStyle, Reach::nine_digits>,
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

template <class Source>
constexpr auto steps_of(Row<FormatCode::z, write_z>) {
  return Steps<write_z_plain, OneByOne<Source, write_zoned_fast<Reach::eight_columns, Source>>,
               OneByOne<Source, write_zoned_fast<Reach::twelve_digits, Source>>>();
}

template <class Source>
constexpr auto steps_of(Row<FormatCode::p, write_p>) {
  return Steps<write_p_plain, OneByOne<Source, write_packed_fast<Source>>>();
}

template <class Source>
constexpr auto steps_of(Row<FormatCode::ib, write_ib>) {
  return Steps<write_ib_plain, OneByOne<Source, write_binary_fast<true, Source>>>();
}

template <class Source>
constexpr auto steps_of(Row<FormatCode::pib, write_pib>) {
  return Steps<write_pib_plain, OneByOne<Source, write_binary_fast<false, Source>>>();
}

}  // namespace iocv
