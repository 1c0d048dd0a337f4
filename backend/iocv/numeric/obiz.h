// Z read back: digits with the sign in the last character.
#pragma once

#include <cstdint>
#include <string_view>

#include "frame/settings.h"
#include "frame/status.h"

namespace iocv {

// The last character also takes the zones of positive numbers. A "." cancels the implied decimals.
Read<double> read_z_plain(std::string_view field, std::int64_t decimals,
                          const Settings& settings) noexcept;
// The same; the last fifteen bytes at once when there are only blanks and zeros in front.
Read<double> read_z_wide(std::string_view field, std::int64_t decimals,
                         const Settings& settings) noexcept;
// The same after its attempt.
Read<double> read_z(std::string_view field, std::int64_t decimals,
                    const Settings& settings) noexcept;

}  // namespace iocv
