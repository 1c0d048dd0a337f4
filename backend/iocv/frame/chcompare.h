// Comparisons of blank-padded text.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace iocv {

// True for blanks alone and for an empty field.
inline bool is_blank(std::string_view text) noexcept {
  return text.find_first_not_of(' ') == text.npos;
}

// True when the two are equal but for blanks at the end of one of them.
inline bool equal_padded(std::string_view a, std::string_view b) noexcept {
  const std::size_t shared = std::min(a.size(), b.size());
  return a.substr(0, shared) == b.substr(0, shared) && is_blank(a.substr(shared)) &&
         is_blank(b.substr(shared));
}

// The number, from 1, of the first of count entries that equals the word but for blanks at the end,
// or 0. An entry has entry_length bytes and begins stride bytes behind the one before.
std::int64_t find_word(std::string_view word, const char* table, std::int64_t entry_length,
                       std::int64_t stride, std::int64_t count) noexcept;

}  // namespace iocv
