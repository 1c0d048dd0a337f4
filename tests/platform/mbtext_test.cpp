// Case and conversion of text in the current code page.
#include <iocv/platform.h>

#include "support/code_page_guard.h"
#include "support/guarded.h"

namespace {

using namespace std::string_literals;

TEST(MbtextCase, ChangesInPlaceAndKeepsLengths) {
  struct Case {
    const char* page;
    std::string text;
    std::string lower;
    std::string upper;
  };
  const Case cases[] = {
      {"UTF-8", "", "", ""},
      {"UTF-8", "@AZ[`az{ 09", "@az[`az{ 09", "@AZ[`AZ{ 09"},
      {"UTF-8", "\xC3\xA9t\xC3\x89", "\xC3\xA9t\xC3\xA9", "\xC3\x89T\xC3\x89"},
      {"UTF-8", "\xC3\xBF", "\xC3\xBF", "\xC5\xB8"},                          // y diaeresis
      {"UTF-8", "\xCF\x82", "\xCF\x82", "\xCE\xA3"},                          // final sigma
      {"UTF-8", "\xF0\x90\x90\xA8", "\xF0\x90\x90\xA8", "\xF0\x90\x90\x80"},  // Deseret
      {"UTF-8", "\xC3\x9F", "\xC3\x9F", "\xC3\x9F"},              // sharp s: no single letter
      {"UTF-8", "\xC4\xB1", "\xC4\xB1", "\xC4\xB1"},              // dotless i: upper case is ASCII
      {"UTF-8", "\xE2\x84\xAA", "\xE2\x84\xAA", "\xE2\x84\xAA"},  // kelvin: lower case is ASCII
      {"UTF-8", "\xC8\xBA", "\xC8\xBA", "\xC8\xBA"},              // lower case has three bytes
      {"UTF-8", "a\xE2\x82z", "a\xE2\x82z", "A\xE2\x82Z"},        // cut bytes stay
      {"UTF-8", "a\0b"s, "a\0b"s, "A\0B"s},
      {"UTF-8", "A\xC3", "a\xC3", "A\xC3"},
      {"windows-1252", "\xE9\xC9", "\xE9\xE9", "\xC9\xC9"},
      {"windows-1252", "\xFF\x9F", "\xFF\xFF", "\x9F\x9F"},
      {"windows-1252", "\x9A\x8A\x9E", "\x9A\x9A\x9E", "\x8A\x8A\x8E"},
      {"windows-1252", "\xDF\xB5\x83", "\xDF\xB5\x83", "\xDF\xB5\x83"},  // not in the page
      {"windows-1252", "\x81\xD7\xF7", "\x81\xD7\xF7", "\x81\xD7\xF7"},  // no letters
      {"ISO-8859-7", "\xE1\xC1\xF2", "\xE1\xE1\xF2", "\xC1\xC1\xD3"},
      {"Shift_JIS", "\x82\x81\x82\x60", "\x82\x81\x82\x81", "\x82\x60\x82\x60"},
      {"Shift_JIS", "\x83\xBF\x84\x70", "\x83\xBF\x84\x70", "\x83\x9F\x84\x40"},
      {"Shift_JIS", "\x83\x61\x61", "\x83\x61\x61", "\x83\x61\x41"},  // a letter as second byte
      {"Shift_JIS", "\x83\x41\x41", "\x83\x41\x61", "\x83\x41\x41"},
      {"Shift_JIS", "\xFF\x61\x82", "\xFF\x61\x82", "\xFF\x41\x82"},
      {"GB18030", "\xA3\xE1\xA6\xC1", "\xA3\xE1\xA6\xC1", "\xA3\xC1\xA6\xA1"},
      {"GB18030", "\xA8\xA6", "\xA8\xA6", "\xA8\xA6"},        // upper case has four bytes
      {"BIG5-HKSCS", "\x88\x62z", "\x88\x62z", "\x88\x62Z"},  // one character, two codes
      {"GB18030", "\x81\x30\x81\x30\x61", "\x81\x30\x81\x30\x61", "\x81\x30\x81\x30\x41"},
  };
  for (const Case& c : cases) {
    const test::CodePageGuard page(c.page);
    for (const test::Edge edge : {test::Edge::end, test::Edge::begin}) {
      const test::Guarded lower(c.text, edge);
      VELTMBmemlwr_A(lower.data(), static_cast<std::int64_t>(lower.size()));
      EXPECT_EQ(test::shown(lower.text()), test::shown(c.lower)) << c.page;
      EXPECT_TRUE(lower.intact());
      const test::Guarded upper(c.text, edge);
      VELTMBmemupr_A(upper.data(), static_cast<std::int64_t>(upper.size()));
      EXPECT_EQ(test::shown(upper.text()), test::shown(c.upper)) << c.page;
      EXPECT_TRUE(upper.intact());
    }
  }
}

TEST(MbtextCase, OfNoBytesTouchesNothing) {
  for (const std::int64_t length : {INT64_C(0), INT64_C(-1), INT64_MIN}) {
    char text[] = "aA";
    VELTMBmemlwr_A(text, length);
    VELTMBmemupr_A(text, length);
    EXPECT_STREQ(text, "aA");
  }
}

TEST(GenericToU8, ConvertsTheCurrentCodePage) {
  const std::string kBad = "\xEF\xBF\xBD";
  struct Case {
    const char* page;
    std::string text;
    std::string utf8;
    int result;
  };
  const Case cases[] = {
      {"UTF-8", "", "", 0},
      {"UTF-8", "plain text", "plain text", 0},
      {"UTF-8", "a\0b"s, "a\0b"s, 0},
      {"UTF-8", "\xC3\xA9\xE2\x82\xAC", "\xC3\xA9\xE2\x82\xAC", 0},
      {"UTF-8", "a\xE2\x82", "a" + kBad + kBad, 1},
      {"UTF-8", "\xED\xA0\x80z", kBad + kBad + kBad + "z", 1},
      {"windows-1252", "\x80\xE9\x9F", "\xE2\x82\xAC\xC3\xA9\xC5\xB8", 0},
      {"windows-1252", "a\0b"s, "a\0b"s, 0},
      {"windows-1252", "a\x81z", "a" + kBad + "z", 1},
      {"Shift_JIS", "\x82\xA0\xB1z", "\xE3\x81\x82\xEF\xBD\xB1z", 0},
      {"Shift_JIS", "z\x82", "z" + kBad, 1},
      {"Shift_JIS", "\x82 z", kBad + " z", 1},
      {"GB18030", "\xB0\xA1\x90\x30\x81\x30", "\xE5\x95\x8A\xF0\x90\x80\x80", 0},
      {"GB18030", "\xE3\x32\x9A\x36", kBad + "2" + kBad + "6", 1},
      {"BIG5-HKSCS", "\x88\x62z", "\xC3\x8A\xCC\x84z", 0},  // one character, two codes
      {"windows-1258", "a\xEC z", "\xC3\xA1 z", 0},         // a letter and its accent become one
      {"windows-1258", "ba", "ba", 0},                      // the last letter waits for no accent
  };
  for (const Case& c : cases) {
    const test::CodePageGuard page(c.page);
    std::string out = "before";
    EXPECT_EQ(VELTMBGenericToU8(out, c.text), c.result) << c.page << ' ' << test::shown(c.text);
    EXPECT_EQ(test::shown(out), test::shown(c.utf8)) << c.page;
    std::string same = c.text;
    EXPECT_EQ(VELTMBGenericToU8(same, same), c.result);
    EXPECT_EQ(same, out);
  }
}

TEST(GenericToU8, ConvertsLongText) {
  const test::CodePageGuard page("windows-1252");
  std::string text;
  std::string utf8;
  for (int i = 0; i < 100000; ++i) {
    text += "\x80\xE9z";
    utf8 += "\xE2\x82\xAC\xC3\xA9z";
  }
  std::string out;
  EXPECT_EQ(VELTMBGenericToU8(out, text), 0);
  EXPECT_TRUE(out == utf8);
}

}  // namespace
