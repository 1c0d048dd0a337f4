// Which byte sequences are characters of UTF-8: the whole domain against the encodings of all
// codes.
#include <iocv/platform.h>

#include "support/code_page_guard.h"

namespace {

int length_of(std::string_view text) {
  return VELTMBmblen_A(text.data(), static_cast<std::int64_t>(text.size()));
}

std::string bytes(std::initializer_list<unsigned> values) {
  std::string text;
  for (const unsigned value : values) text += static_cast<char>(value);
  return text;
}

// A code's only encoding, written out by its number of bits.
std::string encoding(unsigned code) {
  const auto tail = [code](unsigned shift) { return 0x80 + (code >> shift) % 64; };
  if (code < 1U << 7) return bytes({code});
  if (code < 1U << 11) return bytes({0xC0 + (code >> 6), tail(0)});
  if (code < 1U << 16) return bytes({0xE0 + (code >> 12), tail(6), tail(0)});
  return bytes({0xF0 + (code >> 18), tail(12), tail(6), tail(0)});
}

bool surrogate(unsigned code) { return code >= 0xD800 && code <= 0xDFFF; }

unsigned key(const std::string& text) {
  unsigned value = 0;
  for (const char c : text) value = value << 8 | static_cast<unsigned char>(c);
  return value;
}

TEST(Utf8, EveryCodeIsOneCharacterAndEveryCutOfItNone) {
  const test::CodePageGuard page("UTF-8");
  for (unsigned code = 1; code <= 0x10FFFF; ++code) {
    if (surrogate(code)) continue;
    const std::string text = encoding(code);
    ASSERT_EQ(length_of(text), static_cast<int>(text.size())) << std::hex << code;
    ASSERT_EQ(length_of(text + "a"), static_cast<int>(text.size())) << std::hex << code;
    for (std::size_t cut = 1; cut < text.size(); ++cut) {
      ASSERT_EQ(length_of(text.substr(0, cut)), -1) << std::hex << code << " cut to " << cut;
    }
  }
}

TEST(Utf8, OfAllThreeByteTextsOnlyTheEncodingsAreCharacters) {
  const test::CodePageGuard page("UTF-8");
  std::vector<bool> two(1U << 16);
  std::vector<bool> three(1U << 24);
  for (unsigned code = 0x80; code < 0x800; ++code) two[key(encoding(code))] = true;
  for (unsigned code = 0x800; code < 0x10000; ++code) {
    if (!surrogate(code)) three[key(encoding(code))] = true;
  }
  for (unsigned value = 0; value < 1U << 24; ++value) {
    const char text[3] = {static_cast<char>(value >> 16), static_cast<char>(value >> 8),
                          static_cast<char>(value)};
    const unsigned first = value >> 16;
    const int expected = first == 0        ? -1
                         : first < 0x80    ? 1
                         : two[value >> 8] ? 2
                         : three[value]    ? 3
                                           : -1;
    ASSERT_EQ(VELTMBmblen_A(text, 3), expected) << std::hex << value;
  }
}

TEST(Utf8, FourByteTextsEndAtTheLastCode) {
  const test::CodePageGuard page("UTF-8");
  const auto in_range = [](unsigned byte) { return byte >= 0x80 && byte <= 0xBF; };
  for (unsigned first = 0xF0; first <= 0xFF; ++first) {
    for (unsigned second = 0; second <= 0xFF; ++second) {
      for (const unsigned third : {0x00U, 0x7FU, 0x80U, 0xBFU, 0xC0U, 0xFFU}) {
        for (const unsigned fourth : {0x00U, 0x7FU, 0x80U, 0xBFU, 0xC0U, 0xFFU}) {
          const unsigned code =
              (first % 8) << 18 | (second % 64) << 12 | (third % 64) << 6 | fourth % 64;
          const bool valid = first < 0xF8 && in_range(second) && in_range(third) &&
                             in_range(fourth) && code >= 0x10000 && code <= 0x10FFFF;
          ASSERT_EQ(length_of(bytes({first, second, third, fourth})), valid ? 4 : -1)
              << std::hex << first << ' ' << second << ' ' << third << ' ' << fourth;
        }
      }
    }
  }
}

}  // namespace
