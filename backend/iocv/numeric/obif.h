// Numbers in free form: F, E, COMMA, DOLLAR, DOT and PCT input.
#pragma once

#include <cstdint>
#include <string_view>

#include "frame/format_code.h"
#include "frame/settings.h"
#include "frame/status.h"

namespace iocv {

// The decimal character that type reads: the settings' for F, E and PCT, "," for DOT, "." else.
char decimal_character(FormatCode type, const Settings& settings) noexcept;

// A field with blanks at either end.
Read<double> read_number(std::string_view field, std::int64_t decimals, FormatCode type,
                         const Settings& settings) noexcept;

// The scanner behind it (fancy_f.cpp): a text that begins and ends with no blank.
Read<double> scan_number(std::string_view text, std::int64_t decimals, FormatCode type,
                         const Settings& settings) noexcept;

}  // namespace iocv
