// Every width up to 16 bytes with up to six decimals, and dates of other widths, against the rows:
// benchmarks named KIND_widths, through the dispatcher, over records that are hard to predict.
#include <iocv/iocv.h>

#include <vector>

#include "harness.h"

namespace bench {
namespace {

constexpr std::size_t kRecords = 20'000;
constexpr std::int64_t kWidest = 16;
constexpr std::int64_t kMostDecimals = 6;

struct Type {
  std::string_view name;
  std::int32_t type;
  std::int64_t beside_decimals;  // columns that a field has at least
  std::int64_t widest;
};

constexpr Type kTypes[] = {
    {"F", VELT_Format::F, 1, kWidest}, {"COMMA", VELT_Format::COMMA, 1, kWidest},
    {"E", VELT_Format::E, 8, kWidest}, {"Z", VELT_Format::Z, 1, kWidest},
    {"P", VELT_Format::P, 1, kWidest}, {"IB", VELT_Format::IB, 1, 8},
    {"PIB", VELT_Format::PIB, 1, 8},
};

constexpr Row kDates[] = {
    {"DATE9", VELT_Format::DATE, 9},
    kDate11,
    {"ADATE8", VELT_Format::ADATE, 8},
    kAdate10,
    {"EDATE8", VELT_Format::EDATE, 8},
    {"EDATE10", VELT_Format::EDATE, 10},
    {"SDATE8", VELT_Format::SDATE, 8},
    kSdate10,
    {"TIME5", VELT_Format::TIME, 5},
    kTime8,
    {"TIME11.2", VELT_Format::TIME, 11, 2},
    {"DATETIME17", VELT_Format::DATETIME, 17},
    {"DATETIME23.2", VELT_Format::DATETIME, 23, 2},
    kDatetime20,
};

void write(benchmark::State& state, const Row& row) {
  const std::vector<double> values = make_values(row, kRecords);
  std::string field(static_cast<std::size_t>(row.width), ' ');
  std::int64_t status = 0;
  for (auto _ : state) {
    for (const double number : values) {
      const OBS value = {.number = number};
      obocv_(&value, &row.type, &row.width, &row.decimals, field.data(), &status, row.width);
      benchmark::DoNotOptimize(status);
    }
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(kRecords) * state.iterations());
}

void read(benchmark::State& state, const Row& row) {
  const std::string fields = make_fields(row, make_values(row, kRecords));
  const auto width = static_cast<std::size_t>(row.width);
  OBS value = {};
  std::int64_t status = 0;
  for (auto _ : state) {
    for (std::size_t i = 0; i < kRecords; ++i) {
      obicv_(&fields[i * width], &row.type, &row.width, &row.decimals, &value, &status, row.width);
      benchmark::DoNotOptimize(value);
    }
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(kRecords) * state.iterations());
}

void add(const Row& row, const std::string& name) {
  const auto add_kind = [&](const char* kind, auto convert) {
    benchmark::RegisterBenchmark((std::string(kind) + name + "/cold").c_str(), convert, row)
        ->MinTime(0.003);
  };
  add_kind("write_widths/", write);
  add_kind("read_widths/", read);
}

}  // namespace

void add_widths() {
  for (const Type& type : kTypes) {
    for (std::int64_t width = 1; width <= type.widest; ++width) {
      for (std::int64_t decimals = 0; decimals <= kMostDecimals; ++decimals) {
        if (width < type.beside_decimals + decimals && type.type != VELT_Format::P) break;
        add({type.name, type.type, width, decimals}, name_of(type.name, width, decimals));
      }
    }
  }
  for (const Row& row : kDates) add(row, std::string(row.name));
}

}  // namespace bench
