// What a conversion leaves: a value or a field, and a status. Values are compared by their bits.
#pragma once

#include <bit>
#include <cstdint>
#include <ostream>
#include <string>

#include "support/guarded.h"
#include "support/values.h"

namespace test {

struct Reading {
  double value;
  std::int64_t status;
  friend bool operator==(const Reading& a, const Reading& b) {
    return a.status == b.status &&
           std::bit_cast<std::uint64_t>(a.value) == std::bit_cast<std::uint64_t>(b.value);
  }
};

inline std::ostream& operator<<(std::ostream& out, const Reading& reading) {
  return out << described(reading.value) << ", status " << reading.status;
}

struct Writing {
  std::string field;
  std::int64_t status;
  friend bool operator==(const Writing& a, const Writing& b) = default;
};

// The field in hexadecimal, "0A FF".
inline std::string hex(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) {
    for (const int half : {(byte >> 4) & 15, byte & 15}) text += "0123456789ABCDEF"[half];
    text += ' ';
  }
  if (!text.empty()) text.pop_back();
  return text;
}

inline std::ostream& operator<<(std::ostream& out, const Writing& writing) {
  return out << '|' << shown(writing.field) << "| " << hex(writing.field) << ", status "
             << writing.status;
}

}  // namespace test
