#include "platform/utf8.h"

namespace platform {
namespace {

constexpr unsigned byte_at(std::string_view text, std::size_t index) noexcept {
  return static_cast<unsigned char>(text[index]);
}

// The well-formed sequences by their first byte. Only the second byte has limits of its own, which
// shut out overlong forms, surrogates and codes beyond the last; the others are 80..BF.
struct Sequence {
  unsigned first, first_last;
  unsigned second, second_last;
  std::size_t length;
};

constexpr Sequence kSequences[] = {
    {0xC2, 0xDF, 0x80, 0xBF, 2},  //
    {0xE0, 0xE0, 0xA0, 0xBF, 3},  // below A0: overlong
    {0xE1, 0xEC, 0x80, 0xBF, 3},  //
    {0xED, 0xED, 0x80, 0x9F, 3},  // above 9F: surrogates
    {0xEE, 0xEF, 0x80, 0xBF, 3},  //
    {0xF0, 0xF0, 0x90, 0xBF, 4},  // below 90: overlong
    {0xF1, 0xF3, 0x80, 0xBF, 4},  //
    {0xF4, 0xF4, 0x80, 0x8F, 4},  // above 8F: beyond U+10FFFF
};

constexpr bool between(unsigned byte, unsigned first, unsigned last) noexcept {
  return byte >= first && byte <= last;
}

bool matches(std::string_view text, const Sequence& sequence) noexcept {
  if (text.size() < sequence.length) return false;
  if (!between(byte_at(text, 1), sequence.second, sequence.second_last)) return false;
  for (std::size_t i = 2; i < sequence.length; ++i) {
    if (!between(byte_at(text, i), 0x80, 0xBF)) return false;
  }
  return true;
}

}  // namespace

std::size_t utf8_length(std::string_view text) noexcept {
  if (text.empty()) return 0;
  const unsigned first = byte_at(text, 0);
  if (first < 0x80) return 1;
  for (const Sequence& sequence : kSequences) {
    if (between(first, sequence.first, sequence.first_last)) {
      return matches(text, sequence) ? sequence.length : 0;
    }
  }
  return 0;
}

char32_t utf8_decode(std::string_view character) noexcept {
  const unsigned first = byte_at(character, 0);
  if (character.size() == 1) return first;
  char32_t code = first & (0x7FU >> character.size());  // the bits behind the length's ones
  for (std::size_t i = 1; i < character.size(); ++i)
    code = code << 6 | (byte_at(character, i) & 0x3F);
  return code;
}

std::size_t utf8_encode(char32_t code, char* out) noexcept {
  if (code < 0x80) {
    *out = static_cast<char>(code);
    return 1;
  }
  if (code > 0x10FFFF || between(code, 0xD800, 0xDFFF)) return 0;
  const std::size_t length = code < 0x800 ? 2 : code < 0x10000 ? 3 : 4;
  for (std::size_t i = length - 1; i > 0; --i) {
    out[i] = static_cast<char>(0x80 | (code & 0x3F));
    code >>= 6;
  }
  out[0] = static_cast<char>((0xF00U >> length & 0xFF) | code);  // length ones, a zero, the rest
  return length;
}

}  // namespace platform
