// Bytes as hexadecimal text.
#pragma once

#include <string_view>

#include "frame/field.h"
#include "frame/status.h"

namespace iocv {

// One byte a pair of digits, an odd last digit ignored. Stops at the first character that is no
// digit; the bytes before it stay.
Status hex_to_bytes(std::string_view text, char* bytes) noexcept;

// Two digits a byte, high half first; an odd last column stays as it was.
void bytes_to_hex(const char* bytes, Field out) noexcept;

}  // namespace iocv
