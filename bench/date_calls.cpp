// Calls one conversion many times, for counting its instructions, dispatcher included:
//   valgrind --tool=callgrind --toggle-collect=obocv_ build/bench/bench/iocv_date_calls write
//   DATE11 valgrind --tool=callgrind --toggle-collect=obicv_ build/bench/bench/iocv_date_calls read
//   DATE11
// What it collects, less what it collects beside "... 0" (no calls but those that make the fields),
// is that of 10,000 calls.
#include <iocv/iocv.h>

#include <cstdlib>
#include <string_view>

#include "date_records.h"

namespace {

constexpr std::size_t kRecords = 1000;

void write_all(const bench::DateRow& row, std::size_t calls) {
  const std::vector<double> values = bench::date_values(kRecords, row);
  const std::int64_t width = row.width;
  const std::int64_t decimals = 0;
  char field[64];
  std::int64_t status = 0;
  for (std::size_t i = 0; i < calls; ++i) {
    const OBS value = {.number = values[i % kRecords]};
    obocv_(&value, &row.type, &width, &decimals, field, &status, width);
  }
}

void read_all(const bench::DateRow& row, std::size_t calls) {
  const bench::Fields fields = bench::date_fields(kRecords, row);
  const std::int64_t width = row.width;
  const std::int64_t decimals = 0;
  OBS value = {};
  std::int64_t status = 0;
  for (std::size_t i = 0; i < calls; ++i) {
    obicv_(fields.field(i % kRecords), &row.type, &width, &decimals, &value, &status, width);
  }
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 3) return 1;
  const std::size_t calls = count > 3 ? std::strtoull(arguments[3], nullptr, 10) : 10'000;
  for (const bench::DateRow& row : bench::kDateRows) {
    if (std::string_view(arguments[2]) != row.name) continue;
    (std::string_view(arguments[1]) == "write" ? write_all : read_all)(row, calls);
    return 0;
  }
  return 1;
}
