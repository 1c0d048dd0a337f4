// The helpers that move and fill bytes, in both spellings.
#include "frame/fields_support.h"

namespace test {
namespace {

using namespace std::string_literals;

TEST(FieldMove, CopiesLengthBytesFromPositionToPosition) {
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
      {"abcdef", 1, "......", 1, -1, "......"}, {"abcdef", 1, "......", 1, kLowest, "......"},
      {"a\0\xFF"s, 1, "...", 1, 3, "a\0\xFF"s},
  };
  for (const Case& c : cases) {
    const Guarded source(c.source);
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

TEST(FieldMove, TheTwoFieldsMayOverlap) {
  EXPECT_EQ(after("abcdef", [](char* t) { chmvnn_(t, I{1}, t, I{3}, I{4}); }), "ababcd");
  EXPECT_EQ(after("abcdef", [](char* t) { chmvcc_(t, I{3}, t, I{1}, I{4}, 6, 6); }), "cdefef");
}

TEST(FieldFill, WritesCodes0To127AndAQuestionMarkForOthers) {
  struct Case {
    std::int64_t position;
    std::int64_t length;
    std::int64_t code;
    std::string result;
  };
  const Case cases[] = {
      {2, 3, 42, "a***ef"},
      {1, 6, 127, std::string(6, '\x7F')},
      {2, 2, 0, "a\0\0def"s},
      {1, 2, 128, "??cdef"},
      {5, 2, 255, "abcd??"},
      {1, 1, -1, "?bcdef"},
      {1, 1, 256 + 65, "?bcdef"},
      {1, 1, kLowest, "?bcdef"},
      {1, 0, 42, "abcdef"},
      {1, -5, 42, "abcdef"},
      {kHighest, kLowest, 42, "abcdef"},
  };
  for (const Case& c : cases) {
    const I p{c.position};
    const I n{c.length};
    const I code{c.code};
    EXPECT_EQ(after("abcdef", [&](char* t) { chnfln_(t, p, n, code); }), c.result) << c.code;
    EXPECT_EQ(after("abcdef", [&](char* t) { chnflc_(t, p, n, code, 6); }), c.result) << c.code;
  }
}

TEST(FieldFill, Blanks) {
  struct Case {
    std::int64_t position;
    std::int64_t length;
    const char* result;
  };
  constexpr Case kCases[] = {{1, 6, "      "}, {2, 3, "a   ef"},  {6, 1, "abcde "},
                             {1, 0, "abcdef"}, {3, -1, "abcdef"}, {1, kLowest, "abcdef"}};
  for (const Case& c : kCases) {
    const I p{c.position};
    const I n{c.length};
    EXPECT_EQ(after("abcdef", [&](char* t) { chblkn_(t, p, n); }), c.result);
    EXPECT_EQ(after("abcdef", [&](char* t) { chblkc_(t, p, n, 6); }), c.result);
  }
}

TEST(FieldStore, OneByteByItsCodeAndAQuestionMarkForOthers) {
  for (std::int64_t code = -300; code <= 600; ++code) {
    const std::string result = {'a', code >= 0 && code <= 255 ? static_cast<char>(code) : '?', 'c'};
    EXPECT_EQ(after("abc", [&](char* t) { chnstn_(t, I{2}, I{code}); }), result) << code;
    EXPECT_EQ(after("abc", [&](char* t) { chnstc_(t, I{2}, I{code}, 3); }), result) << code;
  }
  for (const std::int64_t code : {kLowest, kHighest, kLowest + 65}) {
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

TEST(UnitMove, AreMovedAndZeroedIn8Or4Bytes) {
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
    for (const std::int64_t count : {INT64_C(0), INT64_C(-1), kLowest}) {
      EXPECT_EQ(after("ab", [&](char* t) { c.move(text.data(), t, I{count}); }), "ab");
      EXPECT_EQ(after("ab", [&](char* t) { c.zero(t, I{count}); }), "ab");
    }
  }
}

TEST(UnitMove, TheTwoEmptyEntriesReturn) {
  bkcent_();
  bktran_();
}

}  // namespace
}  // namespace test
