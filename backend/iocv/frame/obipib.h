// PIB: unsigned integers, the least significant byte first.
#pragma once

#include <cstdint>
#include <string_view>

#include "frame/binary.h"
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

// A finite number other than the system-missing one, in a field of some width.
Status write_pib_number(Field out, double value, std::int64_t decimals) noexcept;

// What the fast path leaves. Inline, for of a caller's settings it looks at one only.
inline Status write_pib_rest(Field out, double value, std::int64_t decimals,
                             const Settings& settings) noexcept {
  if (out.empty()) return Status::ok;
  const Status special = special_status(value, settings, kBinarySpecials);
  if (special == Status::ok) return write_pib_number(out, value, decimals);
  out.fill(0);
  return special;
}

// The same without its fast path.
Status write_pib_plain(Field out, double value, std::int64_t decimals,
                       const Settings& settings) noexcept;

}  // namespace iocv
