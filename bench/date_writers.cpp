// Peers that write dates and times of day. A stored value counts seconds from 14 October 1582; what
// turns one into what a peer wants is counted as the peer's, and so are the capitals of a month.
#include <absl/time/time.h>
#include <date/date.h>
#include <fmt/chrono.h>
#include <fmt/compile.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <ctime>

#include "date_patterns.h"
#include "harness.h"

namespace bench {
namespace {

// Capitals for the second and third letter of "01-Jan-2000".
void raise_month(const Row& row, char* field) {
  if (!has_month_name(row)) return;
  field[4] = static_cast<char>(field[4] - 32);
  field[5] = static_cast<char>(field[5] - 32);
}

std::chrono::seconds seconds_of(double value) {
  return std::chrono::seconds(static_cast<std::int64_t>(value));
}

date::sys_seconds point_of(double value) {
  return date::sys_seconds(std::chrono::seconds(unix_time(value)));
}

template <class Compiled>
void add_dates(const Row& row, const Compiled& format) {
  const char* pattern = pattern_of(row);
  const auto width = static_cast<std::size_t>(row.width);
  add_writer(row, "strftime", [=](double value, char* field) {
    const std::tm parts = broken_down(value);
    std::strftime(field, width + 1, pattern, &parts);
    raise_month(row, field);
  });
  add_writer(row, "fmt chrono", [=](double value, char* field) {
    fmt::format_to(field, format, broken_down(value));
    raise_month(row, field);
  });
  add_writer(row, "absl::FormatTime", [=](double value, char* field) {
    const std::string text =
        absl::FormatTime(pattern, absl::FromUnixSeconds(unix_time(value)), absl::UTCTimeZone());
    std::memcpy(field, text.data(), std::min(text.size(), width));
    raise_month(row, field);
  });
  add_writer(row, "date::format", [=](double value, char* field) {
    const std::string text = date::format(pattern, point_of(value));
    std::memcpy(field, text.data(), std::min(text.size(), width));
    raise_month(row, field);
  });
}

// What a program can put together itself: the day from date, the digits from fmt.
template <class Compiled, class Arrange>
void add_by_hand(const Row& row, const Compiled& format, Arrange arrange) {
  add_writer(row, "by hand: date + fmt", [=](double value, char* field) {
    const date::year_month_day day(date::floor<date::days>(point_of(value)));
    arrange(static_cast<int>(day.year()), static_cast<unsigned>(day.month()),
            static_cast<unsigned>(day.day()),
            [&](auto... parts) { fmt::format_to(field, format, parts...); });
  });
}

// Peers write "07:05:00" where ours has a blank.
bool same_time(std::string_view ours, std::string_view theirs) {
  return ours.substr(1) == theirs.substr(1) &&
         (ours[0] == theirs[0] || (ours[0] == ' ' && theirs[0] == '0'));
}

void add_times(const Row& row) {
  const auto width = static_cast<std::size_t>(row.width);
  const auto add = [&](const char* subject, auto write) {
    add_writer(row, subject, write, same_time);
  };
  add("strftime", [=](double value, char* field) {
    const std::tm parts = broken_down(value);
    std::strftime(field, width + 1, "%H:%M:%S", &parts);
  });
  add("fmt chrono", [=](double value, char* field) {
    fmt::format_to(field, FMT_COMPILE("{:%H:%M:%S}"), seconds_of(value));
  });
  add("date::format", [=](double value, char* field) {
    const std::string text = date::format("%T", seconds_of(value));
    std::memcpy(field, text.data(), std::min(text.size(), width));
  });
  add("by hand: fmt chrono", [=](double value, char* field) {
    fmt::format_to(field, FMT_COMPILE("{:%H:%M:%S}"), time_of_day(value));
  });
  add("by hand: snprintf", [=](double value, char* field) {
    const std::tm parts = time_of_day(value);
    std::snprintf(field, width + 1, "%02d:%02d:%02d", parts.tm_hour, parts.tm_min, parts.tm_sec);
  });
  add("by hand: fmt", [=](double value, char* field) {
    const std::tm parts = time_of_day(value);
    fmt::format_to(field, FMT_COMPILE("{:02}:{:02}:{:02}"), parts.tm_hour, parts.tm_min,
                   parts.tm_sec);
  });
}

}  // namespace

void add_date_writers() {
  add_dates(kDate11, FMT_COMPILE("{:%d-%b-%Y}"));
  add_by_hand(kDate11, FMT_COMPILE("{:02}-{}-{:04}"), [](int y, unsigned m, unsigned d, auto put) {
    put(d, fmt::string_view(kMonths + 3 * (m - 1), 3), y);
  });
  add_dates(kAdate10, FMT_COMPILE("{:%m/%d/%Y}"));
  add_by_hand(kAdate10, FMT_COMPILE("{:02}/{:02}/{:04}"),
              [](int y, unsigned m, unsigned d, auto put) { put(m, d, y); });
  add_dates(kSdate10, FMT_COMPILE("{:%Y/%m/%d}"));
  add_by_hand(kSdate10, FMT_COMPILE("{:04}/{:02}/{:02}"),
              [](int y, unsigned m, unsigned d, auto put) { put(y, m, d); });
  add_dates(kDatetime20, FMT_COMPILE("{:%d-%b-%Y %H:%M:%S}"));
  add_times(kTime8);
}

}  // namespace bench
