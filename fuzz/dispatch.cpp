// The entry points with any code, width, decimals and position.
#include <iocv/convert.h>
#include <iocv/format.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "harness.h"

namespace {

constexpr std::int32_t kElapsed = 85;
constexpr std::int32_t kYearFirst = 86;
constexpr std::int64_t kWidest = 33000;

bool is_known(std::int64_t status) {
  return status == 0 || std::strcmp(iocv_status_text(status), "unknown status") != 0;
}

// The dispatcher reads no custom currency; FromString reads them as F.
bool reads(std::int32_t code) {
  if (code >= VELT_Format::CCA && code <= VELT_Format::CCE) return false;
  const iocv::FormatInfo* info = iocv::format_info(code);
  return info ? info->reads : code == kElapsed || code == kYearFirst;
}

bool writes(std::int32_t code) {
  const iocv::FormatInfo* info = iocv::format_info(code);
  return info ? info->writes : code == kElapsed || code == kYearFirst;
}

struct Arguments {
  std::int32_t code;
  std::int64_t width;
  std::int64_t decimals;
  std::int64_t position;
  std::string_view bytes;
};

// The bytes again and again, up to that size; blanks when there are none. In large pieces, because
// the fuzzer watches every step of a loop.
std::string repeated(std::string_view bytes, std::size_t size) {
  std::string text(bytes.empty() ? " " : bytes);
  while (text.size() < size) text += text;
  text.resize(size);
  return text;
}

// A text with the field at its place.
std::string text_around(const Arguments& arguments) {
  const std::int64_t size = arguments.position - 1 + std::max<std::int64_t>(arguments.width, 1);
  return repeated(arguments.bytes, static_cast<std::size_t>(size));
}

struct Result {
  std::vector<OBS> value;
  std::int64_t status = -1;
};

// Values are eight bytes, or as many units as a string of the width has.
std::vector<OBS> room_for_value(std::int64_t width) {
  const std::int64_t used = std::clamp<std::int64_t>(width, 0, 32767);
  return std::vector<OBS>(static_cast<std::size_t>((used + 7) / 8 + 1), OBS{.bits = 0x5A5A'5A5A});
}

void input(const Arguments& a) {
  const std::string text = text_around(a);
  const fuzz::Exact base(text);
  Result one{room_for_value(a.width)};
  Result other{room_for_value(a.width)};
  obicvn_(base.data(), &a.position, &a.code, &a.width, &a.decimals, one.value.data(), &one.status);
  const char* const field = base.data() + a.position - 1;
  const std::int64_t used = std::min<std::int64_t>(a.width, 32767);
  obicv_(field, &a.code, &used, &a.decimals, other.value.data(), &other.status, 32767);
  FUZZ_REQUIRE(one.status == other.status && is_known(one.status));
  FUZZ_REQUIRE(std::memcmp(one.value.data(), other.value.data(), 8 * one.value.size()) == 0);
  FUZZ_REQUIRE((one.status == 1105) == !reads(a.code));
  if (one.status == 1105) FUZZ_REQUIRE(one.value[0].bits == 0x5A5A'5A5A);
}

void output(const Arguments& a, double number) {
  if (a.code == kYearFirst && number >= 86400) return;  // would start a Java machine
  std::vector<OBS> value = room_for_value(a.width);
  const std::string bytes = repeated(a.bytes, 8 * value.size());
  std::memcpy(value.data(), bytes.data(), bytes.size());
  if (a.code != VELT_Format::A && a.code != VELT_Format::AHEX) value[0].number = number;
  const std::int64_t used = std::min<std::int64_t>(a.width, 32767);
  fuzz::Guarded field(used, '\x01');
  std::int64_t status = -1;
  obocv_(value.data(), &a.code, &used, &a.decimals, field.data(), &status, 32767);
  FUZZ_REQUIRE(field.intact() && is_known(status));

  // The capped layer writes the same; a wider field is blank from byte 32768 of the base on.
  fuzz::Guarded whole(a.position - 1 + std::max<std::int64_t>(a.width, 0), '\x01');
  std::int64_t status_of_whole = -1;
  obocvn_(value.data(), &a.code, &a.width, &a.decimals, whole.data(), &a.position,
          &status_of_whole);
  std::string expected =
      std::string(static_cast<std::size_t>(a.position - 1), '\x01') + field.text();
  expected.resize(whole.text().size(), '\x01');
  if (a.width > used) {
    expected.replace(static_cast<std::size_t>(used), static_cast<std::size_t>(a.width - used),
                     static_cast<std::size_t>(a.width - used), ' ');
  }
  FUZZ_REQUIRE(whole.intact() && status == status_of_whole);
  FUZZ_REQUIRE(whole.text() == expected);

  const bool missing = value[0].bits == fuzz::kMissingBits;  // which the hook writes for every code
  FUZZ_REQUIRE((status == 1105) == !(writes(a.code) || missing));
  if (status == 1105) FUZZ_REQUIRE(field.text().find_first_not_of('\x01') == std::string::npos);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input in(data, size);
  fuzz::take_settings(in);
  Arguments arguments = {};
  const int choice = static_cast<int>(in.byte());
  arguments.code = choice < 250 ? choice % 90 - 1 : static_cast<std::int32_t>(in.integer());
  arguments.width = in.width();
  if (arguments.width > 400) arguments.width = (arguments.width - 400) * kWidest / 180;
  arguments.decimals = in.decimals();
  arguments.position = in.below(16) + 1;
  const double number = in.number();
  arguments.bytes = in.rest(600);
  input(arguments);
  output(arguments, number);
  return 0;
}
