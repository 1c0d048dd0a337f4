// What every fuzz target shares: arguments taken from the bytes of an input, conversions that check
// what holds for every format, and a check that stops the run.
//
// A target is LLVMFuzzerTestOneInput in a file of its own. Clang links it with libFuzzer; every
// other build links it with replay.cpp, which runs the stored inputs.
#pragma once

#include <iocv/base.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzz {

[[noreturn]] void fail(const char* file, int line, const char* condition);

// Ends the run, with the condition's text, when it does not hold.
#define FUZZ_REQUIRE(condition) \
  ((condition) ? void() : ::fuzz::fail(__FILE__, __LINE__, #condition))

// The bytes of an input as arguments; an input that is used up gives zeros.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size)
      : left_(reinterpret_cast<const char*>(data), size) {}

  unsigned byte();
  std::int64_t integer();         // any eight bytes
  std::int64_t below(int limit);  // 0 to limit - 1, from one byte
  std::int64_t width();           // mostly 0 to 43, the rest below 0 or up to 600
  std::int64_t decimals();        // mostly 0 to 19, the rest any integer
  double number();                // any bits, a decimal of up to 15 digits or a whole number
  std::string_view text(std::size_t longest);  // up to a byte FF, which is dropped
  std::string_view rest(std::size_t longest);

  template <class T, std::size_t size>
  const T& pick(const T (&choices)[size]) {
    return choices[byte() % size];
  }

 private:
  std::string_view left_;
};

// The process's settings from two bytes: the decimal character, the leading zero, the
// system-missing character, the century window and the general format's threshold.
void take_settings(Input& input);

// A copy on the heap without a byte to spare, so that the address sanitizer sees one too far.
class Exact {
 public:
  explicit Exact(std::string_view bytes);
  const char* data() const { return bytes_.get(); }

 private:
  std::unique_ptr<char[]> bytes_;
};

// A field to write into, between bytes that must stay.
class Guarded {
 public:
  Guarded(std::int64_t width, char before);
  char* data() { return bytes_.data() + kGuard; }
  std::string text() const { return bytes_.substr(kGuard, bytes_.size() - 2 * kGuard); }
  bool intact() const;

 private:
  static constexpr std::size_t kGuard = 64;
  std::string bytes_;
};

constexpr std::uint64_t kMissingBits = 0xFFEF'FFFF'FFFF'FFFF;

struct Reading {
  OBS value;
  std::int64_t status;
};

struct Writing {
  std::string field;
  std::int64_t status;
};

// obicv_ of the field. Required: two readings agree, whatever the value held and whatever stands
// behind the field; the status is 0 or one of those told; a failure leaves the system-missing
// number unless keeps_value.
Reading read(std::string_view field, std::int32_t code, std::int64_t decimals,
             std::initializer_list<int> statuses, bool keeps_value = false);

// obocv_ into a field of that width. Required: two writings over different bytes agree, so that
// every column is written; no byte outside the field changes; the status is 0 or one of those told.
Writing write(OBS value, std::int32_t code, std::int64_t width, std::int64_t decimals,
              std::initializer_list<int> statuses);
Writing write(double value, std::int32_t code, std::int64_t width, std::int64_t decimals,
              std::initializer_list<int> statuses);

bool is_one_of(std::int64_t status, std::initializer_list<int> statuses);
bool same_bits(double a, double b);

}  // namespace fuzz
