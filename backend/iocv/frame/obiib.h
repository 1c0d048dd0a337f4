// IB: signed integers in two's complement, the least significant byte first.
#pragma once

#include <cstdint>
#include <string_view>

#include "frame/field.h"
#include "frame/settings.h"
#include "frame/status.h"

namespace iocv {

Read<double> read_ib_plain(std::string_view field, std::int64_t decimals,
                           const Settings& settings) noexcept;
// The same after its attempt.
Read<double> read_ib(std::string_view field, std::int64_t decimals,
                     const Settings& settings) noexcept;

Status write_ib(Field out, double value, std::int64_t decimals, const Settings& settings) noexcept;

// The same without its fast path.
Status write_ib_plain(Field out, double value, std::int64_t decimals,
                      const Settings& settings) noexcept;

}  // namespace iocv
