// Dates, times and durations of any bits.
#include <iocv/format.h>

#include <cmath>

#include "harness.h"

namespace {

using enum VELT_Format::FormatType;
using fuzz::Writing;

constexpr std::int32_t kElapsed = 85;
constexpr std::int64_t kDay = 86400;
constexpr std::int64_t kDays = 3074324;  // to the end of the year 9999

// What shows all of a value reads back as that value.
void round_trip(fuzz::Input& input) {
  struct Row {
    std::int32_t code;
    std::int64_t width;
    std::int64_t unit;  // seconds that the field shows
  };
  constexpr Row kRows[] = {{DATE, 11, kDay},  {ADATE, 10, kDay}, {EDATE, 10, kDay},
                           {SDATE, 10, kDay}, {JDATE, 7, kDay},  {DATETIME, 17, 60},
                           {DATETIME, 20, 1}, {TIME, 20, 1},     {DTIME, 20, 1}};
  const Row& row = input.pick(kRows);
  const std::int64_t first = row.code == JDATE ? 80 : 1;  // JDATE reads no day of 1582
  const std::int64_t day = first + std::llabs(input.integer() % (kDays - first));
  const std::int64_t seconds = row.unit == kDay ? 0 : std::llabs(input.integer() % kDay);
  const std::int64_t value = (day * kDay + seconds) / row.unit * row.unit;
  const std::string field =
      fuzz::write(static_cast<double>(value), row.code, row.width, 0, {}).field;
  const fuzz::Reading reading = fuzz::read(field, row.code, 0, {});
  FUZZ_REQUIRE(reading.value.number == static_cast<double>(value));
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  fuzz::take_settings(input);
  if (input.below(4) == 0) {
    round_trip(input);
    return 0;
  }
  constexpr std::int32_t kCodes[] = {DATE, ADATE, EDATE, SDATE, JDATE, QYR,      MOYR,
                                     WKYR, WKDAY, MONTH, TIME,  DTIME, DATETIME, kElapsed};
  const std::int32_t code = input.pick(kCodes);
  std::int64_t width = input.width();
  if (code == kElapsed && width < 5) width = 5;  // narrower fields keep their bytes
  const std::int64_t decimals = input.decimals();
  const double value = input.number();
  const Writing writing = fuzz::write(value, code, width, decimals, {1140, 1141});
  const bool names = code == WKDAY || code == MONTH;
  const bool any_sign = code == TIME || code == DTIME || code == kElapsed;
  if (any_sign) FUZZ_REQUIRE(writing.status == 0);
  if (writing.status == 1141) FUZZ_REQUIRE(names && value >= 0 && value < 86400);
  if (writing.status == 1140) FUZZ_REQUIRE(value < (names ? 0.0 : 86400.0));
  return 0;
}
