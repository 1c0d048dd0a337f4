// RB: the bytes of a floating-point number, the least significant first; decimals are ignored.
#pragma once

#include <cstdint>
#include <string_view>

#include "frame/field.h"
#include "frame/settings.h"
#include "frame/status.h"

namespace iocv {

Read<double> read_rb(std::string_view field, std::int64_t decimals,
                     const Settings& settings) noexcept;
Status write_rb(Field out, double value, std::int64_t decimals, const Settings& settings) noexcept;

}  // namespace iocv
