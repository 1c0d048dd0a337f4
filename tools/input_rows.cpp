#include "input_rows.h"

#include <algorithm>

#include "failure.h"

namespace iocv::tool {
namespace {

constexpr std::size_t kLongestRow = 1 << 28;

}  // namespace

void RowBlock::begin(std::int64_t number, std::int64_t offset) {
  text_.clear();
  rows_.clear();
  number_ = number;
  offset_ = offset;
  size_ = 0;
}

void RowBlock::add(std::string_view row) {
  rows_.push_back({text_.size(), row.size(), size_});
  text_ += row;
  size_ += row.size();
}

Row RowBlock::row(std::size_t index) const noexcept {
  const Place place = rows_[index];
  return {number_ + static_cast<std::int64_t>(index),
          offset_ + static_cast<std::int64_t>(place.offset),
          std::string_view(text_).substr(place.from, place.length)};
}

bool Lines::append_to(std::string& text) {
  const std::size_t before = text.size();
  for (;;) {
    if (rest_.empty()) {
      rest_ = {buffer_.data(), file_.read(buffer_)};
      if (rest_.empty()) break;
    }
    const std::size_t feed = rest_.find('\n');
    const std::size_t length = feed == rest_.npos ? rest_.size() : feed + 1;
    text += rest_.substr(0, length);
    rest_.remove_prefix(length);
    if (feed != rest_.npos) break;
    check_length(text.size() - before);
  }
  position_ += static_cast<std::int64_t>(text.size() - before);
  return text.size() > before;
}

void Lines::check_length(std::size_t row) const {
  if (row > kLongestRow) throw FileError("read", file_.name(), "a row has no end");
}

RowReader::RowReader(InputFile& file, RowForm form, std::size_t block)
    : lines_(file), form_(form), block_(block) {
  if (form == RowForm::csv && take_row()) head_ = row_;
}

bool RowReader::next(RowBlock& block) {
  block.begin(number_, lines_.position());
  while (block.size() < block_ && take_row()) {
    const bool blank = row_.find_first_not_of(" \t\r\n") == row_.npos;
    if (form_ == RowForm::jsonl && blank) {
      block.add_other(row_.size());
    } else {
      block.add(row_);
    }
  }
  number_ += static_cast<std::int64_t>(block.count());
  return block.size() > 0;
}

// False at the end of the file.
bool RowReader::take_row() {
  row_.clear();
  std::size_t from = 0;
  bool open = false;
  while (lines_.append_to(row_)) {
    if (form_ == RowForm::jsonl) return true;
    const auto begin = row_.begin() + static_cast<std::ptrdiff_t>(from);
    open ^= std::count(begin, row_.end(), '"') % 2 != 0;
    if (!open) return true;
    from = row_.size();
    lines_.check_length(from);
  }
  return !row_.empty();
}

}  // namespace iocv::tool
