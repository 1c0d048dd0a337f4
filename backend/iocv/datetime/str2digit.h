// Runs of digits and month words whose lengths are known beforehand.
#pragma once

#include <optional>
#include <string_view>

namespace iocv {

// The value of a text of digits, 0 for an empty one; none when any character is no digit.
std::optional<double> str2digit(std::string_view text) noexcept;

// 1..12 for a text that begins with an English abbreviation or whose first four characters are a
// Roman numeral, in any case; digits count as they are, unchecked. A bare "IX" is no month.
std::optional<double> str2month(std::string_view text) noexcept;

}  // namespace iocv
