// How everything is timed and compared: the same blocks of the same records, field after field into
// the same memory, for the library, its peers and the floor.
//
// Names are KIND/ROW/cold|hot/SUBJECT; items a second are fields. Cold takes the next block of a
// million records each time, hot the same 16 records over and over.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>

#include "records.h"

namespace bench {

inline constexpr std::size_t kBlock = 1000;

// Room for kCold fields of the widest row, and behind them for what a peer adds to its text.
char* field_space();
double* value_space();

// Whether a peer says what we say; by default in the same bytes and bits.
using SameField = bool(std::string_view ours, std::string_view theirs);
using SameValue = bool(double ours, double theirs);
bool same_field(std::string_view ours, std::string_view theirs);
bool same_value(double ours, double theirs);

double our_value(const Row& row, const char* field);

// A comparison with the library over the first records of a row, made before anything is timed. It
// answers what differs, or nothing.
using Comparison = std::function<std::string(std::size_t records)>;
void add_comparison(Comparison comparison);
std::string difference(const Row& row, std::string_view subject, std::size_t record,
                       std::string_view ours, std::string_view theirs);
std::string difference(const Row& row, std::string_view subject, std::size_t record, double ours,
                       double theirs);

// Times run(first record, number of records) in blocks.
template <class Run>
void time_blocks(const std::string& kind, const Row& row, std::string_view subject, Run run) {
  const std::string name = kind + '/' + std::string(row.name);
  const auto add = [&](const char* heat, std::size_t records, std::size_t block) {
    benchmark::RegisterBenchmark(
        (name + '/' + heat + '/' + std::string(subject)).c_str(), [=](benchmark::State& state) {
          std::size_t first = 0;
          for (auto _ : state) {
            run(first, block);
            benchmark::ClobberMemory();
            first += block;
            if (first == records) first = 0;
          }
          state.SetItemsProcessed(static_cast<std::int64_t>(block) * state.iterations());
        });
  };
  add("cold", kCold, kBlock);
  add("hot", kHot, kHot);
}

// Write is (values, fields, number of records).
template <class Write>
void time_writer(const Row& row, std::string_view subject, Write write) {
  const auto width = static_cast<std::size_t>(row.width);
  const double* values = values_of(row).data();
  time_blocks("write", row, subject, [=](std::size_t first, std::size_t count) {
    write(values + first, field_space() + first * width, count);
  });
}

// Read is (fields, values, number of records).
template <class Read>
void time_reader(const Row& row, std::string_view subject, Read read) {
  const auto width = static_cast<std::size_t>(row.width);
  const char* fields = fields_of(row).data();
  time_blocks("read", row, subject, [=](std::size_t first, std::size_t count) {
    read(fields + first * width, value_space() + first, count);
  });
}

// A peer writes one field: write(value, field). It may leave one byte behind the field.
template <class Write, class Same = SameField*>
void add_writer(const Row& row, std::string_view subject, Write write, Same same = same_field) {
  const auto width = static_cast<std::size_t>(row.width);
  time_writer(row, subject, [=](const double* values, char* fields, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) write(values[i], fields + i * width);
  });
  add_comparison([=](std::size_t records) -> std::string {
    const std::string& ours = fields_of(row);
    for (std::size_t i = 0; i < records; ++i) {
      char theirs[64];
      write(values_of(row)[i], theirs);
      const std::string_view field(&ours[i * width], width);
      if (same(field, {theirs, width})) continue;
      return difference(row, subject, i, field, {theirs, width});
    }
    return {};
  });
}

// A peer reads one field: read(field) -> value.
template <class Read>
void add_reader(const Row& row, std::string_view subject, Read read, SameValue* same = same_value) {
  const auto width = static_cast<std::size_t>(row.width);
  time_reader(row, subject, [=](const char* fields, double* values, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) values[i] = read(fields + i * width);
  });
  add_comparison([=](std::size_t records) -> std::string {
    const char* fields = fields_of(row).data();
    for (std::size_t i = 0; i < records; ++i) {
      const double theirs = read(fields + i * width);
      const double ours = our_value(row, fields + i * width);
      if (!same(ours, theirs)) return difference(row, subject, i, ours, theirs);
    }
    return {};
  });
}

// What add their subjects to every row that they can convert.
void add_ours();
void add_floor();
void add_number_writers();
void add_number_readers();
void add_date_writers();
void add_date_readers();
void add_cobol();
void add_widths();
void add_threads();

}  // namespace bench
