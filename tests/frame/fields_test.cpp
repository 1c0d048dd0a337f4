// The field helpers, in both spellings.
#include <iocv/iocv.h>

#include "frame/chcase.h"
#include "frame/chcompare.h"
#include "frame/ictyp.h"
#include "frame/multibyte.h"
#include "support/addressed.h"
#include "support/code_page_guard.h"
#include "support/guarded.h"
#include "support/values.h"

namespace {

using namespace std::string_literals;
using test::I;

constexpr std::int64_t kTrue = -1;
constexpr std::int64_t kFalse = 0;
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr test::Edge kEdges[] = {test::Edge::end, test::Edge::begin};

std::int64_t size_of(const std::string& text) { return static_cast<std::int64_t>(text.size()); }

// Applies a helper to the bytes, which end and then begin at an unmapped page, and returns them.
template <class Helper>
std::string after(const std::string& text, Helper helper) {
  std::string results[2];
  for (const test::Edge edge : kEdges) {
    const test::Guarded field(text, edge);
    helper(field.data());
    EXPECT_TRUE(field.intact());
    results[edge == test::Edge::begin] = field.text();
  }
  EXPECT_EQ(results[0], results[1]);
  return results[0];
}

// The answer of a helper that reads the bytes, which end and then begin at an unmapped page.
template <class Helper>
std::int64_t answer(const std::string& text, Helper helper) {
  std::int64_t results[2];
  for (const test::Edge edge : kEdges) {
    const test::Guarded field(text, edge);
    results[edge == test::Edge::begin] = helper(field.data());
    EXPECT_EQ(field.text(), text);
  }
  EXPECT_EQ(results[0], results[1]);
  return results[0];
}

TEST(Move, CopiesLengthBytesFromPositionToPosition) {
  struct Case {
    std::string source;
    std::int64_t source_position;
    std::string destination;
    std::int64_t destination_position;
    std::int64_t length;
    std::string result;
  };
  const Case cases[] = {
      {"abcdef", 2, "......", 4, 3, "...bcd"},  {"abcdef", 1, "......", 1, 6, "abcdef"},
      {"abcdef", 6, "......", 6, 1, ".....f"},  {"abcdef", 1, "......", 1, 0, "......"},
      {"abcdef", 1, "......", 1, -1, "......"}, {"abcdef", 1, "......", 1, kLeast, "......"},
      {"a\0\xFF"s, 1, "...", 1, 3, "a\0\xFF"s},
  };
  for (const Case& c : cases) {
    const test::Guarded source(c.source);
    const I from{c.source_position};
    const I to{c.destination_position};
    const I length{c.length};
    const char* s = source.data();
    const std::int64_t ls = size_of(c.source);
    const std::int64_t ld = size_of(c.destination);
    EXPECT_EQ(after(c.destination, [&](char* d) { chmvnn_(s, from, d, to, length); }), c.result);
    EXPECT_EQ(after(c.destination, [&](char* d) { chmvcn_(s, from, d, to, length, ls); }),
              c.result);
    EXPECT_EQ(after(c.destination, [&](char* d) { chmvnc_(s, from, d, to, length, ld); }),
              c.result);
    EXPECT_EQ(after(c.destination, [&](char* d) { chmvcc_(s, from, d, to, length, ls, ld); }),
              c.result);
  }
}

TEST(Move, TheTwoFieldsMayOverlap) {
  EXPECT_EQ(after("abcdef", [](char* t) { chmvnn_(t, I{1}, t, I{3}, I{4}); }), "ababcd");
  EXPECT_EQ(after("abcdef", [](char* t) { chmvcc_(t, I{3}, t, I{1}, I{4}, 6, 6); }), "cdefef");
}

TEST(Fill, WritesCodes0To127AndAQuestionMarkForOthers) {
  struct Case {
    std::int64_t position;
    std::int64_t length;
    std::int64_t code;
    std::string result;
  };
  const Case cases[] = {
      {2, 3, 42, "a***ef"},          {1, 6, 127, std::string(6, '\x7F')},
      {2, 2, 0, "a\0\0def"s},        {1, 2, 128, "??cdef"},
      {5, 2, 255, "abcd??"},         {1, 1, -1, "?bcdef"},
      {1, 1, 256 + 65, "?bcdef"},    {1, 1, kLeast, "?bcdef"},
      {1, 0, 42, "abcdef"},          {1, -5, 42, "abcdef"},
      {kMost, kLeast, 42, "abcdef"},
  };
  for (const Case& c : cases) {
    const I p{c.position};
    const I n{c.length};
    const I code{c.code};
    EXPECT_EQ(after("abcdef", [&](char* t) { chnfln_(t, p, n, code); }), c.result) << c.code;
    EXPECT_EQ(after("abcdef", [&](char* t) { chnflc_(t, p, n, code, 6); }), c.result) << c.code;
  }
}

TEST(Fill, Blanks) {
  struct Case {
    std::int64_t position;
    std::int64_t length;
    const char* result;
  };
  constexpr Case kCases[] = {{1, 6, "      "}, {2, 3, "a   ef"},  {6, 1, "abcde "},
                             {1, 0, "abcdef"}, {3, -1, "abcdef"}, {1, kLeast, "abcdef"}};
  for (const Case& c : kCases) {
    const I p{c.position};
    const I n{c.length};
    EXPECT_EQ(after("abcdef", [&](char* t) { chblkn_(t, p, n); }), c.result);
    EXPECT_EQ(after("abcdef", [&](char* t) { chblkc_(t, p, n, 6); }), c.result);
  }
}

TEST(Store, OneByteByItsCodeAndAQuestionMarkForOthers) {
  for (std::int64_t code = -300; code <= 600; ++code) {
    const std::string result = {'a', code >= 0 && code <= 255 ? static_cast<char>(code) : '?', 'c'};
    EXPECT_EQ(after("abc", [&](char* t) { chnstn_(t, I{2}, I{code}); }), result) << code;
    EXPECT_EQ(after("abc", [&](char* t) { chnstc_(t, I{2}, I{code}, 3); }), result) << code;
  }
  for (const std::int64_t code : {kLeast, kMost, kLeast + 65}) {
    EXPECT_EQ(after("abc", [&](char* t) { chnstn_(t, I{3}, I{code}); }), "ab?") << code;
    EXPECT_EQ(after("abc", [&](char* t) { chnstc_(t, I{3}, I{code}, 3); }), "ab?") << code;
  }
}

TEST(ByteNumber, Is0To255) {
  for (int code = 0; code < 256; ++code) {
    const std::string text = {'x', static_cast<char>(code)};
    EXPECT_EQ(answer(text, [](const char* t) { return icnumn_(t, I{2}); }), code);
    EXPECT_EQ(answer(text, [](const char* t) { return icnumc_(t, I{2}, 2); }), code);
  }
}

using MoveUnits = void(const void*, void*, const std::int64_t*);
using ZeroUnits = void(void*, const std::int64_t*);

TEST(Units, AreMovedAndZeroedIn8Or4Bytes) {
  struct Case {
    MoveUnits* move;
    ZeroUnits* zero;
    std::size_t unit;
  };
  constexpr Case kCases[] = {{imove_, izero_, 8},
                             {simove_, sizero_, 8},
                             {lrmove_, lrzero_, 8},
                             {obmove_, obzero_, 8},
                             {rmove_, rzero_, 4}};
  const std::string text = "0123456789abcdefghijklmn";
  for (const Case& c : kCases) {
    const std::size_t u = c.unit;
    EXPECT_EQ(after(std::string(2 * u, '.'), [&](char* t) { c.move(text.data(), t, I{2}); }),
              text.substr(0, 2 * u));
    EXPECT_EQ(after(text.substr(0, 3 * u), [&](char* t) { c.move(t, t + u, I{2}); }),
              text.substr(0, u) + text.substr(0, 2 * u));
    EXPECT_EQ(after(text.substr(0, 3 * u), [&](char* t) { c.move(t + u, t, I{2}); }),
              text.substr(u, 2 * u) + text.substr(2 * u, u));
    EXPECT_EQ(after(text.substr(0, 3 * u), [&](char* t) { c.zero(t + u, I{1}); }),
              text.substr(0, u) + std::string(u, '\0') + text.substr(2 * u, u));
    for (const std::int64_t count : {INT64_C(0), INT64_C(-1), kLeast}) {
      EXPECT_EQ(after("ab", [&](char* t) { c.move(text.data(), t, I{count}); }), "ab");
      EXPECT_EQ(after("ab", [&](char* t) { c.zero(t, I{count}); }), "ab");
    }
  }
}

TEST(Units, TheTwoEmptyEntriesReturn) {
  bkcent_();
  bktran_();
}

TEST(Case, ChangesTheFieldAlone) {
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
      {"UTF-8", "AbCdEf", 1, kLeast, "AbCdEf", "AbCdEf"},
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
    const test::CodePageGuard page(c.page);
    const I p{c.position};
    const I n{c.length};
    const std::int64_t size = size_of(c.text);
    EXPECT_EQ(after(c.text, [&](char* t) { chlwrn_(t, p, n); }), c.lower) << test::shown(c.text);
    EXPECT_EQ(after(c.text, [&](char* t) { chlwrc_(t, p, n, size); }), c.lower);
    EXPECT_EQ(after(c.text, [&](char* t) { chuprn_(t, p, n); }), c.upper) << test::shown(c.text);
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

TEST(Walk, CountsTheBytesOfWholeValidCharacters) {
  for (const Walk& c : kWalks) {
    const test::CodePageGuard page(c.page);
    const std::int64_t n = size_of(c.text);
    EXPECT_EQ(answer(c.text, [&](const char* t) { return chtrnn_(t, I{1}, I{n}); }), c.valid)
        << test::shown(c.text);
    EXPECT_EQ(answer(c.text, [&](const char* t) { return chtrnc_(t, I{1}, I{n}, n); }), c.valid);
    const std::string shifted = "\xFF" + c.text;
    EXPECT_EQ(answer(shifted, [&](const char* t) { return chtrnn_(t, I{2}, I{n}); }), c.valid);
  }
}

TEST(Walk, MeasuresTheFirstCharacter) {
  for (const Walk& c : kWalks) {
    const test::CodePageGuard page(c.page);
    const std::int64_t n = size_of(c.text);
    EXPECT_EQ(answer(c.text, [&](const char* t) { return icnbtn_(t, I{1}, I{n}); }), c.first)
        << test::shown(c.text);
    EXPECT_EQ(answer(c.text, [&](const char* t) { return icnbtc_(t, I{1}, I{n}, n); }), c.first);
  }
}

TEST(Walk, OfAnEmptyFieldIs0) {
  for (const std::int64_t length : {INT64_C(0), INT64_C(-1), kLeast}) {
    const I n{length};
    EXPECT_EQ(answer("ab", [&](const char* t) { return chtrnn_(t, I{1}, n); }), 0);
    EXPECT_EQ(answer("ab", [&](const char* t) { return chtrnc_(t, I{1}, n, 2); }), 0);
    EXPECT_EQ(answer("ab", [&](const char* t) { return icnbtn_(t, I{1}, n); }), 0);
    EXPECT_EQ(answer("ab", [&](const char* t) { return icnbtc_(t, I{1}, n, 2); }), 0);
  }
}

// Against a walk that asks for one character after the other, without the run of plain ASCII.
TEST(Walk, SkipsAsciiAsIfOneByOne) {
  const test::CodePageGuard page("UTF-8");
  SCOPED_TRACE(test::seed_text());
  std::mt19937_64 random = test::random_source();
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
    ASSERT_EQ(iocv::valid_prefix(text), walked) << test::shown(text);
  }
}

TEST(Truncate, CopiesWholeCharactersAndBlanksTheRest) {
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
      {"abc", kLeast, "......", 0},
  };
  const test::CodePageGuard page("UTF-8");
  for (const Case& c : cases) {
    const test::Guarded source(c.source);
    std::int64_t count = -99;
    EXPECT_EQ(after("......", [&](char* t) { count = chtruncn_(source.data(), t, I{c.length}); }),
              c.result);
    EXPECT_EQ(count, c.count) << test::shown(c.source);
  }
}

