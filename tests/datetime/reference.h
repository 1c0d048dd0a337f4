// The readers of dates and times once more, as recursive descent over the characters and with
// another calendar: slow, short and without a line of the library.
//
// Beyond ASCII a text may hold only the bytes C3 and A9, together a letter, alone no character.
#pragma once

#include <cstdint>
#include <string_view>

#include "datetime/reading.h"

namespace test {

struct ReferenceSettings {
  char decimal = '.';
  std::int64_t century_begin = 1900;
};

// What a field reads as under a format type code: 20..30, 38, 39 or 86.
Reading reference_read(std::string_view field, int code, const ReferenceSettings& settings);

}  // namespace test
