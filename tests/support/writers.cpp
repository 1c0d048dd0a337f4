#include "support/writers.h"

#include <cmath>

namespace test {

const std::vector<std::int64_t>& all_decimals() {
  static const std::vector<std::int64_t> decimals = [] {
    std::vector<std::int64_t> list;
    for (std::int64_t d = 0; d <= 20; ++d) list.push_back(d);
    for (const std::int64_t d : {kLowest, std::int64_t{-2}, std::int64_t{-1}, std::int64_t{39},
                                 std::int64_t{309}, std::int64_t{1} << 62, kHighest}) {
      list.push_back(d);
    }
    return list;
  }();
  return decimals;
}

std::string repeated(char character, std::int64_t count) {
  return std::string(static_cast<std::size_t>(count), character);
}

std::string blanks(std::int64_t count) { return repeated(' ', count); }
std::string stars(std::int64_t count) { return repeated('*', count); }

std::string marked(std::int64_t width, std::int64_t column, char character) {
  std::string text = blanks(width);
  if (width > 0) {
    text[static_cast<std::size_t>(std::clamp<std::int64_t>(column, 0, width - 1))] = character;
  }
  return text;
}

bool is_special(double value) { return !std::isfinite(value) || value == kMissing; }

}  // namespace test
