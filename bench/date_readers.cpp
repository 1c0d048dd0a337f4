// Peers that read dates and times of day. They get the text with a zero behind and answer in their
// own terms; both are counted as theirs.
#include <absl/time/time.h>
#include <date/date.h>

#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <sstream>

#include "date_patterns.h"
#include "harness.h"

namespace bench {
namespace {

struct Terminated {
  Terminated(const char* field, std::int64_t width) {
    std::memcpy(text, field, static_cast<std::size_t>(width));
    text[width] = 0;
  }
  char text[32];
};

double stored(std::tm parts) { return static_cast<double>(timegm(&parts) + kUnixOrigin); }

double seconds_of(const std::tm& parts) {
  return 3600.0 * parts.tm_hour + 60.0 * parts.tm_min + parts.tm_sec;
}

void add_dates(const Row& row) {
  const char* pattern = pattern_of(row);
  add_reader(row, "strptime + timegm", [=](const char* field) {
    const Terminated copy(field, row.width);
    std::tm parts = {};
    strptime(copy.text, pattern, &parts);
    return stored(parts);
  });
  add_reader(row, "absl::ParseTime", [=](const char* field) {
    absl::Time time;
    std::string error;
    absl::ParseTime(pattern, absl::string_view(field, static_cast<std::size_t>(row.width)), &time,
                    &error);
    return static_cast<double>(absl::ToUnixSeconds(time) + kUnixOrigin);
  });
  add_reader(row, "date::parse", [=](const char* field) {
    std::istringstream stream(std::string(field, static_cast<std::size_t>(row.width)));
    date::sys_seconds time{};
    stream >> date::parse(pattern, time);
    return static_cast<double>(time.time_since_epoch().count() + kUnixOrigin);
  });
}

// Numbers between delimiters: year is the place of the year among them.
void add_sscanf_numeric(const Row& row, bool year_first) {
  add_reader(row, "sscanf + timegm", [=](const char* field) {
    const Terminated copy(field, row.width);
    int parts[3] = {};
    std::sscanf(copy.text, "%d/%d/%d", &parts[0], &parts[1], &parts[2]);
    std::tm day = {};
    day.tm_year = parts[year_first ? 0 : 2] - 1900;
    day.tm_mon = parts[year_first ? 1 : 0] - 1;
    day.tm_mday = parts[year_first ? 2 : 1];
    return stored(day);
  });
}

void add_sscanf_named(const Row& row) {
  add_reader(row, "sscanf + timegm", [=](const char* field) {
    const Terminated copy(field, row.width);
    std::tm parts = {};
    char name[4] = {};
    std::sscanf(copy.text, "%2d-%3s-%4d %2d:%2d:%2d", &parts.tm_mday, name, &parts.tm_year,
                &parts.tm_hour, &parts.tm_min, &parts.tm_sec);
    parts.tm_mon = static_cast<int>(std::strstr(kMonths, name) - kMonths) / 3;
    parts.tm_year -= 1900;
    return stored(parts);
  });
}

// What a program can put together itself: digits at fixed places, and the day from date.
void add_by_hand(const Row& row, std::size_t year, std::size_t month, std::size_t day) {
  add_reader(row, "by hand: from_chars + date", [=](const char* field) {
    const auto number = [&](std::size_t first, std::size_t length) {
      int value = 0;
      std::from_chars(field + first, field + first + length, value);
      return value;
    };
    const date::year_month_day parts(date::year(number(year, 4)),
                                     date::month(static_cast<unsigned>(number(month, 2))),
                                     date::day(static_cast<unsigned>(number(day, 2))));
    const date::sys_seconds time = date::sys_days(parts);
    return static_cast<double>(time.time_since_epoch().count() + kUnixOrigin);
  });
}

void add_times(const Row& row) {
  add_reader(row, "strptime + timegm", [=](const char* field) {
    const Terminated copy(field, row.width);
    std::tm parts = {};
    parts.tm_year = 70;
    parts.tm_mday = 1;
    strptime(copy.text, pattern_of(row), &parts);
    return static_cast<double>(timegm(&parts));
  });
  add_reader(row, "by hand: strptime", [=](const char* field) {
    const Terminated copy(field, row.width);
    std::tm parts = {};
    strptime(copy.text, pattern_of(row), &parts);
    return seconds_of(parts);
  });
  add_reader(row, "sscanf", [=](const char* field) {
    const Terminated copy(field, row.width);
    std::tm parts = {};
    std::sscanf(copy.text, "%d:%d:%d", &parts.tm_hour, &parts.tm_min, &parts.tm_sec);
    return seconds_of(parts);
  });
  add_reader(row, "date::parse", [=](const char* field) {
    std::istringstream stream(std::string(field, static_cast<std::size_t>(row.width)));
    std::chrono::seconds time{};
    stream >> std::ws >> date::parse("%H:%M:%S", time);
    return static_cast<double>(time.count());
  });
}

}  // namespace

void add_date_readers() {
  add_dates(kDate11);
  add_sscanf_named(kDate11);
  add_dates(kAdate10);
  add_sscanf_numeric(kAdate10, false);
  add_by_hand(kAdate10, 6, 0, 3);
  add_dates(kSdate10);
  add_sscanf_numeric(kSdate10, true);
  add_by_hand(kSdate10, 0, 5, 8);
  add_dates(kDatetime20);
  add_sscanf_named(kDatetime20);
  add_times(kTime8);
}

}  // namespace bench
