#include "columns.h"

#include <iocv/convert.h>

#include <algorithm>
#include <cstring>

#include "format_traits.h"

namespace iocv::tool {
namespace {

static_assert(kLongestRecord < RecordReader::kLongestLine, "a line is never cut inside a field");

// Values of a run stay near the processor, whatever the number of fields.
constexpr std::size_t kValuesAtATime = 8192;
constexpr std::size_t kLongestRun = 512;

Column column_of(const LayoutField& field) {
  const std::size_t width = field.format.Width();
  const bool hex = field.format.TypeEx() == VELT_Format::AHEX;
  return {.name = field.name,
          .format_text = format_to_text(field.format),
          .format = field.format,
          .show = field.show,
          .from = static_cast<std::size_t>(field.at - 1),
          .width = width,
          .raw = is_raw(field.format.TypeEx()),
          .string = field.format.IsString(),
          .string_bytes = hex ? width / 2 : width};
}

std::size_t end_of(const std::vector<Column>& columns) {
  std::size_t end = 0;
  for (const Column& column : columns) end = std::max(end, column.from + column.width);
  return end;
}

std::size_t widest(const std::vector<Column>& columns) {
  std::size_t bytes = 0;
  for (const Column& column : columns) bytes = std::max(bytes, column.width);
  return bytes;
}

// Neither a zero byte nor one beyond ASCII: such a string reads as it stands in every code page.
bool is_plain(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) {
    return static_cast<unsigned char>(static_cast<unsigned char>(c) - 1) < 127;
  });
}

}  // namespace

std::vector<Column> columns_of(const Layout& layout) {
  std::vector<Column> columns;
  for (const LayoutField& field : layout.fields) columns.push_back(column_of(field));
  return columns;
}

FieldReader::FieldReader(const Layout& layout)
    : columns_(columns_of(layout)),
      end_(end_of(columns_)),
      short_lines_(layout.short_lines),
      settings_(column::Settings::current()),
      run_(std::clamp<std::size_t>(kValuesAtATime / columns_.size(), 1, kLongestRun)),
      values_(columns_.size() * run_),
      statuses_(columns_.size() * run_),
      string_(widest(columns_)) {}

std::string_view FieldReader::field(const Record& record, const Column& column) {
  const std::size_t there = record.bytes.size();
  const std::string_view bytes =
      column.from < there ? record.bytes.substr(column.from, column.width) : std::string_view();
  if (bytes.size() == column.width || column.raw) return bytes;
  const bool may_pad =
      bytes.empty() ? short_lines_ != ShortLines::reject : short_lines_ == ShortLines::pad;
  if (!may_pad) return bytes;
  padded_.assign(bytes);
  padded_.resize(column.width, ' ');
  return padded_;
}

std::string_view FieldReader::string(const Column& column, std::string_view field, int& status) {
  status = 0;
  if (column.format.TypeEx() == VELT_Format::A && is_plain(field)) {
    return field.substr(0, field.find_last_not_of(' ') + 1);
  }
  status = FromString(field.data(), column.format, string_.get());
  return string_.trimmed(column.string_bytes);
}

void FieldReader::read_one(std::size_t column, std::size_t index, const Record& record) {
  const std::string_view bytes = field(record, columns_[column]);
  OBS value = VELT_SystemMissing();
  int status = 0;
  if (bytes.size() < columns_[column].width) {
    status = kAbsent;
  } else if (!columns_[column].string) {
    status = FromString(bytes.data(), columns_[column].format, &value);
  }
  values_[column * run_ + index] = value.number;
  statuses_[column * run_ + index] = status;
}

void FieldReader::read(const Block& block, std::size_t first, std::size_t count) {
  if (block.stride() == 0) return read_lines(block, first, count);
  const std::size_t whole = std::min(count, block.whole_records() - first);
  for (std::size_t column = 0; column < columns_.size(); ++column) {
    if (whole > 0) {
      const char* const records = block.record(first).bytes.data();
      read_all(column, records + columns_[column].from, block.stride(), whole);
    }
    for (std::size_t i = whole; i < count; ++i) read_one(column, i, block.record(first + i));
  }
}

// The fields of lines stand anywhere: those of a column are copied behind each other. Lines that
// end before the last field are left out, and read field by field.
void FieldReader::read_lines(const Block& block, std::size_t first, std::size_t count) {
  lines_.clear();
  short_ones_.clear();
  for (std::size_t i = 0; i < count; ++i) {
    const std::string_view line = block.record(first + i).bytes;
    if (line.size() < end_) short_ones_.push_back(i);
    lines_.push_back(line.size() < end_ ? nullptr : line.data());
  }
  for (std::size_t column = 0; column < columns_.size(); ++column) {
    const std::size_t width = columns_[column].width;
    if (!columns_[column].string) {
      gathered_.resize(std::max(gathered_.size(), count * width));
      for (std::size_t i = 0; i < count; ++i) {
        if (!lines_[i]) continue;
        std::memcpy(&gathered_[i * width], lines_[i] + columns_[column].from, width);
      }
    }
    read_all(column, gathered_.data(), width, count);
    for (const std::size_t i : short_ones_) read_one(column, i, block.record(first + i));
  }
}

void FieldReader::read_all(std::size_t index, const char* fields, std::size_t stride,
                           std::size_t count) {
  const Column& column = columns_[index];
  std::int32_t* const statuses = &statuses_[index * run_];
  if (column.string) {
    std::fill_n(statuses, count, 0);
    return;
  }
  column::read(fields, stride, count, column.format, settings_, &values_[index * run_], statuses);
}

}  // namespace iocv::tool
