// Which fast attempts stand in front of which plain reader, in the order in which they are tried.
// Every door makes its own code of these lists.
#pragma once

#include "datetime/fast_ways.h"
#include "frame/reader_rows.h"
#include "frame/steps.h"

namespace iocv {

// An attempt that is one function (frame/parts.h).
template <FormatCode Code, auto Try>
class OneFieldAtATime {
 public:
  static bool make(std::int64_t width, std::int64_t decimals, const Settings& settings,
                   OneFieldAtATime& attempt) noexcept {
    attempt.width_ = width;
    attempt.decimals_ = decimals;
    attempt.settings_ = &settings;
    return true;
  }
  [[gnu::always_inline]] bool operator()(const char* field, double& value) const noexcept {
    return Try(field, width_, decimals_, Code, *settings_, value);
  }

 private:
  std::int64_t width_ = 0;
  std::int64_t decimals_ = 0;
  const Settings* settings_ = nullptr;
};

template <FormatCode Code, auto Core>
constexpr auto reader_steps(Row<Code, Core>) {
  if constexpr (HasFastWay<Core, Code>) {
    using Way = FastWay<Core, Code>;
    using Input = typename Way::Attempt;
    return Steps<Way::plain, fast::InWords<Input>, fast::InAWalk<Input>>();
  } else if constexpr (kHasParts<Core>) {
    return Steps<kParts<Core>.plain, OneFieldAtATime<Code, kParts<Core>.attempt>>();
  } else {
    return Steps<Core>();
  }
}

template <FormatCode Code>
constexpr auto reader_steps(Row<Code, read_fixed>) {
  return Steps<read_number_loose, FixedReader>();
}

template <FormatCode Code>
constexpr auto reader_steps(Row<Code, read_percent>) {
  return Steps<read_number_loose, PercentReader>();
}

template <FormatCode Code>
constexpr auto reader_steps(Row<Code, read_grouped>) {
  return Steps<read_number_loose, GroupedReader>();
}

template <FormatCode Code>
constexpr auto reader_steps(Row<Code, read_dollars>) {
  return Steps<read_number_loose, DollarReader>();
}

template <FormatCode Code>
constexpr auto reader_steps(Row<Code, read_dotted>) {
  return Steps<read_number_loose, DottedReader>();
}

}  // namespace iocv
