#include "framing.h"

#include <algorithm>

namespace iocv::tool {
namespace {

// A block holds whole records of a fixed length, at least one.
std::size_t block_for(const Framing& framing, std::size_t block) {
  const auto length = static_cast<std::size_t>(framing.length);
  if (length == 0) return block;
  return std::max<std::size_t>(block / length, 1) * length;
}

}  // namespace

RecordReader::RecordReader(InputFile& file, Framing framing, std::size_t block)
    : file_(file), framing_(framing), buffer_(block_for(framing, block)) {}

std::span<const Record> RecordReader::next() {
  records_.clear();
  while (records_.empty() && (!rest_.empty() || !at_end_)) {
    fill();
    if (framing_.length > 0) {
      cut_records();
    } else {
      cut_lines();
    }
  }
  return records_;
}

// Moves what is not yet cut to the front of the buffer and reads the bytes behind it.
void RecordReader::fill() {
  std::copy(rest_.begin(), rest_.end(), buffer_.begin());
  const std::size_t kept = rest_.size();
  const std::size_t room = buffer_.size() - kept;
  const std::size_t got = at_end_ ? 0 : file_.read(std::span(buffer_).subspan(kept));
  at_end_ = at_end_ || got < room;
  rest_ = {buffer_.data(), kept + got};
}

void RecordReader::cut_records() {
  const auto length = static_cast<std::size_t>(framing_.length);
  while (!rest_.empty()) {
    const std::size_t bytes = std::min(length, rest_.size());
    deliver(bytes);
    skip(bytes);
  }
}

void RecordReader::cut_lines() {
  if (inside_ && !skip_rest_of_line()) return;
  for (;;) {
    const std::size_t line = rest_.find('\n');
    if (line == rest_.npos) break;
    const bool cr = framing_.crlf && line > 0 && rest_[line - 1] == '\r';
    deliver(cr ? line - 1 : line);
    skip(line + 1);
  }
  const bool full = rest_.size() == buffer_.size();
  if (rest_.empty() || !(at_end_ || full)) return;
  deliver(rest_.size());
  skip(rest_.size());
  inside_ = !at_end_;
}

// Drops the bytes up to the line feed; false when it is not in the buffer.
bool RecordReader::skip_rest_of_line() {
  const std::size_t line = rest_.find('\n');
  inside_ = line == rest_.npos;
  skip(inside_ ? rest_.size() : line + 1);
  return !inside_;
}

void RecordReader::deliver(std::size_t length) {
  records_.push_back({++number_, offset_, rest_.substr(0, length)});
}

void RecordReader::skip(std::size_t length) {
  rest_.remove_prefix(length);
  offset_ += static_cast<std::int64_t>(length);
}

}  // namespace iocv::tool
