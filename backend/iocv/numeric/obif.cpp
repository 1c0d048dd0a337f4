// Number input: the field around the number.
#include "numeric/obif.h"

#include <iocv/number_input.h>

#include <bit>

#include "frame/attempts.h"
#include "frame/leaf.h"
#include "frame/load.h"
#include "numeric/obif_loose_fast.h"
#include "numeric/without_blanks.h"

namespace iocv {
namespace {

constexpr std::size_t kWidestTried = 16;

bool is_digit(char byte) { return byte >= '0' && byte <= '9'; }

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

// Whether one of the attempts at a field answers.
template <FormatCode kType>
bool tried(std::string_view field, std::int64_t decimals, const Settings& settings,
           Read<double>& result) {
  return read_by<OrdinaryReader<kType>>(field, decimals, settings, result) ||
         read_by<LooseReader<kType>>(field, decimals, settings, result);
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

Read<double> read_number_text(std::string_view text, std::int64_t decimals, FormatCode type,
                              const Settings& settings) noexcept {
  if (text.empty()) return {settings.blank_value, Status::ok};
  // One byte alone: without implied decimals only the decimal character is a number that lacks its
  // digits; a lone sign or currency sign counts as a bad character, not as the scanner has it.
  if (text.size() == 1 && decimals == 0 && !is_digit(text[0])) {
    const bool point = text[0] == decimal_character(type, settings);
    return {settings.system_missing, point ? Status::no_digits : Status::number_character};
  }
  return scan_number(text, decimals, type, settings);
}

Read<double> read_number_plain(std::string_view field, std::int64_t decimals, FormatCode type,
                               const Settings& settings) noexcept {
  return read_number_text(without_blanks(field), decimals, type, settings);
}

template <FormatCode kType>
Read<double> read_number_loose(std::string_view field, std::int64_t decimals,
                               const Settings& settings) noexcept {
  using C = number_fast::Characters<kType>;
  using LeftReader = number_fast::FieldReader<C::kDecimal, C::kGrouping, C::kPrefix, true>;
  if (field.empty()) return {settings.blank_value, Status::ok};
  const bool blank_behind = field.back() == ' ';
  if (!blank_behind && field.size() <= kWidestTried) {  // attempts have seen it as it is
    return read_number_plain(field, decimals, kType, settings);
  }
  Read<double> result;
  if (blank_behind && kType != FormatCode::e &&
      read_by<LeftReader>(field, decimals, settings, result)) {
    return result;
  }
  const std::string_view text = trimmed(field);
  if (tried<kType>(text, decimals, settings, result)) return result;
  return read_number_text(text, decimals, kType, settings);
}

template <FormatCode kType>
Read<double> read_number_as(std::string_view field, std::int64_t decimals,
                            const Settings& settings) noexcept {
  Read<double> result;
  if (tried<kType>(field, decimals, settings, result)) return result;
  return read_number_loose<kType>(field, decimals, settings);
}

Read<double> read_number(std::string_view field, std::int64_t decimals, FormatCode type,
                         const Settings& settings) noexcept {
  switch (type) {
    case FormatCode::f: return read_number_as<FormatCode::f>(field, decimals, settings);
    case FormatCode::pct: return read_number_as<FormatCode::pct>(field, decimals, settings);
    case FormatCode::comma: return read_number_as<FormatCode::comma>(field, decimals, settings);
    case FormatCode::dollar: return read_number_as<FormatCode::dollar>(field, decimals, settings);
    case FormatCode::dot: return read_number_as<FormatCode::dot>(field, decimals, settings);
    case FormatCode::e: return read_number_as<FormatCode::e>(field, decimals, settings);
    default: return read_number_plain(field, decimals, type, settings);
  }
}

// For the dispatchers and their like.
#define IOCV_INSTANCES(type)                                                                \
  template Read<double> read_number_loose<FormatCode::type>(std::string_view, std::int64_t, \
                                                            const Settings&) noexcept;      \
  template Read<double> read_number_as<FormatCode::type>(std::string_view, std::int64_t,    \
                                                         const Settings&) noexcept;
IOCV_INSTANCES(f)
IOCV_INSTANCES(pct)
IOCV_INSTANCES(comma)
IOCV_INSTANCES(dollar)
IOCV_INSTANCES(dot)
IOCV_INSTANCES(e)
#undef IOCV_INSTANCES

}  // namespace iocv

extern "C" void obif_(const char* text, const std::int64_t* length, const std::int64_t* decimals,
                      double* value, std::int64_t* status, const std::int32_t* type) {
  const auto [number, result] =
      iocv::read_number(iocv::input_field(text, *length), *decimals,
                        static_cast<iocv::FormatCode>(*type), iocv::Settings::current());
  *value = number;
  iocv::store(status, result);
}
