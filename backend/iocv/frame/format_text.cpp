// Formats as text: "F8.2", "dollar10.2", "A20", "40:12.2".
#include <charconv>
#include <optional>

#include "frame/constants.h"
#include "frame/format_code.h"

namespace iocv {
namespace {

constexpr int kMostDecimals = VELT_Format::kWidestNumber;

const VELT_Format kDefaultFormat(VELT_Format::F, 8, 2);

constexpr char upper(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 32) : c; }
constexpr bool is_digit(char c) { return c >= '0' && c <= '9'; }

// The name at the start of text in any case; the longest wins, so that A does not hide AHEX.
const FormatInfo* named_type(std::string_view text) {
  const FormatInfo* best = nullptr;
  for (const FormatInfo& row : format_table()) {
    if (row.name.size() > text.size() || (best && best->name.size() >= row.name.size())) continue;
    bool equal = true;
    for (std::size_t i = 0; i < row.name.size() && equal; ++i) {
      equal = upper(text[i]) == row.name[i];
    }
    if (equal) best = &row;
  }
  return best;
}

// Takes the digits at the start of text; nothing without digits or beyond the range of int.
std::optional<int> take_number(std::string_view& text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || !is_digit(text.front())) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return number;
}

FormatReading refused(std::string reason) { return {kDefaultFormat, std::move(reason)}; }

std::string quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

// The type and what follows it: a name, or a code and a colon.
std::optional<int> take_type(std::string_view& text) {
  if (const std::size_t colon = text.find(':'); colon != text.npos) {
    std::string_view digits = text.substr(0, colon);
    const std::optional<int> code = take_number(digits);
    if (!code || !digits.empty() || *code < 1 || *code > 255) return std::nullopt;
    text.remove_prefix(colon + 1);
    return code;
  }
  const FormatInfo* row = named_type(text);
  if (!row) return std::nullopt;
  const std::string_view rest = text.substr(row->name.size());
  if (!rest.empty() && !is_digit(rest.front()) && rest.front() != '.') return std::nullopt;
  text = rest;
  return row->code;
}

}  // namespace

FormatReading format_from_text(std::string_view text) {
  const std::string whole = quoted(text);
  if (text.empty()) return refused("a format is missing");
  const std::optional<int> type = take_type(text);
  if (!type) return refused("unknown format name in " + whole);
  const bool is_string = *type == VELT_Format::A || *type == VELT_Format::AHEX;

  if (text.empty() || !is_digit(text.front())) return refused("width is missing in " + whole);
  const int widest = is_string ? static_cast<int>(kWidestField) : VELT_Format::kWidestNumber;
  const std::optional<int> width = take_number(text);
  if (!width || *width < 1 || *width > widest) {
    return refused("width out of range in " + whole + ": 1 to " + std::to_string(widest));
  }

  int decimals = 0;
  if (!text.empty() && text.front() == '.') {
    if (is_string) return refused("a string format has no decimals: " + whole);
    text.remove_prefix(1);
    if (text.empty() || !is_digit(text.front())) return refused("decimals are missing in " + whole);
    const std::optional<int> number = take_number(text);
    if (!number || *number > kMostDecimals) {
      return refused("decimals out of range in " + whole + ": 0 to " +
                     std::to_string(kMostDecimals));
    }
    decimals = *number;
  }
  if (!text.empty()) return refused("unexpected " + quoted(text) + " at the end of " + whole);
  return {VELT_Format(static_cast<VELT_Format::FormatType>(*type), *width, decimals), {}};
}

std::string format_to_text(const VELT_Format& format) {
  const int code = format.TypeEx();
  const FormatInfo* row = format_info(code);
  const bool named = row && code < VELT_Format::UNUSED40;
  std::string text = named ? std::string(row->name) : std::to_string(code) + ":";
  text += std::to_string(format.Width());
  if (format.Decimals() != 0) text += "." + std::to_string(format.Decimals());
  return text;
}

}  // namespace iocv
