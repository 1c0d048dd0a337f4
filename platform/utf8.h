// UTF-8, strictly: shortest forms only, no surrogates, nothing above U+10FFFF.
#pragma once

#include <cstddef>
#include <string_view>

namespace platform {

inline constexpr std::size_t kLongestUtf8 = 4;

// Bytes of the character that text begins with, 1 for a zero byte; 0 when it begins with none or
// is empty.
std::size_t utf8_length(std::string_view text) noexcept;

// The code of a character that utf8_length has measured.
char32_t utf8_decode(std::string_view character) noexcept;

// Writes the character at out, which has room for four bytes, and returns its length; 0 for a code
// that UTF-8 does not have.
std::size_t utf8_encode(char32_t code, char* out) noexcept;

}  // namespace platform
