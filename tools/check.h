// What a file's fields hold, counted.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "columns.h"

namespace iocv::tool {

// One field in all records looked at, in their order.
struct FieldCounts {
  std::int64_t read = 0;               // with a value, also one that was kept in spite of a status
  std::int64_t missing = 0;            // blank strings, too
  std::map<int, std::int64_t> failed;  // by status; kAbsent where a line does not hold the field
  std::optional<std::int64_t> first_bad;  // record with a status
  std::optional<double> smallest, largest;
  std::optional<std::string> first_text, last_text;  // of strings, by their bytes

  // Adds those of records that follow.
  void add(const FieldCounts& later);
};

// Counts blocks; each thread has one of its own.
class Checker {
 public:
  explicit Checker(const Layout& layout);

  // Counts the records of a block afresh.
  void check(const Block& block);

  const std::vector<FieldCounts>& counts() const noexcept { return counts_; }
  const std::vector<Column>& columns() const noexcept { return fields_.columns(); }

 private:
  void check_record(const Record& record, std::size_t index);
  static void count_number(FieldCounts& counts, double value);
  static void count_string(FieldCounts& counts, std::string_view text);

  FieldReader fields_;
  std::size_t record_length_;
  std::vector<FieldCounts> counts_;
};

}  // namespace iocv::tool
