#include "decode_run.h"

#include "pipeline.h"

namespace iocv::tool {

// The analyzer does not see that a returned worker takes its members along.
// NOLINTBEGIN(clang-analyzer-cplusplus.NewDeleteLeaks)
DecodeRun::Worker DecodeRun::make_worker() {
  Worker worker{Decoder(layout_), std::make_unique<std::string>(), nullptr, {}};
  worker.rows = targets_.rows.rows(*worker.out);
  return worker;
}
// NOLINTEND(clang-analyzer-cplusplus.NewDeleteLeaks)

DecodeTotals DecodeRun::run(RecordReader& reader, std::size_t threads) {
  std::vector<Worker> workers;
  for (std::size_t i = 0; i < threads; ++i) workers.push_back(make_worker());
  const auto work = [](Worker& worker, const Block& block) {
    worker.out->clear();
    worker.rejects.clear();
    worker.decoder.decode(block, *worker.rows, *worker.out, worker.rejects);
  };
  const auto done = [this](Worker& worker, const Block& block) { return finish(worker, block); };
  Pipeline(reader, workers, work, done).run();
  if (!totals_.stopped) {
    totals_.stopped = limit_.is_passed(totals_.rejected_records, totals_.records, true);
  }
  return totals_;
}

// What the threads made of a block goes out; false when the limit is passed, at the same record
// whatever the blocks.
bool DecodeRun::finish(Worker& worker, const Block& block) {
  const RejectLines& rejects = worker.rejects;
  for (const RejectedRecord& rejected : rejects.records) {
    ++totals_.rejected_records;
    const std::int64_t number = block.record(rejected.index).number;
    if (!limit_.is_passed(totals_.rejected_records, number)) continue;
    targets_.rows.write({worker.out->data(), rejected.rows_before});
    targets_.rejects.write({rejects.text.data(), rejected.rejects_end});
    totals_.rejects += rejected.rejects_count;
    totals_.records = number;
    totals_.stopped = true;
    return false;
  }
  targets_.rows.write(*worker.out);
  targets_.rejects.write(rejects.text);
  if (targets_.rejected_records) copy_rejected(rejects, block);
  totals_.rejects += rejects.count;
  totals_.records += static_cast<std::int64_t>(block.count());
  totals_.bytes += static_cast<std::int64_t>(block.size());
  targets_.progress.show(totals_.records, totals_.bytes, totals_.rejects);
  return true;
}

void DecodeRun::copy_rejected(const RejectLines& rejects, const Block& block) {
  RejectsFile& copy = *targets_.rejected_records;
  if (last_was_rejected_) copy.write(block.rest_of_line());
  for (const RejectedRecord& rejected : rejects.records) copy.write(block.whole(rejected.index));
  if (block.count() == 0) return;  // a part of a line, of which more may come
  last_was_rejected_ =
      !rejects.records.empty() && rejects.records.back().index + 1 == block.count();
}

}  // namespace iocv::tool
