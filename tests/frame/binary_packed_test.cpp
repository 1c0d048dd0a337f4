// P and PK: packed decimal.
#include "frame/binary_support.h"
#include "support/powers.h"

namespace test {
namespace {

constexpr Reading kBadDigit = {kMissing, 1103};

TEST(PInput, ReadsDigitsAndSigns) {
  expect_readings(P, {
                         {"12 3C", 0, value(123)},
                         {"12 3F", 0, value(123)},
                         {"12 3A", 0, value(123)},
                         {"12 3E", 0, value(123)},
                         {"12 3D", 0, value(-123)},
                         {"12 3B", 0, value(-123)},
                         {"12 34", 0, {1234, 1106}},
                         {"12 30", 0, {1230, 1106}},
                         {"12 39", 2, {12.39, 1106}},
                         {"5C", 0, value(5)},
                         {"0F", 0, value(0)},
                         {"0D", 0, value(-0.0)},
                         {"0B", 1, value(-0.0)},
                         {"", 0, value(kMissing)},
                         // Left to right, which is not the nearest double.
                         {"15 63 82 45 43 38 40 82 49 0F", 0, value(1.5638245433840822e17 * 10)},
                     });
}

TEST(PInput, HalfBytesAbove9AreNoDigits) {
  expect_readings(P, {
                         {"1A 3C", 0, kBadDigit},
                         {"A1 3C", 0, kBadDigit},
                         {"12 AC", 0, kBadDigit},
                         {"AC", 0, kBadDigit},
                         {"0F 0F", 0, kBadDigit},
                     });
}

TEST(PInput, DecimalsDivideAboveAndBelowZero) {
  expect_readings(P, {
                         {"12 3C", 2, value(1.23)},
                         {"12 3D", 1, value(-12.3)},
                         {"5C", -2, value(500)},
                         {"5C", INT64_MAX, value(0)},
                         {"5C", INT64_MIN, value(kInfinity)},
                     });
}

TEST(POutput, WritesDigitsAndSign) {
  expect_writings(P, {
                         {-123, 2, 0, "12 3D", 0},
                         {123, 2, 0, "12 3F", 0},
                         {0, 1, 0, "0F", 0},
                         {-0.0, 1, 0, "0F", 0},
                         {-0.3, 1, 0, "0D", 0},
                         {9, 1, 0, "9F", 0},
                         {9.4, 1, 0, "9F", 0},
                         {9.5, 1, 0, "0F", 1123},
                         {1000, 2, 0, "00 0F", 1123},
                         {999, 2, 0, "99 9F", 0},
                         {2.5, 1, 0, "3F", 0},
                         {-2.5, 1, 0, "3D", 0},
                         {1.25, 3, 2, "00 12 5F", 0},
                         {500, 1, -2, "5F", 0},
                         {4058437061668349, 9, 0, "04 05 84 37 06 16 68 35 0F", 0},
                         {1, 0, 0, "", 0},
                     });
}

TEST(POutput, SpecialValuesAreAPositiveZeroWithAStatus) {
  expect_writings(P, {
                         {kMissing, 3, 0, "00 00 0F", 1124},
                         {kMissing, 1, 0, "0F", 1124},
                         {kInfinity, 3, 0, "00 00 0F", 1156},
                         {-kInfinity, 3, 0, "00 00 0F", 1156},
                         {kNan, 3, 0, "00 00 0F", 1155},
                         {kNan, 0, 0, "", 0},
                         {1e300, 4, 20, "00 00 00 0F", 1123},
                         {0, 4, 400, "00 00 00 0F", 1123},  // not-a-number on the way
                         {1, 2, INT64_MAX, "00 0F", 1123},
                         {-1, 2, INT64_MIN, "00 0D", 0},
                     });
}

TEST(POutput, BytesBeforeTheLast155HoldZeros) {
  for (const std::size_t width : {155U, 156U, 200U}) {
    struct Case {
      double number;
      const char* end;
      std::int64_t status;
    };
    constexpr Case kCases[] = {
        {5, "5F", 0}, {-7, "7D", 0}, {kMissing, "0F", 1124}, {-123, "12 3D", 0}};
    for (const Case& c : kCases) {
      const std::string end = bytes(c.end);
      const std::string field = std::string(width - end.size(), '\0').append(end);
      EXPECT_EQ(write(P, c.number, static_cast<std::int64_t>(width), 0),
                (Writing{field, c.status}));
    }
    const Writing largest =
        write(P, std::numeric_limits<double>::max(), static_cast<std::int64_t>(width), 0);
    EXPECT_EQ(largest.status, 0);
    EXPECT_EQ(largest.field.substr(0, width - 155), std::string(width - 155, '\0'));
    EXPECT_EQ(hex(largest.field.substr(width - 155, 5)), "17 97 69 31 34");
  }
}

TEST(PkInput, ReadsUnsignedDigits) {
  expect_readings(PK, {
                          {"12 34", 0, value(1234)},
                          {"12 34", 2, value(12.34)},
                          {"00", 0, value(0)},
                          {"05", -2, value(500)},
                          {"05", INT64_MIN, value(kInfinity)},
                          {"1A", 0, kBadDigit},
                          {"A1", 0, kBadDigit},
                          {"12 3F", 0, kBadDigit},
                          {"", 0, value(kMissing)},
                          // Left to right; the nearest double is 1.5638245433840826e17.
                          {"15 63 82 45 43 38 40 82 49", 0, value(1.5638245433840822e17)},
                      });
}

TEST(PkOutput, WritesUnsignedDigits) {
  expect_writings(PK, {
                          {5, 2, 0, "00 05", 0},
                          {12345, 2, 0, "00 00", 1123},
                          {9999, 2, 0, "99 99", 0},
                          {9999.5, 2, 0, "00 00", 1123},
                          {123, 2, 0, "01 23", 0},
                          {0, 2, 0, "00 00", 0},
                          {-0.0, 2, 0, "00 00", 0},
                          {0.3, 2, 0, "00 00", 0},
                          {0.5, 2, 0, "00 01", 0},
                          {99, 1, 0, "99", 0},
                          {100, 1, 0, "00", 1123},
                          {1.25, 2, 2, "01 25", 0},
                          {500, 1, -2, "05", 0},
                          {1, 0, 0, "", 0},
                      });
}

TEST(PkOutput, SpecialValuesAreZeroBytesWithAStatus) {
  expect_writings(PK, {
                          {kMissing, 2, 0, "00 00", 1124},
                          {kInfinity, 2, 0, "00 00", 1156},
                          {-kInfinity, 2, 0, "00 00", 1156},  // before negative
                          {kNan, 2, 0, "00 00", 1155},
                          {-1, 2, 0, "00 00", 1122},
                          {-1e-300, 2, 0, "00 00", 1122},
                          {1e300, 4, 20, "00 00 00 00", 1123},
                          {1, 4, 400, "00 00 00 00", 1123},
                          {0, 4, 400, "00 00 00 00", 0},  // an exact zero is never scaled
                          {1, 2, INT64_MIN, "00 00", 0},
                          {-1, 0, 0, "", 0},
                      });
}

TEST(PkOutput, ADivisionThatRoundsUpToTenCountsOneDigitMore) {
  expect_writings(PK,
                  {
                      {9.999999999999998e23, 12, 0, "00 00 00 00 00 00 00 00 00 00 00 00", 1123},
                      {9.999999999999998e23, 13, 0, "00 99 99 99 99 99 99 99 98 22 36 43 16", 0},
                  });
}

// A number of 309 digits needs the digit before them divided away in two steps.
TEST(PkOutput, TheLargestNumbersFit155Bytes) {
  EXPECT_EQ(write(PK, 1e308, 154, 0), (Writing{std::string(154, '\0'), 1123}));
  for (const std::int64_t width : {155, 156, 200}) {
    const auto zeros = static_cast<std::size_t>(width - 155);
    const Writing written = write(PK, std::numeric_limits<double>::max(), width, 0);
    EXPECT_EQ(written.status, 0);
    EXPECT_EQ(written.field.substr(0, zeros), std::string(zeros, '\0'));
    EXPECT_EQ(hex(written.field.substr(zeros, 6)), "01 79 76 93 13 48");
  }
}

TEST(PackedDecimal, SystemMissingIsTheSettings) {
  const RecordsGuard records;
  cmnglb_.system_missing = -99;
  expect_readings(P, {{"", 0, value(-99)}, {"AC", 0, {-99, 1103}}});
  expect_readings(PK, {{"", 0, value(-99)}, {"AC", 0, {-99, 1103}}});
  expect_writings(P, {{-99, 2, 0, "00 0F", 1124}, {kMissing, 2, 0, "00 0F", 1123}});
  expect_writings(PK, {{-99, 1, 0, "00", 1124}, {kMissing, 1, 0, "00", 1122}});
}

// ---- Walks against the half-bytes themselves. ----

std::vector<int> half_bytes(std::string_view field) {
  std::vector<int> halves;
  for (const char byte : field) {
    halves.push_back(byte >> 4 & 15);
    halves.push_back(byte & 15);
  }
  return halves;
}

// A field of a few bytes as P, or as PK, reads it.
Reading reference(std::vector<int> halves, bool packed_sign, std::int64_t decimals) {
  const int sign = packed_sign && halves.back() > 9 ? halves.back() : 15;
  const std::int64_t status = packed_sign && halves.back() <= 9 ? 1106 : 0;
  if (packed_sign && status == 0) halves.pop_back();
  std::int64_t whole = 0;
  for (const int half : halves) {
    if (half > 9) return kBadDigit;
    whole = whole * 10 + half;
  }
  const bool negative = sign == 11 || sign == 13;
  double number = negative ? -static_cast<double>(whole) : static_cast<double>(whole);
  if (decimals != 0) number = number / reference_power(decimals);
  return {number, status};
}

void walk_fields(std::size_t width) {
  std::string field(width, '\0');
  for (std::uint32_t pattern = 0; pattern < std::uint32_t{1} << 8 * width; ++pattern) {
    for (std::size_t i = 0; i < width; ++i) field[i] = static_cast<char>(pattern >> 8 * i & 0xFF);
    for (const std::int64_t decimals : {0, 1, 2, -2}) {
      ASSERT_EQ(read_plain(P, field, decimals), reference(half_bytes(field), true, decimals))
          << hex(field);
      ASSERT_EQ(read_plain(PK, field, decimals), reference(half_bytes(field), false, decimals))
          << hex(field);
    }
  }
}

TEST(PackedDecimal, EveryFieldOfOneAndTwoBytes) {
  walk_fields(1);
  walk_fields(2);
}

TEST(LongPackedDecimal, EveryFieldOfThreeBytes) { walk_fields(3); }

// The digits of a whole number, with a sign half-byte when it is not 0.
std::string packed(std::uint64_t whole, int sign, std::size_t width) {
  std::string halves =
      std::to_string(whole) + (sign != 0 ? "0123456789ABCDEF"[sign] + std::string() : "");
  halves.insert(0, 2 * width - halves.size(), '0');
  std::string spaced;
  for (std::size_t i = 0; i < halves.size(); i += 2) spaced += halves.substr(i, 2) + " ";
  return bytes(spaced);
}

// Every whole number that the width holds, and the first that it does not.
void walk_values(std::size_t width) {
  const auto wide = static_cast<std::int64_t>(width);
  const auto end = static_cast<std::uint64_t>(reference_power(2 * wide - 1));
  for (std::uint64_t n = 0; n < end; ++n) {
    const auto number = static_cast<double>(n);
    ASSERT_EQ(write_plain(P, number, wide, 0), (Writing{packed(n, 15, width), 0}));
    ASSERT_EQ(write_plain(P, -number - 0.25, wide, 0), (Writing{packed(n, 13, width), 0}));
    ASSERT_EQ(write_plain(P, number / 100, wide, 2), (Writing{packed(n, 15, width), 0}));
  }
  EXPECT_EQ(write_plain(P, static_cast<double>(end), wide, 0).status, 1123);
  for (std::uint64_t n = 0; n < 10 * end; ++n) {
    const auto number = static_cast<double>(n);
    ASSERT_EQ(write_plain(PK, number, wide, 0), (Writing{packed(n, 0, width), 0}));
    ASSERT_EQ(write_plain(PK, number / 100, wide, 2), (Writing{packed(n, 0, width), 0}));
  }
  EXPECT_EQ(write_plain(PK, static_cast<double>(10 * end), wide, 0).status, 1123);
}

TEST(PackedDecimal, EveryNumberOfOneAndTwoBytes) {
  walk_values(1);
  walk_values(2);
}

TEST(LongPackedDecimal, EveryNumberOfThreeBytes) { walk_values(3); }

// Up to 13 digits the half that rounding adds outweighs every error of the digit loop.
TEST(PackedDecimal, RandomWholeNumbersOfUpTo13Digits) {
  SCOPED_TRACE(seed_text());
  std::mt19937_64 random = random_source();
  for (int i = 0; i < 100000; ++i) {
    std::uint64_t n = random() % 10'000'000'000'000;
    n >>= random() % 43;
    const auto width = static_cast<std::size_t>(7 + (i % 8 == 0 ? random() % 200 : random() % 3));
    const auto wide = static_cast<std::int64_t>(width);
    const auto number = static_cast<double>(n);
    ASSERT_EQ(write_plain(PK, number, wide, 0), (Writing{packed(n, 0, width), 0})) << n;
    if (width > 10) continue;  // the digit loop of P runs through the whole width
    ASSERT_EQ(write_plain(P, number, wide, 0), (Writing{packed(n, 15, width), 0})) << n;
    ASSERT_EQ(write_plain(P, -number - 1, wide, 0), (Writing{packed(n + 1, 13, width), 0})) << n;
  }
}

TEST(PackedDecimal, SpecialValuesInEveryWidth) {
  for (const Format& format : {P, PK}) {
    const bool is_p = format.code == P.code;
    sweep(format, widths_to(40, {154, 155, 156, 200}),
          [&](const Writing& writing, double number, std::int64_t decimals) {
            const auto width = static_cast<std::int64_t>(writing.field.size());
            std::string failed = std::string(writing.field.size(), '\0');
            if (is_p && width > 0) failed.back() = 15;
            const double magnitude = std::abs(number) * reference_power(decimals);
            const double bound = reference_power(2 * width - (is_p ? 1 : 0));
            if (width == 0) {
              ASSERT_EQ(writing.status, 0);
            } else if (number != number) {
              ASSERT_EQ(writing, (Writing{failed, 1155}));
            } else if (std::isinf(number)) {
              ASSERT_EQ(writing, (Writing{failed, 1156}));
            } else if (number == kMissing) {
              ASSERT_EQ(writing, (Writing{failed, 1124}));
            } else if (!is_p && number < 0) {
              ASSERT_EQ(writing, (Writing{failed, 1122}));
            } else if (writing.status != 0) {
              ASSERT_EQ(writing, (Writing{failed, 1123}));
              ASSERT_FALSE(magnitude + 0.5 < bound * (1 - 1e-15));
            } else {
              const Reading back = read_plain(format, writing.field, 0);
              ASSERT_EQ(back.status, 0);
              ASSERT_EQ(std::signbit(back.value), number < 0);
              if (magnitude < 1e300 && (is_p || number != 0)) {  // the fold stays finite
                ASSERT_LE(std::abs(std::abs(back.value) - magnitude), 0.5 + magnitude * 4e-15);
              }
            }
          });
  }
}

}  // namespace
}  // namespace test
