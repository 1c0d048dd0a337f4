// Numbers with text around them.
#pragma once

#include <cstdint>
#include <string_view>

#include "frame/field.h"
#include "frame/settings.h"
#include "frame/status.h"
#include "numeric/obocd.h"

namespace iocv {

// The texts as they stand around the digits, from left to right.
struct Decoration {
  Marks marks;
  std::string_view negative_prefix = {};
  std::string_view prefix = {};
  std::string_view suffix = {};
  std::string_view negative_suffix = {};
};

// Grouped digits with their decoration. When room lacks, prefix and suffix are given up first.
Status write_decorated(Field out, double value, std::int64_t decimals, const Decoration& decoration,
                       const Settings& settings) noexcept;

}  // namespace iocv
