// Where the rejects of a run go, and how many it bears.
#pragma once

#include <string>

#include "rejects.h"
#include "run_options.h"

namespace iocv::tool {

struct RejectOptions {
  std::string rejects;
  std::string rejected_records;
  std::string max_rejects;
};

// Adds --rejects, --rejected-records and --max-rejects; `records` is what they are called.
void add_reject_options(CLI::App& command, RejectOptions& options, const std::string& records);

// The files of a run from `data`, under `layout`, to `output`. Throws UsageError when one of them
// would be written over another.
class RejectFiles {
 public:
  RejectFiles(const RejectOptions& options, const std::string& layout, const std::string& data,
              const std::string& output);

  const std::string& name() const noexcept { return rejects_.path(); }
  RejectsFile& lines() noexcept { return rejects_; }
  // Null when nobody asked for them.
  RejectsFile* records() noexcept { return records_ ? &*records_ : nullptr; }

  void commit();

 private:
  RejectsFile rejects_;
  std::optional<RejectsFile> records_;
};

// Says that the run was stopped at a record, and why, and commits the lines that tell more; nothing
// else of the run stays.
Exit report_stop(std::int64_t record, const std::string& reason, RejectFiles& files);

// Says how many rejects there are, unless it shall be quiet.
Exit report_rejects(std::int64_t rejects, std::int64_t records, const RejectFiles& files,
                    bool quiet);

}  // namespace iocv::tool
