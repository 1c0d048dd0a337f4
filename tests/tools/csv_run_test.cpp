// Many rows of CSV at once are the rows that come of a call for each value: over random layouts and
// data, with rejects, quotes, missing values and lines of any length.
#include "csv_run.h"

#include <gtest/gtest.h>

#include "common_text.h"
#include "decode.h"
#include "sample.h"

namespace {

using namespace iocv::tool;
using Random = std::mt19937_64;

template <class List>
const auto& any_of(const List& list, Random& random) {
  return list[random() % std::size(list)];
}

// One field of a layout, and how its data are made.
struct Kind {
  const char* format;
  const char* as;  // may be empty
  const char* samples[4];
};
constexpr Kind kKinds[] = {
    {"F8.2", "", {"  123.45", "-9999.99", "       0", "1e-7    "}},
    {"F12.4", "", {" 653802.9309", "      0.0001", "-1234567.125", "99999999999."}},
    {"F16.6", "", {"        0.123456", " 123456789.00001", "-1              ", "1e300           "}},
    {"COMMA12.2", "", {"  -56,967.33", "        0.01", "1,234,567.89", "          -0"}},
    {"Z8.2", "", {"0000881A", "1563177L", "0000000}", "99999999"}},
    {"P5", "", {"\x00\x08\x83\x91\x1F", "\x99\x99\x99\x99\x9D", "\x01\x23\x45\x67\x89", "     "}},
    {"RB8", "", {"\0\0\0\0\0\0\xF0\x7F", "12345678", "\1\0\0\0\0\0\xF8\x7F", "\0\0\0\0\0\0\0\x80"}},
    {"DATE11", "", {"06-MAR-1954", "31-DEC-9999", "15-OCT-1582", "29-FEB-1900"}},
    {"DATE11", "number", {"06-MAR-1954", "31-DEC-9999", "15-OCT-1582", "30-FEB-1900"}},
    {"DATETIME23.2",
     "",
     {"01-JAN-2000 12:30:15.50", "01-JAN-2000 00:00:00   ", "01-JAN-2000 23:59:59.99",
      "01-JAN-20000           "}},
    {"TIME8", "", {"16:42:20", "99:59:59", "-1:00:00", "    1:02"}},
    {"TIME12.3", "", {"100:30:15.25", "   0:00:00.1", "1234567:00  ", "00:00:00.000"}},
    {"TIME22",
     "",
     {"9999999999999999:00:00", "2501999792983:00:00   ", "12:30                 ",
      "12:30:15.123456789012 "}},
    {"DTIME12", "", {"  1 12:30:15", "12:30       ", "-5 00:00:00 ", "P           "}},
    {"DTIME12", "iso", {"  1 12:30:15", "12:30       ", "-5 00:00:00 ", "P           "}},
    {"WKDAY9", "", {"SATURDAY ", "sun      ", " MONDAY  ", "NODAY    "}},
    {"F8.2", "text", {"  123.45", "-9999.99", "1,5     ", "1E3     "}},
    {"A16", "", {"Olga Diaz       ", "Ada, Kaya       ", "say \"x\"         ", "    in front    "}},
    {"A5", "", {"abcde", "a\nb\r ", "\xC3\xA9\xE4\xB8\xAD", "a\xFF\0b "}},
    {"A1", "", {"x", ",", "\"", "\0"}},
    {"A7", "", {"       ", "1234567", "a     b", "\x7F\x01\x02 ; '"}},
    {"A8", "", {"12345678", "1234567 ", " 2345678", "a,b     "}},
    {"AHEX8", "", {"61622020", "6100FF20", "xx      ", "2C220A0D"}},
};

int width_of(std::string_view format) {
  const std::size_t digits = format.find_first_of("0123456789");
  return std::atoi(std::string(format.substr(digits)).c_str());
}

struct Generated {
  std::string layout;
  std::string data;
};

// Mostly good fields: the more trouble, the fewer.
std::string field_of(const Kind& kind, unsigned trouble, Random& random) {
  const auto width = static_cast<std::size_t>(width_of(kind.format));
  std::string field(any_of(kind.samples, random), width);
  const unsigned dice = static_cast<unsigned>(random() % 100);
  if (dice < 5) field.assign(width, ' ');
  if (dice >= 100 - trouble) {
    constexpr char kBytes[] = {',', '"', '\r', '\0', '\xE9', 'x', '9', ' ', '-', '.', '\x80', '*'};
    field[random() % width] = any_of(kBytes, random);
  }
  return field;
}

Generated generated(Random& random) {
  Generated result;
  const bool lines = random() % 2 == 0;
  const std::size_t gap = random() % 3 == 0 ? 2 : 0;
  const unsigned trouble = any_of(std::array{0U, 0U, 1U, 10U, 40U}, random);
  std::vector<const Kind*> kinds;
  const std::size_t count = random() % 8 == 0 ? 1 : 1 + random() % 9;
  for (std::size_t i = 0; i < count; ++i) kinds.push_back(&any_of(kKinds, random));
  std::string fields;
  std::size_t at = 1 + gap;
  for (std::size_t i = 0; i < count; ++i) {
    fields += "[[field]]\nname = 'f" + std::to_string(i) + "'\nat = " + std::to_string(at) +
              "\nformat = '" + kinds[i]->format + "'\n";
    if (*kinds[i]->as != '\0') fields += "as = '" + std::string(kinds[i]->as) + "'\n";
    at += static_cast<std::size_t>(width_of(kinds[i]->format)) + gap;
  }
  result.layout = lines ? "lines = true\ncrlf = " + std::string(random() % 2 ? "true" : "false") +
                              "\nshort_lines = '" +
                              any_of(std::array{"reject", "blank", "pad"}, random) + "'\n"
                        : "record = " + std::to_string(at - 1 + gap) + "\n";
  result.layout += std::string("decimal = '") + any_of(std::array{".", ","}, random) + "'\n";
  result.layout += std::string("code_page = '") +
                   any_of(std::array{"UTF-8", "windows-1252"}, random) + "'\n" + fields;
  for (std::size_t records = random() % 1500; records > 0; --records) {
    std::string record(gap, '.');
    for (const Kind* const kind : kinds)
      record += field_of(*kind, trouble, random) + std::string(gap, ',');
    if (!lines) record.resize(at - 1 + gap, '#');
    if (lines && trouble > 0 && random() % 10 == 0)
      record.resize(random() % (record.size() + 5), ' ');
    result.data += record;
    if (lines) result.data += random() % 3 == 0 ? "\r\n" : "\n";
  }
  if (random() % 3 == 0)
    result.data.resize(result.data.size() -
                       random() % std::min<std::size_t>(result.data.size() + 1, at));
  return result;
}

// All that a decoder makes of a file through the rows: the rows, the rejects, and where they stand.
template <class MakeRows>
std::string decoded(const Layout& layout, const std::string& path, std::size_t block_size,
                    const MakeRows& make_rows) {
  InputFile file(path);
  RecordReader reader(file, {.length = layout.record, .crlf = layout.crlf}, block_size);
  Decoder decoder(layout);
  std::string out;
  const auto rows = make_rows(out);
  RejectLines rejects;
  std::string result;
  Block block;
  while (reader.next(block)) {
    out.clear();
    rejects.clear();
    decoder.decode(block, *rows, out, rejects);
    result += out + rejects.text + std::to_string(rejects.count);
    for (const RejectedRecord& record : rejects.records) {
      for (const std::size_t number : {record.index, record.output_before, record.rejects_end}) {
        result += " " + std::to_string(number);
      }
      result += " " + std::to_string(record.rejects_count);
    }
  }
  return result;
}

struct Ends {
  std::string plain, quick;
};

Ends both_ways(const std::string& layout_text, std::string_view data, std::size_t block_size) {
  const LayoutReading reading = read_layout(layout_text, "layout.toml");
  EXPECT_TRUE(reading) << layout_text << reading.errors.front();
  apply(reading.layout.settings);
  const test::Sample sample(data);
  return {decoded(reading.layout, sample.path(), block_size,
                  [](std::string& out) { return std::make_unique<CsvRows>(out); }),
          decoded(reading.layout, sample.path(), block_size, [&](std::string& out) {
            return std::make_unique<CsvRunRows>(reading.layout, out);
          })};
}

void compare(int rounds) {
  const std::uint64_t seed = test::random_seed();
  SCOPED_TRACE("IOCV_TEST_SEED=" + std::to_string(seed));
  Random random(seed);
  for (int i = 0; i < rounds; ++i) {
    const Generated made = generated(random);
    const std::size_t block = any_of(std::array<std::size_t, 4>{1, 1000, 20000, 1 << 18}, random);
    const Ends ends = both_ways(made.layout, made.data, block);
    ASSERT_TRUE(ends.plain == ends.quick) << "round " << i << "\n" << made.layout;
  }
  apply({});
}

TEST(CsvRun, EqualsRowsOfSingleValues) { compare(150); }

TEST(LongCsvRun, EqualsRowsOfSingleValues) { compare(10'000); }

// How many of the records are taken at once, in runs that end before the others.
std::string taken(const std::string& layout_text, std::string_view data) {
  const LayoutReading reading = read_layout(layout_text, "layout.toml");
  EXPECT_TRUE(reading) << reading.errors.front();
  apply(reading.layout.settings);
  const test::Sample sample(data);
  InputFile file(sample.path());
  RecordReader reader(file, {.length = reading.layout.record, .crlf = reading.layout.crlf});
  FieldReader fields(reading.layout);
  Block block;
  EXPECT_TRUE(reader.next(block));
  fields.read(block, 0, block.count());
  std::string out;
  CsvRunRows rows(reading.layout, out);
  std::string result;
  for (std::size_t i = 0; i < block.count(); ++i) {
    const std::size_t count = rows.take_ordinary({fields, block, 0, block.count()}, i);
    result += std::to_string(count) + " ";
    i += count;
  }
  return result + out;
}

TEST(CsvRun, TakesOrdinaryRecordsOnly) {
  if (!common::kWordsAreTexts) return;
  const std::string two =
      "[[field]]\nname = 'a'\nat = 1\nformat = 'A2'\n"
      "[[field]]\nname = 'x'\nat = 3\nformat = 'F3'\n";
  EXPECT_EQ(taken("record = 5\n" + two, "ab  1cd 2.  345"), "3 ab,1\ncd,2\n,345\n");
  EXPECT_EQ(taken("record = 5\n" + two, "ab  1c,  2ef  x   -1gh  7i"), "1 0 2 ab,1\n,-1\ngh,7\n");
}

TEST(CsvRun, LeavesARecordThatTheFileCutsOff) {
  // All fields are there, the rest of the record is not.
  const std::string layout = "record = 9\n[[field]]\nname = 'x'\nat = 1\nformat = 'F3'\n";
  const Ends ends = both_ways(layout, "  1......  2..", 1000);
  EXPECT_EQ(ends.plain, ends.quick);
  EXPECT_EQ(ends.plain.substr(0, 3), "1\n{");
}

TEST(CsvRun, MarksTheOnlyValueOfARowWhenItIsEmpty) {
  const std::string layout = "record = 3\n[[field]]\nname = 'x'\nat = 1\nformat = 'F3'\n";
  const Ends ends = both_ways(layout, "  1     2", 1000);
  EXPECT_EQ(ends.quick, "1\n\"\"\n2\n0");
  EXPECT_EQ(ends.plain, ends.quick);
}

TEST(CsvRun, RowsOfAnyLength) {
  for (const std::size_t width : {100UL, 32767UL}) {
    for (const std::size_t count : {1UL, 3UL, 15UL}) {
      std::string layout = "record = " + std::to_string(width * count) + "\n";
      std::string data;
      for (std::size_t i = 0; i < count; ++i) {
        layout += "[[field]]\nname = 'f" + std::to_string(i) +
                  "'\nat = " + std::to_string(i * width + 1) + "\nformat = 'A" +
                  std::to_string(width) + "'\n";
      }
      for (int record = 0; record < 7; ++record) {
        for (std::size_t i = 0; i < count; ++i) {
          std::string field(width, static_cast<char>('a' + record));
          if (record == 3) field.replace(50, 50, 50, ' ');
          data += field;
        }
      }
      const Ends ends = both_ways(layout, data, 1 << 18);
      EXPECT_TRUE(ends.plain == ends.quick) << width << " x " << count;
      EXPECT_GT(ends.quick.size(), data.size() * 9 / 10);
    }
  }
}

}  // namespace
