// Binary, packed and real fields of any bytes, and any number into them.
#include <iocv/format.h>

#include <bit>
#include <cmath>

#include "harness.h"

namespace {

using enum VELT_Format::FormatType;

bool is_digits(std::string_view field) {
  for (const char byte : field) {
    const auto bits = static_cast<unsigned char>(byte);
    if ((bits & 15) > 9 || (bits >> 4) > 9) return false;
  }
  return true;
}

// A field of a size whose numbers a double holds exactly is written again as it was.
void read_and_write(std::string_view field, std::int64_t decimals) {
  const auto width = static_cast<std::int64_t>(field.size());
  const fuzz::Reading ib = fuzz::read(field, IB, decimals, {});
  const fuzz::Reading pib = fuzz::read(field, PIB, decimals, {});
  fuzz::read(field, P, decimals, {1103, 1106}, true);
  const fuzz::Reading pk = fuzz::read(field, PK, decimals, {1103});
  const fuzz::Reading rb = fuzz::read(field, RB, decimals, {});
  FUZZ_REQUIRE(!std::isnan(rb.value.number));
  FUZZ_REQUIRE((pk.status == 0) == is_digits(field));
  if (width < 1) return;
  if (decimals == 0 && width <= 6) {
    FUZZ_REQUIRE(fuzz::write(ib.value, IB, width, 0, {}).field == field);
    FUZZ_REQUIRE(fuzz::write(pib.value, PIB, width, 0, {}).field == field);
    if (pk.status == 0) FUZZ_REQUIRE(fuzz::write(pk.value, PK, width, 0, {}).field == field);
  }
  if (rb.value.bits != fuzz::kMissingBits && width <= 8) {
    const std::string again = fuzz::write(rb.value, RB, width, 0, {}).field;
    FUZZ_REQUIRE(fuzz::same_bits(fuzz::read(again, RB, 0, {}).value.number, rb.value.number));
  }
}

void write_any(fuzz::Input& input) {
  const std::int64_t width = input.width();
  const std::int64_t decimals = input.decimals();
  const double value = input.number();
  fuzz::write(value, IB, width, decimals, {1121, 1125, 1149, 1154});
  fuzz::write(value, PIB, width, decimals, {1120, 1121, 1125, 1149, 1154});
  fuzz::write(value, P, width, decimals, {1123, 1124, 1155, 1156});
  fuzz::write(value, PK, width, decimals, {1122, 1123, 1124, 1155, 1156});
  fuzz::write(value, RBHEX, width, decimals, {});
  fuzz::write(value, PIBHEX, width, decimals, {1134});
  const fuzz::Writing rb = fuzz::write(value, RB, width, decimals, {});
  if (width == 8 && !std::isnan(value)) {
    const fuzz::Reading reading = fuzz::read(rb.field, RB, 0, {});
    const bool missing = std::bit_cast<std::uint64_t>(value) == fuzz::kMissingBits;
    FUZZ_REQUIRE(missing || fuzz::same_bits(reading.value.number, value));
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  if (input.below(2) == 0) {
    const std::int64_t decimals = input.decimals();
    read_and_write(input.rest(400), decimals);
  } else {
    write_any(input);
  }
  return 0;
}
