// iocv formats: the table of types.
#include <iocv/format.h>

#include "conversion_report.h"
#include "json.h"
#include "options.h"

namespace iocv::tool {
namespace {

void append_cell(std::string& line, std::string_view text, std::size_t width) {
  line += text;
  if (text.size() < width) line.append(width - text.size(), ' ');
}

void append_row(std::string& text, std::string_view code, std::string_view name,
                std::string_view kind, std::string_view reads, std::string_view writes) {
  append_cell(text, code, 6);
  append_cell(text, name, 10);
  append_cell(text, kind, 11);
  append_cell(text, reads, 7);
  text.append(writes).append("\n");
}

std::string table_text() {
  std::string text;
  append_row(text, "code", "name", "kind", "reads", "writes");
  for (const FormatInfo& row : format_table()) {
    append_row(text, std::to_string(row.code), row.name, format_kind_name(row.kind),
               row.reads ? "yes" : "no", row.writes ? "yes" : "no");
  }
  return text;
}

std::string table_json() {
  std::vector<std::string> objects;
  for (const FormatInfo& row : format_table()) {
    objects.push_back(JsonObject()
                          .integer("code", row.code)
                          .text("name", row.name)
                          .text("kind", format_kind_name(row.kind))
                          .flag("reads", row.reads)
                          .flag("writes", row.writes)
                          .str());
  }
  return json_array(objects);
}

}  // namespace

Command add_formats(CLI::App& tool) {
  auto json = std::make_shared<bool>(false);
  CLI::App* const app = tool.add_subcommand("formats", "Lists the format types");
  app->footer(
      "A format is a type's name, in any case, a width and, after a point, decimals: F8.2, "
      "DATE11.\n"
      "A code and a colon may stand for the name: 40:12.2. Widths go to 40 (A and AHEX: 32767),\n"
      "decimals to 40.");
  app->add_flag("--json", *json, "print an array of objects");
  return {app, [json] {
            print(*json ? table_json() : table_text());
            return Exit::clean;
          }};
}

}  // namespace iocv::tool
