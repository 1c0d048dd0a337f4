// What a run over a file has done, and whether it must stop.
#pragma once

#include <cstdint>
#include <string_view>

#include "rejects.h"
#include "run_options.h"

namespace iocv::tool {

struct RunTotals {
  std::int64_t records = 0;
  std::int64_t bytes = 0;
  std::int64_t rejects = 0;
  std::int64_t rejected_records = 0;
  bool stopped = false;  // by the limit, at the last of the records
};

// Some records of the file, in its order.
struct TallyBlock {
  std::int64_t first_number;
  std::size_t records;
  std::size_t bytes;
};

class RunTally {
 public:
  explicit RunTally(RejectLimit limit) : limit_(std::move(limit)) {}

  // Adds a block and its rejects. Where one of its records passes the limit, the run ends with it:
  // what comes after is not counted, and the record is returned; else null.
  const RejectedRecord* add(const TallyBlock& block, const RejectLines& rejects);

  // No more blocks follow.
  const RunTotals& finish();
  const RunTotals& totals() const noexcept { return totals_; }

 private:
  RejectLimit limit_;
  RunTotals totals_;
};

}  // namespace iocv::tool
