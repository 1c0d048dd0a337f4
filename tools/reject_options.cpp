#include "reject_options.h"

#include "failure.h"

namespace iocv::tool {
namespace {

constexpr std::string_view kSuffix = ".rejects.jsonl";

std::string rejects_name(const RejectOptions& options, const std::string& data,
                         const std::string& output) {
  if (!options.rejects.empty()) return options.rejects;
  const std::string& named = output == "-" ? data : output;
  return (named == "-" ? "stdin" : named) + std::string(kSuffix);
}

}  // namespace

void add_reject_options(CLI::App& command, RejectOptions& options, const std::string& records) {
  command
      .add_option("--rejects", options.rejects, "the rejects file (OUT or DATA and .rejects.jsonl)")
      ->type_name("FILE");
  command
      .add_option("--rejected-records", options.rejected_records,
                  "copies the " + records + " that have rejects, byte for byte")
      ->type_name("FILE");
  command
      .add_option("--max-rejects", options.max_rejects,
                  "stop when more " + records + " than N, or than P of a hundred, have rejects")
      ->type_name("N|P%");
}

RejectFiles::RejectFiles(const RejectOptions& options, const std::string& layout,
                         const std::string& data, const std::string& output)
    : rejects_(rejects_name(options, data, output)) {
  const std::string& copy = options.rejected_records;
  if (name() == "-") throw UsageError("the rejects file cannot be standard output");
  if (copy == "-") throw UsageError("the rejected records cannot go to standard output");
  for (const std::string& input : {data, layout}) {
    refuse_same("output", output, input);
    refuse_same("rejects file", name(), input);
    refuse_same("file of rejected records", copy, input);
  }
  refuse_same("rejects file", name(), output);
  refuse_same("file of rejected records", copy, output);
  refuse_same("file of rejected records", copy, name());
  if (!copy.empty()) records_.emplace(copy);
}

void RejectFiles::commit() {
  rejects_.commit();
  if (records_) records_->commit();
}

Exit report_stop(std::int64_t record, const std::string& reason, RejectFiles& files) {
  files.lines().commit();
  const std::string text = "iocv: stopped at record " + std::to_string(record) + ": " + reason +
                           ", see '" + files.name() + "'\n";
  std::fputs(text.c_str(), stderr);
  return Exit::failures;
}

Exit report_rejects(std::int64_t rejects, std::int64_t records, const RejectFiles& files,
                    bool quiet) {
  if (rejects == 0) return Exit::clean;
  const std::string text = "iocv: " + counted(rejects, "reject") + " in " +
                           counted(records, "record") + ", see '" + files.name() + "'\n";
  if (!quiet) std::fputs(text.c_str(), stderr);
  return Exit::failures;
}

}  // namespace iocv::tool
