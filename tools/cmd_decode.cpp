// iocv decode: a file of fixed-width records to CSV.
#include "decode.h"
#include "options.h"
#include "rejects.h"

namespace iocv::tool {
namespace {

constexpr std::string_view kRejectsSuffix = ".rejects.jsonl";

struct DecodeOptions {
  std::string layout;
  std::string data;
  std::string output = "-";
  std::string rejects;
  Settings settings;
};

bool is_stream(const std::string& path) { return path == "-"; }

std::string rejects_path(const DecodeOptions& options) {
  if (!options.rejects.empty()) return options.rejects;
  const std::string& named = is_stream(options.output) ? options.data : options.output;
  return (is_stream(named) ? "stdin" : named) + std::string(kRejectsSuffix);
}

// Refuses to write over what is read, or to write two files in one place.
void check_paths(const DecodeOptions& options, const std::string& rejects) {
  const auto refuse = [](const std::string& path, std::string_view what, const std::string& other) {
    if (!is_stream(path) && !is_stream(other) && is_same_file(path, other)) {
      throw UsageError(std::string(what) + " '" + path + "' would be written over '" + other + "'");
    }
  };
  if (is_stream(rejects)) throw UsageError("the rejects file cannot be standard output");
  refuse(options.output, "the output", options.data);
  refuse(options.output, "the output", options.layout);
  refuse(rejects, "the rejects file", options.data);
  refuse(rejects, "the rejects file", options.layout);
  refuse(rejects, "the rejects file", options.output);
}

std::string counted(std::int64_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

Exit decode(const DecodeOptions& options) {
  const std::string rejects_name = rejects_path(options);
  check_paths(options, rejects_name);
  const Layout layout = load_layout(options.layout);
  apply(overlaid(layout.settings, options.settings));

  InputFile data(options.data);
  OutputFile out =
      is_stream(options.output) ? OutputFile::standard_output() : OutputFile(options.output);
  RejectsFile rejects_file(rejects_name);
  RecordReader reader(data, {.length = layout.record, .crlf = layout.crlf});
  Decoder decoder(layout);
  RejectLines rejects;
  std::int64_t records = 0;
  std::string text;
  CsvRows rows(text);
  decoder.header(rows);
  for (;;) {
    const std::span<const Record> block = reader.next();
    for (const Record& record : block) decoder.decode(record, rows, rejects);
    records += static_cast<std::int64_t>(block.size());
    out.write(text);
    text.clear();
    rejects_file.write(rejects.text);
    rejects.text.clear();
    if (block.empty()) break;
  }
  out.commit();
  rejects_file.commit();
  if (rejects.count == 0) return Exit::clean;
  const std::string summary = "iocv: " + counted(rejects.count, "reject") + " in " +
                              counted(records, "record") + ", see '" + rejects_name + "'\n";
  std::fputs(summary.c_str(), stderr);
  return Exit::failures;
}

}  // namespace

Command add_decode(CLI::App& tool) {
  auto options = std::make_shared<DecodeOptions>();
  CLI::App* const app = tool.add_subcommand("decode", "Decodes a file of records to CSV");
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
      "Options go before the layout's settings. Exit code: 0 clean, 1 done with rejects, 2 usage "
      "or\n"
      "layout error, 3 file trouble.");
  add_positional(*app, "LAYOUT", options->layout, "the layout file");
  add_positional(*app, "DATA", options->data, "the data file, - for standard input");
  app->add_option("-o,--output", options->output, "the CSV file, - for standard output (-)")
      ->type_name("OUT");
  app->add_option("--rejects", options->rejects,
                  "the rejects file (OUT or DATA and .rejects.jsonl)")
      ->type_name("FILE");
  add_settings(*app, options->settings);
  return {app, [options] { return decode(*options); }};
}

}  // namespace iocv::tool
