// IB: signed integers in two's complement, the least significant byte first.
#pragma once

#include <cstdint>
#include <string_view>

#include "frame/binary.h"
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

// A finite number other than the system-missing one, in a field of some width.
Status write_ib_number(Field out, double value, std::int64_t decimals) noexcept;

// What the fast path leaves. Inline, for of a caller's settings it looks at one only.
inline Status write_ib_rest(Field out, double value, std::int64_t decimals,
                            const Settings& settings) noexcept {
  if (out.empty()) return Status::ok;
  const Status special = special_status(value, settings, kBinarySpecials);
  if (special == Status::ok) return write_ib_number(out, value, decimals);
  out.fill(0);
  return special;
}

// The same without its fast path.
Status write_ib_plain(Field out, double value, std::int64_t decimals,
                      const Settings& settings) noexcept;

}  // namespace iocv
