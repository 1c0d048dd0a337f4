// P: packed decimal, two digits a byte, the sign in the last half-byte.
#pragma once

#include <cstdint>
#include <string_view>

#include "frame/binary.h"
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

inline constexpr char kPackedPlus = 15;

// What stands in a field without a number: zero.
inline void clear_packed(Field out) noexcept {
  out.fill(0);
  out.put(out.width() - 1, kPackedPlus);
}

// A finite number other than the system-missing one, in a field of some width.
Status write_p_number(Field out, double value, std::int64_t decimals) noexcept;

// What the fast path leaves. Inline, for of a caller's settings it looks at one only.
inline Status write_p_rest(Field out, double value, std::int64_t decimals,
                           const Settings& settings) noexcept {
  if (out.empty()) return Status::ok;
  const Status special = special_status(value, settings, kPackedSpecials);
  if (special == Status::ok) return write_p_number(out, value, decimals);
  clear_packed(out);
  return special;
}

// The same without its fast path.
Status write_p_plain(Field out, double value, std::int64_t decimals,
                     const Settings& settings) noexcept;

}  // namespace iocv
