// Dates without delimiters: 01012000, 01JAN2000, 20001231.
#pragma once

#include <string_view>

#include "datetime/read_date.h"
#include "frame/format_code.h"

namespace iocv {

// Reads a date at the start of text, which runs to the end of the field, when its shape is one.
UndelimitedRead read_undelimited_date(std::string_view text, FormatCode code,
                                      const Settings& settings) noexcept;

}  // namespace iocv
