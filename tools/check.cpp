#include "check.h"

#include <algorithm>
#include <cmath>

#include "value_text.h"

namespace iocv::tool {
namespace {

template <class T, class Value>
void lower(std::optional<T>& least, const Value& value) {
  if (!least || value < *least) least = T(value);
}

template <class T, class Value>
void raise(std::optional<T>& most, const Value& value) {
  if (!most || *most < value) most = T(value);
}

}  // namespace

void FieldCounts::add(const FieldCounts& later) {
  read += later.read;
  missing += later.missing;
  for (const auto& [status, count] : later.failed) failed[status] += count;
  if (!first_bad) first_bad = later.first_bad;
  if (later.smallest) lower(smallest, *later.smallest);
  if (later.largest) raise(largest, *later.largest);
  if (later.first_text) lower(first_text, *later.first_text);
  if (later.last_text) raise(last_text, *later.last_text);
}

Checker::Checker(const Layout& layout)
    : fields_(layout), record_length_(static_cast<std::size_t>(layout.record)) {}

void Checker::check(const Block& block) {
  counts_.assign(columns().size(), {});
  for (std::size_t first = 0; first < block.count(); first += fields_.run()) {
    const std::size_t count = std::min(fields_.run(), block.count() - first);
    fields_.read(block, first, count);
    for (std::size_t i = 0; i < count; ++i) check_record(block.record(first + i), i);
  }
}

// The rest of a file that ends inside a record is none.
void Checker::check_record(const Record& record, std::size_t index) {
  if (record.bytes.size() < record_length_) return;
  for (std::size_t i = 0; i < columns().size(); ++i) {
    const Column& column = columns()[i];
    FieldCounts& counts = counts_[i];
    int status = fields_.status(i, index);
    std::string_view text;
    if (column.string && status != kAbsent) {
      text = fields_.string(column, fields_.field(record, column), status);
    }
    if (status != 0) {
      ++counts.failed[status];
      if (!counts.first_bad) counts.first_bad = record.number;
      if (!keeps_value(status)) continue;
    }
    if (column.string) {
      count_string(counts, text);
    } else {
      count_number(counts, fields_.value(i, index));
    }
  }
}

void Checker::count_number(FieldCounts& counts, double value) {
  if (is_missing(value)) {
    ++counts.missing;
    return;
  }
  ++counts.read;
  if (std::isnan(value)) return;
  lower(counts.smallest, value);
  raise(counts.largest, value);
}

void Checker::count_string(FieldCounts& counts, std::string_view text) {
  if (text.empty()) {
    ++counts.missing;
    return;
  }
  ++counts.read;
  lower(counts.first_text, text);
  raise(counts.last_text, text);
}

}  // namespace iocv::tool
