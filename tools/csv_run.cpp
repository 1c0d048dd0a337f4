#include "csv_run.h"

#include <iocv/convert.h>

#include <algorithm>
#include <bit>
#include <cstring>

#include "common_text.h"
#include "format_traits.h"

namespace iocv::tool {
namespace {

constexpr std::size_t kLongestRow = 1 << 16;
constexpr std::size_t kRowsAtATime = 1 << 16;  // bytes, before they are appended

// A bit in each zero byte, and perhaps in bytes above the lowest of them.
constexpr std::uint64_t zeros(std::uint64_t word) noexcept {
  return (word - common::bytes_of('\1')) & ~word & common::bytes_of('\x80');
}

// No zero byte, none beyond ASCII and none that wants quotes.
constexpr bool is_ordinary(std::uint64_t word) noexcept {
  const std::uint64_t strange =
      zeros(word) | zeros(word ^ common::bytes_of(',')) | zeros(word ^ common::bytes_of('"')) |
      zeros(word ^ common::bytes_of('\n')) | zeros(word ^ common::bytes_of('\r')) |
      (word & common::bytes_of('\x80'));
  return strange == 0;
}

// Writes a text without the blanks at its end; null when it is not ordinary.
class OrdinaryText {
 public:
  OrdinaryText(char* at, std::string_view text) noexcept : at_(at), text_(text) {}

  char* put() noexcept {
    std::size_t done = 0;
    for (; done + 8 <= text_.size(); done += 8) copy(done, 8);
    if (done < text_.size()) copy(done, text_.size() - done);
    return good_ ? at_ + end_ : nullptr;
  }

 private:
  void copy(std::size_t offset, std::size_t count) noexcept {
    std::uint64_t word = common::bytes_of(' ');
    std::memcpy(&word, text_.data() + offset, count);
    std::memcpy(at_ + offset, &word, sizeof word);
    good_ &= is_ordinary(word);
    const std::uint64_t filled = word ^ common::bytes_of(' ');
    const auto last = static_cast<std::size_t>(71 - std::countl_zero(filled | 1)) / 8;  // [1, 8]
    end_ = filled != 0 ? offset + last : end_;
  }

  char* at_;
  std::string_view text_;
  std::size_t end_ = 0;
  bool good_ = true;
};

}  // namespace

CsvRunRows::CsvRunRows(const Layout& layout, std::string& out)
    : CsvRows(out),
      out_(out),
      record_bytes_(static_cast<std::size_t>(layout.record)),
      missing_(VELT_SystemMissing().bits) {
  std::size_t room = 1;
  bool ordinary = common::kWordsAreTexts;
  for (const Column& column : columns_of(layout)) {
    const bool text = column.string || column.show == Show::text;
    const Look look = column.string              ? Look::string
                      : text                     ? Look::text
                      : column.show == Show::iso ? Look::moment
                                                 : Look::number;
    cells_.push_back({look, iso_form(column.format.TypeEx()), column.from, column.width});
    record_bytes_ = std::max(record_bytes_, column.from + column.width);
    room += 1 + (text ? column.width + 8 : kCommonRoom);
    ordinary = ordinary && column.format.TypeEx() != VELT_Format::AHEX;
  }
  if (!ordinary || room > kLongestRow) return;
  row_room_ = room + kCommonRoom;
  rows_.resize(kRowsAtATime + row_room_);
}

std::size_t CsvRunRows::take_ordinary(const RecordRun& run, std::size_t first) {
  if (row_room_ == 0) return 0;
  char* const begin = rows_.data();
  char* at = begin;
  std::size_t index = first;
  for (; index < run.count; ++index) {
    char* const end = put_row(at, run, index);
    if (!end) break;
    at = end;
    if (at < begin + kRowsAtATime) continue;
    out_.append(begin, at);
    at = begin;
  }
  out_.append(begin, at);
  return index - first;
}

char* CsvRunRows::put_row(char* at, const RecordRun& run, std::size_t index) {
  const std::string_view record = run.block.record(run.first + index).bytes;
  if (record.size() < record_bytes_) return nullptr;
  const char* const start = at;
  const std::size_t step = run.fields.run();  // from column to column
  const std::int32_t* status = run.fields.statuses() + index;
  const double* value = run.fields.values() + index;
  for (const Cell& cell : cells_) {
    if (*status != 0) return nullptr;
    at = put_cell(at, cell, record, *value);
    status += step;
    value += step;
    if (!at) return nullptr;
    *at++ = ',';
  }
  if (cells_.size() == 1 && at == start + 1) {  // an empty line would be no row to many readers
    at = std::copy_n("\"\"", 2, at - 1) + 1;
  }
  at[-1] = '\n';
  return at;
}

char* CsvRunRows::put_cell(char* at, const Cell& cell, std::string_view record, double value) {
  const std::string_view field(record.data() + cell.from, cell.width);
  if (cell.look == Look::string) return OrdinaryText(at, field).put();
  if (std::bit_cast<std::uint64_t>(value) == missing_) return at;
  switch (cell.look) {
    case Look::number: {
      char* const end = put_common_number(at, value);
      return end ? end : put_number(at, value);
    }
    case Look::moment: {
      char* const end = put_common_iso(at, value, cell.form);
      return end ? end : put_moment(at, value, cell.form);
    }
    case Look::text:
    case Look::string: break;
  }
  return OrdinaryText(at, field.substr(std::min(field.find_first_not_of(' '), field.size()))).put();
}

char* CsvRunRows::put_moment(char* at, double value, IsoForm form) {
  scratch_.clear();
  if (!append_iso(scratch_, value, form) || scratch_.size() > kCommonRoom) return nullptr;
  return std::copy(scratch_.begin(), scratch_.end(), at);
}

}  // namespace iocv::tool
