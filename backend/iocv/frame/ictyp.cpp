#include "frame/ictyp.h"

#include <iocv/fields.h>

#include "frame/multibyte.h"
#include "frame/place.h"

namespace iocv {
namespace {

struct Range {
  int first;
  int last;
  CharClass character_class;
};

// Every byte that no range names is other.
constexpr Range kRanges[] = {
    {' ', ' ', CharClass::blank},
    {'!', '!', CharClass::exclamation},
    {'"', '"', CharClass::quote},
    {'#', '$', CharClass::upper},
    {'%', '%', CharClass::percent},
    {'&', '&', CharClass::ampersand},
    {'\'', '\'', CharClass::apostrophe},
    {'(', '(', CharClass::left_parenthesis},
    {')', ')', CharClass::right_parenthesis},
    {'*', '*', CharClass::asterisk},
    {'+', '+', CharClass::plus},
    {',', ',', CharClass::comma},
    {'-', '-', CharClass::minus},
    {'.', '.', CharClass::period},
    {'/', '/', CharClass::slash},
    {'0', '9', CharClass::digit},
    {':', ':', CharClass::colon},
    {';', ';', CharClass::semicolon},
    {'<', '<', CharClass::less},
    {'=', '=', CharClass::equals},
    {'>', '>', CharClass::greater},
    {'?', '?', CharClass::question},
    {'@', 'Z', CharClass::upper},
    {'[', '[', CharClass::left_bracket},
    {']', ']', CharClass::right_bracket},
    {'_', '_', CharClass::underscore},
    {'a', 'z', CharClass::lower},
    {'{', '{', CharClass::left_brace},
    {'|', '|', CharClass::bar},
    {'}', '}', CharClass::right_brace},
    {'~', '~', CharClass::tilde},
    {128, 255, CharClass::high},
};

}  // namespace

namespace detail {

constexpr std::array<CharClass, 256> kCharClasses = [] {
  std::array<CharClass, 256> table;
  table.fill(CharClass::other);
  for (const Range& range : kRanges) {
    for (int byte = range.first; byte <= range.last; ++byte) {
      table[static_cast<std::size_t>(byte)] = range.character_class;
    }
  }
  return table;
}();

CharClass wide_char_class_at(std::string_view text, std::size_t& length) noexcept {
  length = character_length(text);
  if (length > 1) return CharClass::multibyte;
  if (length == 1) return char_class(static_cast<unsigned char>(text.front()));
  length = 1;
  return CharClass::other;
}

}  // namespace detail
}  // namespace iocv

extern "C" {

std::int64_t ictyp8_(const std::int64_t* code) {
  const bool byte = *code >= 0 && *code <= 255;
  return static_cast<std::int64_t>(byte ? iocv::char_class(static_cast<unsigned char>(*code))
                                        : iocv::CharClass::other);
}

std::int64_t ictypc_(const char* base, const std::int64_t* position,
                     const std::int64_t* last_position, std::int64_t) {
  const bool inside = *position >= 1 && *position <= *last_position;
  const std::string_view rest =
      inside ? iocv::text_at(base, *position, *last_position - *position + 1) : std::string_view();
  std::size_t length;
  return static_cast<std::int64_t>(iocv::char_class_at(rest, 0, length));
}

}  // extern "C"
