// IB and PIB: binary integers.
#include "frame/binary_support.h"
#include "support/powers.h"

namespace test {
namespace {

TEST(IbInput, ReadsTwosComplementLittleEndian) {
  expect_readings(IB, {
                          {"FF FF", 0, value(-1)},
                          {"00 80", 0, value(-32768)},
                          {"01 00", 0, value(1)},
                          {"FF 7F", 0, value(32767)},
                          {"00", 0, value(0)},
                          {"80", 0, value(-128)},
                          {"00 00 00 00 00 00 00 80", 0, value(-9223372036854775808.0)},
                          {"FE FF FF FF FF FF FF FF FF FF FF FF", 0, value(-2)},
                          {"", 0, value(kMissing)},
                      });
}

TEST(IbInput, DecimalsDivideAboveAndBelowZero) {
  expect_readings(IB, {
                          {"05", 2, value(.05)},
                          {"FB", 1, value(-.5)},
                          {"05", -2, value(500)},
                          {"FB", -1, value(-50)},
                          {"05", 400, value(0)},
                          {"FB", INT64_MAX, value(-0.0)},
                          {"05", INT64_MIN, value(kInfinity)},
                      });
}

TEST(IbInput, WideFieldsFoldInADouble) {
  EXPECT_EQ(read(IB, std::string(200, '\x7F'), 0), value(kInfinity));
  EXPECT_EQ(read(IB, std::string(200, '\xFF'), 0), value(-1));
}

TEST(IbOutput, WritesTwosComplementLittleEndian) {
  expect_writings(IB, {
                          {-1, 2, 0, "FF FF", 0},
                          {-32768, 2, 0, "00 80", 0},
                          {32767, 2, 0, "FF 7F", 0},
                          {32768, 2, 0, "00 00", 1125},
                          {-32769, 2, 0, "00 00", 1125},
                          {1, 4, 0, "01 00 00 00", 0},
                          {-256, 2, 0, "00 FF", 0},
                          {-256, 1, 0, "00", 1125},
                          {256, 1, 0, "00", 1125},
                          {128, 1, 0, "00", 1125},
                          {-128, 1, 0, "80", 0},
                          {-0.0, 2, 0, "00 00", 0},
                          {1, 0, 0, "", 0},
                      });
}

TEST(IbOutput, RoundsTheSumHalfAwayFromZero) {
  expect_writings(IB, {
                          {2.5, 2, 0, "03 00", 0},
                          {-2.5, 2, 0, "FD FF", 0},
                          {0.49999999999999994, 1, 0, "01", 0},
                          {-0.49999999999999994, 1, 0, "FF", 0},
                          {4503599627370497, 8, 0, "02 00 00 00 00 00 10 00", 0},
                          {-0.3, 1, 0, "00", 0},
                          {127.5, 1, 0, "00", 1125},
                          {-128.5, 1, 0, "00", 1125},
                          {-128.25, 1, 0, "80", 0},
                      });
}

TEST(IbOutput, DecimalsMultiply) {
  expect_writings(IB, {
                          {1.25, 2, 2, "7D 00", 0},
                          {500, 1, -2, "05", 0},
                          {-1.005, 2, 2, "9C FF", 0},  // -100.49999999999999
                          {1e300, 4, 20, "00 00 00 00", 1125},
                          {0, 2, 400, "00 00", 1125},
                          {1e-20, 1, 20, "01", 0},
                          {1e300, 1, INT64_MIN, "00", 0},
                          {1, 1, INT64_MAX, "00", 1125},
                      });
}

TEST(IbOutput, SpecialValuesAreZeroBytesWithAStatus) {
  expect_writings(IB, {
                          {kMissing, 3, 0, "00 00 00", 1121},
                          {kInfinity, 3, 0, "00 00 00", 1149},
                          {-kInfinity, 3, 0, "00 00 00", 1149},
                          {kNan, 3, 0, "00 00 00", 1154},
                          {-kNan, 3, 0, "00 00 00", 1154},
                          {kNan, 0, 0, "", 0},
                      });
}

TEST(PibInput, ReadsUnsignedLittleEndian) {
  expect_readings(PIB, {
                           {"FF FF", 0, value(65535)},
                           {"00 01", 0, value(256)},
                           {"05", 2, value(.05)},
                           {"05", -2, value(5)},  // below 0 counts as none
                           {"05", INT64_MIN, value(5)},
                           {"05", INT64_MAX, value(0)},
                           {"", 0, value(kMissing)},
                           // Byte by byte in a double; the nearest double is 8.279429050403001e18.
                           {"4A 12 52 E4 DA 70 E6 72", 0, value(8.279429050403e18)},
                       });
  EXPECT_EQ(read(PIB, std::string(200, '\xFF'), 0), value(kInfinity));
}

TEST(PibOutput, WritesUnsignedLittleEndian) {
  expect_writings(PIB, {
                           {256, 2, 0, "00 01", 0},
                           {256, 1, 0, "00", 1125},
                           {255, 1, 0, "FF", 0},
                           {255.5, 1, 0, "00", 1125},
                           {-0.0, 1, 0, "00", 0},
                           {-1, 2, 0, "00 00", 1120},
                           {-1e-300, 2, 0, "00 00", 1120},
                           {2.5, 1, 0, "03", 0},
                           {0.49999999999999994, 1, 0, "01", 0},
                           {1.25, 2, 2, "7D 00", 0},
                           {500, 1, -2, "05", 0},
                           {1e300, 4, 20, "00 00 00 00", 1125},
                           {0, 2, 400, "00 00", 1125},
                           {1, 0, 0, "", 0},
                       });
}

TEST(PibOutput, SpecialValuesAreZeroBytesWithAStatus) {
  expect_writings(PIB, {
                           {kMissing, 3, 0, "00 00 00", 1121},
                           {kInfinity, 3, 0, "00 00 00", 1149},
                           {-kInfinity, 3, 0, "00 00 00", 1149},  // before negative
                           {kNan, 3, 0, "00 00 00", 1154},
                           {-kNan, 3, 0, "00 00 00", 1154},
                           {-1, 0, 0, "", 0},
                       });
}

TEST(BinaryIntegers, SystemMissingIsTheSettings) {
  const RecordsGuard records;
  cmnglb_.system_missing = -99;
  expect_readings(IB, {{"", 0, value(-99)}});
  expect_readings(PIB, {{"", 0, value(-99)}});
  expect_writings(IB, {{-99, 1, 0, "00", 1121}, {kMissing, 1, 0, "00", 1125}});
  expect_writings(PIB, {{-99, 1, 0, "00", 1121}, {kMissing, 1, 0, "00", 1120}});
  cmnglb_.system_missing = 0;  // compared as numbers
  expect_writings(IB, {{-0.0, 1, 0, "00", 1121}});
}

// ---- Walks against integers. ----

std::string little_endian(std::uint64_t number, std::size_t width) {
  std::string result;
  for (std::size_t i = 0; i < width; ++i) {
    result += static_cast<char>(i < 8 ? number >> (8 * i) & 0xFF : 0);
  }
  return result;
}

// Every field of so many bytes: as a number, with decimals, and back again.
void walk_fields(std::size_t width) {
  const std::uint64_t count = std::uint64_t{1} << (8 * width);
  for (std::uint64_t pattern = 0; pattern < count; ++pattern) {
    const std::string field = little_endian(pattern, width);
    const auto whole = static_cast<double>(pattern);
    const double integer = pattern < count / 2 ? whole : whole - static_cast<double>(count);
    for (const std::int64_t decimals : {0, 1, 2, 7, -2}) {
      const double power = reference_power(decimals);
      const double unsigned_power = decimals > 0 ? power : 1;
      ASSERT_EQ(read_plain(IB, field, decimals), value(integer / power)) << hex(field);
      ASSERT_EQ(read_plain(PIB, field, decimals), value(whole / unsigned_power)) << hex(field);
    }
    const auto wide = static_cast<std::int64_t>(width);
    ASSERT_EQ(write_plain(IB, integer, wide, 0), (Writing{field, 0}));
    ASSERT_EQ(write_plain(PIB, whole, wide, 0), (Writing{field, 0}));
    ASSERT_EQ(write_plain(IB, integer / 100, wide, 2), (Writing{field, 0}));
    ASSERT_EQ(write_plain(PIB, whole / 100, wide, 2), (Writing{field, 0}));
  }
}

TEST(BinaryIntegers, EveryFieldOfOneAndTwoBytes) {
  walk_fields(1);
  walk_fields(2);
}

TEST(LongBinaryIntegers, EveryFieldOfThreeBytes) { walk_fields(3); }

// The bytes of a whole number as its binary digits say, without arithmetic in doubles.
std::string magnitude_bytes(double whole, std::size_t width) {
  int exponent = 0;
  auto mantissa = static_cast<std::uint64_t>(std::ldexp(std::frexp(whole, &exponent), 53));
  exponent -= 53;
  for (; exponent < 0; ++exponent) mantissa >>= 1;
  std::string result(width, '\0');
  for (std::size_t bit = 0; bit < 64; ++bit) {
    const std::size_t at = bit + static_cast<std::size_t>(exponent);
    if ((mantissa >> bit & 1) != 0 && at / 8 < width) {
      result[at / 8] = static_cast<char>(result[at / 8] | 1 << at % 8);
    }
  }
  return result;
}

// What IB or PIB holds of a value.
Writing reference(bool is_signed, double number, std::size_t width, std::int64_t decimals) {
  const auto zeros = [width](std::int64_t status) {
    return Writing{std::string(width, 0), status};
  };
  if (width == 0) return zeros(0);
  if (number != number) return zeros(1154);
  if (number == kInfinity || number == -kInfinity) return zeros(1149);
  if (number == kMissing) return zeros(1121);
  if (!is_signed && number < 0) return zeros(1120);
  const double scaled = decimals == 0 ? number : number * reference_power(decimals);
  const double whole = std::trunc(scaled < 0 ? scaled - 0.5 : scaled + 0.5);
  if (!(whole > -kInfinity && whole < kInfinity)) return zeros(1125);
  const auto bits = 8 * static_cast<int>(width);
  if (is_signed) {
    const double bound = bits > 1024 ? kInfinity : std::ldexp(1.0, bits - 1);
    if (whole >= bound || whole < -bound) return zeros(1125);
  } else if (whole >= (bits > 1023 ? kInfinity : std::ldexp(1.0, bits))) {
    return zeros(1125);
  }
  Writing writing = {magnitude_bytes(std::abs(whole), width), 0};
  if (whole < 0) {  // invert all bits from the lowest one upwards, that one excluded
    std::size_t i = 0;
    while (writing.field[i] == 0) ++i;
    writing.field[i] = static_cast<char>(-writing.field[i]);
    for (++i; i < width; ++i) writing.field[i] = static_cast<char>(~writing.field[i]);
  }
  return writing;
}

TEST(BinaryIntegers, SpecialValuesInEveryWidth) {
  for (const Format& format : {IB, PIB}) {
    sweep(format, widths_to(40, {127, 128, 129, 200}),
          [&](const Writing& writing, double number, std::int64_t decimals) {
            ASSERT_EQ(writing,
                      reference(format.code == IB.code, number, writing.field.size(), decimals));
          });
  }
}

TEST(BinaryIntegers, RandomValues) {
  SCOPED_TRACE(seed_text());
  std::mt19937_64 random = random_source();
  for (int i = 0; i < 200000; ++i) {
    const auto width = static_cast<std::int64_t>(1 + random() % 10);
    const auto decimals = static_cast<std::int64_t>(random() % 8);
    const int exponent = static_cast<int>(random() % 80) - 4;
    double number = std::ldexp(static_cast<double>(random()), exponent - 64);
    if (random() % 2 == 0) number = std::trunc(number) + 0.5;
    if (random() % 2 == 0) number = -number;
    for (const Format& format : {IB, PIB}) {
      ASSERT_EQ(
          write_plain(format, number, width, decimals),
          reference(format.code == IB.code, number, static_cast<std::size_t>(width), decimals))
          << format.name << width << "." << decimals << " of " << described(number);
    }
  }
}

}  // namespace
}  // namespace test
