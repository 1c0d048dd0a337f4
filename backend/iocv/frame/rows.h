// Lists of core functions by format type, from which every door makes its table: what stands in one
// list cannot differ from door to door.
#pragma once

#include <array>
#include <cstddef>

#include "frame/format_code.h"

namespace iocv {

// The core function of a format type.
template <FormatCode Code, auto Core>
struct Row {
  static constexpr FormatCode code = Code;
  static constexpr auto core = Core;
};

// The codes from 0 to the highest that the library converts by itself.
inline constexpr std::size_t kCodes = static_cast<std::size_t>(FormatCode::year_first) + 1;

template <class Entry>
using CodeTable = std::array<Entry*, kCodes>;

// The entry of a code, null for a code beyond the table.
template <class Entry>
constexpr Entry* entry_of(const CodeTable<Entry>& table, std::int64_t code) noexcept {
  const auto index = static_cast<std::uint64_t>(code);  // a negative code is beyond the table
  return index < table.size() ? table[index] : nullptr;
}

template <class... Rows>
struct RowList {
  // The rows of a door that serves more types than the others.
  template <class... More>
  using With = RowList<Rows..., More...>;

  // Each code's entry is entry(row), null for a code without a row.
  template <class Entry, class Make>
  static constexpr CodeTable<Entry> by_code(Make make) noexcept {
    CodeTable<Entry> table = {};
    ((table[static_cast<std::size_t>(Rows::code)] = make(Rows())), ...);
    return table;
  }

  // In the order of the codes, none twice.
  static constexpr bool in_order() noexcept {
    std::int64_t before = 0;
    bool ascending = true;
    const auto check = [&](FormatCode code) {
      ascending = ascending && static_cast<std::int64_t>(code) > before;
      before = static_cast<std::int64_t>(code);
    };
    (check(Rows::code), ...);
    return ascending;
  }
};

}  // namespace iocv
