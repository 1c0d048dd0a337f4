// Which fast attempts stand in front of which plain writer, in the order in which they are tried.
// Every door makes its own code of these lists.
#pragma once

#include "datetime/obodt_fast.h"
#include "datetime/oboida_fast.h"
#include "frame/steps.h"
#include "frame/writer_rows.h"

namespace iocv {

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
constexpr auto writer_steps(Row<Code, Core>) {
  return Steps<Core>();
}
template <class Source, FormatCode Code, auto Core>
constexpr auto writer_steps(DateRow<Code, Core>) {
  return Steps<Core>();
}

template <class>
constexpr auto writer_steps(Row<FormatCode::f, write_f>) {
  return Steps<write_f_plain, FixedWriter<Reach::nine_digits>,
               FixedWriter<Reach::sixteen_digits>>();
}

template <class Source>
constexpr auto writer_steps(Row<FormatCode::pct, write_percent>) {
  return Steps<write_percent_plain,
               OneByOne<Source, write_percent_fast<Reach::nine_digits, Source>>,
               OneByOne<Source, write_percent_fast<Reach::sixteen_digits, Source>>>();
}

template <class Source>
constexpr auto writer_steps(Row<FormatCode::e, write_e>) {
  return Steps<write_e_plain, OneByOne<Source, write_exponential_fast<Source>>>();
}

template <FormatCode Code, GroupedStyle kStyle>
constexpr auto grouped_steps() {
  return Steps<write_currency_plain<Code>, GroupedWriter<kStyle, Reach::nine_digits>,
               GroupedWriter<kStyle, Reach::sixteen_digits>>();
}

template <class>
constexpr auto writer_steps(Row<FormatCode::comma, write_currency>) {
  return grouped_steps<FormatCode::comma, kCommaStyle>();
}

template <class>
constexpr auto writer_steps(Row<FormatCode::dot, write_currency>) {
  return grouped_steps<FormatCode::dot, kDotStyle>();
}

template <class>
constexpr auto writer_steps(Row<FormatCode::dollar, write_currency>) {
  return grouped_steps<FormatCode::dollar, kDollarStyle>();
}

template <class Source>
constexpr auto writer_steps(Row<FormatCode::z, write_z>) {
  return Steps<write_z_plain, OneByOne<Source, write_zoned_fast<Reach::eight_columns, Source>>,
               OneByOne<Source, write_zoned_fast<Reach::twelve_digits, Source>>>();
}

template <class Source>
constexpr auto writer_steps(Row<FormatCode::p, write_p>) {
  return Steps<write_p_plain, OneByOne<Source, write_packed_fast<Source>>>();
}

template <class Source>
constexpr auto writer_steps(Row<FormatCode::ib, write_ib>) {
  return Steps<write_ib_plain, OneByOne<Source, write_binary_fast<true, Source>>>();
}

template <class Source>
constexpr auto writer_steps(Row<FormatCode::pib, write_pib>) {
  return Steps<write_pib_plain, OneByOne<Source, write_binary_fast<false, Source>>>();
}

template <class, FormatCode Code>
constexpr auto writer_steps(DateRow<Code, write_date>) {
  return Steps<write_date_plain, fast::DateFields<Code>>();
}

template <class, FormatCode Code>
constexpr auto writer_steps(DateRow<Code, write_numeric_date>) {
  return Steps<write_numeric_date_plain, fast::DateFields<Code>>();
}

template <class, FormatCode Code>
constexpr auto writer_steps(DateRow<Code, write_day_of_year>) {
  return Steps<write_day_of_year_plain, fast::DateFields<Code>>();
}

template <class, FormatCode Code>
constexpr auto writer_steps(DateRow<Code, write_month_or_quarter>) {
  return Steps<write_month_or_quarter_plain, fast::DateFields<Code>>();
}

template <class, FormatCode Code>
constexpr auto writer_steps(DateRow<Code, write_week>) {
  return Steps<write_week_plain, fast::DateFields<Code>>();
}

template <class, FormatCode Code>
constexpr auto writer_steps(DateRow<Code, write_date_time>) {
  return Steps<write_date_time_plain, fast::DateTimeFields>();
}

}  // namespace iocv
