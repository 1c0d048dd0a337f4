// The helpers that classify, compare and find.
#include "frame/chcase.h"
#include "frame/chcompare.h"
#include "frame/fields_support.h"
#include "frame/ictyp.h"
#include "support/code_page_guard.h"

namespace test {
namespace {

using namespace std::string_literals;

// The classes as ranges, told apart from the library's table.
std::int64_t class_of(int code) {
  if (code <= 31 || code == 92 || code == 94 || code == 96 || code == 127) return 4;
  if (code >= 128) return 24;
  if (code >= 'A' && code <= 'Z') return 2;
  if (code >= 'a' && code <= 'z') return 29;
  if (code >= '0' && code <= '9') return 3;
  switch (code) {
    case 32: return 1;
    case 33: return 25;
    case 34: return 30;
    case 35: return 2;
    case 36: return 2;
    case 37: return 19;
    case 38: return 10;
    case 39: return 6;
    case 40: return 7;
    case 41: return 13;
    case 42: return 12;
    case 43: return 8;
    case 44: return 18;
    case 45: return 16;
    case 46: return 26;
    case 47: return 17;
    case 58: return 23;
    case 59: return 14;
    case 60: return 28;
    case 61: return 27;
    case 62: return 21;
    case 63: return 22;
    case 64: return 2;
    case 91: return 34;
    case 93: return 35;
    case 95: return 20;
    case 123: return 32;
    case 124: return 9;
    case 125: return 33;
    case 126: return 15;
    default: return -1;
  }
}

TEST(CharClass, OfEveryByte) {
  for (int code = 0; code < 256; ++code) {
    EXPECT_EQ(ictyp8_(I{code}), class_of(code)) << code;
    EXPECT_EQ(static_cast<std::int64_t>(iocv::char_class(static_cast<unsigned char>(code))),
              class_of(code));
  }
}

TEST(CharClass, OutsideTheBytesIs4) {
  for (const std::int64_t code :
       {INT64_C(-1), INT64_C(256), INT64_C(256 + 65), kLowest, kHighest}) {
    EXPECT_EQ(ictyp8_(I{code}), 4) << code;
  }
}

TEST(CharClass, OfACharacterInAField) {
  struct Case {
    const char* page;
    std::string text;
    std::int64_t position;
    std::int64_t last;
    std::int64_t result;
    std::size_t length;  // of the character
  };
  const Case cases[] = {
      {"UTF-8", "A1 .", 1, 4, 2, 1},          {"UTF-8", "A1 .", 2, 4, 3, 1},
      {"UTF-8", "A1 .", 3, 4, 1, 1},          {"UTF-8", "A1 .", 4, 4, 26, 1},
      {"UTF-8", "A1 .", 5, 4, 4, 0},  // beyond the last position
      {"UTF-8", "A1 .", 2, 1, 4, 0},          {"UTF-8", "A1 .", 1, 0, 4, 0},
      {"UTF-8", "\0"s, 1, 1, 4, 1},           {"UTF-8", "\xC3\xA9", 1, 2, 11, 2},
      {"UTF-8", "\xC3\xA9", 1, 1, 4, 1},  // cut by the last position
      {"UTF-8", "\xC3\xA9", 2, 2, 4, 1},      {"UTF-8", "a\xE2\x82\xAC", 2, 4, 11, 3},
      {"UTF-8", "a\xE2\x82\xAC", 4, 4, 4, 1}, {"UTF-8", "\xF0\x9F\x98\x80", 1, 4, 11, 4},
      {"windows-1252", "\xE9", 1, 1, 24, 1},  {"windows-1252", "\x81", 1, 1, 24, 1},
      {"Shift_JIS", "\xB1", 1, 1, 24, 1},     {"Shift_JIS", "\x83\x5C", 1, 2, 11, 2},
      {"Shift_JIS", "\x83\x20", 1, 2, 4, 1},  {"GB18030", "\x90\x30\x81\x30", 1, 4, 11, 4},
  };
  for (const Case& c : cases) {
    const CodePageGuard page(c.page);
    const I p{c.position};
    const I last{c.last};
    EXPECT_EQ(answer(c.text, [&](const char* t) { return ictypc_(t, p, last, 9); }), c.result)
        << shown(c.text) << " at " << c.position;
    const std::string_view field = std::string_view(c.text).substr(0, std::size_t(c.last));
    std::size_t length = 99;
    EXPECT_EQ(static_cast<std::int64_t>(
                  iocv::char_class_at(field, static_cast<std::size_t>(c.position - 1), length)),
              c.result);
    EXPECT_EQ(length, c.length) << shown(c.text);
  }
}

TEST(CharClass, OfNoPositionIs4) {
  for (const std::int64_t position : {INT64_C(0), INT64_C(-1), kLowest, kHighest}) {
    EXPECT_EQ(ictypc_("A", I{position}, I{1}, 1), 4) << position;
    EXPECT_EQ(ictypc_("A", I{1}, I{std::min<std::int64_t>(position, 0)}, 1), 4) << position;
  }
}

TEST(FieldBlank, IsAFieldOfBlanksAlone) {
  struct Case {
    const char* text;
    std::int64_t position;
    std::int64_t length;
    std::int64_t result;
  };
  constexpr Case kCases[] = {
      {"     ", 1, 5, kTrue},  {"    a", 1, 5, kFalse},      {"a    ", 1, 5, kFalse},
      {"    a", 1, 4, kTrue},  {"a    ", 2, 4, kTrue},       {"  \t  ", 1, 5, kFalse},
      {"     ", 1, 0, kTrue},  {"aaaaa", 1, 0, kTrue},       {"aaaaa", 1, -1, kTrue},
      {"a    ", 1, 1, kFalse}, {"aaaaa", 1, kLowest, kTrue}, {"aaaaa", kHighest, 0, kTrue},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(
        answer(c.text, [&](const char* t) { return qblnkc_(t, I{c.position}, I{c.length}, 5); }),
        c.result)
        << '[' << c.text << "] " << c.position << ' ' << c.length;
  }
}

TEST(FieldEqual, AreFieldsOfTheSameBytes) {
  struct Case {
    std::string first;
    std::int64_t first_position;
    std::string second;
    std::int64_t second_position;
    std::int64_t length;
    std::int64_t result;
  };
  const Case cases[] = {
      {"abc", 1, "abc", 1, 3, kTrue},       {"abc", 1, "abd", 1, 3, kFalse},
      {"abc", 1, "abd", 1, 2, kTrue},       {"xabc", 2, "yyabc", 3, 3, kTrue},
      {"a\0b"s, 1, "a\0c"s, 1, 3, kFalse},  {"abc", 1, "ABC", 1, 3, kFalse},
      {"abc", 1, "xyz", 1, 0, kTrue},       {"abc", 1, "xyz", 1, -7, kTrue},
      {"abc", 1, "xyz", 1, kLowest, kTrue},
  };
  for (const Case& c : cases) {
    const Guarded second(c.second);
    EXPECT_EQ(answer(c.first,
                     [&](const char* t) {
                       return qcmpcc_(t, I{c.first_position}, second.data(), I{c.second_position},
                                      I{c.length}, size_of(c.first), size_of(c.second));
                     }),
              c.result)
        << shown(c.first) << ' ' << shown(c.second);
  }
}

TEST(FindWord, ComparesWithEntriesAsBlankPaddedText) {
  struct Case {
    std::string word;
    std::string table;
    std::int64_t entry_length;
    std::int64_t stride;
    std::int64_t count;
    std::int64_t result;
  };
  const Case cases[] = {
      {"FEB", "JANFEBMAR", 3, 3, 3, 2},
      {"FEB   ", "JANFEBMAR", 3, 3, 3, 2},
      {"FEBX", "JANFEBMAR", 3, 3, 3, 0},
      {"FE", "JANFEBMAR", 3, 3, 3, 0},
      {"feb", "JANFEBMAR", 3, 3, 3, 0},
      {"MAR", "JANFEBMAR", 3, 3, 2, 0},
      {"I", "I   II  III ", 4, 4, 3, 1},
      {"II", "I   II  III ", 4, 4, 3, 2},
      {"II  ", "I   II  III ", 4, 4, 3, 2},
      {"III     ", "I   II  III ", 4, 4, 3, 3},
      {"JA", "JANFEBMAR", 2, 3, 3, 1},  // entries shorter than the stride
      {"AR", "JANFEBMAR", 2, 1, 8, 8},  // and longer
      {"X", "XX", 1, 1, 2, 1},          // the first match counts
      {"X", "X", 1, 0, 5, 1},
      {"Y", "X", 1, 0, 5, 0},
      {"X", "X", 1, 1, 0, 0},
      {"X", "X", 1, 1, -1, 0},
      {"X", "X", 1, 1, kLowest, 0},
      {"", "X Y", 1, 1, 3, 2},
      {"  ", "X Y", 1, 1, 3, 2},
      {"  ", "X", 0, 1, 1, 1},  // an empty entry equals blanks
      {"", "X", -1, kHighest, kHighest, 1},
      {"X", "X", 0, kHighest, kHighest, 0},
      {"  ", "X", 0, 1, 0, 0},
      {"ab\0"s, "ab ", 3, 3, 1, 0},
  };
  for (const Case& c : cases) {
    const Guarded table(c.table);
    const I length{c.entry_length};
    const I stride{c.stride};
    const I count{c.count};
    EXPECT_EQ(answer(c.word,
                     [&](const char* t) {
                       return iwdndx_(t, table.data(), length, stride, count, size_of(c.word),
                                      size_of(c.table));
                     }),
              c.result)
        << '[' << c.word << "] [" << c.table << "] " << c.entry_length;
  }
  EXPECT_EQ(iwdndx_("abc", " ", I{1}, I{1}, I{1}, -3, 1), 1);  // no word is a blank one
}

TEST(FieldCore, BlankAndCaseForOtherFamilies) {
  EXPECT_TRUE(iocv::is_blank(""));
  EXPECT_TRUE(iocv::is_blank("  "));
  EXPECT_FALSE(iocv::is_blank(" x"));
  EXPECT_FALSE(iocv::is_blank("\0"s));
  char text[] = "jan1";
  iocv::upper_case(text, 4);
  EXPECT_STREQ(text, "JAN1");
  iocv::lower_case(text, 2);
  EXPECT_STREQ(text, "jaN1");
}

}  // namespace
}  // namespace test
