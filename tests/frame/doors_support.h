// Values and texts for the doors, wider than any field that is converted whole.
#pragma once

#include <iocv/iocv.h>

#include <cstring>
#include <string>
#include <vector>

namespace test {

constexpr std::size_t kWide = 40000;
constexpr std::size_t kCap = 32767;

// Units of storage that hold a string value, and its bytes.
struct Value {
  explicit Value(const std::string& text) : units(text.size() / 8 + 1) {
    std::memset(units.data(), '.', units.size() * sizeof(OBS));
    std::memcpy(units.data(), text.data(), text.size());
  }
  std::string bytes(std::size_t size) const {
    return {reinterpret_cast<const char*>(units.data()), size};
  }
  std::vector<OBS> units;
};

// Text whose bytes differ from place to place, without blanks.
inline std::string pattern(std::size_t size) {
  std::string text;
  for (std::size_t i = 0; i < size; ++i) text += static_cast<char>('!' + i % 89);
  return text;
}

}  // namespace test
