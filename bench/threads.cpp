// A column on one thread, and its halves on two: benchmarks named KIND_threads, by the clock.
#include <iocv/column.h>

#include <thread>

#include "harness.h"

namespace bench {
namespace {

using iocv::column::Format;
using iocv::column::Settings;

Format format_of(const Row& row) { return {static_cast<int>(row.type), row.width, row.decimals}; }

// Convert is (first record, number of records).
template <class Convert>
void add(const char* kind, const Row& row, Convert convert) {
  for (const std::size_t threads : {std::size_t{1}, std::size_t{2}}) {
    const std::string name =
        std::string(kind) + '/' + std::string(row.name) + '/' + std::to_string(threads);
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
      for (auto _ : state) {
        const std::size_t share = kCold / threads;
        std::vector<std::jthread> others;
        for (std::size_t i = 1; i < threads; ++i) others.emplace_back(convert, i * share, share);
        convert(0, share);
      }
      state.SetItemsProcessed(static_cast<std::int64_t>(kCold) * state.iterations());
    })->UseRealTime();
  }
}

void add_writer(const Row& row) {
  add("write_threads", row, [row](std::size_t first, std::size_t count) {
    const auto width = static_cast<std::size_t>(row.width);
    iocv::column::write(values_of(row).data() + first, count, format_of(row), Settings{},
                        field_space() + first * width, width);
  });
}

void add_reader(const Row& row) {
  add("read_threads", row, [row](std::size_t first, std::size_t count) {
    const auto width = static_cast<std::size_t>(row.width);
    iocv::column::read(fields_of(row).data() + first * width, width, count, format_of(row),
                       Settings{}, value_space() + first);
  });
}

}  // namespace

void add_threads() {
  add_writer(kF8_2);
  add_writer(kDate11);
  add_reader(kF8_2);
  add_reader(kDate11);
}

}  // namespace bench
