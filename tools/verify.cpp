#include "verify.h"

#include <algorithm>

#include "json.h"

namespace iocv::tool {
namespace {

std::string hex_of(std::string_view bytes) {
  std::string text;
  append_hex(text, bytes, " ");
  return text.empty() ? "nothing" : text;
}

std::string_view part(std::string_view bytes, std::size_t from, std::size_t length) {
  return from < bytes.size() ? bytes.substr(from, length) : std::string_view();
}

}  // namespace

void Differences::add(const Differences& later) {
  if (first.empty()) first = later.first;
  records += later.records;
  rejected += later.rejected;
}

Verifier::Verifier(const Layout& layout, bool gaps)
    : gaps_(gaps), lines_(layout.lines()), decoder_(layout), encoder_(layout) {}

void Verifier::verify(const Block& block) {
  found_ = {};
  rows_.clear();
  rejects_.clear();
  decoder_.decode(block, rows_, {}, rejects_);
  auto rejected = rejects_.records.begin();
  std::size_t rejects_seen = 0;
  const std::size_t fields = encoder_.columns().size();
  for (std::size_t i = 0; i < block.count(); ++i) {
    if (rejected != rejects_.records.end() && rejected->index == i) {
      note_reject(block.record(i), rejects_seen);
      rejects_seen = rejected++->rejects_end;
    } else {
      compare(block.record(i), {rows_.values().data() + i * fields, fields});
    }
  }
}

void Verifier::note(const Record& record, std::size_t from, const std::string& sentence) {
  ++found_.records;
  if (!found_.first.empty()) return;
  found_.first = "record " + std::to_string(record.number) + ", offset " +
                 std::to_string(record.offset + static_cast<std::int64_t>(from)) + ": " + sentence +
                 "\n";
}

// Tells of the first of the record's rejects, which begin at `from`.
void Verifier::note_reject(const Record& record, std::size_t from) {
  const std::string_view rejects = std::string_view(rejects_.text).substr(from);
  note(record, 0, "it does not decode, " + std::string(rejects.substr(0, rejects.find('\n'))));
  ++found_.rejected;
}

void Verifier::compare(const Record& record, std::span<const Given> values) {
  encoder_.begin();
  for (std::size_t i = 0; i < values.size(); ++i) {
    const std::optional<Refusal> refused = encoder_.put(i, values[i]);
    if (!refused) continue;
    const Column& column = encoder_.columns()[i];
    return note(record, column.from,
                "\"" + column.name + "\" does not encode: " + refused->message);
  }
  std::string_view again = encoder_.record();
  if (lines_) again.remove_suffix(again.ends_with("\r\n") ? 2 : 1);
  for (const Column& column : encoder_.columns()) {
    const std::string_view before = part(record.bytes, column.from, column.width);
    const std::string_view after = part(again, column.from, column.width);
    if (before == after) continue;
    return note(
        record, column.from,
        "\"" + column.name + "\" is " + hex_of(before) + ", and comes back as " + hex_of(after));
  }
  if (gaps_ && record.bytes != again) compare_gaps(record, again);
}

void Verifier::compare_gaps(const Record& record, std::string_view again) {
  const auto [here, there] =
      std::mismatch(record.bytes.begin(), record.bytes.end(), again.begin(), again.end());
  const auto at = static_cast<std::size_t>(here - record.bytes.begin());
  note(record, at,
       "byte " + std::to_string(at + 1) + " of no field is " + hex_of(part(record.bytes, at, 1)) +
           ", and comes back as " + hex_of(part(again, at, 1)));
}

}  // namespace iocv::tool
