// Numbers in free form: F, E, COMMA, DOLLAR, DOT and PCT input.
#pragma once

#include <cstdint>
#include <string_view>

#include "frame/format_code.h"
#include "frame/parts.h"
#include "frame/settings.h"
#include "frame/status.h"
#include "numeric/obif_fast.h"

namespace iocv {

// The decimal character that type reads: the settings' for F, E and PCT, "," for DOT, "." else.
char decimal_character(FormatCode type, const Settings& settings) noexcept;

// A field with blanks at either end, byte by byte.
Read<double> read_number_plain(std::string_view field, std::int64_t decimals, FormatCode type,
                               const Settings& settings) noexcept;

// The same; ordinary numbers that stand otherwise than output puts them at once.
Read<double> read_number_loose(std::string_view field, std::int64_t decimals, FormatCode type,
                               const Settings& settings) noexcept;

// The same for a type each, ordinary fields at once.

template <auto& attempt>
Read<double> read_trying(std::string_view field, std::int64_t decimals, FormatCode type,
                         const Settings& settings) noexcept {
  double value = 0;
  if (attempt(field.data(), std::ssize(field), decimals, type, settings, value))
    return {value, Status::ok};
  return read_number_loose(field, decimals, type, settings);
}

// F.
inline Read<double> read_fixed(std::string_view field, std::int64_t decimals, FormatCode type,
                               const Settings& settings) noexcept {
  return read_trying<try_fixed>(field, decimals, type, settings);
}
template <>
inline constexpr auto kParts<read_fixed> = Parts{try_fixed, read_number_loose};

// PCT.
inline Read<double> read_percent(std::string_view field, std::int64_t decimals, FormatCode type,
                                 const Settings& settings) noexcept {
  return read_trying<try_percent>(field, decimals, type, settings);
}
template <>
inline constexpr auto kParts<read_percent> = Parts{try_percent, read_number_loose};

// COMMA.
inline Read<double> read_grouped(std::string_view field, std::int64_t decimals, FormatCode type,
                                 const Settings& settings) noexcept {
  return read_trying<try_grouped>(field, decimals, type, settings);
}
template <>
inline constexpr auto kParts<read_grouped> = Parts{try_grouped, read_number_loose};

// DOLLAR.
inline Read<double> read_dollars(std::string_view field, std::int64_t decimals, FormatCode type,
                                 const Settings& settings) noexcept {
  return read_trying<try_dollars>(field, decimals, type, settings);
}
template <>
inline constexpr auto kParts<read_dollars> = Parts{try_dollars, read_number_loose};

// DOT.
inline Read<double> read_dotted(std::string_view field, std::int64_t decimals, FormatCode type,
                                const Settings& settings) noexcept {
  return read_trying<try_dotted>(field, decimals, type, settings);
}
template <>
inline constexpr auto kParts<read_dotted> = Parts{try_dotted, read_number_loose};

// E.
inline Read<double> read_exponential(std::string_view field, std::int64_t decimals, FormatCode type,
                                     const Settings& settings) noexcept {
  return read_trying<try_exponential>(field, decimals, type, settings);
}
template <>
inline constexpr auto kParts<read_exponential> = Parts{try_exponential, read_number_loose};

// Any type.
Read<double> read_number(std::string_view field, std::int64_t decimals, FormatCode type,
                         const Settings& settings) noexcept;

// The scanner behind it (fancy_f.cpp): a text that begins and ends with no blank.
Read<double> scan_number(std::string_view text, std::int64_t decimals, FormatCode type,
                         const Settings& settings) noexcept;

}  // namespace iocv
