// What a column brings along, as the core takes it.
#pragma once

#include <iocv/column.h>

#include "frame/settings.h"

namespace iocv::column {

// The settings of conversions under a format. They name the currencies of those they come from.
iocv::Settings core_settings(const Settings& settings, const Format& format) noexcept;

// The bytes of a field that conversions see.
std::size_t used_width(const Format& format) noexcept;

}  // namespace iocv::column
