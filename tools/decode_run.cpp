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

RunTotals DecodeRun::run(RecordReader& reader, std::size_t threads) {
  std::vector<Worker> workers;
  for (std::size_t i = 0; i < threads; ++i) workers.push_back(make_worker());
  const auto work = [](Worker& worker, const Block& block) {
    worker.out->clear();
    worker.rejects.clear();
    worker.decoder.decode(block, *worker.rows, *worker.out, worker.rejects);
  };
  const auto done = [this](Worker& worker, const Block& block) { return finish(worker, block); };
  Pipeline(reader, workers, work, done).run();
  return tally_.finish();
}

// What the threads made of a block goes out; false when the limit is passed, at the same record
// whatever the blocks.
bool DecodeRun::finish(Worker& worker, const Block& block) {
  const RejectLines& rejects = worker.rejects;
  const RejectedRecord* const last =
      tally_.add({block.first_number(), block.count(), block.size()}, rejects);
  const std::string_view rows = *worker.out;
  const std::string_view lines = rejects.text;
  targets_.rows.write(last ? rows.substr(0, last->output_before) : rows);
  targets_.rejects.write(last ? lines.substr(0, last->rejects_end) : lines);
  if (last) return false;
  if (targets_.rejected_records) copy_rejected(rejects, block);
  const RunTotals& totals = tally_.totals();
  targets_.progress.show(totals.records, totals.bytes, totals.rejects);
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
