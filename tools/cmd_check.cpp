// iocv check: what the fields of a file hold, and what is wrong with them.
#include <iocv/platform.h>
#include <iocv/status.h>

#include "check.h"
#include "format_traits.h"
#include "json.h"
#include "pipeline.h"
#include "progress.h"
#include "run_options.h"
#include "table.h"
#include "value_text.h"

namespace iocv::tool {
namespace {

constexpr std::size_t kLongestShown = 24;  // bytes of a string

struct CheckOptions {
  std::string layout;
  std::string data;
  Settings settings;
  RunOptions run;
};

struct CheckTotals {
  std::vector<FieldCounts> fields;
  std::int64_t records = 0;
  std::int64_t bytes = 0;
  std::int64_t failed = 0;
};

CheckTotals count(const Layout& layout, const CheckOptions& options) {
  InputFile data(options.data);
  RecordReader reader(data, framing_of(layout), options.run.block);
  Progress progress(data.size(), options.run.quiet, options.run.progress);
  CheckTotals totals;
  totals.fields.resize(layout.fields.size());
  std::vector<Checker> checkers(options.run.workers(), Checker(layout));
  const auto work = [](Checker& checker, const Block& block) { checker.check(block); };
  const auto finish = [&](Checker& checker, const Block& block) {
    for (std::size_t i = 0; i < totals.fields.size(); ++i) {
      totals.fields[i].add(checker.counts()[i]);
      for (const auto& [status, times] : checker.counts()[i].failed) totals.failed += times;
    }
    totals.records += static_cast<std::int64_t>(block.count());
    totals.bytes += static_cast<std::int64_t>(block.size());
    progress.show(totals.records, totals.bytes, totals.failed);
    return true;
  };
  Pipeline(reader, checkers, work, finish).run();
  return totals;
}

std::string shown(const Column& column, const std::optional<double>& number,
                  const std::optional<std::string>& text) {
  std::string shown;
  if (number) {
    const IsoForm form = iso_form(column.format.TypeEx());
    if (column.show != Show::iso || !append_iso(shown, *number, form))
      append_number(shown, *number);
  } else if (text) {
    std::string characters;
    VELTMBGenericToU8(characters, text->substr(0, kLongestShown));
    append_json_string(shown, characters);
    if (text->size() > kLongestShown) shown += "...";
  }
  return shown;
}

std::string statuses_of(const FieldCounts& counts) {
  std::string text;
  for (const auto& [status, times] : counts.failed) {
    if (!text.empty()) text += ", ";
    text += std::to_string(times) + " ";
    text += status == kAbsent ? "short" : "x " + std::to_string(status);
  }
  return text.empty() ? "-" : text;
}

std::string table_text(const CheckTotals& totals, const std::vector<Column>& columns) {
  constexpr auto kLeft = Table::Side::left;
  constexpr auto kRight = Table::Side::right;
  Table table({kLeft, kLeft, kRight, kRight, kLeft, kRight, kRight, kRight});
  table.add({"name", "format", "read", "missing", "failed", "first bad", "smallest", "largest"});
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const FieldCounts& field = totals.fields[i];
    table.add({columns[i].name, columns[i].format_text, std::to_string(field.read),
               std::to_string(field.missing), statuses_of(field),
               field.first_bad ? std::to_string(*field.first_bad) : "-",
               shown(columns[i], field.smallest, field.first_text),
               shown(columns[i], field.largest, field.last_text)});
  }
  return table.str();
}

std::string legend(const CheckTotals& totals) {
  std::map<int, std::int64_t> all;
  for (const FieldCounts& field : totals.fields) {
    for (const auto& [status, times] : field.failed) all[status] += times;
  }
  std::string text;
  for (const auto& [status, times] : all) {
    text += status == kAbsent ? "short: the line ends before the field"
                              : std::to_string(status) + ": " + iocv_status_text(status);
    text += '\n';
  }
  return text;
}

Exit check(const CheckOptions& options) {
  const Layout layout = load_layout(options.layout);
  apply(overlaid(layout.settings, options.settings));
  const CheckTotals totals = count(layout, options);
  const std::int64_t rest = layout.lines() ? 0 : totals.bytes % layout.record;
  std::string text = counted(totals.bytes, "byte") + ": ";
  if (layout.lines()) {
    text += counted(totals.records, "line");
  } else {
    text +=
        counted(totals.bytes / layout.record, "record") + " of " + counted(layout.record, "byte");
    if (rest > 0) text += " and a remainder of " + counted(rest, "byte");
  }
  print(text + "\n" + table_text(totals, columns_of(layout)) + legend(totals));
  return totals.failed == 0 && rest == 0 ? Exit::clean : Exit::failures;
}

}  // namespace

Command add_check(CLI::App& tool) {
  auto options = std::make_shared<CheckOptions>();
  CLI::App* const app = tool.add_subcommand("check", "Counts what the fields of a file hold");
  app->footer(
      "Prints for each field how often it has a value, is missing (a blank string is), and fails, "
      "by\n"
      "status; the first record where it does; and its smallest and largest value, strings in the\n"
      "order of their bytes. Values that are kept in spite of a status count twice.\n"
      "Exit code: 0 clean, 1 fields fail or the last record is cut, 2 usage or layout error, 3 "
      "file\n"
      "trouble.");
  add_positional(*app, "LAYOUT", options->layout, "the layout file");
  add_positional(*app, "DATA", options->data, "the data file, - for standard input");
  add_run_options(*app, options->run);
  add_settings(*app, options->settings);
  return {app, [options] { return check(*options); }};
}

}  // namespace iocv::tool
