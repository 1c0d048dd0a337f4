// Fields to numbers: each format beside peers that read the same field, where there are some.
#include <benchmark/benchmark.h>
#include <fast_float/fast_float.h>
#include <iocv/iocv.h>

#include <charconv>
#include <cstdlib>
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
constexpr Format kF8_0{VELT_Format::F, 8, 0};
constexpr Format kE12_3{VELT_Format::E, 12, 3};
constexpr Format kComma12_2{VELT_Format::COMMA, 12, 2};
constexpr Format kP8_2{VELT_Format::P, 8, 2};
constexpr Format kZ8_2{VELT_Format::Z, 8, 2};
constexpr Format kIb4{VELT_Format::IB, 4, 0};
constexpr Format kPib8{VELT_Format::PIB, 8, 0};

template <class Read>
void each(benchmark::State& state, Format format, Read read) {
  const auto count = static_cast<std::size_t>(state.range(0));
  const bench::Fields fields =
      bench::written_fields(count, format.type, format.width, format.decimals);
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(read(fields.field(i), fields.width));
    if (++i == count) i = 0;
  }
}

void iocv_dispatch(benchmark::State& state, Format format) {
  const std::int64_t width = format.width;
  const std::int64_t decimals = format.decimals;
  each(state, format, [&](const char* field, std::size_t) {
    OBS value;
    std::int64_t status = 0;
    obicv_(field, &format.type, &width, &decimals, &value, &status, width);
    benchmark::DoNotOptimize(status);
    return value.number;
  });
}

void iocv_plain(benchmark::State& state, Format format) {
  each(state, format, [&](const char* field, std::size_t width) {
    OBS value;
    benchmark::DoNotOptimize(IocvConvertInput(field, static_cast<unsigned>(width), format.type,
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

// A whole number.
void peer_from_chars_int(benchmark::State& state, Format format) {
  each(state, format, [](const char* field, std::size_t width) {
    int value = 0;
    std::from_chars(skip_blanks(field, field + width), field + width, value);
    return static_cast<double>(value);
  });
}

// Without the grouping characters, which no peer knows.
void peer_fast_float_grouped(benchmark::State& state, Format format) {
  each(state, format, [](const char* field, std::size_t width) {
    char text[32];
    char* end = text;
    for (std::size_t i = 0; i < width; ++i) {
      if (field[i] != ',' && field[i] != ' ') *end++ = field[i];
    }
    double value = 0;
    fast_float::from_chars(text, end, value);
    return value;
  });
}

#define COLD_AND_HOT(function, name, format) \
  BENCHMARK_CAPTURE(function, read_##name, format)->Arg(bench::kCold)->Arg(bench::kHot)

#define READERS(name, format)                \
  COLD_AND_HOT(iocv_dispatch, name, format); \
  COLD_AND_HOT(iocv_plain, name, format)

#define NUMBER_PEERS(name, format)             \
  COLD_AND_HOT(peer_strtod, name, format);     \
  COLD_AND_HOT(peer_from_chars, name, format); \
  COLD_AND_HOT(peer_fast_float, name, format)

READERS(F8_2, kF8_2);
NUMBER_PEERS(F8_2, kF8_2);
READERS(F12_4, kF12_4);
NUMBER_PEERS(F12_4, kF12_4);
READERS(F8_0, kF8_0);
COLD_AND_HOT(peer_from_chars_int, F8_0, kF8_0);
READERS(E12_3, kE12_3);
NUMBER_PEERS(E12_3, kE12_3);
READERS(COMMA12_2, kComma12_2);
COLD_AND_HOT(peer_fast_float_grouped, COMMA12_2, kComma12_2);
READERS(P8_2, kP8_2);
READERS(Z8_2, kZ8_2);
READERS(IB4, kIb4);
READERS(PIB8, kPib8);

}  // namespace
