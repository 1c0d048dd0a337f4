// A million fields by column beside a million single conversions of the same fields. A round is the
// whole column; per_field is what one field of it takes.
#include <benchmark/benchmark.h>
#include <iocv/column.h>
#include <iocv/iocv.h>

#include <random>

#include "records.h"

namespace {

namespace column = iocv::column;
using column::Format;

const Format kF8_2(VELT_Format::F, 8, 2);
const Format kF12_4(VELT_Format::F, 12, 4);
const Format kDate11(VELT_Format::DATE, 11);
const Format kDatetime20(VELT_Format::DATETIME, 20);

// Dates from 1900 to 2100, with the time of day where the format shows it.
std::vector<double> dates(std::size_t count, bool with_time) {
  constexpr int kFirstDay = 115'859;  // 1 January 1900
  std::mt19937_64 random(1582);
  std::uniform_int_distribution<int> day(kFirstDay, kFirstDay + 200 * 365);
  std::uniform_int_distribution<int> second(0, 86'399);
  std::vector<double> values(count);
  for (double& value : values) value = 86'400.0 * day(random) + (with_time ? second(random) : 0);
  return values;
}

std::vector<double> sample(const Format& format) {
  if (format.type != VELT_Format::F) return dates(bench::kCold, format.type != kDate11.type);
  const int decimals = static_cast<int>(format.decimals);
  return bench::values(bench::kCold, static_cast<int>(format.width) - decimals - 3, decimals);
}

// The values and their fields, one after the other.
struct Column {
  explicit Column(const Format& column_format)
      : format(column_format),
        stride(static_cast<std::size_t>(format.width)),
        values(sample(format)),
        fields(values.size() * stride, ' ') {
    column::write(values.data(), values.size(), format, {}, fields.data(), stride);
  }

  Format format;
  std::size_t stride;
  std::vector<double> values;
  std::string fields;
};

void each_round(benchmark::State& state, const Column& data, const auto& convert) {
  for (auto _ : state) {
    convert();
    benchmark::ClobberMemory();
  }
  using benchmark::Counter;
  state.counters["per_field"] = Counter(static_cast<double>(data.values.size()),
                                        Counter::kIsIterationInvariantRate | Counter::kInvert);
}

void write_column(benchmark::State& state, const Format& format) {
  Column data(format);
  const column::Settings settings;
  each_round(state, data, [&] {
    column::write(data.values.data(), data.values.size(), format, settings, data.fields.data(),
                  data.stride);
  });
}

void write_single(benchmark::State& state, const Format& format) {
  Column data(format);
  each_round(state, data, [&] {
    for (std::size_t i = 0; i < data.values.size(); ++i) {
      const OBS value = {.number = data.values[i]};
      std::int64_t status = 0;
      obocv_(&value, &format.type, &format.width, &format.decimals,
             data.fields.data() + i * data.stride, &status, format.width);
      benchmark::DoNotOptimize(status);
    }
  });
}

void read_column(benchmark::State& state, const Format& format) {
  Column data(format);
  const column::Settings settings;
  each_round(state, data, [&] {
    column::read(data.fields.data(), data.stride, data.values.size(), format, settings,
                 data.values.data());
  });
}

void read_single(benchmark::State& state, const Format& format) {
  Column data(format);
  each_round(state, data, [&] {
    for (std::size_t i = 0; i < data.values.size(); ++i) {
      OBS value;
      std::int64_t status = 0;
      obicv_(data.fields.data() + i * data.stride, &format.type, &format.width, &format.decimals,
             &value, &status, format.width);
      benchmark::DoNotOptimize(status);
      data.values[i] = value.number;
    }
  });
}

#define COLUMN(action, name, format)                                                          \
  BENCHMARK_CAPTURE(action##_column, action##_##name, format)->Unit(benchmark::kMillisecond); \
  BENCHMARK_CAPTURE(action##_single, action##_##name, format)->Unit(benchmark::kMillisecond)

COLUMN(write, F8_2, kF8_2);
COLUMN(write, F12_4, kF12_4);
COLUMN(write, DATE11, kDate11);
COLUMN(write, DATETIME20, kDatetime20);
COLUMN(read, F8_2, kF8_2);
COLUMN(read, DATE11, kDate11);

}  // namespace
