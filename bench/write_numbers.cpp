// Numbers to text: F8.2, F12.4 and E12.3 beside peers that write the same field.
#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <iocv/iocv.h>

#include <charconv>
#include <cstdio>
#include <cstring>

#include "records.h"

namespace {

struct Format {
  std::int32_t type;
  int width;
  int decimals;
};

constexpr Format kF8_2{VELT_Format::F, 8, 2};
constexpr Format kF12_4{VELT_Format::F, 12, 4};
constexpr Format kE12_3{VELT_Format::E, 12, 3};

template <class Write>
void each(benchmark::State& state, Format format, Write write) {
  const auto count = static_cast<std::size_t>(state.range(0));
  const std::vector<double> values =
      bench::values(count, format.width - format.decimals - 3, format.decimals);
  char field[64];
  std::size_t i = 0;
  for (auto _ : state) {
    write(values[i], field);
    benchmark::DoNotOptimize(field);
    if (++i == count) i = 0;
  }
}

void iocv_dispatch(benchmark::State& state, Format format) {
  const std::int64_t width = format.width;
  const std::int64_t decimals = format.decimals;
  each(state, format, [&](double value, char* field) {
    const OBS stored = {.number = value};
    std::int64_t status = 0;
    obocv_(&stored, &format.type, &width, &decimals, field, &status, width);
    benchmark::DoNotOptimize(status);
  });
}

void iocv_plain(benchmark::State& state, Format format) {
  each(state, format, [&](double value, char* field) {
    const OBS stored = {.number = value};
    benchmark::DoNotOptimize(IocvConvertOutput(&stored, format.type, format.decimals, field,
                                               static_cast<unsigned>(format.width)));
  });
}

bool is_exponential(Format format) { return format.type == VELT_Format::E; }

void peer_snprintf(benchmark::State& state, Format format) {
  const char* pattern = is_exponential(format) ? "%*.*E" : "%*.*f";
  each(state, format, [&](double value, char* field) {
    std::snprintf(field, 64, pattern, format.width, format.decimals, value);
  });
}

// std::to_chars, then moved to the right of the blank field.
void peer_to_chars(benchmark::State& state, Format format) {
  const auto chars =
      is_exponential(format) ? std::chars_format::scientific : std::chars_format::fixed;
  const auto width = static_cast<std::size_t>(format.width);
  each(state, format, [&](double value, char* field) {
    char text[64];
    const auto end = std::to_chars(text, text + sizeof text, value, chars, format.decimals).ptr;
    const std::size_t length = std::min(static_cast<std::size_t>(end - text), width);
    std::memset(field, ' ', width - length);
    std::memcpy(field + width - length, text, length);
  });
}

void peer_fmt(benchmark::State& state, Format format) {
  each(state, format, [&](double value, char* field) {
    if (is_exponential(format)) {
      fmt::format_to(field, FMT_STRING("{:{}.{}E}"), value, format.width, format.decimals);
    } else {
      fmt::format_to(field, FMT_STRING("{:{}.{}f}"), value, format.width, format.decimals);
    }
  });
}

#define WRITERS(name, format)                                                                  \
  BENCHMARK_CAPTURE(iocv_dispatch, write_##name, format)->Arg(bench::kCold)->Arg(bench::kHot); \
  BENCHMARK_CAPTURE(iocv_plain, write_##name, format)->Arg(bench::kCold)->Arg(bench::kHot);    \
  BENCHMARK_CAPTURE(peer_snprintf, write_##name, format)->Arg(bench::kCold)->Arg(bench::kHot); \
  BENCHMARK_CAPTURE(peer_to_chars, write_##name, format)->Arg(bench::kCold)->Arg(bench::kHot); \
  BENCHMARK_CAPTURE(peer_fmt, write_##name, format)->Arg(bench::kCold)->Arg(bench::kHot)

WRITERS(F8_2, kF8_2);
WRITERS(F12_4, kF12_4);
WRITERS(E12_3, kE12_3);

}  // namespace
