// Which fast attempts stand in front of which plain reader, in the order in which they are tried.
// Every door makes its own code of these lists.
#pragma once

#include <type_traits>

#include "datetime/fast_ways.h"
#include "frame/obiib_fast.h"
#include "frame/obip_fast.h"
#include "frame/reader_rows.h"
#include "frame/steps.h"
#include "numeric/obif_loose_fast.h"
#include "numeric/obiz_fast.h"

namespace iocv {

template <FormatCode Code, auto Core>
constexpr auto reader_steps(Row<Code, Core>) {
  if constexpr (std::is_same_v<Row<Code, Core>, Row<Code, read_number_as<Code>>>) {
    return Steps<read_number_loose<Code>, OrdinaryReader<Code>, LooseReader<Code>>();
  } else if constexpr (HasFastWay<Core, Code>) {
    using Way = FastWay<Core, Code>;
    using Input = typename Way::Attempt;
    return Steps<Way::plain, fast::InWords<Input>, fast::InAWalk<Input>>();
  } else {
    return Steps<Core>();
  }
}

constexpr auto reader_steps(Row<FormatCode::ib, read_ib>) {
  return Steps<read_ib_plain, BinaryReader<true>>();
}

constexpr auto reader_steps(Row<FormatCode::pib, read_pib>) {
  return Steps<read_pib_plain, BinaryReader<false>>();
}

constexpr auto reader_steps(Row<FormatCode::p, read_p>) {
  return Steps<read_p_wide, PackedReader>();
}

constexpr auto reader_steps(Row<FormatCode::z, read_z>) {
  return Steps<read_z_wide, ZonedReader>();
}

}  // namespace iocv
