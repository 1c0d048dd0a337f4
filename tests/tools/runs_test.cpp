// Whole runs of the tool's commands: on eight threads at once, and over records whose numbers and
// offsets do not fit 32 bits.
#include <gtest/gtest.h>

#include "check.h"
#include "decode_run.h"
#include "encode_run.h"
#include "pipeline.h"
#include "sample.h"
#include "verify.h"

namespace {

using namespace iocv::tool;
using test::Sample;

constexpr std::size_t kThreads = 8;
constexpr std::int64_t kMany = std::int64_t{1} << 32;

Layout layout_of(const std::string& text) {
  LayoutReading reading = read_layout(text, "layout.toml");
  EXPECT_TRUE(reading) << reading.errors.front();
  apply(reading.layout.settings);
  return std::move(reading.layout);
}

Progress quiet() { return {std::nullopt, true, 10}; }

std::string content_of(const std::string& path) {
  return std::filesystem::exists(path) ? read_file(path) : "none";
}

// Rows, rejects, rejected records and totals of a decoded file.
std::string decoded(const Layout& layout, RecordReader& reader, OutputForm form,
                    std::size_t threads, const std::string& limit = "") {
  const Sample out;
  const Sample bad;
  const Sample copy;
  Progress progress = quiet();
  const std::unique_ptr<Output> rows = open_output(out.path(), form, layout);
  RejectsFile rejects(bad.path());
  RejectsFile records(copy.path());
  const RunTotals totals =
      DecodeRun(layout, {*rows, rejects, &records, progress}, RejectLimit::parse(limit))
          .run(reader, threads);
  rows->commit();
  rejects.commit();
  records.commit();
  return content_of(out.path()) + content_of(bad.path()) + content_of(copy.path()) +
         std::to_string(totals.records) + " " + std::to_string(totals.rejects) + " " +
         std::to_string(totals.rejected_records);
}

std::string decoded(const Layout& layout, const std::string& path, OutputForm form,
                    std::size_t threads) {
  InputFile file(path);
  RecordReader reader(file, framing_of(layout), 300);
  return decoded(layout, reader, form, threads);
}

std::string encoded(const Layout& layout, const std::string& path, RowForm form,
                    std::size_t threads) {
  InputFile file(path);
  RowReader reader(file, form, 300);
  std::vector<std::unique_ptr<RowEncoder>> encoders;
  for (std::size_t i = 0; i < threads; ++i) {
    encoders.push_back(std::make_unique<RowEncoder>(
        layout, form == RowForm::csv ? csv_parser(reader.head(), layout) : json_parser(layout),
        OnError::blank));
  }
  const Sample out;
  const Sample bad;
  OutputFile records(out.path());
  RejectsFile rejects(bad.path());
  Progress progress = quiet();
  EncodeRun({records, rejects, nullptr, progress}, RejectLimit::parse("")).run(reader, encoders);
  records.commit();
  rejects.commit();
  return content_of(out.path()) + content_of(bad.path());
}

// What check counts and verify finds.
std::string looked_at(const Layout& layout, const std::string& path, std::size_t threads) {
  std::string result;
  InputFile file(path);
  RecordReader reader(file, framing_of(layout), 300);
  std::vector<Checker> checkers(threads, Checker(layout));
  std::vector<FieldCounts> counts(layout.fields.size());
  const auto check = [](Checker& checker, const Block& block) { checker.check(block); };
  const auto count = [&](Checker& checker, const Block&) {
    for (std::size_t i = 0; i < counts.size(); ++i) counts[i].add(checker.counts()[i]);
    return true;
  };
  Pipeline(reader, checkers, check, count).run();
  for (const FieldCounts& field : counts) {
    result += std::to_string(field.read) + " " + std::to_string(field.first_bad.value_or(0)) + "\n";
  }
  InputFile again(path);
  RecordReader second(again, framing_of(layout), 300);
  std::vector<std::unique_ptr<Verifier>> verifiers;
  for (std::size_t i = 0; i < threads; ++i) {
    verifiers.push_back(std::make_unique<Verifier>(layout, true));
  }
  Differences all;
  const auto verify = [](auto& verifier, const Block& block) { verifier->verify(block); };
  const auto add = [&](auto& verifier, const Block&) {
    all.add(verifier->found());
    return true;
  };
  Pipeline(second, verifiers, verify, add).run();
  return result + std::to_string(all.records) + " " + std::to_string(all.rejected) + all.first;
}

// Every kind of field, strings beyond ASCII among them, and some that fail.
struct Everything {
  Everything() {
    int at = 1;
    for (const auto& [format, texts] : kFields) {
      const std::string name = format;
      layout += "[[field]]\nname = '" + name + "'\nat = " + std::to_string(at) + "\nformat = '" +
                name + "'\n";
      at += static_cast<int>(std::string(texts[0]).size());
    }
    layout = "record = " + std::to_string(at - 1) + "\ncode_page = 'windows-1252'\n" + layout;
    for (std::size_t i = 0; i < 2000; ++i) {
      for (const auto& [format, texts] : kFields) data += texts[i % 7 == 6 ? 2 : i % 2];
    }
  }

