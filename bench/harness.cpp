#include "harness.h"

#include <iocv/iocv.h>

#include <bit>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace bench {
namespace {

constexpr std::size_t kWidest = 20;
constexpr std::size_t kSlack = 64;

std::vector<Comparison>& comparisons() {
  static std::vector<Comparison> all;
  return all;
}

// Compares everything; false when something differs.
bool compare(std::size_t records) {
  bool same = true;
  for (const Comparison& comparison : comparisons()) {
    const std::string difference = comparison(records);
    if (difference.empty()) continue;
    std::fprintf(stderr, "%s\n", difference.c_str());
    same = false;
  }
  return same;
}

}  // namespace

char* field_space() {
  static std::string space(kCold * kWidest + kSlack, ' ');
  return space.data();
}

double* value_space() {
  static std::vector<double> space(kCold);
  return space.data();
}

bool same_field(std::string_view ours, std::string_view theirs) { return ours == theirs; }

bool same_value(double ours, double theirs) {
  return std::bit_cast<std::uint64_t>(ours) == std::bit_cast<std::uint64_t>(theirs);
}

void add_comparison(Comparison comparison) { comparisons().push_back(std::move(comparison)); }

double our_value(const Row& row, const char* field) {
  OBS value = {};
  IocvConvertInput(field, static_cast<unsigned>(row.width), row.type,
                   static_cast<int>(row.decimals), &value);
  return value.number;
}

std::string difference(const Row& row, std::string_view subject, std::size_t record,
                       std::string_view ours, std::string_view theirs) {
  std::string text(row.name);
  text.append(" of ").append(subject).append(" differs in record ");
  text.append(std::to_string(record)).append(": ours [").append(ours);
  return text.append("], theirs [").append(theirs).append("]");
}

std::string difference(const Row& row, std::string_view subject, std::size_t record, double ours,
                       double theirs) {
  char numbers[2][32];
  std::snprintf(numbers[0], sizeof numbers[0], "%.17g", ours);
  std::snprintf(numbers[1], sizeof numbers[1], "%.17g", theirs);
  return difference(row, subject, record, std::string_view(numbers[0]),
                    std::string_view(numbers[1]));
}

}  // namespace bench

// Usage: iocv_bench [--compare=RECORDS] [ARGUMENT OF GOOGLE BENCHMARK...]
int main(int count, char** arguments) {
  std::size_t records = bench::kCold;
  constexpr std::string_view kCompare = "--compare=";
  if (count > 1 && std::string_view(arguments[1]).starts_with(kCompare)) {
    records = std::min(bench::kCold, std::strtoul(arguments[1] + kCompare.size(), nullptr, 10));
    arguments[1] = arguments[0];
    ++arguments;
    --count;
  }
  benchmark::Initialize(&count, arguments);
  if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 2;
  bench::add_ours();
  bench::add_floor();
  bench::add_number_writers();
  bench::add_number_readers();
  bench::add_date_writers();
  bench::add_date_readers();
  bench::add_cobol();
  bench::add_widths();
  bench::add_threads();
  if (!bench::compare(records)) return 1;
  benchmark::RunSpecifiedBenchmarks();
}
