// iocv decode: a file of fixed-width records to CSV, JSON Lines or a database.
#include <unistd.h>

#include "decode_run.h"
#include "options.h"
#include "rejects.h"
#include "run_options.h"

namespace iocv::tool {
namespace {

constexpr std::string_view kRejectsSuffix = ".rejects.jsonl";

struct DecodeOptions {
  std::string layout;
  std::string data;
  std::string output = "-";
  std::string to;
  std::string rejects;
  std::string rejected_records;
  std::string max_rejects;
  Settings settings;
  RunOptions run;
};

bool is_stream(const std::string& path) { return path == "-"; }

std::string rejects_path(const DecodeOptions& options) {
  if (!options.rejects.empty()) return options.rejects;
  const std::string& named = is_stream(options.output) ? options.data : options.output;
  return (is_stream(named) ? "stdin" : named) + std::string(kRejectsSuffix);
}

// Refuses to write over what is read, or to write two files in one place.
void check_paths(const DecodeOptions& options, const std::string& rejects) {
  const std::string& copy = options.rejected_records;
  if (is_stream(rejects)) throw UsageError("the rejects file cannot be standard output");
  if (is_stream(copy)) throw UsageError("the rejected records cannot go to standard output");
  for (const std::string& input : {options.data, options.layout}) {
    refuse_same("output", options.output, input);
    refuse_same("rejects file", rejects, input);
    refuse_same("file of rejected records", copy, input);
  }
  refuse_same("rejects file", rejects, options.output);
  refuse_same("file of rejected records", copy, options.output);
  refuse_same("file of rejected records", copy, rejects);
}

void say(const DecodeOptions& options, const std::string& sentence) {
  if (!options.run.quiet) std::fputs(("iocv: " + sentence + "\n").c_str(), stderr);
}

// The rejects tell why a run was stopped; the rest of it is left out.
Exit stop(const DecodeTotals& totals, const RejectLimit& limit, RejectsFile& rejects) {
  rejects.commit();
  const std::string text = "iocv: stopped at record " + std::to_string(totals.records) + ": " +
                           limit.sentence() + ", see '" + rejects.path() + "'\n";
  std::fputs(text.c_str(), stderr);
  return Exit::failures;
}

Exit decode(const DecodeOptions& options) {
  const std::string rejects_name = rejects_path(options);
  check_paths(options, rejects_name);
  const OutputForm form =
      options.to.empty() ? form_of_name(options.output) : form_named(options.to);
  const RejectLimit limit = RejectLimit::parse(options.max_rejects);
  const Layout layout = load_layout(options.layout);
  apply(overlaid(layout.settings, options.settings));

  InputFile data(options.data);
  const std::unique_ptr<Output> output = open_output(options.output, form, layout);
  RejectsFile rejects(rejects_name);
  RejectsFile copy(options.rejected_records);
  RecordReader reader(data, framing_of(layout), options.run.block);
  DecodeTotals totals;
  {
    const bool mixed = is_stream(options.output) && ::isatty(STDOUT_FILENO) == 1;
    Progress progress(data.size(), options.run.quiet || mixed, options.run.progress);
    RejectsFile* const records = options.rejected_records.empty() ? nullptr : &copy;
    totals = DecodeRun(layout, {*output, rejects, records, progress}, limit)
                 .run(reader, options.run.workers());
  }
  if (totals.stopped) return stop(totals, limit, rejects);
  output->commit();
  rejects.commit();
  if (!options.rejected_records.empty()) copy.commit();
  if (totals.rejects == 0) return Exit::clean;
  say(options, counted(totals.rejects, "reject") + " in " + counted(totals.records, "record") +
                   ", see '" + rejects_name + "'");
  return Exit::failures;
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
  app->add_option("--rejects", options->rejects,
                  "the rejects file (OUT or DATA and .rejects.jsonl)")
      ->type_name("FILE");
  app->add_option("--rejected-records", options->rejected_records,
                  "copies the records that have rejects, byte for byte")
      ->type_name("FILE");
  app->add_option("--max-rejects", options->max_rejects,
                  "stop when more records than N, or than P of a hundred, have rejects")
      ->type_name("N|P%");
  add_run_options(*app, options->run);
  add_settings(*app, options->settings);
  return {app, [options] { return decode(*options); }};
}

}  // namespace iocv::tool
