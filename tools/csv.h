// Rows of comma-separated values: lines end in a line feed, values with a comma, a quote, CR or LF
// stand in quotes, quotes inside them doubled (RFC 4180 but for the line ends).
#pragma once

#include <cstddef>
#include <string>

#include "rows.h"

namespace iocv::tool {

// Appends rows to a text that its owner empties between rows. A missing value is empty.
class CsvRows : public Rows {
 public:
  explicit CsvRows(std::string& out) : out_(out) {}

  void number(double value) override;  // the shortest decimal
  void text(std::string_view value) override;
  void moment(std::string_view value) override;
  void missing() override { begin_value(); }
  void end_row() override;

 private:
  void begin_value();

  std::string& out_;
  std::size_t row_start_ = 0;
  std::size_t values_ = 0;
};

}  // namespace iocv::tool
