// The texts that the extension hook builds its fields from, the same in every locale.
#include "host/double_to_string.h"

#include <iocv/extension.h>

#include <algorithm>
#include <charconv>

#include "numeric/powers.h"

namespace iocv {
namespace {

constexpr unsigned kMostDigits = DecimalsText::kMostDecimals;

// 309 digits before the point, 16 behind it, point and sign.
using FixedBuffer = std::array<char, 336>;

std::string_view formatted(FixedBuffer& buffer, double v, std::chars_format notation,
                           unsigned precision) noexcept {
  char* const first = buffer.data();
  const auto [end, error] =
      std::to_chars(first, first + buffer.size(), v, notation, static_cast<int>(precision));
  return {first, end};
}

}  // namespace

DecimalsText last_decimals(double v, unsigned n) noexcept {
  const unsigned decimals = std::min(n, kMostDigits);
  FixedBuffer buffer;
  const std::string_view text = formatted(buffer, v, std::chars_format::fixed, decimals);
  return DecimalsText(text.substr(text.size() - std::min<std::size_t>(text.size(), decimals + 1)));
}

DecimalsText decimals_in_room(double v, std::int64_t room, std::int64_t decimals) noexcept {
  const std::int64_t shown = std::min({room, decimals, std::int64_t{kMostDigits}});
  return shown > 0 ? last_decimals(v, static_cast<unsigned>(shown)) : DecimalsText();
}

}  // namespace iocv

std::string timeAsString(const long& number) { return std::to_string(number); }

std::string decimalAsString(double v, int room, int decimals) {
  return std::string(iocv::decimals_in_room(v, room, decimals).view());
}

std::string DoubleToString2(const double& v, unsigned n) {
  return std::string(iocv::last_decimals(v, n).view());
}

std::string DoubleToString(const double& v, unsigned n) {
  double shown = v;
  if (n < iocv::kMostDigits) {
    const double power = iocv::power_of_ten(n);
    shown = (v * power + 0.5) / power;
  }
  iocv::FixedBuffer buffer;
  const std::string_view text =
      iocv::formatted(buffer, shown, std::chars_format::general, std::min(n, iocv::kMostDigits));
  return std::string(text.substr(1, n + 1UL));
}
