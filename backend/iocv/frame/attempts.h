// Attempts (frame/steps.h) at single values and fields.
#pragma once

#include <cstdint>
#include <iterator>
#include <string_view>
#include <type_traits>

#include "frame/field.h"
#include "frame/settings.h"
#include "frame/status.h"

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

// Whether an attempt answers for a field: those that only read it say nothing of the status.
template <class Attempt>
[[gnu::always_inline]] inline bool answers(const Attempt& attempt, const char* field,
                                           Read<double>& result) noexcept {
  if constexpr (std::is_invocable_v<const Attempt&, const char*, Read<double>&>) {
    return attempt(field, result);
  } else {
    result.status = Status::ok;
    return attempt(field, result.value);
  }
}

// Whether an attempt has answered for a single field.
template <class Attempt>
[[gnu::always_inline]] inline bool read_by(const char* field, std::int64_t width,
                                           std::int64_t decimals, const Settings& settings,
                                           Read<double>& result) noexcept {
  Attempt attempt;
  return Attempt::make(width, decimals, settings, attempt) && answers(attempt, field, result);
}
template <class Attempt>
bool read_by(std::string_view field, std::int64_t decimals, const Settings& settings,
             Read<double>& result) noexcept {
  return read_by<Attempt>(field.data(), std::ssize(field), decimals, settings, result);
}

}  // namespace iocv
