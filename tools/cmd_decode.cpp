// iocv decode: a file of fixed-width records to CSV, JSON Lines or a database.
#include <unistd.h>

#include "decode_run.h"
#include "reject_options.h"

namespace iocv::tool {
namespace {

struct DecodeOptions {
  std::string layout;
  std::string data;
  std::string output = "-";
  std::string to;
  RejectOptions rejects;
  Settings settings;
  RunOptions run;
};

bool is_stream(const std::string& path) { return path == "-"; }

Exit decode(const DecodeOptions& options) {
  RejectFiles files(options.rejects, options.layout, options.data, options.output);
  const OutputForm form =
      options.to.empty() ? form_of_name(options.output) : form_named(options.to);
  const RejectLimit limit = RejectLimit::parse(options.rejects.max_rejects);
  const Layout layout = load_layout(options.layout);
  apply(overlaid(layout.settings, options.settings));

  InputFile data(options.data);
  const std::unique_ptr<Output> output = open_output(options.output, form, layout);
  RecordReader reader(data, framing_of(layout), options.run.block);
  RunTotals totals;
  {
    const bool mixed = is_stream(options.output) && ::isatty(STDOUT_FILENO) == 1;
    Progress progress(data.size(), options.run.quiet || mixed, options.run.progress);
    totals = DecodeRun(layout, {*output, files.lines(), files.records(), progress}, limit)
                 .run(reader, options.run.workers());
  }
  if (totals.stopped) return report_stop(totals.records, limit.sentence(), files);
  output->commit();
  files.commit();
  return report_rejects(totals.rejects, totals.records, files, options.run.quiet);
}

}  // namespace

Command add_decode(CLI::App& tool) {
  auto options = std::make_shared<DecodeOptions>();
  CLI::App* const app =
      tool.add_subcommand("decode", "Decodes a file of records to CSV, JSON Lines or SQLite");
  app->footer(
      "LAYOUT is TOML: record = BYTES, or lines = true with crlf = true and short_lines = "
      "\"blank\"\n"
      "or \"pad\" if need be; the settings above as keys (leading_zero, code_page, cca to cce); "
      "and\n"
      "for each column\n"
      "\n"
      "  [[field]]\n"
      "  name = \"elevation\"\n"
      "  at = 32            # first byte, from 1\n"
      "  format = \"F6.1\"\n"
      "  as = \"number\"      # or \"iso\", \"text\"; may be absent\n"
      "\n"
      "Dates are shown in ISO 8601, a missing value is empty. A field that fails is empty, too, "
      "and\n"
      "listed in the rejects file, a JSON object a line, with its record, offset, bytes and "
      "reason.\n"
      "Options go before the layout's settings. Exit code: 0 clean, 1 done with rejects or stopped "
      "by\n"
      "--max-rejects, 2 usage or layout error, 3 file trouble.");
  add_positional(*app, "LAYOUT", options->layout, "the layout file");
  add_positional(*app, "DATA", options->data, "the data file, - for standard input");
  app->add_option("-o,--output", options->output, "the output file, - for standard output (-)")
      ->type_name("OUT");
  app->add_option("--to", options->to, "csv, jsonl or sqlite (by the ending of OUT, else csv)")
      ->type_name("FORM");
  add_reject_options(*app, options->rejects, "records");
  add_run_options(*app, options->run);
  add_settings(*app, options->settings);
  return {app, [options] { return decode(*options); }};
}

}  // namespace iocv::tool