TEST(Truncate, InPlaceCutsTheText) {
  const test::CodePageGuard page("UTF-8");
  EXPECT_EQ(after("ab\xC3\xA9z", [](char* t) { chtruncn_(t, t, I{3}); }), "ab \xA9z");
}

TEST(Find, TheFirstCharacterOfThisOneByte) {
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
      {"UTF-8", "abc", 1, kLeast, 'a', 0},
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
    const test::CodePageGuard page(c.page);
    const I p{c.position};
    const I n{c.length};
    EXPECT_EQ(answer(c.text, [&](const char* t) { return icndxn_(t, p, n, &c.byte); }), c.offset)
        << test::shown(c.text);
    EXPECT_EQ(answer(c.text, [&](const char* t) { return icndxc_(t, p, n, &c.byte, 9); }),
              c.offset);
  }
}

TEST(Invalid, EveryByteThatStartsNoCharacterIsReplaced) {
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
    const test::CodePageGuard page(c.page);
    const std::int64_t n = size_of(c.text);
    std::int64_t found = 99;
    EXPECT_EQ(test::shown(
                  after(c.text, [&](char* t) { found = qinvmn_(t, I{1}, I{n}, &c.replacement); })),
              test::shown(c.result));
    EXPECT_EQ(found, c.found) << test::shown(c.text);
    EXPECT_EQ(after(c.text, [&](char* t) { found = qinvmc_(t, I{1}, I{n}, &c.replacement, n); }),
              c.result);
    EXPECT_EQ(found, c.found) << test::shown(c.text);
  }
}

