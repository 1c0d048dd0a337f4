// A walk over the bytes of a field for the fast ways of input. It knows the few kinds of bytes that
// ordinary fields hold, all of them ASCII and the same under any settings and in any code page, and
// stops at every other byte, so that a field which it has walked to its end reads as it says.
#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>

#include "datetime/letters.h"
#include "datetime/read_words.h"
#include "frame/settings.h"

namespace iocv::fast {

inline constexpr std::uint32_t kNone = 0xFFFF'FFFF;  // more than any number read

struct Digits {
  std::uint32_t value;  // of up to nine digits
  std::int64_t count;
};

// Where the text of a field begins.
struct TextBegin {
  char first;         // a blank in a blank field and in one of less than eight bytes
  std::int64_t left;  // bytes from there to the end of the field

  TextBegin(const char* field, std::int64_t width) noexcept {
    constexpr std::uint64_t kBlanks = word_of("        ");
    const std::int64_t last = width - 8;
    std::int64_t at = 0;
    std::uint64_t bytes = last < 0 ? 0 : load<std::uint64_t>(field) ^ kBlanks;
    while (bytes == 0 && at < last) {
      at = std::min(at + 8, last);
      bytes = load<std::uint64_t>(field + at) ^ kBlanks;
    }
    const int bits = std::countr_zero(bytes) & 56;
    first = static_cast<char>(' ' ^ (bytes >> bits));
    left = width - at - bits / 8;
  }
};

// Inlined whole: a walk that keeps its place in registers takes half as long.
class Cursor {
 public:
  Cursor(const char* field, std::int64_t width) noexcept
      : first_(field), at_(field), end_(field + width) {}

  [[nodiscard]] bool at_end() const noexcept { return at_ == end_; }
  [[nodiscard]] const char* at() const noexcept { return at_; }
  [[nodiscard]] std::int64_t walked() const noexcept { return at_ - first_; }
  [[nodiscard]] std::int64_t left() const noexcept { return end_ - at_; }

  void skip(std::int64_t bytes) noexcept { at_ += bytes; }

  [[gnu::always_inline]] bool take(char byte) noexcept {
    if (at_end() || *at_ != byte) return false;
    ++at_;
    return true;
  }

  // Nothing but blanks to the end.
  [[gnu::always_inline]] bool only_blanks_left() noexcept {
    while (left() >= 8) {
      const std::uint64_t bytes = load<std::uint64_t>(at_) ^ kBlanks;
      if (bytes != 0) {
        at_ += std::countr_zero(bytes) / 8;
        return false;
      }
      at_ += 8;
    }
    skip_blanks();
    return at_end();
  }

  // Whether any is taken.
  [[gnu::always_inline]] bool blanks() noexcept {
    const char* const first = at_;
    skip_blanks();
    return at_ != first;
  }

  [[gnu::always_inline]] Digits digits() noexcept {
    const char* const first = at_;
    std::uint32_t value = 0;
    for (std::uint32_t next; (next = digit()) <= 9; ++at_) value = 10 * value + next;
    return {value, at_ - first};
  }

  // One or two digits, or kNone.
  [[gnu::always_inline]] std::uint32_t number() noexcept {
    std::uint32_t number = digit();
    if (number > 9) return kNone;
    ++at_;
    const std::uint32_t units = digit();
    if (units > 9) return number;
    ++at_;
    return 10 * number + units;
  }

  // Two digits, or kNone.
  [[gnu::always_inline]] std::uint32_t two_digits() noexcept {
    const char* const first = at_;
    const std::uint32_t result = number();
    return at_ == first + 2 ? result : kNone;
  }

  // Four digits, or kNone and the same place.
  [[gnu::always_inline]] std::uint32_t four_digits() noexcept {
    constexpr Limits kLimits("0000", "9999");
    if (left() < 4) return kNone;
    const std::uint64_t digits = load<std::uint32_t>(at_) - kLimits.least;
    if ((excess(digits, kLimits) & kTopBits) != 0) return kNone;
    at_ += 4;
    const std::uint64_t parts = pairs(digits);
    return 100 * byte(parts, 0) + byte(parts, 2);
  }

  // Blanks, at most one of ",-./", and blanks; one of them at least.
  [[gnu::always_inline]] bool date_delimiter() noexcept {
    const char* const first = at_;
    skip_blanks();
    if (!at_end() && *at_ >= ',' && *at_ <= '/') {
      ++at_;
      skip_blanks();
    }
    return at_ != first;
  }

  // The first three bytes of a word, with letters in upper case, as a number. What is no word of
  // three letters is no name either.
  [[gnu::always_inline]] std::uint32_t word() noexcept {
    if (left() < 4) return 0;
    const std::uint32_t letters = load<std::uint32_t>(at_) & 0xDF'DFDF;
    at_ += 3;
    while (!at_end() && is_letter(*at_)) ++at_;
    return letters;
  }

 private:
  static constexpr std::uint64_t kBlanks = 0x2020'2020'2020'2020;

  [[gnu::always_inline]] void skip_blanks() noexcept {
    while (take(' ')) {
    }
  }

  [[nodiscard]] std::uint32_t digit() const noexcept {
    return at_end() ? kNone : static_cast<std::uint32_t>(*at_ - '0');
  }

  const char* first_;
  const char* at_;
  const char* end_;
};

// What a field's words say: a value, or that the plain way is to judge, or neither, so that a walk
// may try.
enum class Words { value, plain, neither };

// The two parts of an attempt at fields, for callers that keep them apart. A walk stays out of
// line: it is long, and most fields are of words.

template <class Input>
struct InWords : Input {
  static bool make(std::int64_t width, std::int64_t decimals, const Settings& settings,
                   InWords& input) noexcept {
    return Input::kWordsWidth != 0 && width == Input::kWordsWidth &&
           Input::make(width, decimals, settings, input);
  }

  [[gnu::always_inline]] bool operator()(const char* field, double& value) const noexcept {
    return Input::words(field, value) == Words::value;
  }
};

template <class Input>
struct InAWalk : Input {
  [[gnu::noinline]] bool operator()(const char* field, double& value) const noexcept {
    return Input::may_walk(field, this->width) && this->walk(field, value);
  }
};

// Words, then a walk; false when the field is the plain way's.
template <class Input>
[[gnu::always_inline]] inline bool read_field(const Input& input, const char* field,
                                              double& value) noexcept {
  if (input.width == Input::kWordsWidth) {
    const Words words = Input::words(field, value);
    if (words != Words::neither) return words == Words::value;
  }
  return InAWalk<Input>{input}(field, value);
}

}  // namespace iocv::fast
