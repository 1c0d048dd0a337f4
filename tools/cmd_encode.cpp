// iocv encode: CSV or JSON Lines to a file of fixed-width records.

#include "encode.h"
#include "failure.h"
#include "output.h"
#include "progress.h"
#include "reject_options.h"
#include "value_text.h"

namespace iocv::tool {
namespace {

enum class OnError { stop, skip, blank };

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

std::unique_ptr<RowSource> open_rows(const EncodeOptions& options, InputFile& file,
                                     const Layout& layout) {
  switch (options.from.empty() ? form_of_name(options.data) : form_named(options.from)) {
    case OutputForm::csv: return csv_source(file, layout);
    case OutputForm::jsonl: return json_source(file, layout);
    case OutputForm::sqlite: break;
  }
  throw UsageError("records are encoded from csv and jsonl, not from a database");
}

std::string shown(const Given& given) {
  switch (given.kind) {
    case Given::Kind::missing: return {};
    case Given::Kind::text: return given.text;
    case Given::Kind::number: break;
  }
  std::string text;
  append_number(text, given.number);
  return text;
}

class EncodeRun {
 public:
  EncodeRun(const Layout& layout, OutputFile& out, RejectFiles& files, OnError on_error,
            RejectLimit limit)
      : encoder_(layout), out_(out), files_(files), on_error_(on_error), limit_(std::move(limit)) {}

  // False when the run was stopped.
  bool run(RowSource& rows, Progress& progress) {
    InputRow row = {};
    while (rows.next(row)) {
      ++records_;
      const std::int64_t before = rejects_;
      const bool written = encode(row);
      if (written) buffer_ += encoder_.record();
      if (rejects_ != before && !bear(row, rows.head())) return false;
      if (buffer_.size() >= kPiece) flush();
      if (records_ % kRecordsAShow == 0) progress.show(records_, rows.position(), rejects_);
    }
    flush();
    return !limit_.is_passed(rejected_records_, records_, true);
  }

  std::int64_t records() const noexcept { return records_; }
  std::int64_t rejects() const noexcept { return rejects_; }
  std::string reason() const {
    return on_error_ == OnError::stop ? "it has rejects" : limit_.sentence();
  }

 private:
  static constexpr std::size_t kPiece = 1 << 18;
  static constexpr std::int64_t kRecordsAShow = 1000;

  // True when the row makes a record.
  bool encode(const InputRow& row) {
    if (!row.error.empty()) {
      reject(row, nullptr, row.raw, {std::nullopt, row.error});
      return false;
    }
    encoder_.begin();
    bool whole = true;
    for (std::size_t i = 0; i < row.values.size(); ++i) {
      const std::optional<Refusal> refused = encoder_.put(i, row.values[i]);
      if (!refused) continue;
      whole = false;
      reject(row, &encoder_.columns()[i], shown(row.values[i]), *refused);
      if (on_error_ == OnError::blank) encoder_.put_missing(i);
    }
    return whole || on_error_ == OnError::blank;
  }

  void reject(const InputRow& row, const Column* column, std::string_view raw,
              const Refusal& refused) {
    std::string line;
    Reject reject{row.number, row.offset, {}, {}, raw, refused.status, refused.message};
    if (column) {
      reject.field = column->name;
      reject.format = column->format_text;
    }
    append_reject(line, reject);
    files_.lines().write(line);
    ++rejects_;
  }

  // Notes a row with rejects; false when it is one too many.
  bool bear(const InputRow& row, std::string_view head) {
    if (RejectsFile* const copy = files_.records()) {
      if (rejected_records_ == 0) copy->write(head);
      copy->write(row.raw);
    }
    ++rejected_records_;
    return on_error_ != OnError::stop && !limit_.is_passed(rejected_records_, row.number);
  }

  void flush() {
    out_.write(buffer_);
    buffer_.clear();
  }

  Encoder encoder_;
  OutputFile& out_;
  RejectFiles& files_;
  OnError on_error_;
  RejectLimit limit_;
  std::string buffer_;
  std::int64_t records_ = 0;
  std::int64_t rejects_ = 0;
  std::int64_t rejected_records_ = 0;
};

Exit encode(const EncodeOptions& options) {
  RejectFiles files(options.rejects, options.layout, options.data, options.output);
  const OnError on_error = on_error_named(options.on_error);
  const RejectLimit limit = RejectLimit::parse(options.rejects.max_rejects);
  const Layout layout = load_layout(options.layout);
  apply(overlaid(layout.settings, options.settings));
  InputFile data(options.data);
  const std::unique_ptr<RowSource> rows = open_rows(options, data, layout);
  OutputFile out =
      options.output == "-" ? OutputFile::standard_output() : OutputFile(options.output);
  EncodeRun run(layout, out, files, on_error, limit);
  bool whole = false;
  {
    Progress progress(data.size(), options.run.quiet, options.run.progress);
    whole = run.run(*rows, progress);
  }
  if (!whole) return report_stop(run.records(), run.reason(), files);
  out.commit();
  files.commit();
  return report_rejects(run.rejects(), run.records(), files, options.run.quiet);
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
  add_progress_options(*app, options->run);
  add_settings(*app, options->settings);
  return {app, [options] { return encode(*options); }};
}

}  // namespace iocv::tool
