// PIB: unsigned integers, the least significant byte first.
#pragma once

#include <cstdint>
#include <iterator>
#include <string_view>

#include "frame/field.h"
#include "frame/obiib_fast.h"
#include "frame/parts.h"
#include "frame/settings.h"
#include "frame/status.h"

namespace iocv {

Read<double> read_pib_plain(std::string_view field, std::int64_t decimals,
                            const Settings& settings) noexcept;
inline Read<double> read_pib(std::string_view field, std::int64_t decimals,
                             const Settings& settings) noexcept {
  double value = 0;
  if (try_pib(field.data(), std::ssize(field), decimals, FormatCode::pib, settings, value))
    return {value, Status::ok};
  return read_pib_plain(field, decimals, settings);
}
template <>
inline constexpr auto kParts<read_pib> = Parts{try_pib, read_pib_plain};

Status write_pib(Field out, double value, std::int64_t decimals, const Settings& settings) noexcept;

// The same without its fast path.
Status write_pib_plain(Field out, double value, std::int64_t decimals,
                       const Settings& settings) noexcept;

}  // namespace iocv
