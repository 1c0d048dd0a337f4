// The string formats A and AHEX.
#include <iocv/iocv.h>

#include "frame/obia.h"
#include "frame/obiah.h"
#include "support/addressed.h"
#include "support/code_page_guard.h"
#include "support/guarded.h"
#include "support/values.h"

namespace {

using namespace std::string_literals;
using test::I;

constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr test::Edge kEdges[] = {test::Edge::end, test::Edge::begin};

OBS* value_at(const test::Guarded& storage) { return reinterpret_cast<OBS*>(storage.data()); }

using Reader = void(const char*, const std::int64_t*, const std::int64_t*, OBS*, std::int64_t*,
                    std::int64_t);
using Writer = void(const OBS*, const std::int64_t*, const std::int64_t*, char*, std::int64_t*,
                    std::int64_t);

struct ReadCase {
  const char* page;
  std::string text;
  std::int64_t width;
  std::string value;  // over dots
  std::int64_t status;
};

void check(Reader* read, const ReadCase& c) {
  const test::CodePageGuard page(c.page);
  for (const test::Edge edge : kEdges) {
    const test::Guarded text(c.text, edge);
    const test::Guarded value(std::string(c.value.size(), '.'), edge);
    std::int64_t status = 99;
    read(text.data(), I{c.width}, I{kMost}, value_at(value), &status,
         static_cast<std::int64_t>(c.text.size()));
    EXPECT_EQ(test::shown(value.text()), test::shown(c.value))
        << c.page << ' ' << test::shown(c.text) << ' ' << c.width;
    EXPECT_EQ(status, c.status) << c.page << ' ' << test::shown(c.text);
    EXPECT_EQ(text.text(), c.text);
    EXPECT_TRUE(value.intact());
  }
}

struct WriteCase {
  const char* page;
  std::string value;
  std::int64_t width;
  std::string text;  // over dots
};

void check(Writer* write, const WriteCase& c) {
  const test::CodePageGuard page(c.page);
  for (const test::Edge edge : kEdges) {
    // No byte of the value behind the width is read, so its storage need not be whole units.
    const test::Guarded value(c.value, edge);
    const test::Guarded text(std::string(c.text.size(), '.'), edge);
    std::int64_t status = 99;
    write(value_at(value), I{c.width}, I{kLeast}, text.data(), &status,
          static_cast<std::int64_t>(c.text.size()));
    EXPECT_EQ(test::shown(text.text()), test::shown(c.text))
        << c.page << ' ' << test::shown(c.value) << ' ' << c.width;
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(text.intact());
  }
}

TEST(AInput, CopiesBlanksTheUnitAndMarksBadBytes) {
  const ReadCase cases[] = {
      {"UTF-8", "abc", 3, "abc     ", 0},
      {"UTF-8", "abcdefgh", 8, "abcdefgh", 0},
      {"UTF-8", "abcdefghi", 9, "abcdefghi       ", 0},
      {"UTF-8", "abc", 2, "ab      ", 0},          // width, not length
      {"UTF-8", "abc", 1, "a       ........", 0},  // the last unit alone is blanked
      {"UTF-8", " a ", 3, " a      ", 0},          // blanks are characters
      {"UTF-8", "ab\0"s, 3, "ab!     ", 1158},
      {"UTF-8", "\0\0\0\0\0\0\0\0"s, 8, "!!!!!!!!", 1158},
      {"UTF-8", "a\xE2\x82", 3, "a!!     ", 1158},
      {"UTF-8", "\xC3\xA9\xE2\x82\xAC", 5, "\xC3\xA9\xE2\x82\xAC   ", 0},
      {"UTF-8", "\xC3\xA9", 1, "!       ", 1158},  // the width cuts the character
      {"UTF-8", "\xED\xA0\x80z", 4, "!!!z    ", 1158},
      {"UTF-8", "\x01\x7F\t", 3, "\x01\x7F\t     ", 0},
      {"UTF-8", "1234567\x80", 8, "1234567!", 1158},
      {"windows-1252", "\x81\xE9\xFF", 3, "\x81\xE9\xFF     ", 0},
      {"windows-1252", "\x81\0\xFF"s, 3, "\x81!\xFF     ", 1158},
      {"Shift_JIS", "\x83\x5C\x83", 3, "\x83\x5C!     ", 1158},
      {"GB18030", "\x90\x30\x81\x30\x90\x30\x81", 7, "\x90\x30\x81\x30!0! ", 1158},
      {"UTF-8", "abc", 0, "........", 0},
      {"UTF-8", "abc", -1, "........", 0},
      {"UTF-8", "abc", kLeast, "........", 0},
  };
  for (const ReadCase& c : cases) check(obia_, c);
}

TEST(AInput, EndsOnAWholeUnitAtEveryWidth) {
  for (std::int64_t width = 0; width <= 40; ++width) {
    const auto size = static_cast<std::size_t>(width);
    std::string text(size, 'x');
    std::string value = text + std::string((size + 7) / 8 * 8 - size, ' ');
    check(obia_, {"UTF-8", text, width, value + "........", 0});
    for (std::size_t bad = 0; bad < size; ++bad) {
      text[bad] = '\0';
      value[bad] = '!';
      check(obia_, {"UTF-8", text, width, value, 1158});
      text[bad] = value[bad] = 'x';
    }
  }
}

TEST(AInput, TextAndValueMayShareStorage) {
  const test::CodePageGuard page("UTF-8");
  for (const std::int64_t shift : {INT64_C(-8), INT64_C(0), INT64_C(8)}) {
    OBS storage[4];
    std::memset(storage, '.', sizeof storage);
    std::memcpy(storage[1].bytes, "abcd\0fghijk", 11);
    std::int64_t status = 99;
    OBS* value = storage + 1 + shift / 8;
    obia_(storage[1].bytes, I{11}, I{0}, value, &status, 11);
    EXPECT_EQ(std::string(value->bytes, 16), "abcd!fghijk     ") << shift;
    EXPECT_EQ(status, 1158);
  }
}

TEST(AOutput, WritesWholeValidCharactersThenBlanks) {
  const WriteCase cases[] = {
      {"UTF-8", "abc", 3, "abc."},
      {"UTF-8", "abcdefghij", 10, "abcdefghij"},
      {"UTF-8", "ab\0cd"s + "x", 6, "ab    ."},
      {"UTF-8", "a\xC3\xA9", 2, "a ."},  // the field cuts the character
      {"UTF-8", "a\xC3\xA9", 3, "a\xC3\xA9."},
      {"UTF-8", "\xE2\x82\xAC", 1, " ."},
      {"UTF-8", "\xE2\x82\xAC", 2, "  ."},
      {"UTF-8",
       "a\xFF"
       "bcd",
       5, "a    ."},  // and all behind it
      {"UTF-8", "  a  ", 5, "  a  ."},
      {"UTF-8", "\0bcdefgh"s, 8, "        ."},
      {"windows-1252", "\xE9\x81\0z"s, 4, "\xE9\x81  ."},
      {"Shift_JIS", "\x83\x5C\x83", 3, "\x83\x5C ."},
      {"GB18030", "\x90\x30\x81\x30\x90\x30\x81\x30", 7, "\x90\x30\x81\x30   ."},
      {"UTF-8", "abc", 0, "..."},
      {"UTF-8", "abc", -1, "..."},
      {"UTF-8", "abc", kLeast, "..."},
  };
  for (const WriteCase& c : cases) check(oboa_, c);
}

TEST(AOutput, FillsEveryWidth) {
  for (std::int64_t width = 0; width <= 40; ++width) {
    const auto size = static_cast<std::size_t>(width);
    std::string value(size, 'x');
    check(oboa_, {"UTF-8", value, width, value + "."});
    for (std::size_t bad = 0; bad < size; ++bad) {
      value[bad] = '\x80';
      check(oboa_, {"UTF-8", value, width, std::string(bad, 'x') + std::string(size - bad, ' ')});
      value[bad] = 'x';
    }
  }
}

TEST(AOutput, TextAndValueMayShareStorage) {
  const test::CodePageGuard page("UTF-8");
  for (const std::ptrdiff_t shift : {-3, 0, 3}) {
    OBS storage[4];
    std::memset(storage, '.', sizeof storage);
    std::memcpy(storage[1].bytes, "abcdefg\0ij", 10);
    std::int64_t status = 99;
    char* text = storage[1].bytes + shift;
    oboa_(storage + 1, I{10}, I{0}, text, &status, 10);
    EXPECT_EQ(std::string(text, 10), "abcdefg   ") << shift;
  }
}

TEST(AhexInput, MakesAByteOfTwoDigits) {
  const ReadCase cases[] = {
      {"UTF-8", "4a6B", 4, "Jk      ", 0},
      {"UTF-8", "4a6Bz", 5, "Jk      ", 0},  // an odd last character is ignored
      {"UTF-8", "4a6B", 2, "J       ", 0},
      {"UTF-8", "4a6B", 3, "J       ........", 0},
      {"UTF-8", "00ff80", 6, "\0\xFF\x80     "s, 0},
      {"UTF-8", "4142434445464748", 16, "ABCDEFGH", 0},
      {"UTF-8", "414243444546474849", 18, "ABCDEFGHI       ", 0},
      {"UTF-8", "4G", 2, "        ", 1117},
      {"UTF-8", "G4", 2, "        ", 1117},
      {"UTF-8", "4 ", 2, "        ", 1117},
      {"UTF-8", "41424344454647484G", 18, "                ", 1117},  // the made ones too
      {"UTF-8", "4142434445464748494A4B4C4D4E4F50-1", 34, std::string(24, ' '), 1117},
      {"UTF-8", "4G424344", 8, "        ", 1117},
      {"UTF-8", "4", 1, "........", 0},
      {"UTF-8", "G", 1, "........", 0},
      {"UTF-8", "41", 0, "........", 0},
      {"UTF-8", "41", -2, "........", 0},
      {"UTF-8", "41", kLeast, "........", 0},
  };
  for (const ReadCase& c : cases) check(obiah_, c);
}

// 4A, then a character in the place of either digit of the next byte.
TEST(AhexInput, EveryOtherByteIsNoDigit) {
  for (int code = 0; code < 256; ++code) {
    const char c = static_cast<char>(code);
    const std::size_t digit = "0123456789ABCDEFabcdef"s.find(c);
    const bool valid = digit != std::string::npos;
    const auto half = static_cast<char>(digit < 16 ? digit : digit - 6);
    const std::string high = valid ? "J"s + static_cast<char>(half * 16 + 1) : "  "s;
    const std::string low = valid ? "J"s + static_cast<char>(16 + half) : "  "s;
    const std::int64_t status = valid ? 0 : 1117;
    check(obiah_, {"UTF-8", "4A"s + c + '1', 4, high + "      ", status});
    check(obiah_, {"UTF-8", "4A1"s + c, 4, low + "      ", status});
  }
}

TEST(AhexOutput, WritesTwoDigitsForAByte) {
  const WriteCase cases[] = {
      {"UTF-8", "\xAB\xCD\xEF", 5, "ABCDE."},
      {"UTF-8", "\xAB\xCD\xEF", 6, "ABCDEF."},
      {"UTF-8", "\xAB", 1, "A."},
      {"UTF-8", "\0\x09\x9A"s, 6, "00099A."},
      {"UTF-8", "\xAB", 0, ".."},
      {"UTF-8", "\xAB", -1, ".."},
      {"UTF-8", "\xAB", kLeast, ".."},
  };
  for (const WriteCase& c : cases) check(oboah_, c);
}

TEST(Ahex, WhatIsWrittenReadsBackAtEveryWidth) {
  SCOPED_TRACE(test::seed_text());
  std::mt19937_64 random = test::random_source();
  for (std::int64_t width = 2; width <= 600; ++width) {
    const auto size = static_cast<std::size_t>(width / 2);
    std::vector<OBS> value((size + 7) / 8 + 1);
    for (OBS& unit : value) unit.bits = random();
    std::string expected(reinterpret_cast<char*>(value.data()), size);
    expected.resize((size + 7) / 8 * 8, ' ');
    const test::Guarded text(static_cast<std::size_t>(width));
    std::int64_t status = 99;
    oboah_(value.data(), I{width}, I{0}, text.data(), &status, width);
    EXPECT_EQ(status, 0);
    check(obiah_, {"UTF-8", text.text(), width, expected, 0});
  }
}

TEST(Ahex, EveryByteHasItsTwoDigits) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  for (std::size_t code = 0; code < 256; ++code) {
    const std::string text = {kDigits[code / 16], kDigits[code % 16]};
    check(oboah_, {"UTF-8", std::string(1, static_cast<char>(code)), 2, text});
    check(obiah_, {"UTF-8", text, 2, static_cast<char>(code) + "       "s, 0});
  }
}

}  // namespace
