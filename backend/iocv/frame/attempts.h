// Fast attempts in front of a plain writer.
#pragma once

#include <cstdint>

#include "frame/field.h"
#include "frame/settings.h"

namespace iocv {

// An attempt is made for a format and a source of settings, and then called for each value:
//   static bool make(width, decimals, settings, attempt): whether it serves them at all;
//   bool operator()(first, value) const: whether it has written; the field is as it was if not.
// Both are inline, so that making and calling one for a single value is no more work than a
// function for that value, and a column's loop keeps in registers what was made.

// Whether one of several attempts has written a single value.
template <class... Attempts>
bool written_by(Field out, double value, std::int64_t decimals, const Settings& settings) noexcept {
  const auto tried = [&](auto attempt) {
    return decltype(attempt)::make(out.width(), decimals, GivenSettings{settings}, attempt) &&
           attempt(out.data(), value);
  };
  return (tried(Attempts()) || ...);
}

}  // namespace iocv
