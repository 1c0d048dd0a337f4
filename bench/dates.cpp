// Dates and times, both ways, beside peers that write or read the same field.
#include <benchmark/benchmark.h>
#include <fmt/chrono.h>
#include <iocv/iocv.h>

#include <cstdio>
#include <cstring>
#include <ctime>

#include "date_records.h"

namespace {

using bench::DateRow;

constexpr std::int64_t kUnixOrigin = 12'219'379'200;  // 1 January 1970 as a stored value

template <class Write>
void write_each(benchmark::State& state, const DateRow& row, Write write) {
  const auto count = static_cast<std::size_t>(state.range(0));
  const std::vector<double> values = bench::date_values(count, row);
  char field[64];
  std::size_t i = 0;
  for (auto _ : state) {
    write(values[i], field);
    benchmark::DoNotOptimize(field);
    benchmark::ClobberMemory();
    if (++i == count) i = 0;
  }
}

template <class Read>
void read_each(benchmark::State& state, const DateRow& row, Read read) {
  const auto count = static_cast<std::size_t>(state.range(0));
  const bench::Fields fields = bench::date_fields(count, row);
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(read(fields.field(i)));
    if (++i == count) i = 0;
  }
}

void write_iocv(benchmark::State& state, const DateRow& row) {
  const std::int64_t width = row.width;
  const std::int64_t decimals = 0;
  write_each(state, row, [&](double value, char* field) {
    const OBS stored = {.number = value};
    std::int64_t status = 0;
    obocv_(&stored, &row.type, &width, &decimals, field, &status, width);
    benchmark::DoNotOptimize(status);
  });
}

void read_iocv(benchmark::State& state, const DateRow& row) {
  const std::int64_t width = row.width;
  const std::int64_t decimals = 0;
  read_each(state, row, [&](const char* field) {
    OBS value;
    std::int64_t status = 0;
    obicv_(field, &row.type, &width, &decimals, &value, &status, width);
    benchmark::DoNotOptimize(status);
    return value.number;
  });
}

std::tm broken_down(double value) {
  const auto time = static_cast<std::time_t>(value) - kUnixOrigin;
  std::tm parts = {};
  gmtime_r(&time, &parts);
  return parts;
}

// TIME's value is a time of the first of all days.
void write_strftime(benchmark::State& state, const DateRow& row) {
  write_each(state, row, [&](double value, char* field) {
    const std::tm parts = broken_down(value);
    std::strftime(field, 64, row.pattern, &parts);
  });
}

template <class Pattern>
void write_fmt(benchmark::State& state, const DateRow& row, Pattern pattern) {
  write_each(state, row, [&](double value, char* field) {
    fmt::format_to(field, pattern, broken_down(value));
  });
}

void read_strptime(benchmark::State& state, const DateRow& row) {
  read_each(state, row, [&](const char* field) {
    char text[32];
    std::memcpy(text, field, static_cast<std::size_t>(row.width));
    text[row.width] = 0;
    std::tm parts = {};
    parts.tm_mday = 1;
    const char* first = text;
    while (*first == ' ') ++first;
    strptime(first, row.pattern, &parts);
    return static_cast<double>(timegm(&parts) + kUnixOrigin);
  });
}

// Of dates with a month's name, where strptime is slow.
void read_sscanf(benchmark::State& state, const DateRow& row) {
  read_each(state, row, [&](const char* field) {
    char text[32];
    std::memcpy(text, field, static_cast<std::size_t>(row.width));
    text[row.width] = 0;
    std::tm parts = {};
    char name[4] = {};
    std::sscanf(text, "%2d-%3s-%4d %2d:%2d:%2d", &parts.tm_mday, name, &parts.tm_year,
                &parts.tm_hour, &parts.tm_min, &parts.tm_sec);
    constexpr const char* kNames = "JANFEBMARAPRMAYJUNJULAUGSEPOCTNOVDEC";
    parts.tm_mon = static_cast<int>(std::strstr(kNames, name) - kNames) / 3;
    parts.tm_year -= 1900;
    return static_cast<double>(timegm(&parts) + kUnixOrigin);
  });
}

constexpr const DateRow& kDate = bench::kDateRows[0];
constexpr const DateRow& kAdate = bench::kDateRows[1];
constexpr const DateRow& kEdate = bench::kDateRows[2];
constexpr const DateRow& kSdate = bench::kDateRows[3];
constexpr const DateRow& kDatetime = bench::kDateRows[4];
constexpr const DateRow& kTime = bench::kDateRows[5];

#define DATE_ROWS(name, row, pattern)                                                \
  BENCHMARK_CAPTURE(write_iocv, name, row)->Arg(bench::kCold)->Arg(bench::kHot);     \
  BENCHMARK_CAPTURE(write_fmt, name, row, FMT_STRING("{:" pattern "}"))              \
      ->Arg(bench::kCold)                                                            \
      ->Arg(bench::kHot);                                                            \
  BENCHMARK_CAPTURE(write_strftime, name, row)->Arg(bench::kCold)->Arg(bench::kHot); \
  BENCHMARK_CAPTURE(read_iocv, name, row)->Arg(bench::kCold)->Arg(bench::kHot);      \
  BENCHMARK_CAPTURE(read_strptime, name, row)->Arg(bench::kCold)->Arg(bench::kHot)

DATE_ROWS(DATE11, kDate, "%d-%b-%Y");
DATE_ROWS(ADATE10, kAdate, "%m/%d/%Y");
DATE_ROWS(EDATE10, kEdate, "%d.%m.%Y");
DATE_ROWS(SDATE10, kSdate, "%Y/%m/%d");
DATE_ROWS(DATETIME20, kDatetime, "%d-%b-%Y %H:%M:%S");
DATE_ROWS(TIME8, kTime, "%H:%M:%S");
BENCHMARK_CAPTURE(read_sscanf, DATE11, kDate)->Arg(bench::kCold)->Arg(bench::kHot);
BENCHMARK_CAPTURE(read_sscanf, DATETIME20, kDatetime)->Arg(bench::kCold)->Arg(bench::kHot);

}  // namespace
