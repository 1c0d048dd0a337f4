// The helpers that know characters, under several code pages and in both spellings.
#include "frame/fields_support.h"
#include "frame/multibyte.h"
#include "support/code_page_guard.h"

namespace test {
namespace {

using namespace std::string_literals;

TEST(FieldCase, ChangesTheFieldAlone) {
  struct Case {
    const char* page;
    std::string text;
    std::int64_t position;
    std::int64_t length;
    std::string lower;
    std::string upper;
  };
  const Case cases[] = {
      {"UTF-8", "AbCdEf", 1, 6, "abcdef", "ABCDEF"},
      {"UTF-8", "AbCdEf", 3, 2, "AbcdEf", "AbCDEf"},
      {"UTF-8", "AbCdEf", 1, 0, "AbCdEf", "AbCdEf"},
      {"UTF-8", "AbCdEf", 1, kLowest, "AbCdEf", "AbCdEf"},
      {"UTF-8", "@AZ[`az{\0\x7F"s, 1, 10, "@az[`az{\0\x7F"s, "@AZ[`AZ{\0\x7F"s},
      {"UTF-8", "a1\xC3\xA9Z", 1, 5, "a1\xC3\xA9z", "A1\xC3\x89Z"},
      {"UTF-8", "aA\xC3\xA9", 1, 3, "aa\xC3\xA9", "AA\xC3\xA9"},  // the field cuts the letter
      {"UTF-8", "a\xFFZz", 1, 4, "a\xFFzz", "A\xFFZZ"},
      {"UTF-8", "\xC4\xB1i", 1, 3, "\xC4\xB1i", "\xC4\xB1I"},  // other case has another length
      {"windows-1252", "\xE9\xC9z", 1, 3, "\xE9\xE9z", "\xC9\xC9Z"},
      {"Shift_JIS", "z\x83\x61z\x83\x41Z", 1, 7, "z\x83\x61z\x83\x41z", "Z\x83\x61Z\x83\x41Z"},
      {"GB18030", "z\xA3\xE1z", 1, 4, "z\xA3\xE1z", "Z\xA3\xC1Z"},
  };
  for (const Case& c : cases) {
    const CodePageGuard page(c.page);
    const I p{c.position};
    const I n{c.length};
    const std::int64_t size = size_of(c.text);
    EXPECT_EQ(after(c.text, [&](char* t) { chlwrn_(t, p, n); }), c.lower) << shown(c.text);
    EXPECT_EQ(after(c.text, [&](char* t) { chlwrc_(t, p, n, size); }), c.lower);
    EXPECT_EQ(after(c.text, [&](char* t) { chuprn_(t, p, n); }), c.upper) << shown(c.text);
    EXPECT_EQ(after(c.text, [&](char* t) { chuprc_(t, p, n, size); }), c.upper);
  }
}

struct Walk {
  const char* page;
  std::string text;
  std::int64_t valid;  // bytes of whole valid characters
  std::int64_t first;  // bytes of the first character
};

const Walk kWalks[] = {
    {"UTF-8", "a", 1, 1},
    {"UTF-8", "abcdefghijklmnopq", 17, 1},
    {"UTF-8", "ab\0c"s, 2, 1},
    {"UTF-8", "\0a"s, 0, -1},
    {"UTF-8", "abcdefgh\0ijklmnop"s, 8, 1},
    {"UTF-8", "abcdefg\0"s, 7, 1},
    {"UTF-8", "\xC3\xA9", 2, 2},
    {"UTF-8", "a\xC3\xA9\xC3", 3, 1},
    {"UTF-8", "abcdefg\xC3\xA9ijklmnopq", 18, 1},
    {"UTF-8", "abcdefgh\x80ijklmnop", 8, 1},
    {"UTF-8", "\xE2\x82\xAC", 3, 3},
    {"UTF-8", "\xE2\x82", 0, -1},
    {"UTF-8", "a\xE2\x82", 1, 1},
    {"UTF-8", "\xF0\x9F\x98\x80z", 5, 4},
    {"UTF-8", "\xF4\x8F\xBF\xBF", 4, 4},
    {"UTF-8", "\xF4\x90\x80\x80", 0, -1},
    {"UTF-8", "\xED\xA0\x80", 0, -1},
    {"UTF-8", "\xC0\xAF", 0, -1},
    {"UTF-8", "\x7F\x01", 2, 1},
    {"windows-1252", "\x81\xE9\xFF\x80", 4, 1},
    {"windows-1252", "\xE9\0a"s, 1, 1},
    {"Shift_JIS", "\x83\x5C\x5C", 3, 2},
    {"Shift_JIS", "\x83\x5C\x83", 2, 2},
    {"Shift_JIS", "\xB1\x83\x5C", 3, 1},
    {"GB18030", "\x90\x30\x81\x30\xB0\xA1z", 7, 4},
    {"GB18030", "z\x90\x30\x81", 1, 1},
};

TEST(FieldWalk, CountsTheBytesOfWholeValidCharacters) {
  for (const Walk& c : kWalks) {
    const CodePageGuard page(c.page);
    const std::int64_t n = size_of(c.text);
    EXPECT_EQ(answer(c.text, [&](const char* t) { return chtrnn_(t, I{1}, I{n}); }), c.valid)
        << shown(c.text);
    EXPECT_EQ(answer(c.text, [&](const char* t) { return chtrnc_(t, I{1}, I{n}, n); }), c.valid);
    const std::string shifted = "\xFF" + c.text;
    EXPECT_EQ(answer(shifted, [&](const char* t) { return chtrnn_(t, I{2}, I{n}); }), c.valid);
  }
}

TEST(FieldWalk, MeasuresTheFirstCharacter) {
  for (const Walk& c : kWalks) {
    const CodePageGuard page(c.page);
    const std::int64_t n = size_of(c.text);
    EXPECT_EQ(answer(c.text, [&](const char* t) { return icnbtn_(t, I{1}, I{n}); }), c.first)
        << shown(c.text);
    EXPECT_EQ(answer(c.text, [&](const char* t) { return icnbtc_(t, I{1}, I{n}, n); }), c.first);
  }
}

TEST(FieldWalk, OfAnEmptyFieldIs0) {
  for (const std::int64_t length : {INT64_C(0), INT64_C(-1), kLowest}) {
    const I n{length};
    EXPECT_EQ(answer("ab", [&](const char* t) { return chtrnn_(t, I{1}, n); }), 0);
    EXPECT_EQ(answer("ab", [&](const char* t) { return chtrnc_(t, I{1}, n, 2); }), 0);
    EXPECT_EQ(answer("ab", [&](const char* t) { return icnbtn_(t, I{1}, n); }), 0);
    EXPECT_EQ(answer("ab", [&](const char* t) { return icnbtc_(t, I{1}, n, 2); }), 0);
  }
}

// Against a walk that asks for one character after the other, without the run of plain ASCII.
TEST(FieldWalk, SkipsAsciiAsIfOneByOne) {
  const CodePageGuard page("UTF-8");
  SCOPED_TRACE(seed_text());
  std::mt19937_64 random = random_source();
  constexpr std::string_view kPieces[] = {
      "a",    "z~",   "\x7F",    "\x01", "\xC3\xA9", "\xE2\x82\xAC", std::string_view("\0", 1),
      "\x80", "\xFF", "12345678"};
  for (int i = 0; i < 50000; ++i) {
    std::string text;
    for (std::uint64_t piece = random() % 12; piece > 0; --piece) {
      // Mostly the plain pieces, so that some runs are long.
      text += kPieces[random() % 4 == 0 ? random() % std::size(kPieces) : random() % 2];
    }
    std::size_t walked = 0;
    while (walked < text.size()) {
      const int length =
          VELTMBmblen_A(text.data() + walked, static_cast<std::int64_t>(text.size() - walked));
      if (length < 1) break;
      walked += static_cast<std::size_t>(length);
    }
    ASSERT_EQ(iocv::valid_prefix(text), walked) << shown(text);
  }
}

TEST(FieldTruncate, CopiesWholeCharactersAndBlanksTheRest) {
  struct Case {
    std::string source;
    std::int64_t length;
    std::string result;  // over "......"
    std::int64_t count;
  };
  const Case cases[] = {
      {"abcdef", 6, "abcdef", 6},     {"abcdef", 3, "abc...", 3},
      {"a\xC3\xA9x", 2, "a ....", 1}, {"a\xC3\xA9x", 3, "a\xC3\xA9...", 3},
      {"ab\0cd"s, 5, "ab   .", 2},    {"\xFFxyz", 4, "    ..", 0},
      {"abc", 0, "......", 0},        {"abc", -1, "......", 0},
      {"abc", kLowest, "......", 0},
  };
  const CodePageGuard page("UTF-8");
  for (const Case& c : cases) {
    const Guarded source(c.source);
    std::int64_t count = -99;
    EXPECT_EQ(after("......", [&](char* t) { count = chtruncn_(source.data(), t, I{c.length}); }),
              c.result);
    EXPECT_EQ(count, c.count) << shown(c.source);
  }
}

TEST(FieldTruncate, InPlaceCutsTheText) {
  const CodePageGuard page("UTF-8");
  EXPECT_EQ(after("ab\xC3\xA9z", [](char* t) { chtruncn_(t, t, I{3}); }), "ab \xA9z");
}

TEST(FieldFind, TheFirstCharacterOfThisOneByte) {
  struct Case {
    const char* page;
    std::string text;
    std::int64_t position;
    std::int64_t length;
    char byte;
    std::int64_t offset;
  };
  const Case cases[] = {
      {"UTF-8", "\xC3\xA9"s + "A", 1, 3, 'A', 3},
      {"UTF-8", "abcabc", 1, 6, 'b', 2},
      {"UTF-8", "abcabc", 3, 4, 'b', 3},  // counted from the position
      {"UTF-8", "abcabc", 1, 1, 'b', 0},
      {"UTF-8", "abc", 1, 3, 'z', 0},
      {"UTF-8", "abc", 1, 0, 'a', 0},
      {"UTF-8", "abc", 1, kLowest, 'a', 0},
      {"UTF-8", "a\xFFz", 1, 3, 'z', 0},  // behind an invalid sequence
      {"UTF-8", "a\0z"s, 1, 3, 'z', 0},
      {"UTF-8", "a\0z"s, 1, 3, '\0', 0},
      {"UTF-8", "z\xFF", 1, 2, 'z', 1},
      {"UTF-8", "a\xC3\xA9", 1, 3, '\xA9', 0},
      {"windows-1252", "a\xE9", 1, 2, '\xE9', 0},  // bytes above 127 are not looked for
      {"windows-1252", "\xE9"s + "a", 1, 2, 'a', 2},
      {"Shift_JIS", "\x83\x5C\x5C", 1, 3, '\x5C', 3},  // not the second byte of a character
      {"GB18030", "\x90\x30\x81\x30"s + "0", 1, 5, '0', 5},
  };
  for (const Case& c : cases) {
    const CodePageGuard page(c.page);
    const I p{c.position};
    const I n{c.length};
    EXPECT_EQ(answer(c.text, [&](const char* t) { return icndxn_(t, p, n, &c.byte); }), c.offset)
        << shown(c.text);
    EXPECT_EQ(answer(c.text, [&](const char* t) { return icndxc_(t, p, n, &c.byte, 9); }),
              c.offset);
  }
}

TEST(FieldInvalid, EveryByteThatStartsNoCharacterIsReplaced) {
  struct Case {
    const char* page;
    std::string text;
    char replacement;
    std::string result;
    std::int64_t found;
  };
  const Case cases[] = {
      {"UTF-8", "abc", '?', "abc", kFalse},
      {"UTF-8", "a\0b"s, '?', "a?b", kTrue},
      {"UTF-8", "a\0b"s, '\0', "a\0b"s, kTrue},
      {"UTF-8", "\xFF", '\0', "\xFF", kTrue},
      {"UTF-8", "a\xE2\x82", '!', "a!!", kTrue},
      {"UTF-8", "\xE2\x82z\xE2\x82\xAC", '!', "!!z\xE2\x82\xAC", kTrue},
      {"UTF-8", "\xED\xA0\x80\xC0\xAF", '!', "!!!!!", kTrue},
      {"UTF-8",
       "12345678\xC3\xA9\x80"
       "12345678\0"s,
       '.', "12345678\xC3\xA9.12345678.", kTrue},
      {"UTF-8", "\x01\x1F ~\x7F", '?', "\x01\x1F ~\x7F", kFalse},
      {"UTF-8", "a\x80z", '\xC3', "a\xC3z", kTrue},
      {"windows-1252", "\x81\xFF\0z"s, '?', "\x81\xFF?z", kTrue},
      {"windows-1252", "\x81\xFFz", '?', "\x81\xFFz", kFalse},
      {"Shift_JIS", "\x83\x5C\x83", '!', "\x83\x5C!", kTrue},
      {"Shift_JIS", "\x83 \xB1", '!', "! \xB1", kTrue},
      {"GB18030", "\x90\x30\x81\x30\x81\x30", '!', "\x90\x30\x81\x30!0", kTrue},
  };
  for (const Case& c : cases) {
    const CodePageGuard page(c.page);
    const std::int64_t n = size_of(c.text);
    std::int64_t found = 99;
    EXPECT_EQ(
        shown(after(c.text, [&](char* t) { found = qinvmn_(t, I{1}, I{n}, &c.replacement); })),
        shown(c.result));
    EXPECT_EQ(found, c.found) << shown(c.text);
    EXPECT_EQ(after(c.text, [&](char* t) { found = qinvmc_(t, I{1}, I{n}, &c.replacement, n); }),
              c.result);
    EXPECT_EQ(found, c.found) << shown(c.text);
  }
}

TEST(FieldInvalid, OnlyTheFieldIsLookedAt) {
  const char mark = '?';
  std::int64_t found = 99;
  EXPECT_EQ(after("\0ab\0"s, [&](char* t) { found = qinvmn_(t, I{2}, I{2}, &mark); }), "\0ab\0"s);
  EXPECT_EQ(found, kFalse);
  for (const std::int64_t length : {INT64_C(0), INT64_C(-1), kLowest}) {
    EXPECT_EQ(after("\0"s, [&](char* t) { found = qinvmn_(t, I{1}, I{length}, &mark); }), "\0"s);
    EXPECT_EQ(found, kFalse);
  }
}

}  // namespace
}  // namespace test
