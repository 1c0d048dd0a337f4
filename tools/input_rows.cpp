#include "input_rows.h"

#include <algorithm>

#include "failure.h"

namespace iocv::tool {
namespace {

constexpr std::size_t kLongestRow = 1 << 28;

}  // namespace

Row RowBlock::row(std::size_t index) const noexcept {
  const Place place = rows_[index];
  return {first_number_ + static_cast<std::int64_t>(index), place.offset,
          std::string_view(text_).substr(place.from, place.to - place.from)};
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
  if (form == RowForm::csv) take_row(head_);
}

bool RowReader::next(RowBlock& block) {
  block.text_.clear();
  block.rows_.clear();
  block.first_number_ = number_;
  const std::int64_t start = lines_.position();
  while (block.text_.size() < block_) {
    const std::size_t from = block.text_.size();
    const std::int64_t offset = lines_.position();
    if (!take_row(block.text_)) break;
    const std::string_view row = std::string_view(block.text_).substr(from);
    if (form_ == RowForm::jsonl && row.find_first_not_of(" \t\r\n") == row.npos) {
      block.text_.resize(from);
    } else {
      block.rows_.push_back({from, block.text_.size(), offset});
    }
  }
  number_ += static_cast<std::int64_t>(block.count());
  block.size_ = static_cast<std::size_t>(lines_.position() - start);
  return block.size_ > 0;
}

// Appends a row; false at the end of the file.
bool RowReader::take_row(std::string& text) {
  const std::size_t start = text.size();
  std::size_t from = start;
  bool open = false;
  while (lines_.append_to(text)) {
    if (form_ == RowForm::jsonl) return true;
    const auto begin = text.begin() + static_cast<std::ptrdiff_t>(from);
    open ^= std::count(begin, text.end(), '"') % 2 != 0;
    if (!open) return true;
    from = text.size();
    lines_.check_length(from - start);
  }
  return text.size() > start;
}

}  // namespace iocv::tool
