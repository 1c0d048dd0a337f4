// P: packed decimal, two digits a byte, the sign in the last half-byte.
#pragma once

#include <cstdint>
#include <string_view>

#include "frame/field.h"
#include "frame/settings.h"
#include "frame/status.h"

namespace iocv {

Read<double> read_p_plain(std::string_view field, std::int64_t decimals,
                          const Settings& settings) noexcept;
// The same; zeros in front, which add nothing, and the eight bytes behind them are read as words.
Read<double> read_p_wide(std::string_view field, std::int64_t decimals,
                         const Settings& settings) noexcept;
// The same after its attempt.
Read<double> read_p(std::string_view field, std::int64_t decimals,
                    const Settings& settings) noexcept;

Status write_p(Field out, double value, std::int64_t decimals, const Settings& settings) noexcept;

// The same without its fast path.
Status write_p_plain(Field out, double value, std::int64_t decimals,
                     const Settings& settings) noexcept;

}  // namespace iocv
