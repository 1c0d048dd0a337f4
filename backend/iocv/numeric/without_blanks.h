// The text of a number field.
#pragma once

#include <cstddef>
#include <string_view>

namespace iocv {

// What stands between the blanks at either end.
inline std::string_view without_blanks(std::string_view field) noexcept {
  const std::size_t first = field.find_first_not_of(' ');
  if (first == field.npos) return {};
  return field.substr(first, field.find_last_not_of(' ') + 1 - first);
}

}  // namespace iocv
