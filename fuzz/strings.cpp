// Strings and hexadecimal texts of any bytes, in several code pages.
#include <iocv/binary_formats.h>
#include <iocv/format.h>
#include <iocv/platform.h>
#include <iocv/string_formats.h>

#include <algorithm>
#include <vector>

#include "harness.h"

namespace {

using enum VELT_Format::FormatType;

constexpr char kGuardByte = '\x5A';

// The value that a string format reads, whole units; the unit behind it must stay.
struct StringReading {
  std::string bytes;
  std::int64_t status = -1;
};

template <class Routine>
StringReading read_string(Routine routine, std::string_view field, std::size_t bytes) {
  const auto width = static_cast<std::int64_t>(field.size());
  const std::int64_t decimals = 0;
  const std::size_t units = (bytes + 7) / 8;
  std::vector<OBS> value(units + 1);
  std::fill_n(value[0].bytes, 8 * value.size(), kGuardByte);
  const fuzz::Exact text(field);
  StringReading reading;
  routine(text.data(), &width, &decimals, value.data(), &reading.status, width);
  FUZZ_REQUIRE(std::all_of(value[units].bytes, value[units].bytes + 8,
                           [](char byte) { return byte == kGuardByte; }));
  reading.bytes.assign(reinterpret_cast<const char*>(value.data()), 8 * units);
  return reading;
}

template <class Routine>
std::string write_string(Routine routine, std::string_view bytes, std::int64_t width) {
  const std::int64_t decimals = 0;
  const fuzz::Exact value(bytes);
  fuzz::Guarded field(width, '\x01');
  std::int64_t status = -1;
  routine(reinterpret_cast<const OBS*>(value.data()), &width, &decimals, field.data(), &status,
          width);
  FUZZ_REQUIRE(field.intact() && status == 0);
  return field.text();
}

// What A reads is valid, so it is written as it stands and read again without a word.
void strings(std::string_view field) {
  const StringReading reading = read_string(obia_, field, field.size());
  FUZZ_REQUIRE(reading.status == 0 || reading.status == 1158);
  const std::string kept = reading.bytes.substr(0, field.size());
  FUZZ_REQUIRE(reading.status == 1158 || kept == field);
  const std::string written =
      write_string(oboa_, reading.bytes, static_cast<std::int64_t>(field.size()));
  FUZZ_REQUIRE(written == kept);
  FUZZ_REQUIRE(read_string(obia_, written, written.size()).status == 0);
  // Bytes of any kind are written up to the first that is no character.
  const std::string raw = write_string(oboa_, field, static_cast<std::int64_t>(field.size()));
  const std::size_t shared = static_cast<std::size_t>(
      std::mismatch(raw.begin(), raw.end(), field.begin()).first - raw.begin());
  FUZZ_REQUIRE(raw.find_first_not_of(' ', shared) == raw.npos);
}

void hexadecimal(std::string_view field) {
  const std::size_t bytes = field.size() / 2;
  const StringReading reading = read_string(obiah_, field, bytes);
  FUZZ_REQUIRE(reading.status == 0 || reading.status == 1117);
  // Any bytes are written as digits and read back.
  const std::string digits =
      write_string(oboah_, field, static_cast<std::int64_t>(2 * field.size()));
  const StringReading again = read_string(obiah_, digits, field.size());
  FUZZ_REQUIRE(again.status == 0);
  FUZZ_REQUIRE(again.bytes.substr(0, field.size()) == field);
}

void hexadecimal_numbers(std::string_view field) {
  fuzz::read(field, PIBHEX, 0, {1101});
  fuzz::read(field, RBHEX, 0, {1101});
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  constexpr const char* kCodePages[] = {"UTF-8",   "windows-1252", "Shift_JIS",
                                        "GB18030", "EUC-JP",       "BIG5"};
  FUZZ_REQUIRE(VELTMBsetCodePage(input.pick(kCodePages)));
  const std::int64_t kind = input.below(3);
  const std::string_view field = input.rest(600);
  if (kind == 0) strings(field);
  if (kind == 1) hexadecimal(field);
  if (kind == 2) hexadecimal_numbers(field);
  return 0;
}
