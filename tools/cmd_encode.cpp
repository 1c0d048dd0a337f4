// iocv encode: CSV or JSON Lines to a file of fixed-width records.
#include "encode_run.h"
#include "failure.h"
#include "output.h"
#include "reject_options.h"

namespace iocv::tool {
namespace {

struct EncodeOptions {
  std::string layout;
  std::string data;
  std::string output = "-";
  std::string from;
  std::string on_error = "skip";
  RejectOptions rejects;
  Settings settings;
  RunOptions run;
};

OnError on_error_named(const std::string& name) {
  if (name == "stop") return OnError::stop;
  if (name == "skip") return OnError::skip;
  if (name == "blank") return OnError::blank;
  throw UsageError("--on-error is '" + name + "', none of stop, skip and blank");
}

RowForm form_of_rows(const EncodeOptions& options) {
  switch (options.from.empty() ? form_of_name(options.data) : form_named(options.from)) {
    case OutputForm::csv: return RowForm::csv;
    case OutputForm::jsonl: return RowForm::jsonl;
    case OutputForm::sqlite: break;
  }
  throw UsageError("records are encoded from csv and jsonl, not from a database");
}

Exit encode(const EncodeOptions& options) {
  RejectFiles files(options.rejects, options.layout, options.data, options.output);
  const OnError on_error = on_error_named(options.on_error);
  const RowForm form = form_of_rows(options);
  const RejectLimit given = RejectLimit::parse(options.rejects.max_rejects);
  const RejectLimit limit = on_error == OnError::stop ? RejectLimit::parse("0") : given;
  const Layout layout = load_layout(options.layout);
  apply(overlaid(layout.settings, options.settings));
  InputFile data(options.data);
  RowReader reader(data, form, options.run.block);
  std::vector<std::unique_ptr<RowEncoder>> encoders;
  for (std::size_t i = 0; i < options.run.workers(); ++i) {
    encoders.push_back(std::make_unique<RowEncoder>(
        layout, form == RowForm::csv ? csv_parser(reader.head(), layout) : json_parser(layout),
        on_error));
  }
  OutputFile out =
      options.output == "-" ? OutputFile::standard_output() : OutputFile(options.output);
  RunTotals totals;
  {
    Progress progress(data.size(), options.run.quiet, options.run.progress);
    totals =
        EncodeRun({out, files.lines(), files.records(), progress}, limit).run(reader, encoders);
  }
  if (totals.stopped) {
    const std::string reason = on_error == OnError::stop ? "it has rejects" : limit.sentence();
    return report_stop(totals.records, reason, files);
  }
  out.commit();
  files.commit();
  return report_rejects(totals.rejects, totals.records, files, options.run.quiet);
}

}  // namespace

Command add_encode(CLI::App& tool) {
  auto options = std::make_shared<EncodeOptions>();
  CLI::App* const app =
      tool.add_subcommand("encode", "Encodes CSV or JSON Lines as a file of records");
  app->footer(
      "The values are written as decode shows them; LAYOUT is the same. A CSV has a column for "
      "each\n"
      "field. Numbers are rounded to the decimals that their format shows; a value that does not "
      "fit\n"
      "otherwise is a reject, and its record is left out (--on-error skip), has the missing value "
      "in\n"
      "that field (blank), or ends the run (stop). Bytes of no field are blank.\n"
      "Exit code: 0 clean, 1 done with rejects or stopped by them, 2 usage or layout error, 3 "
      "file\n"
      "trouble.");
  add_positional(*app, "LAYOUT", options->layout, "the layout file");
  add_positional(*app, "ROWS", options->data, "the CSV or JSON Lines, - for standard input");
  app->add_option("-o,--output", options->output, "the file of records, - for standard output (-)")
      ->type_name("OUT");
  app->add_option("--from", options->from, "csv or jsonl (by the ending of ROWS, else csv)")
      ->type_name("FORM");
  app->add_option("--on-error", options->on_error, "stop, skip or blank (skip)")
      ->type_name("ACTION");
  add_reject_options(*app, options->rejects, "rows");
  add_run_options(*app, options->run);
  add_settings(*app, options->settings);
  return {app, [options] { return encode(*options); }};
}

}  // namespace iocv::tool
