// One direction of the system's code page conversion.
#pragma once

#include <iconv.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace platform {

class Converter {
 public:
  enum class Outcome {
    all,         // every byte of the input converted
    incomplete,  // the input ends inside a character
    invalid,     // the next bytes are no character, or have none in the target
    no_room,     // the output is full
  };
  struct Result {
    Outcome outcome;
    std::size_t taken;    // bytes of the input that converted
    std::size_t written;  // bytes of the output
  };

  Converter(const char* to, const char* from) noexcept : descriptor_(iconv_open(to, from)) {}
  ~Converter() {
    if (*this) iconv_close(descriptor_);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  // False when the system does not know one of the two code pages.
  explicit operator bool() const noexcept { return descriptor_ != kNone; }

  // Converts as much of in as is valid and fits, starting afresh. Not for two threads at once.
  Result convert(std::string_view in, char* out, std::size_t room) noexcept;

 private:
  inline static const auto kNone = std::bit_cast<iconv_t>(std::intptr_t{-1});
  iconv_t descriptor_;
};

}  // namespace platform
