// Elapsed minutes and seconds (code 85): 12:30, 1230, 1:02.5.
#pragma once

#include <string_view>

#include "frame/status.h"

namespace iocv {

// Signed seconds of a text of minutes and seconds; the decimal point matters only where a single
// separator could be either it or a colon. The system-missing constant on failure.
Read<double> read_elapsed(std::string_view text, char decimal_point) noexcept;

}  // namespace iocv
