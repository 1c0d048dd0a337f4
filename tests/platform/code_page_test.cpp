// Choosing the code page, and what is a character in each.
#include <iconv.h>
#include <iocv/platform.h>

#include <atomic>
#include <cerrno>
#include <thread>

#include "support/code_page_guard.h"
#include "support/guarded.h"
#include "support/values.h"

namespace {

using namespace std::string_literals;

int length_of(std::string_view text) {
  return VELTMBmblen_A(text.data(), static_cast<std::int64_t>(text.size()));
}

TEST(CodePage, IsSetByTheNamesThatIconvKnows) {
  const test::CodePageGuard page("UTF-8");
  struct Case {
    const char* name;
    const char* current;
  };
  constexpr Case kCases[] = {
      {"windows-1252", "windows-1252"},
      {"WINDOWS-1252", "WINDOWS-1252"},
      {"Shift_JIS", "Shift_JIS"},
      {"GB18030", "GB18030"},
      {"EUC-JP", "EUC-JP"},
      {"BIG5", "BIG5"},
      {"ISO-8859-15", "ISO-8859-15"},
      {"utf8", "UTF-8"},
      {"Utf-8", "UTF-8"},
      {"UTF_8", "UTF-8"},
  };
  for (const Case& c : kCases) {
    EXPECT_TRUE(VELTMBsetCodePage(c.name)) << c.name;
    EXPECT_EQ(VELTMBgetCodePage(), c.current);
  }
}

// Unknown names, names with options, and pages whose first 128 codes are not ASCII by themselves.
TEST(CodePage, StaysWhenTheNameIsNone) {
  const test::CodePageGuard page("windows-1252");
  for (const char* name :
       {"", "no-such-page", "UTF-8//IGNORE", "windows-1252//TRANSLIT", "UTF-16", "UTF-16LE",
        "UTF-32", "UCS-4", "UTF-7", "ISO-2022-JP", "ISO-2022-KR", "IBM037", "EBCDIC-US"}) {
    EXPECT_FALSE(VELTMBsetCodePage(name)) << name;
    EXPECT_EQ(VELTMBgetCodePage(), "windows-1252") << name;
  }
  EXPECT_FALSE(VELTMBsetCodePage(nullptr));
  EXPECT_EQ(length_of("\xE9"), 1);
}

TEST(Character, NoBytesAreNone) {
  EXPECT_EQ(VELTMBmblen_A(nullptr, 0), 0);
  EXPECT_EQ(VELTMBmblen_A("a", 0), 0);
  EXPECT_EQ(VELTMBmblen_A("a", -1), 0);
  EXPECT_EQ(VELTMBmblen_A("a", std::numeric_limits<std::int64_t>::min()), 0);
}

TEST(Character, Bytes1To127StandAloneInEveryPageAndZeroNever) {
  for (const char* name : {"UTF-8", "windows-1252", "Shift_JIS", "GB18030", "EUC-JP", "BIG5"}) {
    const test::CodePageGuard page(name);
    for (int code = 0; code < 128; ++code) {
      const char text[2] = {static_cast<char>(code), '\x40'};
      EXPECT_EQ(VELTMBmblen_A(text, 1), code ? 1 : -1) << name << ' ' << code;
      EXPECT_EQ(VELTMBmblen_A(text, 2), code ? 1 : -1) << name << ' ' << code;
    }
  }
}

TEST(Character, EveryByteOfASingleBytePageIsOne) {
  for (const char* name : {"windows-1252", "ISO-8859-7", "KOI8-R", "TIS-620", "IBM850"}) {
    const test::CodePageGuard page(name);
    for (int code = 128; code < 256; ++code) {
      const char text[2] = {static_cast<char>(code), '\xFF'};
      EXPECT_EQ(VELTMBmblen_A(text, 1), 1) << name << ' ' << code;
      EXPECT_EQ(VELTMBmblen_A(text, 2), 1) << name << ' ' << code;
    }
  }
}

TEST(Character, KnownOnesOfMultibytePages) {
  struct Case {
    const char* page;
    std::string text;
    int length;
  };
  const Case cases[] = {
      {"Shift_JIS", "\x82\xA0", 2},         // hiragana a
      {"Shift_JIS", "\x83\x5C", 2},         // katakana so, whose second byte is a backslash
      {"Shift_JIS", "\x83\x61x", 2},        // a second byte that is a letter
      {"Shift_JIS", "\xB1\x41", 1},         // half-width katakana
      {"Shift_JIS", "\x82", -1},            // cut
      {"Shift_JIS", "\x82\x20", -1},        // no second byte
      {"Shift_JIS", "\xFF\x41", -1},        // no first byte
      {"GB18030", "\xB0\xA1", 2},           // the first hanzi
      {"GB18030", "\x81\x30\x81\x30", 4},   // U+0080
      {"GB18030", "\x90\x30\x81\x30", 4},   // U+10000
      {"GB18030", "\xE3\x32\x9A\x35z", 4},  // U+10FFFF
      {"GB18030", "\xE3\x32\x9A\x36", -1},  // beyond
      {"GB18030", "\x81\x30\x81", -1},      // cut
      {"GB18030", "\x81\x30", -1},          // cut
      {"GB18030", "\x81\x30\x41\x30", -1},  // no third byte
      {"GB18030", "\x81\x7F", -1},          // no second byte
      {"GB18030", "\xFF\x41", -1},          // no first byte
      {"EUC-JP", "\xA4\xA2", 2},            // hiragana a
      {"EUC-JP", "\x8E\xB1", 2},            // half-width katakana
      {"EUC-JP", "\x8F\xB0\xA1", 3},        // JIS X 0212
      {"EUC-JP", "\x8F\xB0", -1},           // cut
      {"EUC-TW", "\x8E\xA1\xC4\xA1", 4},    // plane 1 by its long name
      {"BIG5", "\xA4\x40", 2},              // the first hanzi
      {"BIG5", "\xA4\x20", -1},             // no second byte
      {"UTF-8", "\xE2\x82\xAC", 3},         // the euro sign
      {"UTF-8", "\xE2\x82", -1},            // cut
  };
  for (const Case& c : cases) {
    const test::CodePageGuard page(c.page);
    for (const test::Edge edge : {test::Edge::end, test::Edge::begin}) {
      const test::Guarded text(c.text, edge);
      EXPECT_EQ(VELTMBmblen_A(text.data(), static_cast<std::int64_t>(text.size())), c.length)
          << c.page << ' ' << test::shown(c.text);
    }
  }
}

// The system's own answer: the least number of bytes, up to four, that convert as a whole.
class System {
 public:
  explicit System(const char* page) : descriptor_(iconv_open("UTF-16BE", page)) {}
  ~System() { iconv_close(descriptor_); }
  System(const System&) = delete;
  System& operator=(const System&) = delete;

