// iocv inspect: a layout as a table.
#include <algorithm>

#include "columns.h"
#include "encode.h"
#include "options.h"
#include "table.h"

namespace iocv::tool {
namespace {

std::string show_name(Show show) {
  switch (show) {
    case Show::number: return "number";
    case Show::iso: return "iso";
    case Show::text: return "text";
  }
  return {};
}

std::string bytes_text(std::size_t from, std::size_t to) {
  return from == to ? "byte " + std::to_string(from)
                    : "bytes " + std::to_string(from) + " to " + std::to_string(to);
}

std::string framing_text(const Layout& layout) {
  const std::string bytes = std::to_string(record_bytes(layout));
  if (!layout.lines()) return "records of " + bytes + " bytes\n";
  return std::string("lines that end in ") + (layout.crlf ? "CR LF" : "LF") + ", fields to byte " +
         bytes + "\n";
}

std::string table_text(const std::vector<Column>& columns) {
  Table table({Table::Side::right, Table::Side::right, Table::Side::right, Table::Side::left,
               Table::Side::left, Table::Side::left});
  table.add({"from", "to", "width", "format", "as", "name"});
  for (const Column& column : columns) {
    table.add({std::to_string(column.from + 1), std::to_string(column.from + column.width),
               std::to_string(column.width), column.format_text, show_name(column.show),
               column.name});
  }
  return table.str();
}

// The bytes of no field, and the fields that share bytes with the field of the farthest end before
// them.
std::string gaps_and_overlaps(std::vector<Column> columns, std::size_t length) {
  std::stable_sort(columns.begin(), columns.end(),
                   [](const Column& a, const Column& b) { return a.from < b.from; });
  std::string text;
  const Column* farthest = nullptr;
  std::size_t end = 0;
  for (const Column& column : columns) {
    if (column.from > end) text += "gap: " + bytes_text(end + 1, column.from) + "\n";
    if (column.from < end) {
      const std::size_t last = std::min(end, column.from + column.width);
      text += "overlap: " + bytes_text(column.from + 1, last) + " of \"" + farthest->name +
              "\" and \"" + column.name + "\"\n";
    }
    if (column.from + column.width <= end) continue;
    farthest = &column;
    end = column.from + column.width;
  }
  if (end < length) text += "gap: " + bytes_text(end + 1, length) + "\n";
  return text;
}

}  // namespace

Command add_inspect(CLI::App& tool) {
  auto path = std::make_shared<std::string>();
  CLI::App* const app = tool.add_subcommand("inspect", "Shows a layout as a table");
  app->footer(
      "Prints the bytes of each field, counted from 1, its format and how decode shows it, and\n"
      "names the bytes of no field and those of several.\n"
      "Exit code: 0 clean, 2 usage or layout error, 3 file trouble.");
  add_positional(*app, "LAYOUT", *path, "the layout file");
  return {app, [path] {
            const Layout layout = load_layout(*path);
            const std::vector<Column> columns = columns_of(layout);
            print(framing_text(layout) + table_text(columns) +
                  gaps_and_overlaps(columns, record_bytes(layout)));
            return Exit::clean;
          }};
}

}  // namespace iocv::tool
