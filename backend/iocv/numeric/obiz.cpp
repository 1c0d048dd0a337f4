// Z read back: digits with the sign in the last character.
#include "numeric/obiz.h"

#include <iocv/number_formats.h>

#include <cmath>

#include "frame/attempts.h"
#include "frame/leaf.h"
#include "numeric/obiz_fast.h"
#include "numeric/powers.h"
#include "numeric/without_blanks.h"

namespace iocv {
namespace {

// The digits so far; from the point on they count as decimals.
struct Digits {
  double value = 0;
  std::int64_t decimals = 0;
  bool point = false;

  void append(int digit) {
    value = value * 10 + digit;
    if (point) ++decimals;
  }
};

}  // namespace

Read<double> read_z_plain(std::string_view field, std::int64_t decimals,
                          const Settings& settings) noexcept {
  const auto failure = [&](Status status) { return Read<double>{settings.system_missing, status}; };
  if (field.empty()) return {settings.system_missing, Status::ok};
  std::string_view text = without_blanks(field);
  if (text.empty()) return {settings.blank_value, Status::ok};

  const bool closing_point = text.back() == '.';  // allowed once, like any other, with no digits
  if (closing_point) text.remove_suffix(1);
  if (text.empty()) return failure(Status::number_character);

  Digits digits;
  for (const char c : text.substr(0, text.size() - 1)) {
    if ('0' <= c && c <= '9') {
      digits.append(c - '0');
    } else if (c == '.' && !digits.point && !closing_point) {
      digits.point = true;
    } else {
      return failure(Status::number_character);
    }
  }
  const std::size_t zone = kZones.find(text.back());
  if (zone == kZones.npos) return failure(Status::zone_character);
  digits.append(static_cast<int>(zone % 10));

  double value = zone < kFirstNegativeZone ? digits.value : -digits.value;
  if (digits.point || closing_point) decimals = digits.decimals;
  if (decimals >= 1) value /= power_of_ten(decimals);
  if (!std::isfinite(value)) return failure(Status::number_range);
  return {value, Status::ok};
}

Read<double> read_z_wide(std::string_view field, std::int64_t decimals,
                         const Settings& settings) noexcept {
  constexpr std::int64_t kWidest = 16;
  const std::int64_t front = std::ssize(field) - kWidest;
  if (front > 0) {
    const std::string_view zeros = without_blanks(field.substr(0, static_cast<std::size_t>(front)));
    const std::string_view rest = field.substr(static_cast<std::size_t>(front));
    const bool joined = zeros.empty() || (field[static_cast<std::size_t>(front) - 1] == '0' &&
                                          rest.front() >= '0' && rest.front() <= '9');
    Read<double> result;
    if (joined && zeros.find_first_not_of('0') == zeros.npos &&
        read_by<ZonedReader>(rest, decimals, settings, result)) {
      return result;
    }
  }
  return read_z_plain(field, decimals, settings);
}

Read<double> read_z(std::string_view field, std::int64_t decimals,
                    const Settings& settings) noexcept {
  Read<double> result;
  if (read_by<ZonedReader>(field, decimals, settings, result)) return result;
  return read_z_wide(field, decimals, settings);
}

}  // namespace iocv

extern "C" void obiz_(const char* text, const std::int64_t* width, const std::int64_t* decimals,
                      double* value, std::int64_t* status, std::int64_t) {
  const auto result =
      iocv::read_z(iocv::input_field(text, *width), *decimals, iocv::Settings::current());
  *value = result.value;
  iocv::store(status, result.status);
}
