// What the tool writes: CSV, JSON and rejects; and how it takes its arguments.
#include <gtest/gtest.h>

#include <limits>

#include "arguments.h"
#include "csv.h"
#include "json.h"
#include "rejects.h"

namespace {

using namespace iocv::tool;
using namespace std::string_literals;

std::string csv_row(const std::vector<std::string>& values) {
  std::string text;
  CsvRows rows(text);
  for (const std::string& value : values) rows.text(value);
  rows.end_row();
  return text;
}

TEST(Csv, QuotesOnlyWhatNeedsIt) {
  EXPECT_EQ(csv_row({"a", "b c", ""}), "a,b c,\n");
  EXPECT_EQ(csv_row({"a,b", "c"}), "\"a,b\",c\n");
  EXPECT_EQ(csv_row({"say \"x\"", "\""}), "\"say \"\"x\"\"\",\"\"\"\"\n");
  EXPECT_EQ(csv_row({"a\nb", "a\rb", " a "}), "\"a\nb\",\"a\rb\", a \n");
  EXPECT_EQ(csv_row({"a;b'c\td"}), "a;b'c\td\n");
}

TEST(Csv, MarksTheOnlyValueOfARowWhenItIsEmpty) {
  EXPECT_EQ(csv_row({""}), "\"\"\n");
  EXPECT_EQ(csv_row({"", ""}), ",\n");
  std::string text = "before";
  CsvRows rows(text);
  rows.missing();
  rows.end_row();
  rows.number(1.5);
  rows.missing();
  rows.end_row();
  EXPECT_EQ(text, "before\"\"\n1.5,\n");
}

TEST(Hex, HasTwoDigitsAByte) {
  std::string text;
  append_hex(text, "\x00\x0F\xF0\xAB"s);
  append_hex(text, "\x01\x02"s, " ");
  EXPECT_EQ(text, "000FF0AB01 02");
}

TEST(Json, EscapesStrings) {
  std::string text;
  append_json_string(text, "a\"b\\c\n\r\t\x01\x1F\x7F/\u00E9\u20AC\U0001F600"s);
  EXPECT_EQ(text, "\"a\\\"b\\\\c\\n\\r\\t\\u0001\\u001F\\u007F/\u00E9\u20AC\U0001F600\"");
}

TEST(Json, ReplacesBytesThatAreNoUtf8) {
  struct Case {
    std::string_view bytes;
    std::string_view text;
  };
  constexpr Case kCases[] = {
      {"a\xFFz", "\"a\uFFFDz\""},
      {"\xC3", "\"\uFFFD\""},
      {"\xC3\xC3\xA9", "\"\uFFFD\u00E9\""},
      {"\xC0\x80", "\"\uFFFD\uFFFD\""},
      {"\xE0\x80\x80", "\"\uFFFD\uFFFD\uFFFD\""},
      {"\xED\xA0\x80", "\"\uFFFD\uFFFD\uFFFD\""},
      {"\xF4\x90\x80\x80", "\"\uFFFD\uFFFD\uFFFD\uFFFD\""},
      {"\xE2\x82", "\"\uFFFD\uFFFD\""},
  };
  for (const Case& c : kCases) {
    std::string text;
    append_json_string(text, c.bytes);
    EXPECT_EQ(text, c.text);
    EXPECT_FALSE(is_utf8(c.bytes));
  }
  EXPECT_TRUE(is_utf8("a\u00E9\u20AC\U0001F600\uD7FF\U0010FFFF"));
  EXPECT_TRUE(is_utf8(""));
}

TEST(Json, BuildsObjectsInOrder) {
  EXPECT_EQ(JsonObject().str(), "{}");
  JsonObject object;
  object.text("b", "x").text_or_null("a", std::nullopt).number("n", 1.5).integer("i", -3);
  object.flag("t", true).flag("f", false).null("z").hex("h", "\x01\xAB");
  object.number("inf", -std::numeric_limits<double>::infinity());
  EXPECT_EQ(object.str(),
            "{\"b\": \"x\", \"a\": null, \"n\": 1.5, \"i\": -3, \"t\": true, \"f\": false, "
            "\"z\": null, \"h\": \"01AB\", \"inf\": \"-inf\"}");
}

TEST(Rejects, AreLinesOfJson) {
  std::string lines;
  append_reject(lines, {3, 160, "a", "F8.2", "x\xFF", 1102, "no \"number\""});
  append_reject(lines, {4, 240, std::nullopt, std::nullopt, "", std::nullopt, "short"});
  EXPECT_EQ(lines,
            "{\"record\": 3, \"offset\": 160, \"field\": \"a\", \"format\": \"F8.2\", "
            "\"raw_hex\": \"78FF\", \"status\": 1102, \"message\": \"no \\\"number\\\"\"}\n"
            "{\"record\": 4, \"offset\": 240, \"field\": null, \"format\": null, "
            "\"raw_hex\": \"\", \"status\": null, \"message\": \"short\"}\n");
}

std::vector<std::string> marked(const std::vector<const char*>& arguments) {
  std::vector<const char*> all = {"iocv"};
  all.insert(all.end(), arguments.begin(), arguments.end());
  return marked_arguments(static_cast<int>(all.size()), all.data());
}

TEST(Arguments, OfWriteAndReadAreMarkedUnlessTheyAreOptions) {
  using Words = std::vector<std::string>;
  EXPECT_EQ(
      marked({"write", "F8.2", "-5", "-.5", "--json", "-h", "-inf", "-nan", "-12:30", "-P1D"}),
      (Words{"write", "\1F8.2", "\1-5", "\1-.5", "--json", "-h", "\1-inf", "\1-nan", "\1-12:30",
             "\1-P1D"}));
  EXPECT_EQ(marked({"read", "A5", "write", "[x]", "--", "--json", "-", ""}),
            (Words{"read", "\1A5", "\1write", "\1[x]", "\1--json", "\1-", "\1"}));
  EXPECT_EQ(marked({"read", "--", "A5", "--", "-h"}), (Words{"read", "\1A5", "\1--", "\1-h"}));
  EXPECT_EQ(marked({"decode", "-5", "x"}), (Words{"decode", "-5", "x"}));
  EXPECT_EQ(marked({"write", "--cca=", "F8", "--ccb=x=", "--", "--ccc="}),
            (Words{"write", "--cca", "\1", "\1F8", "--ccb=x=", "\1--ccc="}));
  EXPECT_EQ(marked({"decode", "--cca=", "x"}), (Words{"decode", "--cca", "", "x"}));
  EXPECT_EQ(marked({}), Words{});
  EXPECT_EQ(plain("\1-5"), "-5");
  EXPECT_EQ(plain("\1\1"), "\1");
  EXPECT_EQ(plain("-5"), "-5");
}

}  // namespace
