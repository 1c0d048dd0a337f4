// IB: signed integers in two's complement, the least significant byte first.
#pragma once

#include <cstdint>
#include <iterator>
#include <string_view>

#include "frame/binary.h"
#include "frame/field.h"
#include "frame/obiib_fast.h"
#include "frame/parts.h"
#include "frame/settings.h"
#include "frame/status.h"

namespace iocv {

Read<double> read_ib_plain(std::string_view field, std::int64_t decimals,
                           const Settings& settings) noexcept;
inline Read<double> read_ib(std::string_view field, std::int64_t decimals,
                            const Settings& settings) noexcept {
  double value = 0;
  if (try_ib(field.data(), std::ssize(field), decimals, FormatCode::ib, settings, value))
    return {value, Status::ok};
  return read_ib_plain(field, decimals, settings);
}
template <>
inline constexpr auto kParts<read_ib> = Parts{try_ib, read_ib_plain};

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