TEST(Invalid, OnlyTheFieldIsLookedAt) {
  const char mark = '?';
  std::int64_t found = 99;
  EXPECT_EQ(after("\0ab\0"s, [&](char* t) { found = qinvmn_(t, I{2}, I{2}, &mark); }), "\0ab\0"s);
  EXPECT_EQ(found, kFalse);
  for (const std::int64_t length : {INT64_C(0), INT64_C(-1), kLeast}) {
    EXPECT_EQ(after("\0"s, [&](char* t) { found = qinvmn_(t, I{1}, I{length}, &mark); }), "\0"s);
    EXPECT_EQ(found, kFalse);
  }
}

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
  for (const std::int64_t code : {INT64_C(-1), INT64_C(256), INT64_C(256 + 65), kLeast, kMost}) {
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
    const test::CodePageGuard page(c.page);
    const I p{c.position};
    const I last{c.last};
    EXPECT_EQ(answer(c.text, [&](const char* t) { return ictypc_(t, p, last, 9); }), c.result)
        << test::shown(c.text) << " at " << c.position;
    const std::string_view field = std::string_view(c.text).substr(0, std::size_t(c.last));
    std::size_t length = 99;
    EXPECT_EQ(static_cast<std::int64_t>(
                  iocv::char_class_at(field, static_cast<std::size_t>(c.position - 1), length)),
              c.result);
    EXPECT_EQ(length, c.length) << test::shown(c.text);
  }
}

