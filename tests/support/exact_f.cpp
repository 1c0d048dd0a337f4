#include "support/exact_f.h"

#include <algorithm>
#include <cmath>

namespace test {
namespace {

std::string right_aligned(const std::string& text, int width) {
  return std::string(static_cast<std::size_t>(width) - text.size(), ' ') + text;
}

}  // namespace

bool is_ordinary(const Rounded& shown, double value) {
  const double unit = std::pow(10.0, static_cast<double>(shown.fraction.size()));
  return shown.from_half > 1e-12 * (1 + std::fabs(value) * unit) &&
         shown.whole.size() + shown.fraction.size() < 16;
}

std::optional<std::string> exact_f(double value, int width, int decimals) {
  const Decimal exact = exact_decimal(value);
  const int negative = value < 0 ? 1 : 0;
  for (int d = decimals; d >= 0; --d) {
    const Rounded r = rounded(exact, d);
    if (!is_ordinary(r, value)) return std::nullopt;
    const std::string digits = r.whole + (d > 0 ? "." + r.fraction : "");
    if (static_cast<int>(digits.size()) + negative > width) continue;
    const std::string sign = negative && !r.is_zero() ? "-" : "";
    const std::string text = sign + (digits.empty() ? "0" : digits);
    return right_aligned(text, width);
  }
  if (width <= 5 + negative) return std::string(static_cast<std::size_t>(width), '*');
  const int room = width - 5 - negative - 2;
  const int places = decimals == 0 || room < 1 ? 0 : std::min({room, decimals, 15});
  const Scientific s = scientific(exact, places);
  if (s.from_half < 1e-12 * std::pow(10.0, places + 1)) return std::nullopt;
  std::string exponent = std::to_string(s.exponent);
  exponent.insert(0, 3 - exponent.size(), '0');
  const std::string text = std::string(negative ? "-" : "") + s.digit +
                           (places > 0 ? "." + s.fraction : "") + "E+" + exponent;
  return right_aligned(text, width);
}

bool may_be_asterisks(double value, std::int64_t width) {
  const std::int64_t negative = value < 0 ? 1 : 0;
  const Rounded whole = rounded(exact_decimal(value), 0);
  const auto digits = static_cast<std::int64_t>(whole.whole.size());
  if (digits > 16) return true;
  const bool may_carry = whole.from_half < 1e-9;
  return digits + negative + (may_carry ? 1 : 0) > width && width <= 5 + negative;
}

}  // namespace test
