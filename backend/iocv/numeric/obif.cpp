// Number input: the field around the number.
#include "numeric/obif.h"

#include <iocv/number_input.h>

#include <bit>

#include "frame/leaf.h"
#include "frame/load.h"

namespace iocv {

namespace {

std::string_view without_blanks(std::string_view field) {
  const std::size_t first = field.find_first_not_of(' ');
  if (first == field.npos) return {};
  return field.substr(first, field.find_last_not_of(' ') - first + 1);
}

constexpr std::size_t kWidestVector = 16;

bool is_digit(char byte) { return byte >= '0' && byte <= '9'; }

// A text with no blanks at either end.
Read<double> read_text(std::string_view text, std::int64_t decimals, FormatCode type,
                       const Settings& settings) {
  if (text.empty()) return {settings.blank_value, Status::ok};
  // One byte alone: without implied decimals only the decimal character is a number that lacks its
  // digits; a lone sign or currency sign counts as a bad character, not as the scanner has it.
  if (text.size() == 1 && decimals == 0 && !is_digit(text[0])) {
    const bool point = text[0] == decimal_character(type, settings);
    return {settings.system_missing, point ? Status::no_digits : Status::number_character};
  }
  return scan_number(text, decimals, type, settings);
}

// without_blanks a word at a time. Blanks in front of a number and behind it are many.
std::string_view trimmed(std::string_view field) {
  constexpr std::uint64_t kBlanks = 0x2020'2020'2020'2020;
  const char* first = field.data();
  const char* last = first + field.size();
  if constexpr (kLittleEndian) {
    while (last - first >= 8 && load8(first) == kBlanks) first += 8;
    while (last - first >= 8 && load8(last - 8) == kBlanks) last -= 8;
    if (last - first >= 8) {
      first += std::countr_zero(load8(first) ^ kBlanks) / 8;
      last -= std::countl_zero(load8(last - 8) ^ kBlanks) / 8;
      return {first, last};
    }
  }
  while (first != last && *first == ' ') ++first;
  while (first != last && last[-1] == ' ') --last;
  return {first, last};
}

// A number at the left of its field.
bool try_left(std::string_view field, std::int64_t decimals, FormatCode type,
              const Settings& settings, double& value) {
  using number_fast::FieldReader;
  const auto trying = [&](const auto& attempt) {
    return attempt(field.data(), std::ssize(field), decimals, type, settings, value);
  };
  switch (type) {
    case FormatCode::f:
    case FormatCode::pct: return trying(try_with<FieldReader<0, 0, 0, true>>);
    case FormatCode::comma: return trying(try_with<FieldReader<'.', ',', 0, true>>);
    case FormatCode::dollar: return trying(try_with<FieldReader<'.', ',', '$', true>>);
    case FormatCode::dot: return trying(try_with<FieldReader<',', '.', 0, true>>);
    default: return false;
  }
}

// What output does not write, but people do: text with no blanks around it in the forms of its own
// type (unless moved is false: those were tried), then digits without grouping or an exponent.
bool try_text(std::string_view text, std::int64_t decimals, FormatCode type,
              const Settings& settings, bool moved, double& value) {
  const auto trying = [&](const auto& attempt) {
    return attempt(text.data(), std::ssize(text), decimals, type, settings, value);
  };
  switch (type) {
    case FormatCode::f: return (moved && trying(try_fixed)) || trying(try_exponential);
    case FormatCode::pct: return (moved && trying(try_percent)) || trying(try_exponential);
    case FormatCode::e: return (moved && trying(try_exponential)) || trying(try_fixed);
    case FormatCode::comma: return (moved && trying(try_grouped)) || trying(try_ungrouped);
    case FormatCode::dollar: return (moved && trying(try_dollars)) || trying(try_ungrouped);
    case FormatCode::dot: return (moved && trying(try_dotted)) || trying(try_undotted);
    default: return false;
  }
}

}  // namespace

char decimal_character(FormatCode type, const Settings& settings) noexcept {
  switch (type) {
    case FormatCode::f:
    case FormatCode::e:
    case FormatCode::pct: return settings.decimal == ',' ? ',' : '.';
    case FormatCode::dot: return ',';
    default: return '.';
  }
}

Read<double> read_number_plain(std::string_view field, std::int64_t decimals, FormatCode type,
                               const Settings& settings) noexcept {
  return read_text(without_blanks(field), decimals, type, settings);
}

Read<double> read_number_loose(std::string_view field, std::int64_t decimals, FormatCode type,
                               const Settings& settings) noexcept {
  double value = 0;
  if (!field.empty() && field.back() == ' ' && try_left(field, decimals, type, settings, value)) {
    return {value, Status::ok};
  }
  const std::string_view text = trimmed(field);
  if (text.empty()) return {settings.blank_value, Status::ok};
  const bool moved =
      field.size() > kWidestVector || text.data() + text.size() != field.data() + field.size();
  if (try_text(text, decimals, type, settings, moved, value)) return {value, Status::ok};
  return read_text(text, decimals, type, settings);
}

Read<double> read_number(std::string_view field, std::int64_t decimals, FormatCode type,
                         const Settings& settings) noexcept {
  switch (type) {
    case FormatCode::f: return read_fixed(field, decimals, type, settings);
    case FormatCode::pct: return read_percent(field, decimals, type, settings);
    case FormatCode::comma: return read_grouped(field, decimals, type, settings);
    case FormatCode::dollar: return read_dollars(field, decimals, type, settings);
    case FormatCode::dot: return read_dotted(field, decimals, type, settings);
    case FormatCode::e: return read_exponential(field, decimals, type, settings);
    default: return read_number_plain(field, decimals, type, settings);
  }
}

}  // namespace iocv

extern "C" void obif_(const char* text, const std::int64_t* length, const std::int64_t* decimals,
                      double* value, std::int64_t* status, const std::int32_t* type) {
  const auto [number, result] =
      iocv::read_number(iocv::input_field(text, *length), *decimals,
                        static_cast<iocv::FormatCode>(*type), iocv::Settings::current());
  *value = number;
  iocv::store(status, result);
}
