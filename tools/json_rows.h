// Rows as JSON Lines: an object a line.
#pragma once

#include <string>
#include <vector>

#include "rows.h"

namespace iocv::tool {

// Appends rows to a text that its owner empties between rows. A missing value is null; infinities
// and not-a-number are the strings "inf", "-inf" and "nan".
class JsonRows final : public Rows {
 public:
  JsonRows(const std::vector<std::string>& names, std::string& out);

  void number(double value) override;
  void text(std::string_view value) override;
  void moment(std::string_view value) override;
  void missing() override;
  void end_row() override;

 private:
  void begin_value() { out_ += keys_[values_++]; }

  std::vector<std::string> keys_;  // with all that stands between the values
  std::string& out_;
  std::size_t values_ = 0;
};

}  // namespace iocv::tool
