// Dates, times and periods from any text.
#include <iocv/format.h>

#include <cmath>

#include "harness.h"

namespace {

using enum VELT_Format::FormatType;
using fuzz::Reading;

constexpr std::int32_t kElapsed = 85;
constexpr std::int32_t kYearFirst = 86;
constexpr double kDay = 86400;

bool is_day(double seconds) { return std::fmod(seconds, kDay) == 0; }
bool is_count(double n, double last) { return n >= 1 && n <= last && n == std::trunc(n); }

Reading read_any(std::string_view field, std::int32_t code) {
  switch (code) {
    case DATE: return fuzz::read(field, code, 0, {1137, 1196, 608});
    case ADATE: return fuzz::read(field, code, 0, {1136, 1195, 608});
    case EDATE: return fuzz::read(field, code, 0, {1151, 1194, 608});
    case SDATE: return fuzz::read(field, code, 0, {1152, 1193, 608});
    case TIME: return fuzz::read(field, code, 0, {1146, 1192});
    case DTIME: return fuzz::read(field, code, 0, {1138});
    case DATETIME: return fuzz::read(field, code, 0, {1139});
    case kYearFirst: return fuzz::read(field, code, 0, {1190});
    case kElapsed: return fuzz::read(field, code, 0, {1169, 1179, 1189});
    case JDATE: return fuzz::read(field, code, 0, {1142});
    case WKDAY: return fuzz::read(field, code, 0, {1147});
    case MONTH: return fuzz::read(field, code, 0, {1143});
    case MOYR: return fuzz::read(field, code, 0, {1144});
    case QYR: return fuzz::read(field, code, 0, {1145});
    default: return fuzz::read(field, code, 0, {1148});
  }
}

// A date that was read is written with four digits of the year and read again.
void round_trip(double date, std::int32_t code) {
  const fuzz::Writing writing = fuzz::write(date, code, 11, 0, {1140});
  if (writing.status != 0 || writing.field.find('*') != std::string::npos) return;
  FUZZ_REQUIRE(fuzz::same_bits(read_any(writing.field, code).value.number, date));
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  fuzz::take_settings(input);
  constexpr std::int32_t kCodes[] = {DATE,       ADATE, EDATE, SDATE, DATETIME,
                                     kYearFirst, TIME,  DTIME, JDATE, WKDAY,
                                     MONTH,      MOYR,  QYR,   WKYR,  kElapsed};
  const std::int32_t code = input.pick(kCodes);
  const std::string_view field = input.rest(400);
  const Reading reading = read_any(field, code);
  const double value = reading.value.number;
  if (reading.value.bits == fuzz::kMissingBits) return 0;
  FUZZ_REQUIRE(std::isfinite(value));
  switch (code) {
    case DATE:
    case ADATE:
    case EDATE:
    case SDATE:
      FUZZ_REQUIRE(is_day(value));
      round_trip(value, code);
      break;
    case JDATE:
    case MOYR:
    case QYR:
    case WKYR: FUZZ_REQUIRE(is_day(value)); break;
    case WKDAY: FUZZ_REQUIRE(is_count(value, 7)); break;
    case MONTH: FUZZ_REQUIRE(is_count(value, 12)); break;
    default: break;
  }
  return 0;
}
