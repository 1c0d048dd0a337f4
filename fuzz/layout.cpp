// Layouts of any text, and records under those that are good. The text ends at a zero byte; the
// rest is a file of records.
#include "layout.h"

#include <algorithm>

#include "csv.h"
#include "csv_run.h"
#include "decode.h"
#include "harness.h"
#include "memory_file.h"

namespace {

using namespace iocv::tool;

// What a good layout promises to those who use it.
void check(const Layout& layout) {
  FUZZ_REQUIRE(layout.record >= 0 && layout.record <= kLongestRecord);
  FUZZ_REQUIRE(!layout.fields.empty());
  for (const LayoutField& field : layout.fields) {
    FUZZ_REQUIRE(!field.name.empty());
    FUZZ_REQUIRE(field.at >= 1 && field.format.Width() >= 1);
    FUZZ_REQUIRE(field.end() <= (layout.lines() ? kLongestRecord : layout.record));
  }
}

// A field gives a row's value, and two rejects at most; each reject is a line.
template <class MakeRows>
std::string decode(const Layout& layout, std::string_view bytes, const MakeRows& make_rows) {
  const fuzz::MemoryFile memory(bytes);
  InputFile file(memory.path());
  RecordReader reader(file, {.length = layout.record, .crlf = layout.crlf});
  Decoder decoder(layout);
  std::string text;
  const auto rows = make_rows(text);
  RejectLines rejects;
  std::size_t records = 0;
  Block block;
  while (reader.next(block)) {
    decoder.decode(block, *rows, text, rejects);
    records += block.count();
  }
  FUZZ_REQUIRE(text.empty() || text.ends_with('\n'));
  FUZZ_REQUIRE(std::count(rejects.text.begin(), rejects.text.end(), '\n') == rejects.count);
  FUZZ_REQUIRE(static_cast<std::size_t>(rejects.count) <= 2 * records * layout.fields.size());
  return text + rejects.text;
}

// Rows made at once are those that come of a call for each value.
void decode(const Layout& layout, std::string_view bytes) {
  apply(layout.settings);
  const std::string plain =
      decode(layout, bytes, [](std::string& text) { return std::make_unique<CsvRows>(text); });
  const std::string quick = decode(
      layout, bytes, [&](std::string& text) { return std::make_unique<CsvRunRows>(layout, text); });
  FUZZ_REQUIRE(plain == quick);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const std::size_t end = std::min(bytes.find('\0'), size);
  const fuzz::Exact text(bytes.substr(0, end));
  const LayoutReading reading = read_layout({text.data(), end}, "x.toml");
  const LayoutReading again = read_layout({text.data(), end}, "x.toml");
  FUZZ_REQUIRE(reading.errors == again.errors);
  for (const std::string& error : reading.errors) FUZZ_REQUIRE(error.starts_with("x.toml:"));
  if (!reading) return 0;
  check(reading.layout);
  const std::string_view rest = bytes.substr(std::min(end + 1, size));
  decode(reading.layout, rest);
  return 0;
}
