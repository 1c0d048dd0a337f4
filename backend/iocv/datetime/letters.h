// Digits and letters of names: ASCII in every code page, whatever the locale.
#pragma once

namespace iocv {

constexpr bool is_digit(char c) noexcept { return c >= '0' && c <= '9'; }

constexpr char upper(char c) noexcept {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

constexpr bool is_letter(char c) noexcept { return upper(c) >= 'A' && upper(c) <= 'Z'; }

}  // namespace iocv
