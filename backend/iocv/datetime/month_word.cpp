#include "datetime/month_word.h"

#include "datetime/letters.h"

namespace iocv {
namespace {

// Only letters of names count, so that upper case is that of ASCII: no byte of a longer character
// can complete a name.
bool begins_like(std::string_view word, std::string_view name) {
  for (std::size_t i = 0; i < name.size(); ++i) {
    const char c = i < word.size() ? upper(word[i]) : ' ';
    if (c != name[i]) return false;
  }
  return true;
}

}  // namespace

std::int64_t name_number(std::string_view word, std::string_view table, std::int64_t cell,
                         std::size_t letters) noexcept {
  const std::int64_t cells = static_cast<std::int64_t>(table.size()) / cell;
  for (std::int64_t number = 1; number <= cells; ++number) {
    if (begins_like(word, name_cell(table, cell, number).substr(0, letters))) return number;
  }
  return 0;
}

std::int64_t month_of_word(std::string_view word) noexcept {
  const std::int64_t month = name_number(word, kMonthLetters, kMonthLettersCell, 3);
  return month != 0 ? month : name_number(word, kRomanMonths, kMonthCell, 4);
}

std::int64_t weekday_of_word(std::string_view word) noexcept {
  return name_number(word, kDayNames, kNameCell, 2);
}

}  // namespace iocv
