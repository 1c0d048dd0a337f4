// The conversion settings that a layout or a command line may state, and their effect on the
// library.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace iocv::tool {

struct Settings {
  std::optional<std::int64_t> century;   // first year of the century window; 1900
  std::optional<char> decimal;           // '.' or ','; '.' whatever the process's locale says
  std::optional<bool> leading_zero;      // a 0 before the decimal character; false
  std::optional<char> missing;           // the system-missing character; '.'
  std::optional<std::string> code_page;  // of the strings; UTF-8
  std::array<std::optional<std::string>, 5> currencies;  // patterns of CCA..CCE; empty
};

// Each of these takes one setting from its text and says what is wrong with it, or nothing.
std::string set_century(Settings& settings, std::int64_t year);
std::string set_decimal(Settings& settings, std::string_view text);
std::string set_missing(Settings& settings, std::string_view text);
std::string set_code_page(Settings& settings, std::string_view text);
std::string set_currency(Settings& settings, std::size_t index, std::string_view pattern);

// What `over` states, and where it states nothing what `under` does.
Settings overlaid(const Settings& under, const Settings& over);

// Makes the settings the library's; what none stated has its default.
void apply(const Settings& settings);

}  // namespace iocv::tool
