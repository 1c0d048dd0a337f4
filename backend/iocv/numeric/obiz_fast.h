// The zoned field of usual width.
//
// An attempt answers for a field of 1..16 bytes under 0..15 decimals that has no blank behind. In
// the usual one are blanks, then digits, then a zone, or only blanks: it has the blank value. The
// digits make a whole number of at most 2^53, to which digits fold exactly in doubles, too; both
// then negate it, a zero as well, and divide it once by the same power of ten. In another
// one a point may stand among the digits or behind the zone. Any other byte between the blanks in
// front and the zone is what the plain steps meet first, and report, as they do a second point;
// only then they look at the zone.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "frame/settings.h"
#include "frame/status.h"
#include "frame/text_vector.h"
#include "numeric/powers.h"

namespace iocv {

// What the last character may be: ten plain digits, ten positive zones, ten negative ones.
inline constexpr std::string_view kZones = "0123456789{ABCDEFGHI}JKLMNOPQR";
inline constexpr std::size_t kFirstNegativeZone = 20;

#if defined(__SSE2__)

namespace zone_fast {

inline constexpr std::uint8_t kNoZone = 64;
inline constexpr std::uint8_t kNegative = 128;

// By character: what it adds as a zone to the digits (a plain digit, 0, for it is one of them).
inline constexpr auto kZoneOf = [] {
  std::array<std::uint8_t, 256> table = {};
  table.fill(kNoZone);
  for (std::size_t i = 0; i < kZones.size(); ++i) {
    const std::size_t sign = i < kFirstNegativeZone ? 0 : kNegative;
    table[static_cast<unsigned char>(kZones[i])] =
        static_cast<std::uint8_t>(i < 10 ? 0 : i % 10 + sign);
  }
  return table;
}();

inline std::uint8_t zone_of(char byte) noexcept {
  return kZoneOf[static_cast<unsigned char>(byte)];
}

}  // namespace zone_fast

class ZonedReader {
 public:
  // False when it answers for no field of such a format.
  [[gnu::always_inline]] static bool make(std::int64_t width, std::int64_t decimals,
                                          const Settings& settings, ZonedReader& reader) noexcept {
    reader.width_ = width;
    reader.decimals_ = static_cast<std::size_t>(decimals);
    reader.settings_ = &settings;
    return reader.decimals_ <= 15;
  }

  // False, with any result, when it does not answer.
  [[gnu::always_inline]] bool operator()(const char* field, Read<double>& result) const noexcept {
    using namespace text_vector;
    __m128i bytes;
    if (!load(field, width_, bytes)) return false;
    const __m128i values = _mm_xor_si128(bytes, each('0'));
    const __m128i is_digit = _mm_cmpeq_epi8(_mm_min_epu8(values, _mm_set1_epi8(9)), values);
    const std::uint32_t blanks = places(bytes, each(' '));
    const std::uint8_t zone = zone_fast::zone_of(field[width_ - 1]);
    const std::uint32_t others = (blanks | mask(is_digit) | kLast) ^ 0xFFFF;
    const std::uint32_t inner_blanks = blanks & (blanks + 1);
    const __m128i digits = _mm_and_si128(values, is_digit);
    if ((others | inner_blanks | (zone & zone_fast::kNoZone)) != 0) {
      const std::uint32_t points = places(bytes, each('.'));
      return read_unusual(field, digits, blanks, others | inner_blanks, points, result);
    }
    return take_number(digits, zone, decimals_, result);
  }

 private:
  static constexpr std::uint32_t kLast = 0x8000;

  [[gnu::always_inline]] static bool take_number(__m128i digits, std::uint64_t zone,
                                                 std::size_t decimals,
                                                 Read<double>& result) noexcept {
    const std::int64_t whole = text_vector::whole(digits) + static_cast<std::int64_t>(zone % 16);
    if (whole > std::int64_t{1} << 53) return false;
    const std::uint64_t sign = zone / zone_fast::kNegative << 63;
    const auto number =
        std::bit_cast<double>(std::bit_cast<std::uint64_t>(static_cast<double>(whole)) ^ sign);
    result = {number / kSmallPowers[decimals], Status::ok};
    return true;
  }

  [[gnu::always_inline]] bool read_unusual(const char* field, __m128i digits, std::uint32_t blanks,
                                           std::uint32_t others, std::uint32_t points,
                                           Read<double>& result) const noexcept {
    if (blanks == 0xFFFF) {
      result = {settings_->blank_value, Status::ok};
      return true;
    }
    if ((blanks & kLast) != 0) return false;
    const bool closing_point = (points & kLast) != 0;
    const std::uint32_t ends = closing_point ? kLast | kLast >> 1 : kLast;
    const std::uint32_t inner = points & ~ends;
    const std::uint32_t second = closing_point ? inner : inner & (inner - 1);
    const bool no_zone = (blanks | kLast) == 0xFFFF && closing_point;
    if (((others & ~points & ~ends) | second) != 0 || no_zone) {
      result = {settings_->system_missing, Status::number_character};
      return true;
    }
    const std::uint8_t zone = zone_fast::zone_of(field[width_ - (closing_point ? 2 : 1)]);
    if ((zone & zone_fast::kNoZone) != 0) {
      result = {settings_->system_missing, Status::zone_character};
      return true;
    }
    const auto behind = static_cast<std::size_t>(15 - std::countr_zero(points));
    return take_number(text_vector::without(digits, behind), zone, behind, result);
  }

  std::int64_t width_;
  std::size_t decimals_;
  const Settings* settings_;
};

#else

class ZonedReader {
 public:
  static bool make(std::int64_t, std::int64_t, const Settings&, ZonedReader&) noexcept {
    return false;
  }
  bool operator()(const char*, Read<double>&) const noexcept { return false; }
};

#endif

}  // namespace iocv
