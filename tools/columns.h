// The fields of a block of records, read field by field.
#pragma once

#include <iocv/column.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "framing.h"
#include "layout.h"
#include "typed_value.h"

namespace iocv::tool {

// A field of the layout, with all that conversions ask about it.
struct Column {
  std::string name;
  std::string format_text;
  VELT_Format format;
  Show show;
  std::size_t from;  // first byte in the record
  std::size_t width;
  bool raw;                  // bytes and no text
  bool string;               // A or AHEX
  std::size_t string_bytes;  // that a string's field stands for
};

std::vector<Column> columns_of(const Layout& layout);

// These statuses tell of something wrong in a field whose value is good all the same.
constexpr bool keeps_value(int status) noexcept { return status == 1106 || status == 1158; }

// Stands for the status of a field that its record does not hold.
inline constexpr int kAbsent = -1;

class FieldReader;

// Records of a block whose fields were read.
struct RecordRun {
  const FieldReader& fields;
  const Block& block;
  std::size_t first;  // in the block
  std::size_t count;
};

// Reads the fields of records under the library's settings, which must not change after it is made.
class FieldReader {
 public:
  explicit FieldReader(const Layout& layout);

  const std::vector<Column>& columns() const noexcept { return columns_; }

  // Reads the numbers of up to run() records; they stay until the next call.
  void read(const Block& block, std::size_t first, std::size_t count);
  std::size_t run() const noexcept { return run_; }

  // Of the index-th record read. Strings are not read in advance: their status is 0 or kAbsent.
  double value(std::size_t column, std::size_t index) const noexcept {
    return values_[column * run_ + index];
  }
  int status(std::size_t column, std::size_t index) const noexcept {
    return statuses_[column * run_ + index];
  }

  // All of them, those of a column behind each other and run() places in front of the next one's.
  const double* values() const noexcept { return values_.data(); }
  const std::int32_t* statuses() const noexcept { return statuses_.data(); }

  // The bytes of a record's field, padded where the layout says so; fewer than its width when the
  // record ends before it does and may not. Valid until the next call.
  std::string_view field(const Record& record, const Column& column);

  // The string of a field of the full width, without the blanks at its end, and its status.
  std::string_view string(const Column& column, std::string_view field, int& status);

 private:
  void read_lines(const Block& block, std::size_t first, std::size_t count);
  void read_all(std::size_t column, const char* fields, std::size_t stride, std::size_t count);
  void read_one(std::size_t column, std::size_t index, const Record& record);

  std::vector<Column> columns_;
  std::size_t end_;  // the byte behind the last field
  ShortLines short_lines_;
  column::Settings settings_;
  std::size_t run_;
  std::vector<double> values_;
  std::vector<std::int32_t> statuses_;
  std::vector<const char*> lines_;       // null for those that end before a field
  std::vector<std::size_t> short_ones_;  // of the lines
  std::vector<char> gathered_;           // a column's fields
  std::string padded_;
  StoredValue string_;
};

}  // namespace iocv::tool
