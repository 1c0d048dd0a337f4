// An attempt at the fields of a column: what their format and settings say is worked out once.
#pragma once

#include <cstddef>
#include <cstdint>

#include "frame/attempts.h"
#include "frame/steps.h"

namespace iocv::column {

template <class Attempt>
class Prepared {
 public:
  template <class Source>
  Prepared(std::size_t width, std::int64_t decimals, const Source& settings) noexcept
      : serves_(Attempt::make(static_cast<std::int64_t>(width), decimals, settings, attempt_)) {}

  template <class Char, class Value>
  [[gnu::always_inline]] bool operator()(Char* field, Value&& value) const noexcept {
    return serves_ && attempt_(field, value);
  }

  [[gnu::always_inline]] bool reads(const char* field, Read<double>& result) const noexcept {
    return serves_ && answers(attempt_, field, result);
  }

 private:
  Attempt attempt_ = {};
  bool serves_;
};

}  // namespace iocv::column
