// Numbers to fields that no packaged peer writes: groups, percent, zoned, packed and binary. Beside
// them std::to_chars writes the bare digits of the same numbers, and the plain door stands for a
// host.
#include <benchmark/benchmark.h>
#include <iocv/iocv.h>

#include <charconv>
#include <cstdint>

#include "records.h"

namespace {

struct Format {
  std::int32_t type;
  std::int64_t width;
  std::int64_t decimals;
};

template <class Write>
void each(benchmark::State& state, Format format, Write write) {
  const auto count = static_cast<std::size_t>(state.range(0));
  const std::vector<double> values =
      bench::output_values(count, format.type, format.width, format.decimals);
  char field[64];
  std::size_t i = 0;
  for (auto _ : state) {
    write(values[i], field);
    benchmark::DoNotOptimize(field);
    if (++i == count) i = 0;
  }
}

void iocv_dispatch(benchmark::State& state, Format format) {
  each(state, format, [&](double value, char* field) {
    const OBS stored = {.number = value};
    std::int64_t status = 0;
    obocv_(&stored, &format.type, &format.width, &format.decimals, field, &status, format.width);
    benchmark::DoNotOptimize(status);
  });
}

void iocv_plain(benchmark::State& state, Format format) {
  each(state, format, [&](double value, char* field) {
    const OBS stored = {.number = value};
    benchmark::DoNotOptimize(IocvConvertOutput(&stored, format.type,
                                               static_cast<int>(format.decimals), field,
                                               static_cast<unsigned>(format.width)));
  });
}

void digits_to_chars(benchmark::State& state, Format format) {
  each(state, format, [&](double value, char* field) {
    std::to_chars(field, field + 64, value, std::chars_format::fixed,
                  static_cast<int>(format.decimals));
  });
}

#define FIELDS(name, ...)                                                              \
  BENCHMARK_CAPTURE(iocv_dispatch, write_##name, Format{__VA_ARGS__})                  \
      ->Arg(bench::kCold)                                                              \
      ->Arg(bench::kHot);                                                              \
  BENCHMARK_CAPTURE(iocv_plain, write_##name, Format{__VA_ARGS__})->Arg(bench::kCold); \
  BENCHMARK_CAPTURE(digits_to_chars, write_##name, Format{__VA_ARGS__})->Arg(bench::kCold)

FIELDS(COMMA12_2, VELT_Format::COMMA, 12, 2);
FIELDS(DOT12_2, VELT_Format::DOT, 12, 2);
FIELDS(DOLLAR12_2, VELT_Format::DOLLAR, 12, 2);
FIELDS(PCT8_2, VELT_Format::PCT, 8, 2);
FIELDS(F5_0, VELT_Format::F, 5, 0);
FIELDS(F16_2, VELT_Format::F, 16, 2);
FIELDS(E16_6, VELT_Format::E, 16, 6);
FIELDS(P8_2, VELT_Format::P, 8, 2);
FIELDS(Z8_2, VELT_Format::Z, 8, 2);
FIELDS(IB4, VELT_Format::IB, 4, 0);
FIELDS(PIB8, VELT_Format::PIB, 8, 0);

}  // namespace
