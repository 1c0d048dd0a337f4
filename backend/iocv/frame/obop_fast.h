// The fast path of P for ordinary numbers.
//
// It answers for 1 to 16 columns, 0 to 6 decimals and a value other than the system-missing number
// whose magnitude, scaled by the decimals and a half added, is below 2^39, has room, and has a
// fraction at least 2^-45 of that sum away from 0 and 1. The plain path divides the sum by a power
// of ten and takes off digit by digit. At no more than 31 digits each rounding moves the sum by
// 2^-53 of it at most while zeros come off, 2^-48 together; afterwards by 2^-50 of the place in
// hand, which is a tenth of the one before, 2^-49 of the sum together: less than 2^-47 in all. So
// its digits are those of the sum's whole part.
#pragma once

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "frame/settings.h"
#include "numeric/powers.h"

namespace iocv {

struct PackedTables {
  std::array<double, 7> powers = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};
  std::array<double, 17> limits = make_limits();         // of the sum, by width
  std::array<std::uint16_t, 1000> three = make_three();  // three digits in half-bytes

  static constexpr std::array<double, 17> make_limits() {
    std::array<double, 17> limits = {};
    for (std::size_t width = 1; width <= 16; ++width) {
      limits[width] = width <= 6 ? kSmallPowers[2 * width - 1] : 0x1p39;
    }
    return limits;
  }
  static constexpr std::array<std::uint16_t, 1000> make_three() {
    std::array<std::uint16_t, 1000> three = {};
    for (std::size_t i = 0; i < 1000; ++i) {
      three[i] = static_cast<std::uint16_t>((i / 100) << 8 | (i / 10 % 10) << 4 | i % 10);
    }
    return three;
  }

  // The digits of n, [0, 10^12), in half-bytes.
  [[nodiscard]] std::uint64_t twelve(std::uint64_t n) const noexcept {
    const auto high = static_cast<std::uint32_t>(n / 1'000'000);
    const auto low = static_cast<std::uint32_t>(n - std::uint64_t{1'000'000} * high);
    return std::uint64_t{three[high / 1000]} << 36 | std::uint64_t{three[high % 1000]} << 24 |
           std::uint64_t{three[low / 1000]} << 12 | std::uint64_t{three[low % 1000]};
  }
};

inline constexpr PackedTables kPackedTables;

// Writes numbers of one format under the settings at its making, a column of them as well as one.
class PackedWriter {
 public:
  // False when it writes nothing of such a format.
  template <class Source>
  [[gnu::always_inline]] static bool make(std::int64_t columns, std::int64_t places,
                                          Source settings, PackedWriter& writer) noexcept {
    if constexpr (std::endian::native != std::endian::little) return false;
    const auto width = static_cast<std::uint64_t>(columns);
    const auto decimals = static_cast<std::uint64_t>(places);
    if (width - 1 >= 16 || decimals > 6) return false;
    writer.width_ = width;
    writer.power_ = kPackedTables.powers[decimals];
    writer.limit_ = kPackedTables.limits[width];
    writer.system_missing_ = settings().system_missing;
    return true;
  }

  // False, with the field as it was, when the number is not an ordinary one.
  [[gnu::always_inline]] bool operator()(char* field, double value) const noexcept {
    const double sum = std::fabs(value) * power_ + 0.5;
    if (!(sum < limit_)) return false;
    const auto number = static_cast<std::int64_t>(sum);
    if (value == system_missing_) return false;
    const double fraction = sum - static_cast<double>(number);
    const double margin = sum * 0x1p-45;
    if (fraction < margin || fraction > 1 - margin) return false;
    const std::uint64_t sign = value < 0 ? 13 : 15;
    const std::uint64_t packed =
        __builtin_bswap64(kPackedTables.twelve(static_cast<std::uint64_t>(number)) << 4 | sign);
    store_last(field, packed);
    return true;
  }

 private:
  [[gnu::always_inline]] void store_last(char* field, std::uint64_t packed) const noexcept {
    const auto store = [field](std::uint64_t at, auto part) {
      std::memcpy(field + at, &part, sizeof part);
    };
    if (width_ >= 8) {
      if (width_ > 8) store(0, std::uint64_t{0});
      store(width_ - 8, packed);
    } else if (width_ >= 4) {
      store(0, static_cast<std::uint32_t>(packed >> (64 - 8 * width_)));
      store(width_ - 4, static_cast<std::uint32_t>(packed >> 32));
    } else if (width_ >= 2) {
      store(0, static_cast<std::uint16_t>(packed >> (64 - 8 * width_)));
      store(width_ - 2, static_cast<std::uint16_t>(packed >> 48));
    } else {
      *field = static_cast<char>(packed >> 56);
    }
  }

  std::uint64_t width_;
  double power_;
  double limit_;
  double system_missing_;
};

}  // namespace iocv
