// PIB: unsigned integers, the least significant byte first.
#pragma once

#include <cstdint>
#include <string_view>

#include "frame/field.h"
#include "frame/settings.h"
#include "frame/status.h"

namespace iocv {

Read<double> read_pib_plain(std::string_view field, std::int64_t decimals,
                            const Settings& settings) noexcept;
// The same after its attempt.
Read<double> read_pib(std::string_view field, std::int64_t decimals,
                      const Settings& settings) noexcept;

Status write_pib(Field out, double value, std::int64_t decimals, const Settings& settings) noexcept;

// The same without its fast path.
Status write_pib_plain(Field out, double value, std::int64_t decimals,
                       const Settings& settings) noexcept;

}  // namespace iocv
