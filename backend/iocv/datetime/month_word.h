// Names of months and days of the week as words of a field.
#pragma once

#include <cstdint>
#include <string_view>

#include "datetime/names.h"

namespace iocv {

// The number (from 1) of the first cell of a table whose first letters are those of the word in any
// case, blank behind its end; 0 when there is none.
std::int64_t name_number(std::string_view word, std::string_view table, std::int64_t cell,
                         std::size_t letters) noexcept;

// 1..12 for a word that begins with an English abbreviation or a Roman numeral in its first four
// characters, else 0.
std::int64_t month_of_word(std::string_view word) noexcept;

// 1 (Sunday)..7 for a word that begins with the first two letters of a day, else 0.
std::int64_t weekday_of_word(std::string_view word) noexcept;

}  // namespace iocv
