// The number field that is none of the ordinary ones, when one look at its bytes tells what it is.
//
// An attempt answers for a field of 1..16 bytes, under 0..15 implied decimals, that is
// - wrong: in front of the first blank behind its begin (for PCT, of the first "%") a text goes
//   wrong in one way only, by a byte that may not stand where it stands. So does every text with a
//   byte there that stands in no number of the type, or a second decimal character;
// - blank, or but for the decimal character, which lacks its digits;
// - a number behind any blanks, without grouping, as obif_fast.h has it, but with "+" as a sign,
//   too, and with or without an exponent: a letter, perhaps a sign, and up to three digits. Digits
//   in front of an exponent are read with zeros in its columns, two at least, so that the number
//   is four times one below 2^53. Between powers of ten that are doubles, too, this and the
//   scanner's way round the same product or quotient once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "frame/format_code.h"
#include "frame/settings.h"
#include "frame/status.h"
#include "numeric/obif_fast.h"

namespace iocv {

#if defined(__SSE2__)

namespace number_fast {

// What stands where in a field.
struct Places {
  std::uint32_t text;  // no blank
  std::uint32_t digits;
  std::uint32_t signs;
  std::uint32_t points;   // the decimal character
  std::uint32_t letters;  // of an exponent
  std::uint32_t wrong;    // what may not stand there
};

template <FormatCode kType>
[[gnu::always_inline]] inline Places places_in(__m128i bytes, __m128i is_digit,
                                               __m128i decimal) noexcept {
  using C = Characters<kType>;
  const auto are = [&](char byte) { return _mm_cmpeq_epi8(bytes, each(byte)); };
  const std::uint32_t blanks = mask(are(' '));
  const std::uint32_t digits = mask(is_digit);
  const std::uint32_t signs = mask(_mm_or_si128(are('+'), are('-')));
  const std::uint32_t points = places(bytes, decimal);
  // Only the letters D and E, of either case, differ from "e" in these bits at most.
  const __m128i folded = _mm_or_si128(bytes, _mm_set1_epi8('D' ^ 'e'));
  const std::uint32_t letters = places(folded, _mm_set1_epi8('e'));
  std::uint32_t known = blanks | digits | signs | points | letters;
  if constexpr (C::kGrouping != 0) known |= mask(are(C::kGrouping));
  if constexpr (C::kPrefix != 0) known |= mask(are(C::kPrefix));

  std::uint32_t ends = blanks & (blanks + 1);  // all but those in front
  if constexpr (C::kSuffix != 0) ends |= mask(are(C::kSuffix));
  const std::uint32_t before_end = (ends & (0 - ends)) - 1;
  const std::uint32_t wrong = ((known ^ 0xFFFF) | (points & (points - 1))) & before_end;
  return {blanks ^ 0xFFFF, digits, signs, points, letters, wrong};
}

// All bits in the columns but the last ones.
inline __m128i columns_before(std::int64_t last_ones) noexcept {
  static constexpr std::uint8_t kColumns[32] = {255, 255, 255, 255, 255, 255, 255, 255,
                                                255, 255, 255, 255, 255, 255, 255, 255};
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(kColumns + last_ones));
}

// False for what is not a sign or none and up to three digits.
inline bool take_exponent(const char* first, const char* last, std::int64_t& exponent) noexcept {
  if (first == last) return false;
  const bool negative = *first == '-';
  if (negative || *first == '+') ++first;
  if (first == last || last - first > 3) return false;
  exponent = 0;
  for (; first != last; ++first) {
    const std::int64_t digit = *first - '0';
    if (digit < 0 || digit > 9) return false;
    exponent = 10 * exponent + digit;
  }
  if (negative) exponent = -exponent;
  return true;
}

// For types with a reader of ordinary fields, which has not answered.
template <FormatCode kType>
class LooseReader {
 public:
  [[gnu::always_inline]] static bool make(std::int64_t width, std::int64_t decimals,
                                          const Settings& settings, LooseReader& reader) noexcept {
    reader.width_ = width;
    reader.decimals_ = decimals;
    reader.settings_ = &settings;
    return decimals >= 0 && decimals <= 15;
  }

