// The field that a writer fills: a run of bytes with columns counted from 0.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace iocv {

// Columns outside the field are never written, whatever a caller asks for.
class Field {
 public:
  constexpr Field(char* first, std::int64_t width) noexcept
      : first_(first), width_(std::max<std::int64_t>(width, 0)) {}

  [[nodiscard]] constexpr char* data() const noexcept { return first_; }
  [[nodiscard]] constexpr std::int64_t width() const noexcept { return width_; }
  [[nodiscard]] constexpr bool empty() const noexcept { return width_ == 0; }

  // The columns [column, column + width) as far as they lie inside this field.
  [[nodiscard]] constexpr Field part(std::int64_t column, std::int64_t width) const noexcept {
    const std::int64_t first = std::clamp<std::int64_t>(column, 0, width_);
    return {first_ + first, std::min(width, width_ - first)};
  }

  void fill(char byte) const noexcept {
    if (width_ > 0) std::memset(first_, byte, static_cast<std::size_t>(width_));
  }
  void blank() const noexcept { fill(' '); }
  void overflow() const noexcept { fill('*'); }

  // Blanks, and one byte at a column; a column outside the field becomes the nearest one.
  void mark(std::int64_t column, char byte) const noexcept {
    if (empty()) return;
    blank();
    first_[std::clamp<std::int64_t>(column, 0, width_ - 1)] = byte;
  }

  void put(std::int64_t column, char byte) const noexcept {
    if (column >= 0 && column < width_) first_[column] = byte;
  }

  // Blanks and the text behind them; asterisks when it is wider than the field.
  void put_right(std::string_view text) const noexcept {
    const auto length = static_cast<std::int64_t>(text.size());
    if (length > width_) return overflow();
    blank();
    if (length > 0) std::memcpy(first_ + width_ - length, text.data(), text.size());
  }

 private:
  char* first_;
  std::int64_t width_;
};

}  // namespace iocv
