// UTF-8 and UTF-16, the two encodings that meet at the border to Java.
#pragma once

#include <string>
#include <string_view>

namespace platform {

// What does not convert becomes U+FFFD: a byte that begins no character, a lone surrogate.
std::u16string utf16_of(std::string_view utf8);
std::string utf8_of(std::u16string_view utf16);

}  // namespace platform
