// A file decoded on several threads: rows, rejects and rejected records in the order of the file.
#pragma once

#include <memory>
#include <string>

#include "decode.h"
#include "output.h"
#include "progress.h"
#include "run_tally.h"

namespace iocv::tool {

// Where the results of a run go.
struct DecodeTargets {
  Output& rows;
  RejectsFile& rejects;
  RejectsFile* rejected_records;  // may be null
  Progress& progress;
};

class DecodeRun {
 public:
  DecodeRun(const Layout& layout, DecodeTargets targets, RejectLimit limit)
      : layout_(layout), targets_(targets), tally_(std::move(limit)) {}

  // Decodes all records, or those before the one that passes the limit; of that one the rejects
  // are written, too. Commits nothing.
  RunTotals run(RecordReader& reader, std::size_t threads);

 private:
  struct Worker {
    Decoder decoder;
    std::unique_ptr<std::string> out;  // stays where it is when the worker moves
    std::unique_ptr<Rows> rows;
    RejectLines rejects;
  };

  Worker make_worker();
  bool finish(Worker& worker, const Block& block);
  void copy_rejected(const RejectLines& rejects, const Block& block);

  const Layout& layout_;
  DecodeTargets targets_;
  RunTally tally_;
  bool last_was_rejected_ = false;
};

}  // namespace iocv::tool
