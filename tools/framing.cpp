#include "framing.h"

#include <algorithm>
#include <cstring>

namespace iocv::tool {

Record Block::record(std::size_t index) const noexcept {
  const auto number = number_ + static_cast<std::int64_t>(index);
  const Line line = length_ == 0
                        ? lines_[index]
                        : Line{index * length_, std::min((index + 1) * length_, bytes_.size()), 0};
  return {number, offset_ + static_cast<std::int64_t>(line.from),
          bytes_.substr(line.from, line.to - line.from)};
}

std::string_view Block::whole(std::size_t index) const noexcept {
  if (length_ != 0) return record(index).bytes;
  return bytes_.substr(lines_[index].from, lines_[index].end - lines_[index].from);
}

std::size_t Block::whole_records() const noexcept {
  return length_ == 0 ? count_ : bytes_.size() / length_;
}

RecordReader::RecordReader(InputFile& file, Framing framing, std::size_t block,
                           std::size_t longest_line)
    : file_(file),
      framing_(framing),
      block_(std::max<std::size_t>(block, 1)),
      longest_line_(std::max(block_, longest_line)) {
  // A block holds whole records of a fixed length, at least one.
  const auto length = static_cast<std::size_t>(framing.length);
  if (length > 0) block_ = std::max<std::size_t>(block_ / length, 1) * length;
}

void RecordReader::skip_records(std::int64_t count) {
  offset_ += file_.skip(count * framing_.length);
  number_ += count;
}

bool RecordReader::next(Block& block) {
  block.number_ = number_;
  block.offset_ = offset_;
  block.count_ = 0;
  block.rest_ = 0;
  block.length_ = static_cast<std::size_t>(framing_.length);
  block.lines_.clear();
  block.bytes_ = {};
  if (at_end_ && carried_.empty()) return false;
  if (framing_.length > 0) {
    take_records(block);
  } else {
    take_lines(block);
  }
  number_ += static_cast<std::int64_t>(block.count_);
  offset_ += static_cast<std::int64_t>(block.size());
  return block.size() > 0;
}

// Reads until the block's storage holds `to` bytes or the file ends; tells how many it holds.
std::size_t RecordReader::fill(Block& block, std::size_t from, std::size_t to) {
  if (block.storage_.size() < to) block.storage_.resize(to);
  const std::size_t got = file_.read({block.storage_.data() + from, to - from});
  at_end_ = got < to - from;
  return from + got;
}

void RecordReader::take_records(Block& block) {
  const std::size_t filled = fill(block, 0, block_);
  block.bytes_ = {block.storage_.data(), filled};
  block.count_ = (filled + block.length_ - 1) / block.length_;
}

void RecordReader::take_lines(Block& block) {
  if (block.storage_.size() < carried_.size()) block.storage_.resize(carried_.size());
  std::copy(carried_.begin(), carried_.end(), block.storage_.begin());
  std::size_t filled = carried_.size();
  carried_.clear();
  const void* last = nullptr;  // line feed
  while (!last && !at_end_ && filled < longest_line_) {
    const std::size_t before = filled;
    filled = fill(block, filled, std::min(std::max(block_, 2 * filled), longest_line_));
    last = ::memrchr(block.storage_.data() + before, '\n', filled - before);
  }
  const char* const data = block.storage_.data();
  std::size_t end = filled;
  if (last && !at_end_) {
    end = static_cast<std::size_t>(static_cast<const char*>(last) - data) + 1;
    carried_.assign(data + end, filled - end);
  }
  block.bytes_ = {data, end};
  cut_lines(block, end);
}

// Cuts all bytes of the block; what follows the last line feed is a record, too.
void RecordReader::cut_lines(Block& block, std::size_t end) {
  const std::string_view bytes = block.bytes_;
  std::size_t from = 0;
  while (from < end) {
    const std::size_t feed = bytes.find('\n', from);
    const bool ended = feed != bytes.npos;
    const std::size_t behind = ended ? feed + 1 : end;
    if (inside_) {
      block.rest_ = behind;
    } else {
      const bool cr = ended && framing_.crlf && feed > from && bytes[feed - 1] == '\r';
      block.lines_.push_back({from, ended ? feed - (cr ? 1 : 0) : end, behind});
    }
    inside_ = !ended;
    from = behind;
  }
  block.count_ = block.lines_.size();
}

}  // namespace iocv::tool
