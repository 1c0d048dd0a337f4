// The token scanner.
#include <iocv/iocv.h>
#include <iocv/platform.h>

#include "datetime/obdtps.h"
#include "support/guarded.h"
#include "support/records_guard.h"

namespace {

using iocv::Scanner;
using iocv::Token;
using iocv::TokenType;
using enum iocv::TokenType;

// The tokens of a text as "type(text)length=value", the value only where it is not 0.
std::string tokens_of(std::string_view text, char decimal) {
  const test::Guarded field(text);
  const std::string_view bytes(field.data(), field.size());
  std::string result;
  std::size_t position = 0;
  while (position < bytes.size()) {
    const std::size_t before = position;
    const Token token = iocv::next_token(bytes, position, decimal);
    if (position <= before) return result + " stands still";
    constexpr const char* kNames[] = {"word", "number", "decimal", "colon",
                                      "date", "blanks", "other"};
    if (!result.empty()) result += ' ';
    result += kNames[static_cast<std::size_t>(token.type) - 1];
    result += "(" + test::shown(token.text) + ")" + std::to_string(token.length);
    if (token.value != 0) result += "=" + std::to_string(static_cast<std::int64_t>(token.value));
  }
  return result;
}

TEST(Scanner, CutsTextsIntoTokens) {
  VELTMBsetCodePage("UTF-8");
  struct Case {
    std::string_view text;
    const char* tokens;
  };
  const Case kCases[] = {
      {"1-JAN-2000", "number(1)1=1 date(-)1 word(JAN)3 date(-)1 number(2000)4=2000"},
      {"01JAN", "number(01)2=1 word(JAN)3"},
      {"000", "number(000)3"},
      // A delimiter takes in the blanks on both sides, but no second delimiter.
      {"1 - 2", "number(1)1=1 date(-)1 number(2)1=2"},
      {" -  ", "date(-)1"},
      {"--", "date(-)1 date(-)1"},
      {" - / ", "date(-)1 date(/)1"},
      {"1   2", "number(1)1=1 blanks()0 number(2)1=2"},
      {"   ", "blanks()0"},
      {"1  ", "number(1)1=1 blanks()0"},
      {":.", "colon(:)1 decimal(.)1"},
      {" ? !", "other(?)1 other(!)1"},
      {"+1", "other(+)1 number(1)1=1"},
      // Words hold letters and # $ @, no underscore, and end at a digit.
      {"aZ#$@b_c", "word(aZ#$@b)6 other(_)1 word(c)1"},
      {"WK2001", "word(WK)2 number(2001)4=2001"},
      // A character of two bytes counts both.
      {"J\xC3\xA9N", "word(J\\xC3\\xA9N)4"},
      // Of a longer one two bytes are taken; what is left is classed on its own.
      {"\xE2\x82\xAC"
       "1",
       "word(\\xE2\\x82)2 other(\\xAC)1 number(1)1=1"},
      {"\xF0\x9F\x98\x80x", "word(\\xF0\\x9F)2 other(\\x98)1 other(\\x80)1 word(x)1"},
      // Bytes that are no character, cut ones and the zero byte delimit like any other.
      {"a\xC3", "word(a)1 other(\\xC3)1"},
      {"a\xE2\x82", "word(a)1 other(\\xE2)1 other(\\x82)1"},
      {std::string_view("1\0 2", 4), "number(1)1=1 other(\\x00)1 number(2)1=2"},
  };
  for (const Case& c : kCases) EXPECT_EQ(tokens_of(c.text, '.'), c.tokens) << test::shown(c.text);
}

TEST(Scanner, TheDecimalCharacterChoosesBetweenCommaAndPoint) {
  EXPECT_EQ(tokens_of("1.2,3", '.'), "number(1)1=1 decimal(.)1 number(2)1=2 date(,)1 number(3)1=3");
  EXPECT_EQ(tokens_of("1.2,3", ','), "number(1)1=1 date(.)1 number(2)1=2 decimal(,)1 number(3)1=3");
}

// The rule for single bytes, spelled once more.
TokenType type_of(unsigned char byte, char decimal, bool single_byte_page) {
  if (byte >= 128) return single_byte_page ? word : other;
  if (byte == '.') return decimal == '.' ? decimal_mark : date_separator;
  if (byte == ',') return decimal == '.' ? date_separator : decimal_mark;
  const auto in = [byte](std::string_view set) {
    return set.find(static_cast<char>(byte)) != std::string_view::npos;
  };
  if (in("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz#$@")) return word;
  if (in("0123456789")) return number;
  if (byte == ':') return time_separator;
  if (in("-/")) return date_separator;
  return byte == ' ' ? blanks : other;
}

TEST(Scanner, EveryByteHasItsTokenType) {
  for (const bool single_byte_page : {false, true}) {
    ASSERT_TRUE(VELTMBsetCodePage(single_byte_page ? "windows-1252" : "UTF-8"));
    for (const char decimal : {'.', ','}) {
      for (int byte = 0; byte < 256; ++byte) {
        const char c = static_cast<char>(byte);
        std::size_t position = 0;
        const Token token = iocv::next_token({&c, 1}, position, decimal);
        EXPECT_EQ(token.type, type_of(static_cast<unsigned char>(byte), decimal, single_byte_page))
            << byte << decimal;
        EXPECT_EQ(position, 1U);
      }
    }
  }
  VELTMBsetCodePage("UTF-8");
}

TEST(Scanner, AnEmptyFieldIsBlankAndItsEndIsNot) {
  std::size_t position = 0;
  Token token = iocv::next_token("", position, '.');
  EXPECT_EQ(token.type, blanks);
  EXPECT_EQ(token.length, 1);
  EXPECT_EQ(position, 0U);

  for (position = 3; position < 6; ++position) {
    const std::size_t before = position;
    token = iocv::next_token("123", position, '.');
    EXPECT_EQ(token.type, other);
    EXPECT_EQ(token.length, 1);
    EXPECT_EQ(token.text, "");
    EXPECT_EQ(token.value, 0);
    EXPECT_EQ(position, before);
  }
}

TEST(Scanner, TextStopsAt80BytesLengthAndValueGoOn) {
  for (const std::size_t length : {79U, 80U, 81U, 90U, 1000U}) {
    const std::string zeros = std::string(length - 1, '0') + "7";
    std::size_t position = 0;
    Token token = iocv::next_token(zeros, position, '.');
    EXPECT_EQ(token.length, static_cast<std::int64_t>(length));
    EXPECT_EQ(token.value, 7);
    EXPECT_EQ(token.text, zeros.substr(0, 80));
    EXPECT_EQ(position, length);

    const std::string letters(length, 'x');
    position = 0;
    token = iocv::next_token(letters, position, '.');
    EXPECT_EQ(token.length, static_cast<std::int64_t>(length));
    EXPECT_EQ(token.text, letters.substr(0, 80));
  }
}

TEST(Scanner, DigitsAreFoldedInDoubles) {
  const auto value_of = [](const std::string& text) {
    std::size_t position = 0;
    return iocv::next_token(text, position, '.').value;
  };
  EXPECT_EQ(value_of("9007199254740993"), 9007199254740992.0);
  EXPECT_EQ(value_of("75434533567018233"), 7.543453356701822e16);  // not the nearest double
  EXPECT_TRUE(std::isfinite(value_of(std::string(308, '9'))));
  EXPECT_TRUE(std::isinf(value_of(std::string(309, '9'))));
}

TEST(Scanner, WalksOverBlanksToTheNextItem) {
  Scanner scanner("  12  -  ", '.');
  EXPECT_EQ(scanner.next_item().value, 12);
  EXPECT_FALSE(scanner.only_blanks_left());

  Scanner blank("   ", '.');
  EXPECT_EQ(blank.next_item().type, blanks);
  EXPECT_TRUE(blank.at_end());
  EXPECT_TRUE(blank.only_blanks_left());

  Scanner trailing("5  ", '.');
  EXPECT_EQ(trailing.next().value, 5);
  EXPECT_TRUE(trailing.only_blanks_left());
  EXPECT_EQ(trailing.position(), 3U);

  Scanner followed("5  x", '.');
  EXPECT_EQ(followed.next().value, 5);
  EXPECT_FALSE(followed.only_blanks_left());
}

// A delimiter is never followed by blanks: that is why some cells of the state machines of dates
// and times cannot be reached by any text.
TEST(Scanner, NoBlanksFollowADelimiter) {
  constexpr std::string_view kAlphabet = "1a-.: !\xC3";
  for (int n = 0; n < 8 * 8 * 8 * 8; ++n) {
    std::string text;
    for (int rest = n, i = 0; i < 4; ++i, rest /= 8) {
      text += kAlphabet[static_cast<std::size_t>(rest % 8)];
    }
    std::size_t position = 0;
    bool delimited = false;
    while (position < text.size()) {
      const Token token = iocv::next_token(text, position, '.');
      EXPECT_FALSE(delimited && token.type == blanks) << text;
      delimited = token.type != word && token.type != number;
    }
  }
}

struct Flat {
  std::int64_t position;
  std::string token;
  double value;
  std::int64_t type;
  std::int64_t length;
};

Flat scan_flat(std::string_view text, std::int64_t position, std::int64_t last,
               std::size_t token_size = 80) {
  const test::Guarded field(text);
  const test::Guarded token(token_size);
  Flat result = {position, "", -1, -1, -1};
  obdtps_(field.data(), &result.position, &last, token.data(), &result.value, &result.type,
          &result.length, static_cast<std::int64_t>(text.size()),
          static_cast<std::int64_t>(token_size));
  EXPECT_TRUE(token.intact());
  result.token = token.text();
  return result;
}

TEST(ScannerFlat, FillsTheTokenBufferWithBlanks) {
  test::RecordsGuard guard;
  iocvsetdecchardot_();
  const Flat flat = scan_flat(" - 5", 1, 4);
  EXPECT_EQ(flat.token, "-" + std::string(79, ' '));
  EXPECT_EQ(flat.position, 4);
  EXPECT_EQ(flat.type, 5);
  EXPECT_EQ(flat.length, 1);
  EXPECT_EQ(flat.value, 0);

  const Flat digits = scan_flat(" - 512", 4, 5);
  EXPECT_EQ(digits.token, "51" + std::string(78, ' '));
  EXPECT_EQ(digits.position, 6);
  EXPECT_EQ(digits.type, 2);
  EXPECT_EQ(digits.length, 2);
  EXPECT_EQ(digits.value, 51);

  const Flat blank = scan_flat("  ", 1, 2);
  EXPECT_EQ(blank.token, std::string(80, ' '));
  EXPECT_EQ(blank.type, 6);
  EXPECT_EQ(blank.length, 0);
}

TEST(ScannerFlat, FollowsTheDecimalCharacterOfTheSettings) {
  test::RecordsGuard guard;
  iocvsetdecchardot_();
  EXPECT_EQ(scan_flat(".", 1, 1).type, 3);
  EXPECT_EQ(scan_flat(",", 1, 1).type, 5);
  iocvsetdeccharcomma_();
  EXPECT_EQ(scan_flat(".", 1, 1).type, 5);
  EXPECT_EQ(scan_flat(",", 1, 1).type, 3);
}

TEST(ScannerFlat, ReadsNothingBeyondLastAndWritesNothingBeyondTheBuffer) {
  Flat flat = scan_flat("", 1, 0);
  EXPECT_EQ(flat.type, 6);
  EXPECT_EQ(flat.length, 1);
  EXPECT_EQ(flat.position, 1);
  flat = scan_flat("1", 2, 1);
  EXPECT_EQ(flat.type, 7);
  EXPECT_EQ(flat.length, 1);
  EXPECT_EQ(flat.position, 2);
  flat = scan_flat("1", 1, -5);
  EXPECT_EQ(flat.type, 6);
  flat = scan_flat("12", -7, 2);  // a position before the field is its first byte
  EXPECT_EQ(flat.value, 12);
  EXPECT_EQ(flat.position, 3);
  flat = scan_flat("12", INT64_MAX, 2);
  EXPECT_EQ(flat.type, 7);
  EXPECT_EQ(flat.position, INT64_MAX);
  flat = scan_flat("12345", 1, 5, 3);
  EXPECT_EQ(flat.token, "123");
  EXPECT_EQ(flat.length, 5);
  flat = scan_flat(std::string(90, '0'), 1, 90, 100);
  EXPECT_EQ(flat.token, std::string(80, '0') + std::string(20, ' '));
  EXPECT_EQ(flat.length, 90);
}

}  // namespace