  struct Field {
    const char* format;
    const char* texts[3];
  };
  static constexpr Field kFields[] = {
      {"F8.2", {"  123.45", "   -9.50", "oops    "}},
      {"COMMA9.2", {" 1,234.50", "   123.45", "1.2.3    "}},
      {"DATE11", {"01-JAN-2000", "31-DEC-1999", "32-DEC-1999"}},
      {"TIME8", {"12:30:15", " 1:02:03", "99:99:99"}},
      {"DTIME12", {"  1 12:30:15", "  0 12:30:00", "x           "}},
      {"WKDAY9", {"SATURDAY ", "SUNDAY   ", "NODAY    "}},
      {"A6", {"caf\xE9  ", "plain ", "a\x81z   "}},
      {"Z4", {"012L", "0123", "x12L"}},
      {"P2", {"\x12\x3F", "\x01\x2D", "\x12\x34"}},
      {"E10.3", {"5.000E+000", "-1.50E-003", "5.0EE00   "}},
  };

  std::string layout;
  std::string data;
};

TEST(RunThreads, GiveTheBytesOfOne) {
  const Everything everything;
  const Layout layout = layout_of(everything.layout);
  const Sample data(everything.data);
  for (const OutputForm form : {OutputForm::csv, OutputForm::jsonl, OutputForm::sqlite}) {
    const std::string one = decoded(layout, data.path(), form, 1);
    EXPECT_EQ(decoded(layout, data.path(), form, kThreads), one);
    EXPECT_TRUE(one.ends_with("2000 2850 285")) << one.substr(one.size() - 20);
  }
  EXPECT_EQ(looked_at(layout, data.path(), kThreads), looked_at(layout, data.path(), 1));
  apply({});
}

TEST(RunThreads, EncodeTheBytesOfOne) {
  const Everything everything;
  const Layout layout = layout_of(everything.layout);
  const Sample data(everything.data);
  const Sample rows;
  for (const OutputForm form : {OutputForm::csv, OutputForm::jsonl}) {
    InputFile file(data.path());
    RecordReader reader(file, framing_of(layout));
    const std::unique_ptr<Output> output = open_output(rows.path(), form, layout);
    const Sample bad;
    RejectsFile rejects(bad.path());
    Progress progress = quiet();
    DecodeRun(layout, {*output, rejects, nullptr, progress}, RejectLimit::parse("")).run(reader, 1);
    output->commit();
    const RowForm from = form == OutputForm::csv ? RowForm::csv : RowForm::jsonl;
    EXPECT_EQ(encoded(layout, rows.path(), from, kThreads), encoded(layout, rows.path(), from, 1));
  }
  apply({});
}

// A sparse file of records of one byte whose last ones have the numbers kMany + 1 and so on.
class BigNumbers : public testing::Test {
 protected:
  BigNumbers() : layout_(layout_of("record = 1\n[[field]]\nname = 'n'\nat = 1\nformat = 'N1'\n")) {
    std::filesystem::resize_file(data_.path(), static_cast<std::uintmax_t>(kMany));
    std::FILE* const file = std::fopen(data_.path().c_str(), "ab");
    std::fputs("1x2y3", file);
    std::fclose(file);
  }

  // Of the records behind the first kMany.
  RecordReader last_records(InputFile& file) {
    RecordReader reader(file, framing_of(layout_), 2);
    reader.skip_records(kMany);
    return reader;
  }

