// Rows kept as values.
#pragma once

#include <utility>
#include <vector>

#include "input_rows.h"
#include "rows.h"

namespace iocv::tool {

// Collects rows for a later use of their values.
class CellRows final : public Rows {
 public:
  void number(double value) override { add({Given::Kind::number, value, {}}); }
  void text(std::string_view value) override { add({Given::Kind::text, 0, std::string(value)}); }
  void moment(std::string_view value) override { text(value); }
  void missing() override { add({}); }
  void end_row() override { ++count_; }

  // The values of all rows, one row behind the other.
  const std::vector<Given>& values() const noexcept { return values_; }
  std::size_t count() const noexcept { return count_; }
  void clear() {
    values_.clear();
    count_ = 0;
  }

 private:
  void add(Given value) { values_.push_back(std::move(value)); }

  std::vector<Given> values_;
  std::size_t count_ = 0;
};

}  // namespace iocv::tool
