// iocv dump: the fields of one record as bytes and values.
#include <iocv/status.h>

#include "cell_rows.h"
#include "decode.h"
#include "failure.h"
#include "json.h"
#include "run_options.h"
#include "table.h"
#include "value_text.h"

namespace iocv::tool {
namespace {

struct DumpOptions {
  std::string layout;
  std::string data;
  std::int64_t record = 1;
  Settings settings;
};

// Printable ASCII as it is, all else as a point.
std::string shown_bytes(std::string_view bytes) {
  std::string text(bytes);
  for (char& c : text) {
    if (c < ' ' || c > '~') c = '.';
  }
  return "|" + text + "|";
}

std::string shown_value(const Given& given) {
  std::string text;
  switch (given.kind) {
    case Given::Kind::missing: return "missing";
    case Given::Kind::number: append_number(text, given.number); return text;
    case Given::Kind::text: break;
  }
  append_json_string(text, given.text);
  return text;
}

// The block with the record, and its place in it.
std::size_t find_record(RecordReader& reader, const Layout& layout, std::int64_t number,
                        Block& block) {
  if (!layout.lines()) reader.skip_records(number - 1);
  while (reader.next(block)) {
    const std::int64_t index = number - block.first_number();
    if (index < static_cast<std::int64_t>(block.count())) return static_cast<std::size_t>(index);
  }
  throw UsageError("the file has no record " + std::to_string(number));
}

Exit dump(const DumpOptions& options) {
  const Layout layout = load_layout(options.layout);
  apply(overlaid(layout.settings, options.settings));
  InputFile data(options.data);
  RecordReader reader(data, framing_of(layout));
  Block block;
  const std::size_t index = find_record(reader, layout, options.record, block);
  const Record record = block.record(index);
  CellRows rows;
  RejectLines rejects;
  Decoder(layout).decode_some(block, index, 1, rows, {}, rejects);
  std::string text = "record " + std::to_string(record.number) + " at offset " +
                     std::to_string(record.offset) + ", " +
                     counted(std::ssize(record.bytes), "byte") + "\n";
  Table table({Table::Side::left, Table::Side::left, Table::Side::right, Table::Side::left,
               Table::Side::left, Table::Side::left});
  table.add({"name", "format", "at", "value", "text", "hex"});
  const std::vector<Column> columns = columns_of(layout);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const std::size_t from = std::min(columns[i].from, record.bytes.size());
    const std::string_view bytes = record.bytes.substr(from, columns[i].width);
    std::string hex;
    append_hex(hex, bytes, " ");
    table.add({columns[i].name, columns[i].format_text, std::to_string(columns[i].from + 1),
               rows.count() == 0 ? "" : shown_value(rows.values()[i]), shown_bytes(bytes), hex});
  }
  print(text + table.str() + rejects.text);
  return rejects.count == 0 ? Exit::clean : Exit::failures;
}

}  // namespace

Command add_dump(CLI::App& tool) {
  auto options = std::make_shared<DumpOptions>();
  CLI::App* const app =
      tool.add_subcommand("dump", "Shows one record's fields as bytes and values");
  app->footer(
      "Prints for each field its first byte, counted from 1, the value that decode shows, and its\n"
      "bytes as text, with points for all but printable ASCII, and in hexadecimal; below the "
      "table\n"
      "stand the record's rejects as lines of JSON.\n"
      "Exit code: 0 clean, 1 the record has rejects, 2 usage or layout error, or no such record,\n"
      "3 file trouble.");
  add_positional(*app, "LAYOUT", options->layout, "the layout file");
  add_positional(*app, "DATA", options->data, "the data file, - for standard input");
  app->add_option("--record", options->record, "the record's number, from 1 (1)")
      ->type_name("N")
      ->check(CLI::Range(std::int64_t{1}, std::int64_t{1} << 42));
  add_settings(*app, options->settings);
  return {app, [options] { return dump(*options); }};
}

}  // namespace iocv::tool
