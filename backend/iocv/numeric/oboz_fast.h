// The fast path of Z for ordinary numbers.
//
// It answers for 1 to 16 columns, 0 to 6 decimals and a value other than the system-missing number
// whose magnitude, scaled by the decimals, is below 4.5 * 10^15, that is 2^52 with a margin, and,
// with a half added, safely below the number that is a digit too long. The plain path then writes
// the whole part of that sum, moved up where the fraction is within 4096 units in the last place of
// 1, that is 2^-41: adding a hair less than 2^-41 moves just these to the next whole number (from
// 2^12 on there are none); a sum below 1 is 0 in any case. The zone of the last digit shows the
// sign of a negative number, unless all digits are 0.
#pragma once

#include "numeric/encdcc_fast.h"
#include "numeric/powers.h"

namespace iocv {

#if defined(__SSE2__)

struct ZonedTables {
  std::array<double, kFastDecimals + 1> powers = make_powers();
  // Of the scaled magnitude, by width, within the reach.
  std::array<double, kFastWidth + 1> nine_limits = make_limits(1e9 - 1);
  std::array<double, kFastWidth + 1> sixteen_limits = make_limits(4.5e15);
  std::array<std::uint8_t, 10> zones = make_zones();  // what makes the zone of a digit, shown

  static constexpr std::array<double, kFastDecimals + 1> make_powers() {
    std::array<double, kFastDecimals + 1> powers = {};
    for (std::size_t d = 0; d <= kFastDecimals; ++d) powers[d] = kSmallPowers[d];
    return powers;
  }
  static constexpr std::array<double, kFastWidth + 1> make_limits(double most) {
    std::array<double, kFastWidth + 1> limits = {};
    for (std::size_t width = 0; width <= kFastWidth; ++width) {
      limits[width] = std::min(kSmallPowers[width] - 0.5 - 0x1p-12, most);
    }
    return limits;
  }
  static constexpr std::array<std::uint8_t, 10> make_zones() {
    std::array<std::uint8_t, 10> zones = {};
    constexpr char kNegative[] = "}JKLMNOPQR";
    for (std::size_t digit = 0; digit < 10; ++digit) {
      zones[digit] = static_cast<std::uint8_t>(kNegative[digit] - '0' - static_cast<char>(digit));
    }
    return zones;
  }
};

inline constexpr ZonedTables kZonedTables;

// Writes numbers of one format under the settings at its making, a column of them as well as one.
template <Reach kReach>
class ZonedWriter {
 public:
  // False when it writes nothing of such a format.
  template <class Source>
  [[gnu::always_inline]] static bool make(std::int64_t width, std::int64_t places, Source settings,
                                          ZonedWriter& writer) noexcept {
    if (!serves(kWidths<kReach>, width, places)) return false;
    const auto decimals = static_cast<std::size_t>(places);
    const auto columns = static_cast<std::size_t>(width);
    writer.width_ = width;
    writer.tables_ = in_register(&kZonedTables);
    writer.power_ = writer.tables_->powers[decimals];
    writer.limit_ = kReach == Reach::nine_digits ? writer.tables_->nine_limits[columns]
                                                 : writer.tables_->sixteen_limits[columns];
    writer.system_missing_ = settings().system_missing;
    return true;
  }

  // False, with the field as it was, when the number is not an ordinary one or beyond the reach.
  [[gnu::always_inline]] bool operator()(char* field, double value) const noexcept {
    const double scaled = std::fabs(value) * power_;
    if (!(scaled < limit_)) return false;
    constexpr double kAlmostTolerance = 0x1p-41 - 0x1p-55;
    const double sum = scaled + 0.5;
    const auto whole = [](double x) {
      return static_cast<Number<kReach>>(static_cast<SignedNumber<kReach>>(x));
    };
    const Number<kReach> moved = in_register(whole(sum + kAlmostTolerance));  // without a branch
    const Number<kReach> number = whole(sum) == 0 ? 0 : moved;
    if (value == system_missing_) return false;
    const __m128i text =
        _mm_or_si128(kNumberTables.template digits<kReach>(number), _mm_set1_epi8('0'));
    const std::uint64_t last = static_cast<std::uint64_t>(_mm_extract_epi16(text, 7)) >> 8;
    // All ones for a negative number that does not show as zero.
    const auto minus = std::bit_cast<std::uint64_t>(value) >> 63;
    const std::uint64_t negative = std::min<std::uint64_t>(minus, number);
    store_columns(field, width_, text, tables_->zones[last - '0'] * negative << 56);
    return true;
  }

 private:
  std::int64_t width_;
  const ZonedTables* tables_;
  double power_;
  double limit_;
  double system_missing_;
};

#else

template <Reach>
class ZonedWriter {
 public:
  template <class Source>
  static bool make(std::int64_t, std::int64_t, Source, ZonedWriter&) noexcept {
    return false;
  }
  bool operator()(char*, double) const noexcept { return false; }
};

#endif

}  // namespace iocv
