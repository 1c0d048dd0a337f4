// Whole characters of the current code page inside fields. ASCII never asks the platform.
#pragma once

#include <iocv/platform.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace iocv {

// Bytes of the character that text begins with; 0 when it begins with none, is cut inside it or is
// empty. A zero byte is no character.
inline std::size_t character_length(std::string_view text) noexcept {
  if (text.empty()) return 0;
  const auto first = static_cast<unsigned char>(text.front());
  if (first < 128) return first != 0;
  const int length = VELTMBmblen_A(text.data(), static_cast<std::int64_t>(text.size()));
  return length > 0 ? static_cast<std::size_t>(length) : 0;
}

// Bytes that a look at whole 8-byte units shows to be 1..127, each a character of its own: taking 1
// from every byte sets no top bit and neither does a byte itself.
inline std::size_t ascii_run(std::string_view text) noexcept {
  constexpr std::uint64_t kOnes = 0x0101'0101'0101'0101;
  constexpr std::uint64_t kTops = 0x8080'8080'8080'8080;
  std::size_t run = 0;
  for (; text.size() - run >= 8; run += 8) {
    std::uint64_t unit;
    std::memcpy(&unit, text.data() + run, sizeof unit);
    if (((unit - kOnes) | unit) & kTops) break;
  }
  return run;
}

// Bytes of the whole valid characters that text begins with.
std::size_t valid_prefix(std::string_view text) noexcept;

// Puts replacement over every byte that starts no valid character, unless it is 0; true when there
// was one.
bool replace_invalid(char* text, std::size_t size, char replacement) noexcept;

// The offset of the first character that is this one byte; npos when there is none before the end
// or before bytes that are no character, and for a byte above 127.
std::size_t find_character(std::string_view text, char byte) noexcept;

}  // namespace iocv
