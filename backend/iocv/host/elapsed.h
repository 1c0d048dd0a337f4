// Elapsed minutes and seconds (code 85) as fields, and how every code of the extension hook shows a
// missing value.
#pragma once

#include "frame/field.h"
#include "frame/settings.h"
#include "frame/status.h"

namespace iocv {

// The field without its leading blanks, up to a zero byte, as read_elapsed reads it; the decimal
// point is that of the settings.
Read<double> read_elapsed_field(std::string_view field, std::int64_t decimals,
                                const Settings& settings) noexcept;

// All minutes, a colon, two digits of seconds and the decimals that fit: "  125:07.50". Asterisks
// when that is too wide; a field below five columns keeps its bytes.
Status write_elapsed_field(Field out, double value, std::int64_t decimals,
                           const Settings& settings) noexcept;

// Writes the system-missing constant, whatever the settings say, as its character in the column of
// the units digit of a number with these decimals. False, with nothing written, for other values.
bool write_missing_constant(Field out, double value, std::int64_t decimals,
                            const Settings& settings) noexcept;

// The missing constant alone; all else has no converter.
Status write_unconverted(Field out, double value, std::int64_t decimals,
                         const Settings& settings) noexcept;

}  // namespace iocv
