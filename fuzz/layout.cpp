// Layouts of any text, and records under those that are good. The text ends at a zero byte; the
// rest is a record.
#include "layout.h"

#include <algorithm>

#include "decode.h"
#include "harness.h"

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

// Each record is one row, unless it is too short for its layout as a whole.
void decode(const Layout& layout, std::string_view bytes) {
  apply(layout.settings);
  Decoder decoder(layout);
  std::string text;
  CsvRows rows(text);
  RejectLines rejects;
  decoder.header(rows);
  const std::size_t header = text.size();
  decoder.decode({.number = 1, .offset = 0, .bytes = bytes}, rows, rejects);
  FUZZ_REQUIRE(text.size() > header || rejects.count == 1);
  FUZZ_REQUIRE(std::count(rejects.text.begin(), rejects.text.end(), '\n') == rejects.count);
  FUZZ_REQUIRE(rejects.count <= static_cast<std::int64_t>(layout.fields.size()));
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
  const auto record = static_cast<std::size_t>(reading.layout.record);
  decode(reading.layout, record > 0 ? rest.substr(0, record) : rest);
  return 0;
}