  int length_of(std::string_view text) const {
    for (std::size_t length = 1; length <= text.size(); ++length) {
      std::string bytes(text.substr(0, length));
      char out[32];
      char* from = bytes.data();
      char* to = out;
      std::size_t left = length;
      std::size_t room = sizeof out;
      iconv(descriptor_, nullptr, nullptr, nullptr, nullptr);
      if (iconv(descriptor_, &from, &left, &to, &room) != static_cast<std::size_t>(-1)) {
        return static_cast<int>(length);
      }
      if (errno != EINVAL) return -1;
    }
    return -1;
  }

 private:
  iconv_t descriptor_;
};

TEST(Character, TwoBytesAreOneWhenTheSystemConvertsThem) {
  for (const char* name : {"Shift_JIS", "GB18030", "EUC-JP", "EUC-KR", "BIG5", "CP932"}) {
    const test::CodePageGuard page(name);
    const System system(name);
    for (unsigned value = 0x8000; value <= 0xFFFF; ++value) {
      const char text[2] = {static_cast<char>(value >> 8), static_cast<char>(value)};
      ASSERT_EQ(VELTMBmblen_A(text, 2), system.length_of({text, 2})) << name << std::hex << value;
      ASSERT_EQ(VELTMBmblen_A(text, 1), system.length_of({text, 1})) << name << std::hex << value;
    }
  }
}

TEST(Character, FourBytesAreOneWhenTheSystemConvertsThem) {
  SCOPED_TRACE(test::seed_text());
  std::mt19937_64 random = test::random_source();
  for (const char* name : {"GB18030", "EUC-TW", "EUC-JP"}) {
    const test::CodePageGuard page(name);
    const System system(name);
    for (int i = 0; i < 100000; ++i) {
      char text[4];
      for (char& byte : text) byte = static_cast<char>(0x80 | random());
      if (name[0] == 'G') text[1] = text[3] = static_cast<char>('0' + random() % 10);
      if (name[0] == 'E' && random() % 2) text[0] = random() % 2 ? '\x8E' : '\x8F';
      ASSERT_EQ(VELTMBmblen_A(text, 4), system.length_of({text, 4}))
          << name << ' ' << test::shown({text, 4});
    }
  }
}

TEST(Character, ErrnoStaysAsItWas) {
  const test::CodePageGuard page("GB18030");
  errno = 4242;
  EXPECT_EQ(length_of("\xE3\x32\x9A\x36"), -1);
  EXPECT_EQ(errno, 4242);
}

TEST(CodePageThreads, AllSeeTheSameCharacters) {
  struct Case {
    const char* page;
    std::string text;
    int length;
  };
  for (const Case& c : {Case{"GB18030", "\x90\x30\x81\x30", 4}, Case{"UTF-8", "\xC3\xA9", 2}}) {
    const test::CodePageGuard page(c.page);
    std::atomic<int> wrong = 0;
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
      threads.emplace_back([&] {
        for (int i = 0; i < 5000; ++i) wrong += length_of(c.text) != c.length;
      });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(wrong, 0) << c.page;
  }
}

TEST(CodePageThreads, AChangeOfTheCodePageIsSeenAsOneOrTheOther) {
  const test::CodePageGuard page("UTF-8");
  std::atomic<int> running = 2;
  std::atomic<int> wrong = 0;
  std::vector<std::thread> threads;
  for (int t = 0; t < 2; ++t) {
    threads.emplace_back([&] {
      for (int i = 0; i < 20000; ++i) {
        char letter[2] = {'\x83', '\xBF'};  // a Greek letter of Shift_JIS
        const int length = VELTMBmblen_A(letter, 2);
        wrong += length != 2 && length != -1 && length != 1;
        VELTMBmemupr_A(letter, 2);
        wrong += letter[0] != '\x83' || (letter[1] != '\xBF' && letter[1] != '\x9F');
      }
      --running;
    });
  }
  while (running > 0) {
    for (const char* name : {"Shift_JIS", "windows-1252", "UTF-8"}) VELTMBsetCodePage(name);
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(wrong, 0);
}

}  // namespace
