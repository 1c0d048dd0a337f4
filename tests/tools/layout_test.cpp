// Layouts: what they may say and what is told of everything else.
#include "layout.h"

#include <gtest/gtest.h>

namespace {

using namespace iocv::tool;

constexpr const char* kField = "[[field]]\nname = \"a\"\nat = 1\nformat = \"F8.2\"\n";

LayoutReading reading_of(const std::string& text) { return read_layout(text, "x.toml"); }

std::string joined(const std::vector<std::string>& lines) {
  std::string all;
  for (const std::string& line : lines) all += line + "\n";
  return all;
}

TEST(Layout, HoldsRecordsSettingsAndFields) {
  const LayoutReading reading = reading_of(R"(
record = 80
century = 1950
decimal = ","
leading_zero = true
missing = "#"
code_page = "windows-1252"
cca = "-,$,,CR"
cce = ""

[[field]]
name = "b"
at = 9
format = "date11"
as = "number"

[[field]]
name = "a"
at = 1
format = "F8.2"
)");
  ASSERT_TRUE(reading) << joined(reading.errors);
  const Layout& layout = reading.layout;
  EXPECT_FALSE(layout.lines());
  EXPECT_EQ(layout.record, 80);
  EXPECT_EQ(layout.settings.century, 1950);
  EXPECT_EQ(layout.settings.decimal, ',');
  EXPECT_EQ(layout.settings.leading_zero, true);
  EXPECT_EQ(layout.settings.missing, '#');
  EXPECT_EQ(layout.settings.code_page, "windows-1252");
  EXPECT_EQ(layout.settings.currencies[0], "-,$,,CR");
  EXPECT_EQ(layout.settings.currencies[1], std::nullopt);
  EXPECT_EQ(layout.settings.currencies[4], "");
  ASSERT_EQ(layout.fields.size(), 2U);
  EXPECT_EQ(layout.fields[0].name, "b");
  EXPECT_EQ(layout.fields[0].at, 9);
  EXPECT_EQ(layout.fields[0].end(), 19);
  EXPECT_EQ(iocv::format_to_text(layout.fields[0].format), "DATE11");
  EXPECT_EQ(layout.fields[0].show, Show::number);
  EXPECT_EQ(layout.fields[1].name, "a");
}

TEST(Layout, StatesNothingThatTheTextDoesNot) {
  const Layout layout = reading_of(std::string("record = 8\n") + kField).layout;
  EXPECT_EQ(layout.settings.century, std::nullopt);
  EXPECT_EQ(layout.settings.decimal, std::nullopt);
  EXPECT_EQ(layout.settings.leading_zero, std::nullopt);
  EXPECT_EQ(layout.settings.missing, std::nullopt);
  EXPECT_EQ(layout.settings.code_page, std::nullopt);
  EXPECT_FALSE(layout.crlf);
  EXPECT_EQ(layout.short_lines, ShortLines::reject);
}

TEST(Layout, HasLinesOfSeveralKinds) {
  struct Case {
    const char* head;
    bool crlf;
    ShortLines short_lines;
  };
  constexpr Case kCases[] = {
      {"lines = true\n", false, ShortLines::reject},
      {"lines = true\ncrlf = true\n", true, ShortLines::reject},
      {"lines = true\nshort_lines = \"reject\"\n", false, ShortLines::reject},
      {"lines = true\nshort_lines = \"blank\"\n", false, ShortLines::blank},
      {"lines = true\nshort_lines = \"pad\"\n", false, ShortLines::pad},
  };
  for (const Case& c : kCases) {
    const LayoutReading reading = reading_of(std::string(c.head) + kField);
    ASSERT_TRUE(reading) << c.head << joined(reading.errors);
    EXPECT_TRUE(reading.layout.lines());
    EXPECT_EQ(reading.layout.crlf, c.crlf) << c.head;
    EXPECT_EQ(reading.layout.short_lines, c.short_lines) << c.head;
  }
  EXPECT_TRUE(reading_of(std::string("lines = false\nrecord = 8\n") + kField));
}

TEST(Layout, ShowsEachFormatAsUsualOrAsAsked) {
  struct Case {
    const char* format;
    const char* as;
    Show show;
  };
  constexpr Case kCases[] = {
      {"F8.2", "", Show::number},
      {"F8.2", "text", Show::text},
      {"P5", "", Show::number},
      {"RBHEX16", "text", Show::text},
      {"CCA10.2", "", Show::number},
      {"A5", "", Show::text},
      {"A5", "text", Show::text},
      {"AHEX8", "", Show::text},
      {"DATE11", "", Show::iso},
      {"DATE11", "iso", Show::iso},
      {"DATE11", "number", Show::number},
      {"DATE11", "text", Show::text},
      {"WKYR10", "", Show::iso},
      {"DATETIME20", "", Show::iso},
      {"86:20", "", Show::iso},
      {"TIME8", "", Show::iso},
      {"85:8", "", Show::iso},
      {"DTIME12", "", Show::text},
      {"DTIME12", "iso", Show::iso},
      {"WKDAY9", "", Show::text},
      {"MONTH9", "", Show::text},
      {"MONTH9", "number", Show::number},
  };
  for (const Case& c : kCases) {
    std::string text = "record = 80\n[[field]]\nname = \"a\"\nat = 1\n";
    text += "format = \"" + std::string(c.format) + "\"\n";
    if (*c.as) text += "as = \"" + std::string(c.as) + "\"\n";
    const LayoutReading reading = reading_of(text);
    ASSERT_TRUE(reading) << c.format << joined(reading.errors);
    EXPECT_EQ(reading.layout.fields[0].show, c.show) << c.format << " " << c.as;
  }
}

TEST(Layout, LetsFieldsOverlap) {
  EXPECT_TRUE(
      reading_of("record = 8\n[[field]]\nname='a'\nat=1\nformat='A8'\n"
                 "[[field]]\nname='b'\nat=3\nformat='F4'\n"));
}

TEST(Layout, TellsWhatIsWrongAndWhere) {
  struct Case {
    const char* text;
    const char* errors;
  };
  // A field on lines 2 to 5, whose lines the cases replace.
  const Case kCases[] = {
      {"record = 80\n[[field]\nname = 'a'\n",
       "x.toml:2:9: Error while parsing table header: expected ']', saw '\\n'\n"},
      {"record = 80\nrecord = 81\n",
       "x.toml:2:10: Error while parsing key-value pair: cannot redefine existing integer "
       "'record'\n"},
      {"",
       "x.toml:1:1: the layout needs \"record\", the bytes of a record, or \"lines = true\"\n"
       "x.toml:1:1: the layout has no [[field]]\n"},
      {"record = 80\n", "x.toml:1:1: the layout has no [[field]]\n"},
      {"[[field]]\nname='a'\nat=1\nformat='F8'\n",
       "x.toml:1:1: the layout needs \"record\", the bytes of a record, or \"lines = true\"\n"},
      {"record = 80\nlines = true\n[[field]]\nname='a'\nat=1\nformat='F8'\n",
       "x.toml:1:10: \"record\" and \"lines = true\" exclude each other\n"},
      {"record = 80\nfield = 3\n", "x.toml:2:9: \"field\" must be tables, each headed [[field]]\n"},
      {"record = 80\nfield = []\n",
       "x.toml:2:9: \"field\" must be tables, each headed [[field]]\n"},
      {"record = 80\nfield = [1, {name = 'a'}]\n",
       "x.toml:2:9: \"field\" must be tables, each headed [[field]]\n"},
      {"record = 80\n[field]\nname='a'\n",
       "x.toml:2:1: \"field\" must be tables, each headed [[field]]\n"},
      {"record = 80\n[[field]]\nat=1\n",
       "x.toml:2:1: field 1 lacks \"name\"\nx.toml:2:1: field 1 lacks \"format\"\n"},
      {"record = 80\n[[field]]\nname='a'\nformat='F8'\n", "x.toml:2:1: field \"a\" lacks \"at\"\n"},
      {"record = 80\n[[field]]\nname='a'\nat=1\nformat='F8'\nwidht=3\n",
       "x.toml:6:1: unknown key \"widht\" in field \"a\"\n"},
      {"record = 80\n[[field]]\nname=''\nat=1\nformat='F8'\n",
       "x.toml:3:6: the name of field 1 is empty\n"},
      {"record = 80\n[[field]]\nname=5\nat=1\nformat='F8'\n",
       "x.toml:3:6: \"name\" must be a string\n"},
      {"record = "
       "80\n[[field]]\nname='a'\nat=1\nformat='F8'\n[[field]]\nname='a'\nat=9\nformat='F8'\n",
       "x.toml:7:6: two fields have the name \"a\"\n"},
      {"record = 80\n[[field]]\nname='a'\nat=0\nformat='F8'\n",
       "x.toml:4:4: \"at\" must be from 1 to 524288\n"},
      {"record = 80\n[[field]]\nname='a'\nat=524289\nformat='F8'\n",
       "x.toml:4:4: \"at\" must be from 1 to 524288\n"},
      {"record = 80\n[[field]]\nname='a'\nat=1.0\nformat='F8'\n",
       "x.toml:4:4: \"at\" must be a whole number, the field's first byte\n"},
      {"record = 80\n[[field]]\nname='a'\nat=1\nformat=8\n",
       "x.toml:5:8: \"format\" must be a string\n"},
      {"record = 80\n[[field]]\nname='a'\nat=1\nformat='G8'\n",
       "x.toml:5:8: unknown format name in \"G8\"\n"},
      {"record = 80\n[[field]]\nname='a'\nat=1\nformat='F41'\n",
       "x.toml:5:8: width out of range in \"F41\": 1 to 40\n"},
      {"record = 80\n[[field]]\nname='a'\nat=1\nformat='X8'\n",
       "x.toml:5:8: fields of X8 cannot be read\n"},
      {"record = 80\n[[field]]\nname='a'\nat=1\nformat='40:8'\n",
       "x.toml:5:8: fields of 40:8 cannot be read\n"},
      {"record = 80\n[[field]]\nname='a'\nat=1\nformat='99:8'\n",
       "x.toml:5:8: fields of 99:8 cannot be read\n"},
      {"record = 80\n[[field]]\nname='a'\nat=74\nformat='F8'\n",
       "x.toml:4:4: field \"a\" ends at byte 81, beyond the record of 80 bytes\n"},
      {"lines = true\n[[field]]\nname='a'\nat=524288\nformat='F8'\n",
       "x.toml:4:4: field \"a\" ends at byte 524295, beyond the longest line of 524288 bytes\n"},
      {"record = 80\n[[field]]\nname='a'\nat=1\nformat='F8'\nas='date'\n",
       "x.toml:6:4: \"as\" must be \"number\", \"iso\" or \"text\"\n"},
      {"record = 80\n[[field]]\nname='a'\nat=1\nformat='F8'\nas=1\n",
       "x.toml:6:4: \"as\" must be \"number\", \"iso\" or \"text\"\n"},
      {"record = 80\n[[field]]\nname='a'\nat=1\nformat='F8'\nas='iso'\n",
       "x.toml:6:4: field \"a\": F8 has no ISO 8601 form\n"},
      {"record = 80\n[[field]]\nname='a'\nat=1\nformat='MONTH8'\nas='iso'\n",
       "x.toml:6:4: field \"a\": MONTH8 has no ISO 8601 form\n"},
      {"record = 80\n[[field]]\nname='a'\nat=1\nformat='A8'\nas='number'\n",
       "x.toml:6:4: field \"a\": A8 holds no number\n"},
      {"record = 80\n[[field]]\nname='a'\nat=1\nformat='P8'\nas='text'\n",
       "x.toml:6:4: field \"a\": P8 has no text\n"},
      // Several at once, in the order of the text.
      {"[[field]]\nname='a'\nat=0\nformat='G8'\n[extra]\n",
       "x.toml:1:1: the layout needs \"record\", the bytes of a record, or \"lines = true\"\n"
       "x.toml:3:4: \"at\" must be from 1 to 524288\n"
       "x.toml:4:8: unknown format name in \"G8\"\n"
       "x.toml:5:2: unknown key \"extra\" in the layout\n"},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(joined(reading_of(c.text).errors), c.errors) << c.text;
  }
}

TEST(Layout, TellsWhatIsWrongWithASetting) {
  struct Case {
    const char* line;  // the first of the layout
    const char* error;
  };
  constexpr Case kCases[] = {
      {"record = 0", "10: \"record\" must be from 1 to 524288"},
      {"record = -1", "10: \"record\" must be from 1 to 524288"},
      {"record = 524289", "10: \"record\" must be from 1 to 524288"},
      {"record = 80.0", "10: \"record\" must be a whole number of bytes"},
      {"record = 80\nlines = 0", "9: \"lines\" must be true or false"},
      {"record = 80\ncrlf = true", "8: \"crlf\" needs \"lines = true\""},
      {"record = 80\nshort_lines = 'pad'", "15: \"short_lines\" needs \"lines = true\""},
      {"lines = true\ncrlf = 'yes'", "8: \"crlf\" must be true or false"},
      {"lines = true\nshort_lines = 'cut'",
       "15: \"short_lines\" must be \"reject\", \"blank\" or \"pad\""},
      {"lines = true\nshort_lines = true",
       "15: \"short_lines\" must be \"reject\", \"blank\" or \"pad\""},
      {"record = 80\ncentury = 'x'", "11: \"century\" must be a year"},
      {"record = 80\ncentury = 0", "11: the century must begin with a year from 1 to 9999"},
      {"record = 80\ncentury = 10000", "11: the century must begin with a year from 1 to 9999"},
      {"record = 80\ndecimal = ';'", "11: the decimal character must be \".\" or \",\""},
      {"record = 80\ndecimal = 1", "11: \"decimal\" must be a string"},
      {"record = 80\nleading_zero = 1", "16: \"leading_zero\" must be true or false"},
      {"record = 80\nmissing = ''",
       "11: the system-missing character must be one printable ASCII character"},
      {"record = 80\nmissing = 'ab'",
       "11: the system-missing character must be one printable ASCII character"},
      {"record = 80\nmissing = \"\\t\"",
       "11: the system-missing character must be one printable ASCII character"},
      {"record = 80\ncode_page = 'moon'",
       "13: unknown code page \"moon\", or not a superset of ASCII"},
      {"record = 80\ncode_page = \"UTF-8\\u0000\"", "13: unknown code page \"UTF-8"},
      {"record = 80\ncca = 1", "7: \"cca\" must be a string"},
      {"record = 80\ncca = \"a\\u0000\"", "7: a currency pattern cannot hold a zero byte"},
      {"record = 80\ncenter = 1", "1: unknown key \"center\" in the layout"},
  };
  for (const Case& c : kCases) {
    const LayoutReading reading = reading_of(std::string(c.line) + "\n" + kField);
    ASSERT_EQ(reading.errors.size(), 1U) << c.line << "\n" << joined(reading.errors);
    const int line = std::string_view(c.line).find('\n') == std::string_view::npos ? 1 : 2;
    const std::string expected = "x.toml:" + std::to_string(line) + ":" + c.error;
    EXPECT_EQ(reading.errors[0].substr(0, expected.size()), expected);
  }
}

}  // namespace
