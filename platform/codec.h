// Characters of one of the system's code pages: which bytes are one, and which one it is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/converter.h"

namespace platform {

// U+FFFD, which stands for a byte that does not convert.
inline constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

// What a few bytes taken together amount to.
enum class Sequence : std::uint8_t { invalid, character, incomplete };

// Not for two threads at once.
class Codec {
 public:
  explicit Codec(const char* page) noexcept : to_utf8_("UTF-8", page), from_utf8_(page, "UTF-8") {}

  // True when the system knows the code page and its bytes 1..127 are characters of their own, the
  // ASCII ones where they are letters, digits or the blank.
  [[nodiscard]] bool usable() noexcept;

  Sequence examine(std::string_view bytes) noexcept;

  // The code of a character; 0 when it stands for more than one code or for none.
  char32_t decode(std::string_view character) noexcept;

  // Writes the character at out and returns its length; 0 when the code page does not have it or
  // room bytes do not hold it.
  std::size_t encode(char32_t code, char* out, std::size_t room) noexcept;

  // Appends text to out as UTF-8; false when a byte became U+FFFD.
  bool append_utf8(std::string_view text, std::string& out);

 private:
  Converter to_utf8_;
  Converter from_utf8_;
};

}  // namespace platform
