// Text to numbers: F8.2 and F12.4 beside peers that read the same field.
#include <benchmark/benchmark.h>
#include <fast_float/fast_float.h>
#include <iocv/iocv.h>

#include <charconv>
#include <cstdlib>
#include <cstring>

#include "records.h"

namespace {

struct Format {
  int width;
  int decimals;
};

constexpr Format kF8_2{8, 2};
constexpr Format kF12_4{12, 4};

template <class Read>
void each(benchmark::State& state, Format format, Read read) {
  const auto count = static_cast<std::size_t>(state.range(0));
  const bench::Fields fields =
      bench::fixed_fields(bench::values(count, format.width - format.decimals - 3, format.decimals),
                          format.width, format.decimals);
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(read(fields.field(i), fields.width));
    if (++i == count) i = 0;
  }
}

void iocv_dispatch(benchmark::State& state, Format format) {
  const std::int32_t type = VELT_Format::F;
  const std::int64_t width = format.width;
  const std::int64_t decimals = format.decimals;
  each(state, format, [&](const char* field, std::size_t) {
    OBS value;
    std::int64_t status = 0;
    obicv_(field, &type, &width, &decimals, &value, &status, width);
    benchmark::DoNotOptimize(status);
    return value.number;
  });
}

void iocv_plain(benchmark::State& state, Format format) {
  each(state, format, [&](const char* field, std::size_t width) {
    OBS value;
    benchmark::DoNotOptimize(IocvConvertInput(field, static_cast<unsigned>(width), VELT_Format::F,
                                              format.decimals, &value));
    return value.number;
  });
}

// The peers do not skip blanks or know widths; what they need is counted as theirs.
void peer_strtod(benchmark::State& state, Format format) {
  each(state, format, [](const char* field, std::size_t width) {
    char text[32];
    std::memcpy(text, field, width);
    text[width] = 0;
    return std::strtod(text, nullptr);
  });
}

const char* skip_blanks(const char* first, const char* last) {
  while (first != last && *first == ' ') ++first;
  return first;
}

void peer_from_chars(benchmark::State& state, Format format) {
  each(state, format, [](const char* field, std::size_t width) {
    double value = 0;
    std::from_chars(skip_blanks(field, field + width), field + width, value);
    return value;
  });
}

void peer_fast_float(benchmark::State& state, Format format) {
  each(state, format, [](const char* field, std::size_t width) {
    double value = 0;
    fast_float::from_chars(skip_blanks(field, field + width), field + width, value);
    return value;
  });
}

#define READERS(name, format)                                                                   \
  BENCHMARK_CAPTURE(iocv_dispatch, read_##name, format)->Arg(bench::kCold)->Arg(bench::kHot);   \
  BENCHMARK_CAPTURE(iocv_plain, read_##name, format)->Arg(bench::kCold)->Arg(bench::kHot);      \
  BENCHMARK_CAPTURE(peer_strtod, read_##name, format)->Arg(bench::kCold)->Arg(bench::kHot);     \
  BENCHMARK_CAPTURE(peer_from_chars, read_##name, format)->Arg(bench::kCold)->Arg(bench::kHot); \
  BENCHMARK_CAPTURE(peer_fast_float, read_##name, format)->Arg(bench::kCold)->Arg(bench::kHot)

READERS(F8_2, kF8_2);
READERS(F12_4, kF12_4);

}  // namespace
