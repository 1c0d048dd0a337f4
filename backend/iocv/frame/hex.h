// Hexadecimal digits.
#pragma once

namespace iocv {

// The value 0..15 of a digit of either case, or -1.
constexpr int hex_value(char digit) noexcept {
  if (digit >= '0' && digit <= '9') return digit - '0';
  if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
  if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
  return -1;
}

// The upper-case digit of a value 0..15.
constexpr char hex_digit(int value) noexcept { return "0123456789ABCDEF"[value]; }

}  // namespace iocv
