// Times without delimiters: 1230, 123015, 123015.25.
#pragma once

#include <string_view>

#include "datetime/read_date.h"

namespace iocv {

// Reads a time at the start of text, which runs to the end of the field, when its shape is one.
UndelimitedRead read_undelimited_time(std::string_view text, const Settings& settings) noexcept;

}  // namespace iocv
