#include "support/big_decimal.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <vector>

namespace test {
namespace {

// A whole number, groups of nine digits, the lowest first.
class BigInteger {
 public:
  explicit BigInteger(std::uint64_t value) {
    for (; value != 0; value /= kGroup) groups_.push_back(value % kGroup);
  }

  void multiply(std::uint64_t factor) {  // below 2^32
    std::uint64_t carry = 0;
    for (std::uint64_t& group : groups_) {
      carry += group * factor;
      group = carry % kGroup;
      carry /= kGroup;
    }
    for (; carry != 0; carry /= kGroup) groups_.push_back(carry % kGroup);
  }

  void multiply_power(std::uint64_t base, int exponent) {
    for (; exponent >= 13; exponent -= 13) {  // 5^13 is the largest power of 5 below 2^32
      std::uint64_t factor = 1;
      for (int i = 0; i < 13; ++i) factor *= base;
      multiply(factor);
    }
    for (; exponent > 0; --exponent) multiply(base);
  }

  [[nodiscard]] std::string digits() const {
    std::string text;
    for (std::uint64_t group : groups_) {
      for (int i = 0; i < 9; ++i, group /= 10) text += static_cast<char>('0' + group % 10);
    }
    while (!text.empty() && text.back() == '0') text.pop_back();
    std::reverse(text.begin(), text.end());
    return text;
  }

 private:
  static constexpr std::uint64_t kGroup = 1'000'000'000;
  std::vector<std::uint64_t> groups_;
};

// Adds one to the number that the digits are.
std::string successor(std::string digits) {
  auto last = digits.rbegin();
  for (; last != digits.rend() && *last == '9'; ++last) *last = '0';
  if (last == digits.rend()) return "1" + digits;
  ++*last;
  return digits;
}

// The first digits of a decimal fraction, exact enough to tell how near a half it is.
double as_fraction(const std::string& digits) {
  double value = 0;
  double unit = 0.1;
  for (std::size_t i = 0; i < std::min<std::size_t>(digits.size(), 20); ++i, unit /= 10) {
    value += unit * (digits[i] - '0');
  }
  return value;
}

double distance_from_half(const std::string& dropped) {
  const double fraction = as_fraction(dropped);
  return fraction < 0.5 ? 0.5 - fraction : fraction - 0.5;
}

}  // namespace

Decimal exact_decimal(double value) {
  const std::uint64_t bits = std::bit_cast<std::uint64_t>(value) & ~(std::uint64_t{1} << 63);
  const int biased = static_cast<int>(bits >> 52);
  const std::uint64_t significand =
      (bits & ((std::uint64_t{1} << 52) - 1)) | (biased == 0 ? 0 : std::uint64_t{1} << 52);
  const int exponent = std::max(biased, 1) - 1075;  // the value is significand * 2^exponent

  BigInteger number(significand);
  if (exponent >= 0) {
    number.multiply_power(2, exponent);
    return {number.digits(), ""};
  }
  // significand / 2^n = significand * 5^n / 10^n
  number.multiply_power(5, -exponent);
  std::string digits = number.digits();
  const auto places = static_cast<std::size_t>(-exponent);
  if (digits.size() < places) digits.insert(0, places - digits.size(), '0');
  Decimal exact = {digits.substr(0, digits.size() - places), digits.substr(digits.size() - places)};
  while (!exact.fraction.empty() && exact.fraction.back() == '0') exact.fraction.pop_back();
  return exact;
}

bool Rounded::is_zero() const {
  return whole.empty() && fraction.find_first_not_of('0') == fraction.npos;
}

Rounded rounded(const Decimal& exact, int decimals) {
  const auto places = static_cast<std::size_t>(decimals);
  std::string fraction = exact.fraction.substr(0, std::min(places, exact.fraction.size()));
  const std::string dropped = exact.fraction.substr(fraction.size());
  fraction.append(places - fraction.size(), '0');
  std::string digits = exact.whole + fraction;
  if (!dropped.empty() && dropped[0] >= '5') digits = successor(digits);
  return {digits.substr(0, digits.size() - places), digits.substr(digits.size() - places),
          distance_from_half(dropped)};
}

Scientific scientific(const Decimal& exact, int decimals) {
  const std::string digits = exact.whole + exact.fraction;
  const std::size_t first = digits.find_first_not_of('0');
  const int exponent = static_cast<int>(exact.whole.size()) - static_cast<int>(first) - 1;
  const Rounded mantissa = rounded({digits.substr(first, 1), digits.substr(first + 1)}, decimals);
  // A carry leaves zeros behind its 1.
  if (mantissa.whole == "10") return {'1', mantissa.fraction, exponent + 1, mantissa.from_half};
  return {mantissa.whole[0], mantissa.fraction, exponent, mantissa.from_half};
}

std::string grouped(const std::string& whole, char separator) {
  std::string text;
  for (std::size_t i = 0; i < whole.size(); ++i) {
    if (i != 0 && (whole.size() - i) % 3 == 0) text += separator;
    text += whole[i];
  }
  return text;
}

}  // namespace test
