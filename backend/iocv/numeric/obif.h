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

// A field with blanks at either end, byte by byte.
Read<double> read_number_plain(std::string_view field, std::int64_t decimals, FormatCode type,
                               const Settings& settings) noexcept;

// A text that begins and ends with no blank.
Read<double> read_number_text(std::string_view text, std::int64_t decimals, FormatCode type,
                              const Settings& settings) noexcept;

// A field of a type with attempts, none of which has answered. Texts that others than the library
// wrote may stand anywhere in it.
template <FormatCode kType>
Read<double> read_number_loose(std::string_view field, std::int64_t decimals,
                               const Settings& settings) noexcept;

// A field of such a type, after its attempts.
template <FormatCode kType>
Read<double> read_number_as(std::string_view field, std::int64_t decimals,
                            const Settings& settings) noexcept;

// Any type.
Read<double> read_number(std::string_view field, std::int64_t decimals, FormatCode type,
                         const Settings& settings) noexcept;

// The scanner behind it (fancy_f.cpp): a text as above.
Read<double> scan_number(std::string_view text, std::int64_t decimals, FormatCode type,
                         const Settings& settings) noexcept;

}  // namespace iocv
