#include "table.h"

#include <algorithm>

namespace iocv::tool {
namespace {

std::size_t shown_width(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  }));
}

}  // namespace

std::string Table::str() const {
  std::vector<std::size_t> widths(sides_.size());
  for (const auto& row : rows_) {
    for (std::size_t i = 0; i < row.size(); ++i)
      widths[i] = std::max(widths[i], shown_width(row[i]));
  }
  std::string text;
  for (const auto& row : rows_) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::string blanks(widths[i] - shown_width(row[i]), ' ');
      if (i > 0) text += "  ";
      text += sides_[i] == Side::left ? row[i] + blanks : blanks + row[i];
    }
    text.erase(text.find_last_not_of(' ') + 1);
    text += '\n';
  }
  return text;
}

}  // namespace iocv::tool