  // False, with any result, when it does not answer.
  [[gnu::always_inline]] bool operator()(const char* field, Read<double>& result) const noexcept {
    constexpr char kDecimal = Characters<kType>::kDecimal;
    __m128i bytes;
    if (!load(field, width_, bytes)) return false;
    const __m128i values = _mm_xor_si128(bytes, each('0'));
    const __m128i is_digit = _mm_cmpeq_epi8(_mm_min_epu8(values, _mm_set1_epi8(9)), values);
    const Places found = places_in<kType>(
        bytes, is_digit, kDecimal != 0 ? each(kDecimal) : decimal_mark(*settings_));
    if (found.wrong != 0) {
      result = {settings_->system_missing, Status::number_character};
      return true;
    }
    const std::uint32_t first = found.text & (0 - found.text);
    if (found.text == (found.points & first)) {
      result = found.text == 0 ? Read<double>{settings_->blank_value, Status::ok}
                               : Read<double>{settings_->system_missing, Status::no_digits};
      return true;
    }
    if (found.text + first != 0x10000) return false;  // blanks within or behind

    return take_number(field, _mm_and_si128(values, is_digit), found, first, result);
  }

 private:
  // Whether numbers of ordinary fields are those that are read here.
  static constexpr bool kWasTried = kType == FormatCode::f || kType == FormatCode::pct;

  // values are those of digits, 0 elsewhere; first is where the text begins.
  [[gnu::always_inline]] bool take_number(const char* field, __m128i values, const Places& found,
                                          std::uint32_t first,
                                          Read<double>& result) const noexcept {
    const std::uint32_t letter = found.letters & (0 - found.letters);
    const std::uint32_t in_front = letter - 1;
    const std::uint32_t sign = first & found.signs;
    const bool negative = sign != 0 && field[std::countr_zero(first) - (kWidest - width_)] == '-';
    if (kWasTried && letter == 0 && (sign == 0 || negative)) return false;
    const std::uint32_t number = sign | found.digits | found.points;
    if ((found.digits & in_front) == 0 || ((found.text ^ number) & in_front) != 0) return false;
    std::int64_t exponent = 0;
    std::int64_t behind = 0;  // columns from the letter on
    if (letter != 0) {
      behind = kWidest - std::countr_zero(letter);
      const char* end = field + width_;
      if (!take_exponent(end - behind + 1, end, exponent)) return false;
    } else if (found.points == 0) {
      exponent = -decimals_;
    }
    const std::int64_t point =
        found.points == 0 ? kWidest : kWidest - 1 - std::countr_zero(found.points);
    const std::int64_t power = exponent - (found.points == 0 ? behind : point);
    if (power < -kExactPowers || power + behind > kExactPowers) return false;
    const __m128i digits = _mm_and_si128(values, columns_before(behind));
    const std::int64_t magnitude = whole(without(digits, static_cast<std::size_t>(point)));
    const Scale& scale = kScales[static_cast<std::size_t>(power + kFarthest)];
    const auto whole_number = static_cast<double>(negative ? -magnitude : magnitude);
    result = {whole_number * scale.up / scale.down, Status::ok};
    return true;
  }

  std::int64_t width_;
  std::int64_t decimals_;
  const Settings* settings_;
};

}  // namespace number_fast

#else

namespace number_fast {

template <FormatCode>
class LooseReader {
 public:
  static bool make(std::int64_t, std::int64_t, const Settings&, LooseReader&) noexcept {
    return false;
  }
  bool operator()(const char*, Read<double>&) const noexcept { return false; }
};

}  // namespace number_fast

#endif

using number_fast::LooseReader;

}  // namespace iocv
