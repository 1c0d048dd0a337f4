// Rows encoded on several threads: records, rejects and rejected rows in the order of the file.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "encode.h"
#include "progress.h"
#include "run_tally.h"

namespace iocv::tool {

// What becomes of a row with rejects.
enum class OnError {
  stop,   // it ends the run
  skip,   // it makes no record
  blank,  // the missing value stands in the fields that were rejected
};

// Encodes blocks of rows; each thread has one of its own.
class RowEncoder {
 public:
  RowEncoder(const Layout& layout, std::unique_ptr<RowParser> parser, OnError on_error);

  // Makes records of a block's rows, and rejects of what does not fit.
  void encode(const RowBlock& block);

  const std::string& records() const noexcept { return records_; }
  const RejectLines& rejects() const noexcept { return rejects_; }

 private:
  void encode_row(const Row& row);
  void reject(const Row& row, const Column* column, std::string_view raw, const Refusal& refused);

  Encoder encoder_;
  std::unique_ptr<RowParser> parser_;
  OnError on_error_;
  std::vector<Given> values_;
  std::string records_;
  RejectLines rejects_;
};

// Where the results of a run go.
struct EncodeTargets {
  OutputFile& records;
  RejectsFile& rejects;
  RejectsFile* rejected_rows;  // may be null
  Progress& progress;
};

class EncodeRun {
 public:
  EncodeRun(EncodeTargets targets, RejectLimit limit)
      : targets_(targets), tally_(std::move(limit)) {}

  // Encodes all rows, or those before the one that passes the limit; of that one the rejects are
  // written, too. Commits nothing.
  RunTotals run(RowReader& reader, std::vector<std::unique_ptr<RowEncoder>>& encoders);

 private:
  bool finish(const RowEncoder& encoder, const RowBlock& block, std::string_view head);

  EncodeTargets targets_;
  RunTally tally_;
  bool head_written_ = false;
};

}  // namespace iocv::tool
