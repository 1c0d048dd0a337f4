// The ordinary number field, read sixteen bytes at once.
//
// An attempt answers for a field of 1..16 bytes that holds, behind any blanks, an optional "-" and
// digits with at most one decimal character, under 0..15 implied decimals; for COMMA, DOLLAR and
// DOT also with grouping characters between threes, for DOLLAR with a "$" before the digits, for
// PCT with a "%" behind; for E, from 8 bytes on, it must end in an exponent from E-099 to E+099
// that leaves a scale of 10^-32 to 10^32. But for E, a blank field has the blank value. The number
// is the scanner's bit for bit: up to fifteen digits make a whole number below 2^53, to which
// chunks of nine add up exactly, too; of sixteen, both round the sum once (999999999 x 10^7 is
// still a double). Then both multiply or divide once by the same power of ten, attempts also by 1
// instead of choosing, and neither gives a zero a sign. Blanks behind a number, where read, are
// taken for zeros: the digits still are fifteen at most, and divided by a power of ten that is a
// double, too, they give the same quotient.
#pragma once

#include <array>
#include <bit>
#include <cstdint>

#include "frame/format_code.h"
#include "frame/in_register.h"
#include "frame/settings.h"
#include "frame/text_vector.h"
#include "numeric/powers.h"

namespace iocv {

#if defined(__SSE2__)

namespace number_fast {

using namespace text_vector;

// "." (index 0) and "," (index 1).
alignas(16) inline constexpr std::uint64_t kMarks[2][2] = {
    {0x0E0E'0E0E'0E0E'0E0E, 0x0E0E'0E0E'0E0E'0E0E}, {0x0C0C'0C0C'0C0C'0C0C, 0x0C0C'0C0C'0C0C'0C0C}};
static_assert(kMarks[0][0] % 256 == held('.') && kMarks[1][0] % 256 == held(','));

inline __m128i decimal_mark(const Settings& settings) noexcept {
  return _mm_load_si128(reinterpret_cast<const __m128i*>(kMarks[settings.decimal == ',']));
}

// By the column behind the decimal character, 0 without one, what stands before it in groups.
struct alignas(16) Groups {
  std::uint8_t moving[5][16] = {};  // all bits in the digits to be moved by so many columns
  std::uint16_t due = 0;            // where grouping characters may stand, the first column lowest

