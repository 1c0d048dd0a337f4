// Tables of text: columns side by side, as wide as their widest cell.
#pragma once

#include <string>
#include <vector>

namespace iocv::tool {

class Table {
 public:
  enum class Side { left, right };

  explicit Table(std::vector<Side> sides) : sides_(std::move(sides)) {}

  void add(std::vector<std::string> row) { rows_.push_back(std::move(row)); }

  // Two blanks between the columns, none at the end of a line. Widths count characters of UTF-8.
  std::string str() const;

 private:
  std::vector<Side> sides_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace iocv::tool
