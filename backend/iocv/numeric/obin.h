// N input: digits only.
#pragma once

#include <cstdint>
#include <string_view>

#include "frame/settings.h"
#include "frame/status.h"

namespace iocv {

Read<double> read_n(std::string_view field, std::int64_t decimals,
                    const Settings& settings) noexcept;

}  // namespace iocv