  [[nodiscard]] __m128i moved(__m128i digits, std::size_t by) const noexcept {
    return _mm_and_si128(digits, _mm_load_si128(reinterpret_cast<const __m128i*>(moving[by])));
  }
};
inline constexpr auto kGroups = [] {
  std::array<Groups, 17> all = {};
  for (std::size_t behind = 0; behind < all.size(); ++behind) {
    const std::size_t point = behind == 0 ? 0 : 1;
    const std::size_t end = behind == 0 ? 16 : behind - 1;  // of the whole part
    for (std::size_t column = 0; column < 16; ++column) {
      // In the column of a grouping character may be a digit with none in front.
      const std::size_t by = column >= end ? 0 : (end - 1 - column) / 4 + point;
      all[behind].moving[by][column] = 0xFF;
      if (column < end && (end - column) % 4 == 0) {
        all[behind].due |= static_cast<std::uint16_t>(1 << column);
      }
    }
  }
  return all;
}();

struct Digits {
  double number;      // all of them as a whole number, with the sign
  std::size_t after;  // how many stand behind the decimal character, 16 without one
  bool point;         // false where the first of the blanks behind is taken for one
};

// The largest exponent of a power of ten that is a double.
inline constexpr std::int64_t kExactPowers = 22;

enum class Found { number, blanks, other };

// Digits are for a number only. Grouping characters and a prefix are read where they are not 0.
template <char kGrouping, char kPrefix, bool kBlanksBehind>
[[gnu::always_inline]] inline Found take_digits(__m128i bytes, __m128i decimal,
                                                Digits& result) noexcept {
  // Which bytes are blanks, signs, digits or marks, one kind after the other.
  const std::uint32_t blanks = places(bytes, each(' '));
  std::uint32_t known = blanks;
  const std::uint32_t first = blanks + 1;  // of the text, when blanks are in front only
  std::uint32_t wrong = blanks & first;
  const std::uint32_t minus = in_register(first & places(bytes, each('-')));
  known = in_register(known | minus);
  if constexpr (kPrefix != 0) {
    const std::uint32_t start = first + minus;  // behind the sign
    const std::uint32_t prefixes = places(bytes, each(kPrefix));
    known = in_register(known | (prefixes & start));
  }
  std::uint32_t points = places(bytes, decimal);
  known = in_register(known | points);
  wrong = in_register(wrong | (points & (points - 1)));
  if constexpr (kBlanksBehind) {
    const std::uint32_t inner = blanks & first;  // all but those in front
    const std::uint32_t start = inner & (0 - inner);
    wrong = (inner + start) ^ 0x10000;
    wrong |= points & (points - 1);
    result.point = points != 0;
    if (points == 0) points = start;
  }
  // As the bit scan gives it, the leading zeros less 31: 0 without a point.
  const auto behind = static_cast<std::uint32_t>(std::countl_zero(2 * points + 1)) ^ 31;
  const __m128i values = _mm_xor_si128(bytes, each('0'));
  const __m128i is_digit = _mm_cmpeq_epi8(_mm_min_epu8(values, _mm_set1_epi8(9)), values);
  const std::uint32_t digit = mask(is_digit);
  if (digit == 0) return blanks == 0xFFFF ? Found::blanks : Found::other;
  known |= digit;
  const Groups& groups = *in_register(&kGroups[behind]);
  if constexpr (kGrouping != 0) {
    // One belongs where a digit stands in front and three, or seven ..., bytes up to the point.
    const std::uint32_t marks = places(bytes, each(kGrouping));
    known |= marks;
    wrong |= marks ^ (groups.due & digit << 1);
  }
  if ((wrong | (known ^ 0xFFFF)) != 0) return Found::other;

  __m128i digits = _mm_and_si128(values, is_digit);
  if constexpr (kGrouping != 0) {
    digits = _mm_or_si128(_mm_or_si128(_mm_or_si128(groups.moved(digits, 0),
                                                    _mm_slli_si128(groups.moved(digits, 1), 1)),
                                       _mm_or_si128(_mm_slli_si128(groups.moved(digits, 2), 2),
                                                    _mm_slli_si128(groups.moved(digits, 3), 3))),
                          _mm_slli_si128(groups.moved(digits, 4), 4));
  } else {
    digits = without(digits, 16 - behind);
  }
  const std::int64_t unsign = minus == 0 ? -1 : 0;
  result.number = static_cast<double>(unsign - (whole(digits) ^ unsign));
  result.after = 16 - behind;
  return Found::number;
}

// Reads numbers of one format, a column of them as well as one; its settings must outlive it. The
// characters are 0 where the settings' decimal character is read, and where there is no grouping or
// no prefix. With blanks behind, it answers for numbers with some there.
template <char kDecimal, char kGrouping, char kPrefix, bool kBlanksBehind = false>
class FieldReader {
 public:
  // False when it answers for no field of such a format.
  [[gnu::always_inline]] static bool make(std::int64_t width, std::int64_t decimals,
                                          const Settings& settings, FieldReader& reader) noexcept {
    reader.decimal_ = kDecimal != 0 ? each(kDecimal) : decimal_mark(settings);
    reader.width_ = width;
    reader.wide_ = width >= 8 && width <= kWidest;
    if (!reader.wide_ && (width < 1 || width >= 8)) return false;
    reader.decimals_ = static_cast<std::size_t>(decimals);
    reader.settings_ = &settings;
    return reader.decimals_ <= 15;
  }

  // False, with any value, when the field is neither such a number nor, where it may be, blank.
  [[gnu::always_inline]] bool operator()(const char* field, double& value,
                                         bool may_be_blank = true) const noexcept {
    const __m128i bytes = wide_ ? load_wide(field, width_) : load_narrow(field, width_);
    Digits digits;
    const Found found = take_digits<kGrouping, kPrefix, kBlanksBehind>(bytes, decimal_, digits);
    if (found == Found::other) return false;
    if (found == Found::blanks) {
      value = settings_->blank_value;
      return may_be_blank;
    }
    std::size_t scale = digits.after != 16 ? digits.after : decimals_;
    if constexpr (kBlanksBehind) {
      if (!digits.point) scale = decimals_ + digits.after;
      if (scale > std::size_t{kExactPowers}) return false;
    }
    value = digits.number / kSmallPowers[scale];
    return true;
  }

 private:
  std::int64_t width_;
  bool wide_;
  std::size_t decimals_;
  const Settings* settings_;
  __m128i decimal_;
};

// x * 10^n is x * kScales[n + 32].up / kScales[n + 32].down.
struct Scale {
  double up;
  double down;
};
inline constexpr std::int64_t kFarthest = kSmallPowers.size() - 1;
inline constexpr auto kScales = [] {
  std::array<Scale, 2 * kFarthest + 1> scales = {};
  for (std::size_t n = 0; n < kSmallPowers.size(); ++n) {
    scales[kFarthest - n] = {1, kSmallPowers[n]};
    scales[kFarthest + n] = {kSmallPowers[n], 1};
  }
  return scales;
}();

// E.
class ExponentialReader {
 public:
  [[gnu::always_inline]] static bool make(std::int64_t width, std::int64_t,
                                          const Settings& settings,
                                          ExponentialReader& reader) noexcept {
    reader.width_ = width;
    reader.settings_ = &settings;
    return width >= 8 && width <= kWidest;
  }

