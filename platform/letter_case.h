// Upper and lower case of characters, whatever the locale of the process.
#pragma once

namespace platform {

enum class Case { lower, upper };

// The same letter in the target case; the code itself when it is none or has no other case of one
// character.
char32_t in_case(char32_t code, Case target) noexcept;

// The same for the ASCII letters alone; every other byte is itself.
constexpr char ascii_in_case(char byte, Case target) noexcept {
  const char first = target == Case::lower ? 'A' : 'a';
  return byte >= first && byte < first + 26 ? static_cast<char>(byte ^ 0x20) : byte;
}

}  // namespace platform
