// The decimals of a number as the extension hook writes them, without a string.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace iocv {

// The end of a number's text: the point and at most 16 decimals.
class DecimalsText {
 public:
  static constexpr unsigned kMostDecimals = 16;

  DecimalsText() noexcept = default;
  explicit DecimalsText(std::string_view text) noexcept
      : size_(text.copy(bytes_.data(), bytes_.size())) {}
  [[nodiscard]] std::string_view view() const noexcept { return {bytes_.data(), size_}; }

 private:
  std::array<char, kMostDecimals + 1> bytes_ = {};
  std::size_t size_ = 0;
};

// DoubleToString2 and decimalAsString.
DecimalsText last_decimals(double v, unsigned n) noexcept;
DecimalsText decimals_in_room(double v, std::int64_t room, std::int64_t decimals) noexcept;

}  // namespace iocv
