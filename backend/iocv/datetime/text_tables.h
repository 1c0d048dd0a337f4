// What the fast writers of dates and times put together: the text of each number of two digits, and
// of each day of the year.
//
// Pieces of text are words whose lowest byte is the first. Those that stand side by side become one
// before they are stored.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "datetime/calendar.h"
#include "datetime/names.h"

namespace iocv::fast {

// A text of up to eight bytes at a column of a word.
constexpr std::uint64_t text_word(std::string_view text, std::size_t column = 0) noexcept {
  std::uint64_t word = 0;
  for (std::size_t i = text.size(); i-- > 0;)
    word = word << 8 | static_cast<unsigned char>(text[i]);
  return word << 8 * column;
}

template <class Word>
void put_word(char* text, Word word) noexcept {
  if constexpr (std::endian::native == std::endian::big) {
    for (std::size_t i = 0; i < sizeof word; ++i) text[i] = static_cast<char>(word >> 8 * i);
  } else {
    std::memcpy(text, &word, sizeof word);
  }
}

// Tables of days go by the day of the year from 1 March, whose last one is 29 February.
struct Tables {
  static constexpr std::size_t kDays = 366;
  std::array<std::uint16_t, 100> two_digits;
  std::array<std::array<char, 4>, kMonths + 1> letters;  // "JAN "
  std::array<std::uint32_t, kDays> month_and_day;        // the month in the lower half
  std::array<std::uint64_t, kDays> day_and_letters;      // "dd-MMM- "
  std::array<std::uint64_t, kDays> slashed;              // "/mm/dd/ "
};

static_assert(sizeof(Tables) <= 8192);

inline constexpr Tables kTables = [] {
  Tables tables = {};
  for (std::size_t n = 0; n < tables.two_digits.size(); ++n) {
    tables.two_digits[n] = static_cast<std::uint16_t>('0' + n / 10 + ('0' + n % 10) * 256);
  }
  std::size_t at = 0;
  for (std::int64_t i = 0; i < kMonths; ++i) {
    const std::int64_t month = (i + 2) % kMonths + 1;
    const auto m = static_cast<std::uint32_t>(month);
    const std::uint64_t mm = tables.two_digits[m];
    const std::string_view name = month_letters(month);
    tables.letters[m] = {name[0], name[1], name[2], ' '};
    for (std::uint32_t day = 1; day <= month_length(2000, month); ++day, ++at) {
      const std::uint64_t dd = tables.two_digits[day];
      tables.month_and_day[at] = m | day << 16;
      tables.day_and_letters[at] = dd | text_word("-", 2) | text_word(name, 3) | text_word("- ", 6);
      tables.slashed[at] =
          text_word("/") | mm << 8 | text_word("/", 3) | dd << 32 | text_word("/ ", 6);
    }
  }
  return tables;
}();

inline std::uint64_t two_digits(std::size_t number, std::size_t column = 0) noexcept {
  return std::uint64_t{kTables.two_digits[number]} << 8 * column;
}

inline void put_two(char* text, std::size_t number) noexcept {
  put_word(text, kTables.two_digits[number]);
}

}  // namespace iocv::fast
