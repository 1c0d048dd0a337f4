// COMMA, DOLLAR, DOT and the five custom currencies.
#pragma once

#include <cstdint>

#include "frame/field.h"
#include "frame/format_code.h"
#include "frame/settings.h"
#include "frame/status.h"

namespace iocv {

// Any other code leaves the field untouched.
Status write_currency(Field out, double value, std::int64_t decimals, FormatCode code,
                      const Settings& settings) noexcept;

// The same without its fast path.
Status write_currency_plain(Field out, double value, std::int64_t decimals, FormatCode code,
                            const Settings& settings) noexcept;
template <FormatCode kCode>
Status write_currency_plain(Field out, double value, std::int64_t decimals,
                            const Settings& settings) noexcept {
  return write_currency_plain(out, value, decimals, kCode, settings);
}

}  // namespace iocv