TEST(CharClass, OfNoPositionIs4) {
  for (const std::int64_t position : {INT64_C(0), INT64_C(-1), kLeast, kMost}) {
    EXPECT_EQ(ictypc_("A", I{position}, I{1}, 1), 4) << position;
    EXPECT_EQ(ictypc_("A", I{1}, I{std::min<std::int64_t>(position, 0)}, 1), 4) << position;
  }
}

TEST(Blank, IsAFieldOfBlanksAlone) {
  struct Case {
    const char* text;
    std::int64_t position;
    std::int64_t length;
    std::int64_t result;
  };
  constexpr Case kCases[] = {
      {"     ", 1, 5, kTrue},  {"    a", 1, 5, kFalse},     {"a    ", 1, 5, kFalse},
      {"    a", 1, 4, kTrue},  {"a    ", 2, 4, kTrue},      {"  \t  ", 1, 5, kFalse},
      {"     ", 1, 0, kTrue},  {"aaaaa", 1, 0, kTrue},      {"aaaaa", 1, -1, kTrue},
      {"a    ", 1, 1, kFalse}, {"aaaaa", 1, kLeast, kTrue}, {"aaaaa", kMost, 0, kTrue},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(
        answer(c.text, [&](const char* t) { return qblnkc_(t, I{c.position}, I{c.length}, 5); }),
        c.result)
        << '[' << c.text << "] " << c.position << ' ' << c.length;
  }
}

TEST(Equal, AreFieldsOfTheSameBytes) {
  struct Case {
    std::string first;
    std::int64_t first_position;
    std::string second;
    std::int64_t second_position;
    std::int64_t length;
    std::int64_t result;
  };
  const Case cases[] = {
      {"abc", 1, "abc", 1, 3, kTrue},      {"abc", 1, "abd", 1, 3, kFalse},
      {"abc", 1, "abd", 1, 2, kTrue},      {"xabc", 2, "yyabc", 3, 3, kTrue},
      {"a\0b"s, 1, "a\0c"s, 1, 3, kFalse}, {"abc", 1, "ABC", 1, 3, kFalse},
      {"abc", 1, "xyz", 1, 0, kTrue},      {"abc", 1, "xyz", 1, -7, kTrue},
      {"abc", 1, "xyz", 1, kLeast, kTrue},
  };
  for (const Case& c : cases) {
    const test::Guarded second(c.second);
    EXPECT_EQ(answer(c.first,
                     [&](const char* t) {
                       return qcmpcc_(t, I{c.first_position}, second.data(), I{c.second_position},
                                      I{c.length}, size_of(c.first), size_of(c.second));
                     }),
              c.result)
        << test::shown(c.first) << ' ' << test::shown(c.second);
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
      {"X", "X", 1, 1, kLeast, 0},
      {"", "X Y", 1, 1, 3, 2},
      {"  ", "X Y", 1, 1, 3, 2},
      {"  ", "X", 0, 1, 1, 1},  // an empty entry equals blanks
      {"", "X", -1, kMost, kMost, 1},
      {"X", "X", 0, kMost, kMost, 0},
      {"  ", "X", 0, 1, 0, 0},
      {"ab\0"s, "ab ", 3, 3, 1, 0},
  };
  for (const Case& c : cases) {
    const test::Guarded table(c.table);
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

TEST(Core, BlankAndCaseForOtherFamilies) {
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
