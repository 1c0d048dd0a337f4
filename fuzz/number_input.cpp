// Numbers from any text.
#include <iocv/format.h>

#include <cmath>

#include "harness.h"

namespace {

using enum VELT_Format::FormatType;
using fuzz::Reading;

void free_format(std::string_view field, std::int32_t code, std::int64_t decimals) {
  const Reading reading = fuzz::read(field, code, decimals, {1102, 1111, 1114, 1133});
  FUZZ_REQUIRE(std::isfinite(reading.value.number));
  // Blanks at either end mean nothing.
  const Reading padded =
      fuzz::read("  " + std::string(field) + " ", code, decimals, {1102, 1111, 1114, 1133});
  FUZZ_REQUIRE(padded.status == reading.status);
  FUZZ_REQUIRE(padded.value.bits == reading.value.bits);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  fuzz::take_settings(input);
  constexpr std::int32_t kCodes[] = {F, COMMA, DOLLAR, DOT, PCT, E, Z, N};
  const std::int32_t code = input.pick(kCodes);
  const std::int64_t decimals = input.decimals();
  const std::string_view field = input.rest(500);
  if (code == Z) {
    fuzz::read(field, code, decimals, {1102, 1109, 1133});
  } else if (code == N) {
    fuzz::read(field, code, decimals, {1102, 1133});
  } else {
    free_format(field, code, decimals);
  }
  return 0;
}
