// What the tool writes: CSV, JSON and rejects; and how it takes its arguments.
#include <gtest/gtest.h>
#include <iocv/platform.h>

#include <limits>

#include "arguments.h"
#include "code_page_writer.h"
#include "csv.h"
#include "json.h"
#include "json_rows.h"
#include "progress.h"
#include "rejects.h"
#include "run_options.h"
#include "table.h"

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

TEST(JsonRows, AreObjectsOfTheNamesInTheirOrder) {
  std::string text;
  JsonRows rows({"a", "b\"c", "d", "e"}, text);
  rows.number(-0.5);
  rows.text("x\"\n");
  rows.moment("2000-01-01");
  rows.missing();
  rows.end_row();
  EXPECT_EQ(text, "{\"a\": -0.5, \"b\\\"c\": \"x\\\"\\n\", \"d\": \"2000-01-01\", \"e\": null}\n");
}

TEST(Progress, TellsSpeedAndTime) {
  struct Case {
    std::int64_t records, bytes, rejects;
    std::optional<std::int64_t> size;
    double seconds;
    std::string_view text;
  };
  const Case kCases[] = {
      {0, 0, 0, 100, 1, "0 records, 0 MB/s, 0 rejects"},
      {1, 1'000'000, 1, 66'000'000, 1, "1 record, 1 MB/s, 01:05 left, 1 reject"},
      {1234567, 85'340'000, 1000, {}, 2, "1,234,567 records, 42.7 MB/s, 1,000 rejects"},
      {999, 10, 0, 72010, 10, "999 records, 0 MB/s, 20:00:00 left, 0 rejects"},
      {5'000'000'000, 8'000'000'000, 0, 8'000'000'000, 8,
       "5,000,000,000 records, 1000 MB/s, 00:00 left, 0 rejects"},
      {1, 2, 0, 1, 1, "1 record, 0 MB/s, 00:00 left, 0 rejects"},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(progress_text(c.records, c.bytes, c.rejects, c.size, c.seconds), c.text);
  }
}

TEST(RejectLimit, CountsRecordsOrPartsOfAHundred) {
  struct Case {
    const char* limit;
    std::int64_t rejected, records;
    bool at_end, passed;
  };
  constexpr std::int64_t kMany = std::int64_t{1} << 40;
  constexpr Case kCases[] = {
      {"", kMany, kMany, true, false},
      {"0", 0, 5, true, false},
      {"0", 1, 5, false, true},
      {"5000000000", 5'000'000'000, kMany, false, false},
      {"5000000000", 5'000'000'001, kMany, false, true},
      {"1%", 10, 1000, false, false},
      {"1%", 11, 1000, false, true},
      {"1%", 999, 999, false, false},
      {"1%", 999, 999, true, true},
      {"0%", 0, 5000, true, false},
      {"0.5%", 6, 1000, false, true},
      {"100%", kMany, kMany, true, false},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(RejectLimit::parse(c.limit).is_passed(c.rejected, c.records, c.at_end), c.passed)
        << c.limit << ", " << c.rejected << " of " << c.records;
  }
}

TEST(CodePageWriter, RefusesWhatHasNoPlace) {
  const std::string before = VELTMBgetCodePage();
  std::string out;
  ASSERT_TRUE(VELTMBsetCodePage("windows-1252"));
  {
    CodePageWriter writer;
    EXPECT_TRUE(writer.convert(out, "a\u00e9\u20ac"));
    EXPECT_EQ(out, "a\xE9\x80");
    EXPECT_FALSE(writer.convert(out, "\u4e2d"));
    EXPECT_FALSE(writer.convert(out, "a\xFF"));
    EXPECT_TRUE(writer.convert(out, ""));
    EXPECT_EQ(out, "");
  }
  ASSERT_TRUE(VELTMBsetCodePage("UTF-8"));
  {
    CodePageWriter writer;
    EXPECT_TRUE(writer.convert(out, "\u4e2d"));
    EXPECT_EQ(out, "\u4e2d");
    EXPECT_FALSE(writer.convert(out, "\xED\xA0\x80"));  // half a surrogate
  }
  VELTMBsetCodePage(before.c_str());
}

TEST(Table, IsAsWideAsItsWidestCells) {
  Table table({Table::Side::left, Table::Side::right, Table::Side::left});
  table.add({"a", "1", "x"});
  table.add({"\u00e9bc", "10", ""});
  EXPECT_EQ(table.str(), "a     1  x\n\u00e9bc  10\n");
}

}  // namespace
