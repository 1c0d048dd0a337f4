// Numbers of any bits under every numeric text format.
#include <iocv/currencies.h>
#include <iocv/format.h>
#include <iocv/settings.h>

#include <cmath>

#include "harness.h"

namespace {

using enum VELT_Format::FormatType;
using fuzz::Writing;

// Every column is one of the bytes that a number consists of.
bool is_number_text(std::string_view field) {
  return field.find_first_not_of(" 0123456789.,+-*E$%#{}ABCDGHIJKLMNOPQR") == field.npos;
}

// What a decimal of up to 11 digits is written as reads back as the same double, where a field is
// wide enough for all of it. Rounding lifts what lies within 4096 units of the last place below a
// half: from 2^40 on that is more than a half, and a product a hair above a whole number is one up.
void round_trip(fuzz::Input& input) {
  constexpr std::int32_t kCodes[] = {F, COMMA, DOLLAR, DOT, PCT, Z, N, E};
  const std::int32_t code = input.pick(kCodes);
  // N writes a decimal character that it does not read.
  const std::int64_t decimals = code == N ? 0 : input.below(12);
  double power = 1;
  for (std::int64_t i = 0; i < decimals; ++i) power *= 10;
  double value = static_cast<double>(input.integer() % 100'000'000'000) / power;
  if (code == N) value = std::fabs(value);
  const std::int64_t shown = code == E ? 10 : decimals;
  const Writing writing = fuzz::write(value, code, 40, shown, {});
  // An E number shows its own digits; the others imply as many decimals as they were written with.
  const fuzz::Reading reading = fuzz::read(writing.field, code, code == Z ? shown : 0, {});
  FUZZ_REQUIRE(reading.value.number == value);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  fuzz::take_settings(input);
  if (input.below(4) == 0) {
    round_trip(input);
    return 0;
  }
  constexpr std::int32_t kCodes[] = {F, COMMA,    DOLLAR, DOT, PCT, E,   N,
                                     Z, UNUSED40, CCA,    CCB, CCC, CCD, CCE};
  const std::int32_t code = input.pick(kCodes);
  const std::int64_t width = input.width();
  const std::int64_t decimals = input.decimals();
  const double value = input.number();
  const Writing writing = fuzz::write(value, code, width, decimals, {1128});
  FUZZ_REQUIRE(writing.status == 0 || (code == N && value < 0));
  FUZZ_REQUIRE(is_number_text(writing.field));
  return 0;
}
