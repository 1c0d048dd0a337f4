// Z read back: digits with the sign in the last character.
#pragma once

#include <cstdint>
#include <iterator>
#include <string_view>

#include "frame/parts.h"
#include "frame/settings.h"
#include "frame/status.h"
#include "numeric/obiz_fast.h"

namespace iocv {

// The last character also takes the zones of positive numbers. A "." cancels the implied decimals.
Read<double> read_z_plain(std::string_view field, std::int64_t decimals,
                          const Settings& settings) noexcept;
// The same; the last fifteen bytes at once when there are only blanks and zeros in front.
Read<double> read_z_wide(std::string_view field, std::int64_t decimals,
                         const Settings& settings) noexcept;
inline Read<double> read_z(std::string_view field, std::int64_t decimals,
                           const Settings& settings) noexcept {
  double value = 0;
  if (try_z(field.data(), std::ssize(field), decimals, FormatCode::z, settings, value))
    return {value, Status::ok};
  return read_z_wide(field, decimals, settings);
}
template <>
inline constexpr auto kParts<read_z> = Parts{try_z, read_z_wide};

}  // namespace iocv
