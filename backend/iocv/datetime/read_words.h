// Fields read as words of eight bytes, every byte tested and converted at once.
//
// Each byte less the least that may stand there is at most its limit when neither it nor its sum
// with 127 less the limit has the top bit. The lowest byte that fails has no borrow or carry from
// below it, so it is seen.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace iocv::fast {

// The first byte is the lowest, as the tests below need it.
inline constexpr bool kReadsWords = std::endian::native == std::endian::little;

template <class Word>
Word load(const char* text) noexcept {
  Word word = 0;
  std::memcpy(&word, text, sizeof word);
  return word;
}

// The word of a text of up to eight bytes.
constexpr std::uint64_t word_of(std::string_view text) noexcept {
  std::uint64_t word = 0;
  for (std::size_t i = text.size(); i-- > 0;) {
    word = word << 8 | static_cast<unsigned char>(text[i]);
  }
  return word;
}

// The least and the greatest byte of each column: Limits("00", "19") are those of 00..19.
struct Limits {
  std::uint64_t least;
  std::uint64_t room;

  constexpr Limits(std::string_view lowest, std::string_view highest) noexcept
      : least(word_of(lowest)), room(0) {
    for (std::size_t i = lowest.size(); i-- > 0;) {
      room = room << 8 | static_cast<unsigned char>(0x7F - (highest[i] - lowest[i]));
    }
  }
};

inline constexpr std::uint64_t kTopBits = 0x8080'8080'8080'8080;

// Top bits where a byte is above its limit.
constexpr std::uint64_t excess(std::uint64_t bytes, const Limits& limits) noexcept {
  return bytes | (bytes + limits.room);
}

// The bit that a blank lacks to be a zero.
constexpr std::uint64_t zero_for_blank(char first) noexcept {
  static_assert((' ' | 1 << 4) == '0');
  return std::uint64_t{first == ' '} << 4;
}

// At each byte the number of two digits that begins there.
constexpr std::uint64_t pairs(std::uint64_t digits) noexcept { return digits * 10 + (digits >> 8); }

constexpr std::uint32_t byte(std::uint64_t word, int index) noexcept {
  return static_cast<std::uint8_t>(word >> (8 * index));
}

}  // namespace iocv::fast