  Sample data_;
  Layout layout_;
};

TEST_F(BigNumbers, InTheRejectsOfDecode) {
  for (const std::size_t threads : {1UL, 3UL}) {
    InputFile file(data_.path());
    RecordReader reader = last_records(file);
    const std::string result = decoded(layout_, reader, OutputForm::csv, threads);
    EXPECT_NE(result.find("{\"record\": 4294967298, \"offset\": 4294967297, \"field\": \"n\""),
              result.npos);
    EXPECT_NE(result.find("{\"record\": 4294967300, \"offset\": 4294967299, \"field\": \"n\""),
              result.npos);
    EXPECT_TRUE(result.starts_with("n\n1\n\"\"\n2\n\"\"\n3\n")) << result;
    EXPECT_TRUE(result.ends_with("xy5 2 2")) << result;
  }
  InputFile file(data_.path());
  RecordReader reader = last_records(file);
  EXPECT_TRUE(decoded(layout_, reader, OutputForm::csv, 1, "1").ends_with(" 2 2"));
}

TEST_F(BigNumbers, InTheFirstBadRecordOfCheck) {
  InputFile file(data_.path());
  RecordReader reader = last_records(file);
  Checker checker(layout_);
  FieldCounts counts;
  counts.read = 3 * kMany;
  counts.failed[1102] = 5 * kMany;
  Block block;
  while (reader.next(block)) {
    checker.check(block);
    counts.add(checker.counts()[0]);
  }
  EXPECT_EQ(counts.first_bad, kMany + 2);
  EXPECT_EQ(counts.read, 3 * kMany + 3);
  EXPECT_EQ(counts.failed[1102], 5 * kMany + 2);
}

TEST_F(BigNumbers, InTheFirstDifferenceOfVerify) {
  InputFile file(data_.path());
  RecordReader reader = last_records(file);
  Verifier verifier(layout_, true);
  Differences all{.records = kMany, .rejected = kMany, .first = ""};
  Block block;
  while (reader.next(block)) {
    verifier.verify(block);
    all.add(verifier.found());
  }
  EXPECT_TRUE(all.first.starts_with("record 4294967298, offset 4294967297: it does not decode"))
      << all.first;
  EXPECT_EQ(all.records, kMany + 2);
  EXPECT_EQ(all.rejected, kMany + 2);
}

TEST(BigRowNumbers, InTheRejectsOfEncode) {
  const Layout layout = layout_of("record = 1\n[[field]]\nname = 'n'\nat = 1\nformat = 'N1'\n");
  RowBlock block;
  block.begin(kMany + 7, kMany * 5);
  for (const char* const row : {"1\n", "12\n", "3\n", "1,2\n"}) block.add(row);
  RowEncoder encoder(layout, csv_parser("n\n", layout), OnError::skip);
  encoder.encode(block);
  EXPECT_EQ(encoder.records(), "13");
  const std::string& text = encoder.rejects().text;
  EXPECT_TRUE(
      text.starts_with("{\"record\": 4294967304, \"offset\": 21474836482, \"field\": \"n\""))
      << text;
  EXPECT_NE(text.find("\n{\"record\": 4294967306, \"offset\": 21474836487, \"field\": null"),
            text.npos)
      << text;
}

TEST(RunTally, CountsBeyondFourBillion) {
  RejectLines rejects;
  rejects.count = 3;
  rejects.records = {{.index = 1, .output_before = 0, .rejects_end = 10, .rejects_count = 2},
                     {.index = 4, .output_before = 0, .rejects_end = 20, .rejects_count = 3}};
  const auto many = static_cast<std::size_t>(kMany);
  RunTally tally(RejectLimit::parse("3"));
  EXPECT_EQ(tally.add({.first_number = 1, .records = many, .bytes = 80 * many}, {}), nullptr);
  EXPECT_EQ(tally.add({.first_number = kMany + 1, .records = 10, .bytes = 800}, rejects), nullptr);
  EXPECT_EQ(tally.totals().records, kMany + 10);
  EXPECT_EQ(tally.totals().bytes, 80 * kMany + 800);
  EXPECT_EQ(tally.totals().rejects, 3);
  EXPECT_EQ(tally.totals().rejected_records, 2);
  EXPECT_EQ(tally.add({.first_number = kMany + 11, .records = 10, .bytes = 800}, rejects),
            &rejects.records[1]);
  EXPECT_EQ(tally.totals().records, kMany + 15);
  EXPECT_EQ(tally.totals().rejects, 6);
  EXPECT_TRUE(tally.finish().stopped);
}

}  // namespace
