// The A format: the bytes of a string as they are.
#pragma once

#include <string_view>

#include "frame/field.h"
#include "frame/status.h"

namespace iocv {

// Copies the field into the value, whose last 8-byte unit is blank behind it, with "!" over every
// byte that starts no valid character (string_bytes). An empty field leaves the value untouched.
Status read_a(std::string_view field, char* value) noexcept;

// The value's whole valid characters within the width, then blanks.
void write_a(Field out, const char* value) noexcept;

}  // namespace iocv
