#include "encode_run.h"

#include "pipeline.h"
#include "value_text.h"

namespace iocv::tool {
namespace {

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

}  // namespace

RowEncoder::RowEncoder(const Layout& layout, std::unique_ptr<RowParser> parser, OnError on_error)
    : encoder_(layout), parser_(std::move(parser)), on_error_(on_error) {}

void RowEncoder::encode(const RowBlock& block) {
  records_.clear();
  rejects_.clear();
  for (std::size_t i = 0; i < block.count(); ++i) {
    const std::size_t output_before = records_.size();
    const std::int64_t rejects_before = rejects_.count;
    encode_row(block.row(i));
    if (rejects_.count == rejects_before) continue;
    rejects_.records.push_back({i, output_before, rejects_.text.size(), rejects_.count});
  }
}

void RowEncoder::encode_row(const Row& row) {
  const std::string error = parser_->parse(row.text, values_);
  if (!error.empty()) return reject(row, nullptr, row.text, {std::nullopt, error});
  encoder_.begin();
  bool whole = true;
  for (std::size_t i = 0; i < values_.size(); ++i) {
    const std::optional<Refusal> refused = encoder_.put(i, values_[i]);
    if (!refused) continue;
    whole = false;
    reject(row, &encoder_.columns()[i], shown(values_[i]), *refused);
    if (on_error_ == OnError::blank) encoder_.put_missing(i);
  }
  if (whole || on_error_ == OnError::blank) records_ += encoder_.record();
}

void RowEncoder::reject(const Row& row, const Column* column, std::string_view raw,
                        const Refusal& refused) {
  Reject reject{row.number, row.offset, {}, {}, raw, refused.status, refused.message};
  if (column) {
    reject.field = column->name;
    reject.format = column->format_text;
  }
  append_reject(rejects_.text, reject);
  ++rejects_.count;
}

RunTotals EncodeRun::run(RowReader& reader, std::vector<std::unique_ptr<RowEncoder>>& encoders) {
  const auto work = [](auto& encoder, const RowBlock& block) { encoder->encode(block); };
  const auto done = [&](auto& encoder, const RowBlock& block) {
    return finish(*encoder, block, reader.head());
  };
  Pipeline(reader, encoders, work, done).run();
  return tally_.finish();
}

// What the threads made of a block goes out; false when the limit is passed, at the same row
// whatever the blocks.
bool EncodeRun::finish(const RowEncoder& encoder, const RowBlock& block, std::string_view head) {
  const RejectLines& rejects = encoder.rejects();
  const RejectedRecord* const last =
      tally_.add({block.first_number(), block.count(), block.size()}, rejects);
  const std::string_view records = encoder.records();
  const std::string_view lines = rejects.text;
  targets_.records.write(last ? records.substr(0, last->output_before) : records);
  targets_.rejects.write(last ? lines.substr(0, last->rejects_end) : lines);
  if (last) return false;
  if (targets_.rejected_rows && !rejects.records.empty()) {
    if (!std::exchange(head_written_, true)) targets_.rejected_rows->write(head);
    for (const RejectedRecord& rejected : rejects.records) {
      targets_.rejected_rows->write(block.row(rejected.index).text);
    }
  }
  const RunTotals& totals = tally_.totals();
  targets_.progress.show(totals.records, totals.bytes, totals.rejects);
  return true;
}

}  // namespace iocv::tool
