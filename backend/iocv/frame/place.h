// Fields as the flat helpers name them: a base, a 1-based position and a length.
#pragma once

#include <cstdint>
#include <string_view>

#include "frame/field.h"

namespace iocv {

// A length below 1 is an empty field wherever it lies: its address is not even computed.
inline Field field_at(char* base, std::int64_t position, std::int64_t length) noexcept {
  return length > 0 ? Field(base + (position - 1), length) : Field(base, 0);
}

inline std::string_view text_at(const char* base, std::int64_t position,
                                std::int64_t length) noexcept {
  return length > 0 ? std::string_view(base + (position - 1), static_cast<std::size_t>(length))
                    : std::string_view();
}

// Logical results fill 64 bits.
constexpr std::int64_t logical(bool value) noexcept { return value ? -1 : 0; }

}  // namespace iocv
