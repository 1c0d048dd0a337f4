// Attempts (frame/steps.h) at single values.
#pragma once

#include <cstdint>

#include "frame/field.h"
#include "frame/settings.h"

namespace iocv {

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
