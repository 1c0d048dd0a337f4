// The table of format types.
#include <array>

#include "frame/format_code.h"

namespace iocv {
namespace {

using enum FormatKind;

// clang-format off
constexpr std::array<FormatInfo, 45> kFormats = {{
    // CCA..CCE read as F, through FromString.
    //                         reads  writes
    { 1, "A",        string,    true,  true},
    { 2, "AHEX",     string,    true,  true},
    { 3, "COMMA",    numeric,   true,  true},
    { 4, "DOLLAR",   numeric,   true,  true},
    { 5, "F",        numeric,   true,  true},
    { 6, "IB",       binary,    true,  true},
    { 7, "PIBHEX",   binary,    true,  true},
    { 8, "P",        binary,    true,  true},
    { 9, "PIB",      binary,    true,  true},
    {10, "PK",       binary,    true,  true},
    {11, "RB",       binary,    true,  true},
    {12, "RBHEX",    binary,    true,  true},
    {13, "T",        none,      false, false},
    {14, "X",        none,      false, false},
    {15, "Z",        numeric,   true,  true},
    {16, "N",        numeric,   true,  true},
    {17, "E",        numeric,   true,  true},
    {18, "MULT-PUN", none,      false, false},
    {19, "UNAL-PIB", none,      false, false},
    {20, "DATE",     date,      true,  true},
    {21, "TIME",     time,      true,  true},
    {22, "DATETIME", date,      true,  true},
    {23, "ADATE",    date,      true,  true},
    {24, "JDATE",    date,      true,  true},
    {25, "DTIME",    time,      true,  true},
    {26, "WKDAY",    date_part, true,  true},
    {27, "MONTH",    date_part, true,  true},
    {28, "MOYR",     date,      true,  true},
    {29, "QYR",      date,      true,  true},
    {30, "WKYR",     date,      true,  true},
    {31, "PCT",      numeric,   true,  true},
    {32, "DOT",      numeric,   true,  true},
    {33, "CCA",      numeric,   true,  true},
    {34, "CCB",      numeric,   true,  true},
    {35, "CCC",      numeric,   true,  true},
    {36, "CCD",      numeric,   true,  true},
    {37, "CCE",      numeric,   true,  true},
    {38, "EDATE",    date,      true,  true},
    {39, "SDATE",    date,      true,  true},
    {40, "UNUSED40", numeric,   false, true},
    {41, "UNUSED41", none,      false, false},
    {42, "UNUSED42", none,      false, false},
    {43, "UNUSED43", none,      false, false},
    {44, "UNUSED44", none,      false, false},
    {45, "UNUSED45", none,      false, false},
}};
// clang-format on

static_assert([] {
  int code = 0;
  for (const FormatInfo& row : kFormats) {
    if (row.code != ++code || row.name.size() > 8) return false;
  }
  return true;
}());

}  // namespace

std::span<const FormatInfo> format_table() noexcept { return kFormats; }

const FormatInfo* format_info(int code) noexcept {
  if (code < 1 || code > static_cast<int>(kFormats.size())) return nullptr;
  return &kFormats[static_cast<std::size_t>(code - 1)];
}

std::string_view format_kind_name(FormatKind kind) noexcept {
  switch (kind) {
    case string: return "string";
    case numeric: return "numeric";
    case binary: return "binary";
    case date: return "date";
    case time: return "time";
    case date_part: return "date part";
    case none: break;
  }
  return "none";
}

}  // namespace iocv
