// What no fast path answers: through the dispatcher, which tries them first, and through the plain
// path alone. Benchmarks are named odd_write or odd_read / FORMAT / kind / dispatcher or plain.
#include <benchmark/benchmark.h>
#include <iocv/iocv.h>

#include <string>

#include "plain_paths.h"
#include "records.h"

namespace {

using bench::Odd;
using bench::Row;

constexpr std::size_t kRecords = 10'000;

// As the rows of the dispatchers, which have no use for the length of the text.

constexpr auto dispatched_output = [](const OBS* value, const std::int32_t* type,
                                      const std::int64_t* width, const std::int64_t* decimals,
                                      char* text, std::int64_t* status) {
  obocv_(value, type, width, decimals, text, status, *width);
};

constexpr auto dispatched_input = [](const char* text, const std::int32_t* type,
                                     const std::int64_t* width, const std::int64_t* decimals,
                                     OBS* value, std::int64_t* status) {
  obicv_(text, type, width, decimals, value, status, *width);
};

constexpr auto write = [](benchmark::State& state, const Row& row, Odd kind, auto writer) {
  const std::vector<double> values = bench::make_odd_values(row, kind, kRecords);
  char field[64];
  std::int64_t status = 0;
  for (auto _ : state) {
    for (const double number : values) {
      const OBS value = {.number = number};
      writer(&value, &row.type, &row.width, &row.decimals, field, &status);
      benchmark::DoNotOptimize(status);
    }
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(kRecords) * state.iterations());
};

constexpr auto read = [](benchmark::State& state, const Row& row, Odd kind, auto reader) {
  const std::string fields = bench::make_odd_fields(row, kind, kRecords);
  OBS value = {};
  std::int64_t status = 0;
  for (auto _ : state) {
    for (std::size_t i = 0; i < kRecords; ++i) {
      reader(&fields[i * static_cast<std::size_t>(row.width)], &row.type, &row.width, &row.decimals,
             &value, &status);
      benchmark::DoNotOptimize(value);
    }
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(kRecords) * state.iterations());
};

constexpr auto kPlainWriterOf = bench::by_code(bench::kPlainWriters);
constexpr auto kPlainReaderOf = bench::by_code(bench::kPlainReaders);

void add(const Row& row, const char* action, auto convert, auto dispatcher, auto plain) {
  constexpr const char* kNames[] = {"missing", "no number", "too large", "too small"};
  for (const Odd kind : bench::kOdd) {
    const std::string name = "odd_" + std::string(action) + '/' + std::string(row.name) + '/' +
                             kNames[static_cast<std::size_t>(kind)];
    const auto add_path = [&](const char* path, auto converter) {
      benchmark::RegisterBenchmark((name + '/' + path).c_str(), convert, row, kind, converter)
          ->MinTime(0.003);
    };
    add_path("dispatcher", dispatcher);
    add_path("plain", plain);
  }
}

// Any four bytes are a number of IB, any eight one of PIB.
bool has_odd_fields(const Row& row) {
  return row.type != VELT_Format::IB && row.type != VELT_Format::PIB;
}

// Google Benchmark's own main runs what is there before it.
[[maybe_unused]] const bool kAdded = [] {
  for (const Row& row : bench::kWritten) {
    add(row, "write", write, dispatched_output, kPlainWriterOf[static_cast<std::size_t>(row.type)]);
  }
  for (const Row& row : bench::kRead) {
    if (!has_odd_fields(row)) continue;
    add(row, "read", read, dispatched_input, kPlainReaderOf[static_cast<std::size_t>(row.type)]);
  }
  return true;
}();

}  // namespace
