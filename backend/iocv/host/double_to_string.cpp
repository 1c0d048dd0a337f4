// The texts that the extension hook builds its fields from, the same in every locale.
#include <iocv/extension.h>

#include <algorithm>
#include <charconv>

#include "numeric/powers.h"

namespace {

constexpr unsigned kMostDigits = 16;

// 309 digits before the point, 16 behind it, point and sign.
constexpr std::size_t kLongestFixed = 336;

std::string formatted(double v, std::chars_format notation, unsigned precision) {
  char text[kLongestFixed];
  const auto [end, error] =
      std::to_chars(text, text + sizeof text, v, notation, static_cast<int>(precision));
  return {text, end};
}

}  // namespace

std::string timeAsString(const long& number) { return std::to_string(number); }

std::string decimalAsString(double v, int room, int decimals) {
  const int shown = std::min(room, decimals);
  return shown > 0 ? DoubleToString2(v, static_cast<unsigned>(shown)) : std::string();
}

std::string DoubleToString2(const double& v, unsigned n) {
  const unsigned decimals = std::min(n, kMostDigits);
  const std::string text = formatted(v, std::chars_format::fixed, decimals);
  return text.substr(text.size() - std::min<std::size_t>(text.size(), decimals + 1));
}

std::string DoubleToString(const double& v, unsigned n) {
  double shown = v;
  if (n < kMostDigits) {
    const double power = iocv::power_of_ten(n);
    shown = (v * power + 0.5) / power;
  }
  const std::string text = formatted(shown, std::chars_format::general, std::min(n, kMostDigits));
  return text.substr(1, n + 1UL);
}
