// Numbers with text around them.
#include "numeric/obocc.h"

#include <iocv/number_formats.h>

#include <algorithm>

#include "frame/leaf.h"
#include "frame/qobosp.h"
#include "numeric/fuzzy.h"
#include "numeric/powers.h"

namespace iocv {
namespace {

std::int64_t columns(std::string_view text) { return static_cast<std::int64_t>(text.size()); }

void put_text(Field out, std::int64_t column, std::string_view text) {
  for (const char c : text) out.put(column++, c);
}

// The columns behind the digits.
std::int64_t tail(const Decoration& decoration) {
  return columns(decoration.suffix) + columns(decoration.negative_suffix);
}

// The columns of the digits; reserved stand before the prefix.
Field middle(Field out, const Decoration& decoration, std::int64_t reserved) {
  const std::int64_t lead = reserved + columns(decoration.prefix);
  return out.part(lead, out.width() - lead - tail(decoration));
}

std::int64_t leading_blanks(Field digits) {
  std::int64_t blanks = 0;
  while (blanks < digits.width() && digits.data()[blanks] == ' ') ++blanks;
  return blanks;
}

// The prefixes float against the digits, the suffixes stand at their columns.
void decorate(Field out, std::int64_t blanks, std::int64_t reserved, const Decoration& decoration,
              bool negative) {
  const std::int64_t behind = out.width() - tail(decoration);
  if (negative) put_text(out, blanks, decoration.negative_prefix);
  put_text(out, blanks + reserved, decoration.prefix);
  put_text(out, behind, decoration.suffix);
  if (negative) put_text(out, behind + columns(decoration.suffix), decoration.negative_suffix);
}

}  // namespace

Status write_decorated(Field out, double value, std::int64_t decimals, const Decoration& decoration,
                       const Settings& settings) noexcept {
  decimals = std::max<std::int64_t>(decimals, 0);
  const std::int64_t point = out.width() - std::min(decimals, out.width()) - tail(decoration) - 1;
  if (write_special(out, value, point, settings)) return Status::ok;

  // A value that rounds to zero shows no sign, though a value below zero keeps the columns.
  const bool negative = fuzzy_round(value * power_of_ten(decimals)) < 0;
  const std::int64_t reserved = value < 0 ? columns(decoration.negative_prefix) : 0;
  out.blank();
  Decoration used = decoration;
  Field digits = middle(out, used, reserved);
  if (!write_grouped(digits, value, decimals, used.marks, settings)) {
    used.prefix = used.suffix = {};
    digits = middle(out, used, reserved);  // holds the columns of the first try
    if (!write_grouped(digits, value, decimals, used.marks, settings)) {
      out.overflow();
      return Status::ok;
    }
  }
  decorate(out, leading_blanks(digits), reserved, used, negative);
  return Status::ok;
}

}  // namespace iocv

namespace {

// Takes the next text off a pattern, and the separator behind it. The text ends with the pattern,
// whatever its length says.
std::string_view take_text(std::string_view& pattern, std::int64_t length) {
  const auto size = static_cast<std::size_t>(std::max<std::int64_t>(length, 0));
  const std::string_view text = pattern.substr(0, size);
  pattern.remove_prefix(std::min(text.size() + 1, pattern.size()));
  return text;
}

}  // namespace

extern "C" void obocc_(const double* value, const std::int64_t* width, const std::int64_t* decimals,
                       const char* pair, const std::int64_t* lengths, const char* pattern,
                       char* text, std::int64_t* status, std::int64_t, std::int64_t pattern_length,
                       std::int64_t) {
  std::string_view rest = iocv::input_field(pattern, pattern_length);
  const std::string_view negative_prefix = take_text(rest, lengths[0]);
  const std::string_view prefix = take_text(rest, lengths[1]);
  const std::string_view suffix = take_text(rest, lengths[2]);
  const std::string_view negative_suffix = take_text(rest, lengths[3]);
  iocv::store(status, iocv::write_decorated({text, *width}, *value, *decimals,
                                            {.marks = {pair[0], pair[1]},
                                             .negative_prefix = negative_prefix,
                                             .prefix = prefix,
                                             .suffix = suffix,
                                             .negative_suffix = negative_suffix},
                                            iocv::Settings::current()));
}
