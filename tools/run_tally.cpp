#include "run_tally.h"

namespace iocv::tool {

const RejectedRecord* RunTally::add(const TallyBlock& block, const RejectLines& rejects) {
  for (const RejectedRecord& rejected : rejects.records) {
    const std::int64_t number = block.first_number + static_cast<std::int64_t>(rejected.index);
    if (!limit_.is_passed(++totals_.rejected_records, number)) continue;
    totals_.rejects += rejected.rejects_count;
    totals_.records = number;
    totals_.stopped = true;
    return &rejected;
  }
  totals_.rejects += rejects.count;
  totals_.records += static_cast<std::int64_t>(block.records);
  totals_.bytes += static_cast<std::int64_t>(block.bytes);
  return nullptr;
}

const RunTotals& RunTally::finish() {
  if (!totals_.stopped) {
    totals_.stopped = limit_.is_passed(totals_.rejected_records, totals_.records, true);
  }
  return totals_;
}

}  // namespace iocv::tool
