// Classes of characters: what the scanners of fields ask of each character.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace iocv {

// The numbers are what ictyp8_ and ictypc_ return; 5 and 31 belong to no character.
enum class CharClass : std::int64_t {
  blank = 1,
  upper = 2,  // A..Z, and # $ @, which names may begin with
  digit = 3,
  other = 4,  // control bytes, \ ^ ` and what is no character at all
  apostrophe = 6,
  left_parenthesis = 7,
  plus = 8,
  bar = 9,
  ampersand = 10,
  multibyte = 11,  // a character of two bytes or more
  asterisk = 12,
  right_parenthesis = 13,
  semicolon = 14,
  tilde = 15,
  minus = 16,
  slash = 17,
  comma = 18,
  percent = 19,
  underscore = 20,
  greater = 21,
  question = 22,
  colon = 23,
  high = 24,  // bytes 128..255
  exclamation = 25,
  period = 26,
  equals = 27,
  less = 28,
  lower = 29,  // a..z
  quote = 30,
  left_brace = 32,
  right_brace = 33,
  left_bracket = 34,
  right_bracket = 35,
};

namespace detail {
extern const std::array<CharClass, 256> kCharClasses;
CharClass wide_char_class_at(std::string_view text, std::size_t& length) noexcept;
}  // namespace detail

// The class of a byte taken alone.
inline CharClass char_class(unsigned char byte) noexcept { return detail::kCharClasses[byte]; }

// The class of the character at offset in the current code page: that of its byte when it has one,
// multibyte when it has more, other for bytes that are no character and outside the field. length
// becomes the character's bytes: 1 for a byte that starts none, 0 outside the field.
inline CharClass char_class_at(std::string_view field, std::size_t offset,
                               std::size_t& length) noexcept {
  if (offset >= field.size()) {
    length = 0;
    return CharClass::other;
  }
  const auto byte = static_cast<unsigned char>(field[offset]);
  if (byte >= 128) return detail::wide_char_class_at(field.substr(offset), length);
  length = 1;
  return char_class(byte);
}

}  // namespace iocv
