// Stored dates and times as the C library has them.
#pragma once

#include <cstdint>
#include <ctime>

#include "rows.h"

namespace bench {

inline constexpr std::int64_t kUnixOrigin = 12'219'379'200;  // 1 January 1970 as a stored value
inline constexpr const char* kMonths = "JANFEBMARAPRMAYJUNJULAUGSEPOCTNOVDEC";

// As strftime writes it, but for the capitals of the month.
inline const char* pattern_of(const Row& row) {
  switch (row.type) {
    case VELT_Format::DATE: return "%d-%b-%Y";
    case VELT_Format::ADATE: return "%m/%d/%Y";
    case VELT_Format::SDATE: return "%Y/%m/%d";
    case VELT_Format::DATETIME: return "%d-%b-%Y %H:%M:%S";
    default: return "%H:%M:%S";
  }
}

inline bool has_month_name(const Row& row) {
  return row.type == VELT_Format::DATE || row.type == VELT_Format::DATETIME;
}

inline std::int64_t unix_time(double value) {
  return static_cast<std::int64_t>(value) - kUnixOrigin;
}

inline std::tm broken_down(double value) {
  const std::time_t time = unix_time(value);
  std::tm parts = {};
  gmtime_r(&time, &parts);
  return parts;
}

inline std::tm time_of_day(double value) {
  const auto seconds = static_cast<int>(value);
  std::tm parts = {};
  parts.tm_hour = seconds / 3600;
  parts.tm_min = seconds / 60 % 60;
  parts.tm_sec = seconds % 60;
  return parts;
}

}  // namespace bench
