// The AHEX format: two hexadecimal digits for each byte of a string.
#pragma once

#include <string_view>

#include "frame/field.h"
#include "frame/status.h"

namespace iocv {

// Stores a byte for each pair of digits; the value's last 8-byte unit is blank behind them, and an
// odd last character is ignored. A character that is no digit leaves width / 2 blanks
// (ahex_digit). A field below two characters leaves the value untouched.
Status read_ahex(std::string_view field, char* value) noexcept;

// The digits of the value's bytes, high half first, as many as the width holds.
void write_ahex(Field out, const char* value) noexcept;

}  // namespace iocv