  // False, with any value, when the field is no such number.
  [[gnu::always_inline]] bool operator()(const char* field, double& value) const noexcept {
    // The last five bytes less "e+000": the letter's case (20), 6 for a minus, 0, two digits.
    const std::uint64_t tail = load8(field + width_ - 8) >> 24 ^ 0x3030'302B'65;
    const std::uint64_t over = tail + 0x0606'0002'00;  // 8 for a minus and no 4; digits below 16
    if (((tail & 0xF0F0'FFF9'DF) | (over & 0xF0F0'0004'00)) != 0) return false;
    const auto magnitude = static_cast<std::int64_t>((tail >> 24) * (10 * 256 + 1) >> 8 & 255);
    const std::int64_t negative = static_cast<std::int64_t>(over << 52) >> 63;  // the 8 as all bits
    const std::int64_t exponent = (magnitude ^ negative) - negative;
    Digits digits;
    const __m128i mantissa = _mm_slli_si128(load_wide(field, width_), 5);
    if (take_digits<0, 0, false>(mantissa, decimal_mark(*settings_), digits) != Found::number)
      return false;
    const auto after = static_cast<std::int64_t>(digits.after % 16);
    const std::int64_t row = exponent - after + kFarthest;
    if (static_cast<std::uint64_t>(row) >= kScales.size()) return false;
    const Scale& scale = kScales[static_cast<std::size_t>(row)];
    value = digits.number * scale.up / scale.down;
    return true;
  }

 private:
  std::int64_t width_;
  const Settings* settings_;
};

}  // namespace number_fast

#else

namespace number_fast {

// Without vectors the scanner reads all.
template <char, char, char, bool = false>
class FieldReader {
 public:
  static bool make(std::int64_t, std::int64_t, const Settings&, FieldReader&) noexcept {
    return false;
  }
  bool operator()(const char*, double&, bool = true) const noexcept { return false; }
};

using ExponentialReader = FieldReader<0, 0, 0>;

}  // namespace number_fast

#endif

namespace number_fast {

using FixedReader = FieldReader<0, 0, 0>;  // F

// PCT: as F, and one percent sign behind a number.
class PercentReader {
 public:
  // False when it answers for no field of such a format.
  [[gnu::always_inline]] static bool make(std::int64_t width, std::int64_t decimals,
                                          const Settings& settings,
                                          PercentReader& reader) noexcept {
    reader.width_ = width;
    reader.decimals_ = decimals;
    reader.settings_ = &settings;
    return width >= 1;
  }

  // False, with any value, when the field is neither such a number nor blank.
  [[gnu::always_inline]] bool operator()(const char* field, double& value) const noexcept {
    const bool sign = field[width_ - 1] == '%';
    FixedReader read;
    return FixedReader::make(width_ - (sign ? 1 : 0), decimals_, *settings_, read) &&
           read(field, value, !sign);
  }

 private:
  std::int64_t width_;
  std::int64_t decimals_;
  const Settings* settings_;
};

// The characters of a type; 0 for none, and for the settings' decimal character.
template <FormatCode kType>
struct Characters {
  static constexpr bool kIsGrouped =
      kType == FormatCode::comma || kType == FormatCode::dollar || kType == FormatCode::dot;
  static constexpr char kDecimal = !kIsGrouped ? 0 : kType == FormatCode::dot ? ',' : '.';
  static constexpr char kGrouping = !kIsGrouped ? 0 : kType == FormatCode::dot ? '.' : ',';
  static constexpr char kPrefix = kType == FormatCode::dollar ? '$' : 0;
  static constexpr char kSuffix = kType == FormatCode::pct ? '%' : 0;
};

template <FormatCode kType>
struct OrdinaryReaderOf {
  using C = Characters<kType>;
  using Reader = FieldReader<C::kDecimal, C::kGrouping, C::kPrefix>;
};
template <>
struct OrdinaryReaderOf<FormatCode::pct> {
  using Reader = PercentReader;
};
template <>
struct OrdinaryReaderOf<FormatCode::e> {
  using Reader = ExponentialReader;
};

}  // namespace number_fast

// The attempt at the ordinary fields of a type, as output has them.
template <FormatCode kType>
using OrdinaryReader = typename number_fast::OrdinaryReaderOf<kType>::Reader;

}  // namespace iocv
