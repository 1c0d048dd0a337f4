#include "platform/utf16.h"

#include "platform/utf8.h"

namespace platform {
namespace {

constexpr char32_t kReplacementCode = 0xFFFD;
constexpr char32_t kFirstBeyond = 0x10000;  // the first code that takes two units
constexpr char16_t kHigh = 0xD800;
constexpr char16_t kLow = 0xDC00;

constexpr bool is_high(char16_t unit) { return (unit & 0xFC00) == kHigh; }
constexpr bool is_low(char16_t unit) { return (unit & 0xFC00) == kLow; }

// The code that units begin with and, in units, its length; a lone surrogate has none.
char32_t take_code(std::u16string_view& units) {
  const char16_t first = units[0];
  if (is_high(first) && units.size() > 1 && is_low(units[1])) {
    const char32_t high_bits = first & 0x3FFU;
    const char32_t code = kFirstBeyond + (high_bits << 10U | (units[1] & 0x3FFU));
    units.remove_prefix(2);
    return code;
  }
  units.remove_prefix(1);
  return is_high(first) || is_low(first) ? kReplacementCode : char32_t{first};
}

}  // namespace

std::u16string utf16_of(std::string_view utf8) {
  std::u16string units;
  while (!utf8.empty()) {
    const std::size_t length = utf8_length(utf8);
    const char32_t code = length > 0 ? utf8_decode(utf8.substr(0, length)) : kReplacementCode;
    utf8.remove_prefix(length > 0 ? length : 1);
    if (code < kFirstBeyond) {
      units += static_cast<char16_t>(code);
    } else {
      units += static_cast<char16_t>(kHigh + ((code - kFirstBeyond) >> 10U));
      units += static_cast<char16_t>(kLow + ((code - kFirstBeyond) & 0x3FFU));
    }
  }
  return units;
}

std::string utf8_of(std::u16string_view utf16) {
  std::string text;
  while (!utf16.empty()) {
    char character[kLongestUtf8];
    text.append(character, utf8_encode(take_code(utf16), character));
  }
  return text;
}

}  // namespace platform
