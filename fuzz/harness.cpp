#include "harness.h"

#include <iocv/convert.h>
#include <iocv/settings.h>

#include <algorithm>
#include <bit>
#include <cstdio>

namespace fuzz {

void fail(const char* file, int line, const char* condition) {
  std::fprintf(stderr, "%s:%d: does not hold: %s\n", file, line, condition);
  std::abort();
}

unsigned Input::byte() {
  if (left_.empty()) return 0;
  const auto first = static_cast<unsigned char>(left_.front());
  left_.remove_prefix(1);
  return first;
}

std::int64_t Input::integer() {
  std::uint64_t bits = 0;
  for (int i = 0; i < 8; ++i) bits |= std::uint64_t{byte()} << (8 * i);
  return static_cast<std::int64_t>(bits);
}

std::int64_t Input::below(int limit) { return static_cast<int>(byte()) % limit; }

std::int64_t Input::width() {
  const int choice = static_cast<int>(byte());
  if (choice < 220) return choice % 44;
  if (choice < 250) return (choice - 220) * 20;
  return choice == 255 ? INT64_MIN : 250 - choice;  // [-4, 0]
}

std::int64_t Input::decimals() {
  const int choice = static_cast<int>(byte());
  if (choice < 240) return choice % 20;
  constexpr std::int64_t kOthers[] = {-1,  -2,  -15,  20,        40,        307,       308, 309,
                                      324, 400, 1000, INT32_MAX, INT64_MAX, INT64_MIN, -400};
  return choice == 255 ? integer() : kOthers[choice - 240];
}

double Input::number() {
  const unsigned choice = byte() % 4;
  const std::int64_t bits = integer();
  if (choice == 0) return std::bit_cast<double>(bits);
  if (choice == 1) return static_cast<double>(bits % 1'000'000'000'000'000);
  if (choice == 2) return static_cast<double>(bits % 400'000'000'000) / 8;  // dates and fractions
  double power = 1;
  for (auto places = below(16); places > 0; --places) power *= 10;
  return static_cast<double>(bits % 1'000'000'000'000'000) / power;
}

std::string_view Input::text(std::size_t longest) {
  const std::string_view all = left_.substr(0, longest);
  const std::size_t end = std::min(all.find('\xFF'), all.size());
  left_.remove_prefix(std::min(end + 1, left_.size()));
  return all.substr(0, end);
}

std::string_view Input::rest(std::size_t longest) {
  const std::string_view all = left_.substr(0, longest);
  left_ = {};
  return all;
}

void take_settings(Input& input) {
  const unsigned flags = input.byte();
  if ((flags & 1) != 0) {
    iocvsetdeccharcomma_();
  } else {
    iocvsetdecchardot_();
  }
  cmnsys_.leading_zero = (flags >> 1) & 1;
  cmasys_.system_missing = (flags & 4) != 0 ? '#' : '.';
  constexpr double kThresholds[] = {0.0001, 0, 1e300, 1e-300};
  const double threshold = kThresholds[(flags >> 3) & 3];
  iocvsetsmall_(&threshold);
  constexpr std::int64_t kCenturies[] = {1900, 1950, 1999, 1582, 1500, 1, 9950, 20000};
  cmndtm_.century_begin = input.pick(kCenturies);
}

Exact::Exact(std::string_view bytes) : bytes_(new char[bytes.size()]) {
  std::copy(bytes.begin(), bytes.end(), bytes_.get());
}

Guarded::Guarded(std::int64_t width, char before)
    : bytes_(static_cast<std::size_t>(std::max<std::int64_t>(width, 0)) + 2 * kGuard, '\x5A') {
  std::fill(bytes_.begin() + kGuard, bytes_.end() - kGuard, before);
}

bool Guarded::intact() const {
  const std::string guard(kGuard, '\x5A');
  return bytes_.starts_with(guard) && bytes_.ends_with(guard);
}

Reading read(std::string_view field, std::int32_t code, std::int64_t decimals,
             std::initializer_list<int> statuses, bool keeps_value) {
  const auto width = static_cast<std::int64_t>(field.size());
  const auto read_once = [&](const char* text, std::uint64_t before) {
    OBS values[3] = {{.bits = ~before}, {.bits = before}, {.bits = ~before}};
    std::int64_t status = -1;
    obicv_(text, &code, &width, &decimals, &values[1], &status, width);
    FUZZ_REQUIRE(values[0].bits == ~before && values[2].bits == ~before);
    return Reading{values[1], status};
  };
  const Exact exact(field);
  const Reading reading = read_once(exact.data(), 0);
  const Reading again = read_once((std::string(field) + "9,.:/9ABCDEF").data(), ~std::uint64_t{0});
  FUZZ_REQUIRE(reading.status == again.status);
  FUZZ_REQUIRE(reading.value.bits == again.value.bits);
  FUZZ_REQUIRE(reading.status == 0 || is_one_of(reading.status, statuses));
  FUZZ_REQUIRE(reading.status == 0 || keeps_value || reading.value.bits == kMissingBits);
  return reading;
}

Writing write(OBS value, std::int32_t code, std::int64_t width, std::int64_t decimals,
              std::initializer_list<int> statuses) {
  const auto write_once = [&](char before) {
    Guarded field(width, before);
    std::int64_t status = -1;
    obocv_(&value, &code, &width, &decimals, field.data(), &status,
           std::max<std::int64_t>(width, 0));
    FUZZ_REQUIRE(field.intact());
    return Writing{field.text(), status};
  };
  const Writing writing = write_once('\x01');
  const Writing again = write_once('\x02');
  FUZZ_REQUIRE(writing.status == again.status);
  FUZZ_REQUIRE(writing.field == again.field);
  FUZZ_REQUIRE(writing.status == 0 || is_one_of(writing.status, statuses));
  return writing;
}

Writing write(double value, std::int32_t code, std::int64_t width, std::int64_t decimals,
              std::initializer_list<int> statuses) {
  return write(OBS{.number = value}, code, width, decimals, statuses);
}

bool is_one_of(std::int64_t status, std::initializer_list<int> statuses) {
  return std::find(statuses.begin(), statuses.end(), status) != statuses.end();
}

bool same_bits(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

}  // namespace fuzz
