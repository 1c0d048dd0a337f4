// RB and RBHEX: doubles and singles.
#include "frame/binary_support.h"

namespace test {
namespace {

constexpr double kBlank = -77;

double from_bits(std::uint64_t bits) { return std::bit_cast<double>(bits); }

TEST(RbInput, TakesTheMostSignificantBytes) {
  expect_readings(RB, {
                          {"00 00 00 00 00 00 F0 3F", 0, value(1)},
                          {"00 00 80 3F", 0, value(1)},
                          {"80 3F", 0, value(1)},
                          {"3F", 0, value(0.5)},
                          {"00 80 3F", 0, value(1)},
                          {"00 00 00 F0 3F", 0, value(1)},
                          {"01 00 00 00 00 00 F0 3F", 0, value(1.0000000000000002)},
                          {"00 00 00 00 00 00 F0 3F FF 00", 0, value(1)},  // only eight count
                          {"00 00 80 7F", 0, value(kInfinity)},
                          {"00 00 00 00 00 00 F0 FF", 0, value(-kInfinity)},
                          {"00 00 C0 7F", 0, value(kMissing)},
                          {"01 00 80 7F", 0, value(kMissing)},
                          {"00 00 00 00 00 00 F8 FF", 0, value(kMissing)},
                          {"01 00 00 00 00 00 F0 7F", 0, value(kMissing)},
                          {"01 00 00 00 00 00 00 00", 0, value(5e-324)},
                          {"01 00 00 00", 0, value(1.401298464324817e-45)},
                          {"00 80", 5, value(-0.0)},
                          {"FF FF FF FF FF FF EF FF", 0, value(kMissing)},
                          {"", 0, value(kMissing)},
                      });
}

TEST(RbOutput, WritesTheMostSignificantBytes) {
  expect_writings(RB, {
                          {1, 8, 0, "00 00 00 00 00 00 F0 3F", 0},
                          {1, 4, 0, "00 00 80 3F", 0},
                          {1, 2, 7, "80 3F", 0},
                          {1, 1, 0, "3F", 0},
                          {1, 5, 0, "00 00 00 F0 3F", 0},
                          {1.0000000000000002, 7, 0, "00 00 00 00 00 F0 3F", 0},
                          {1.0000000000000002, 10, 0, "00 00 01 00 00 00 00 00 F0 3F", 0},
                          {-2, 3, 0, "00 00 C0", 0},
                          {1e300, 4, 0, "00 00 80 7F", 0},
                          {-1e300, 4, 0, "00 00 80 FF", 0},
                          {kInfinity, 8, 0, "00 00 00 00 00 00 F0 7F", 0},
                          {-kInfinity, 2, 0, "80 FF", 0},
                          {-0.0, 4, 0, "00 00 00 80", 0},
                          {16777217, 4, 0, "00 00 80 4B", 0},  // rounds to even
                          {1, 0, 0, "", 0},
                      });
}

TEST(RbOutput, NotANumberKeepsItsPattern) {
  expect_writings(RB, {
                          {from_bits(0xFFF4'0000'0000'0001), 4, 0, "00 00 E0 FF", 0},
                          {from_bits(0xFFF4'0000'0000'0001), 2, 0, "E0 FF", 0},
                          {from_bits(0x7FF0'0000'0000'0001), 4, 0, "00 00 C0 7F", 0},
                          {from_bits(0x7FF7'FFFF'FFFF'FFFF), 4, 0, "FF FF FF 7F", 0},
                          {from_bits(0x7FF4'0000'0000'0001), 8, 0, "01 00 00 00 00 00 F4 7F", 0},
                          {from_bits(0x7FF4'0000'0000'0001), 5, 0, "00 00 00 F4 7F", 0},
                          {from_bits(0xFFF8'0000'0000'0000), 8, 0, "00 00 00 00 00 00 F8 FF", 0},
                      });
}

TEST(RbOutput, SystemMissingIsQuestionMarksAndA7F) {
  expect_writings(RB, {
                          {kMissing, 8, 0, "3F 3F 3F 3F 3F 3F 3F 7F", 0},
                          {kMissing, 4, 0, "3F 3F 3F 7F", 0},
                          {kMissing, 1, 0, "7F", 0},
                          {kMissing, 10, 0, "3F 3F 3F 3F 3F 3F 3F 3F 3F 7F", 0},
                          {kMissing, 0, 0, "", 0},
                      });
  const RecordsGuard records;
  cmnglb_.system_missing = -99;
  expect_writings(RB, {{-99, 3, 0, "3F 3F 7F", 0}, {kMissing, 8, 0, "FF FF FF FF FF FF EF FF", 0}});
  expect_readings(RB, {{"", 0, value(-99)}, {"C0 7F", 0, value(-99)}});
}

// The number that a pattern of exponent and fraction bits stands for, by arithmetic.
double decoded(std::uint64_t bits, int exponent_bits, int fraction_bits) {
  const std::uint64_t fraction = bits & ((std::uint64_t{1} << fraction_bits) - 1);
  const int exponent_mask = (1 << exponent_bits) - 1;
  const int exponent = static_cast<int>(bits >> fraction_bits) & exponent_mask;
  const int bias = exponent_mask / 2;
  const bool negative = (bits >> (exponent_bits + fraction_bits) & 1) != 0;
  double number = 0;
  if (exponent == exponent_mask) {
    if (fraction != 0) return kMissing;
    number = kInfinity;
  } else if (exponent == 0) {
    number = std::ldexp(static_cast<double>(fraction), 1 - bias - fraction_bits);
  } else {
    const auto whole = static_cast<double>(fraction + (std::uint64_t{1} << fraction_bits));
    number = std::ldexp(whole, exponent - bias - fraction_bits);
  }
  return negative ? -number : number;
}

std::string little_endian(std::uint64_t bits, int first, int count) {
  std::string result;
  for (int i = first; i < first + count; ++i) result += static_cast<char>(bits >> 8 * i & 0xFF);
  return result;
}

// Every field of 1, 2 or 3 bytes as the top of a single, and back again.
void walk_singles(int width) {
  for (std::uint64_t pattern = 0; pattern < std::uint64_t{1} << 8 * width; ++pattern) {
    const std::string field = little_endian(pattern, 0, width);
    const double number = decoded(pattern << 8 * (4 - width), 8, 23);
    ASSERT_EQ(read_plain(RB, field, 0), value(number)) << hex(field);
    if (number != kMissing) {
      ASSERT_EQ(write_plain(RB, number, width, 0), (Writing{field, 0}));
    }
  }
}

TEST(Rb, EveryFieldOfOneAndTwoBytes) {
  walk_singles(1);
  walk_singles(2);
}

TEST(LongRb, EveryFieldOfThreeBytes) { walk_singles(3); }

TEST(Rb, RandomPatterns) {
  SCOPED_TRACE(seed_text());
  std::mt19937_64 random = random_source();
  for (int i = 0; i < 200000; ++i) {
    std::uint64_t bits = random();
    if (i % 4 == 0) bits &= 0x800F'FFFF'FFFF'FFFF;  // subnormals
    for (int width = 5; width <= 8; ++width) {
      const std::string field = little_endian(bits, 8 - width, width);
      const std::uint64_t kept = bits >> 8 * (8 - width) << 8 * (8 - width);
      const double number = decoded(kept, 11, 52);
      ASSERT_EQ(read_plain(RB, field, 0), value(number)) << hex(field);
      if (number != kMissing) {
        ASSERT_EQ(write_plain(RB, number, width, 0), (Writing{field, 0}));
      }
    }
    const auto single = static_cast<std::uint32_t>(bits >> 32);
    const double number = decoded(single, 8, 23);
    const std::string field = little_endian(single, 0, 4);
    ASSERT_EQ(read_plain(RB, field, 0), value(number)) << hex(field);
    if (number != kMissing) {
      ASSERT_EQ(write_plain(RB, number, 4, 0), (Writing{field, 0}));
    }
  }
}

TEST(Rb, SpecialValuesInEveryWidth) {
  sweep(RB, widths_to(40), [](const Writing& writing, double number, std::int64_t) {
    ASSERT_EQ(writing.status, 0);
    const std::string& field = writing.field;
    if (field.empty()) return;
    if (number == kMissing) {
      ASSERT_EQ(field, std::string(field.size() - 1, '?') + '\x7F');
      return;
    }
    const std::size_t zeros = field.size() > 8 ? field.size() - 8 : 0;
    ASSERT_EQ(field.substr(0, zeros), std::string(zeros, '\0'));
    if (std::isnan(number)) return;
    const double back = read_plain(RB, field.substr(zeros), 0).value;
    if (field.size() >= 8) {
      ASSERT_EQ(value(back), value(number));
    } else if (std::isfinite(back)) {
      // Cut, never rounded, from the double or the single.
      const double source =
          field.size() > 4 ? number : static_cast<double>(static_cast<float>(number));
      ASSERT_LE(std::abs(back), std::abs(source));
      ASSERT_EQ(std::signbit(back), std::signbit(number));
    }
  });
}

TEST(RbhexInput, ReadsBytesTheMostSignificantFirst) {
  const RecordsGuard records;
  cmnglb_.blank_value = kBlank;
  expect_texts(RBHEX, {
                          {"3FF0000000000000", value(1)},
                          {"3ff0000000000000", value(1)},
                          {"3F800000", value(1)},
                          {"3F80", value(1)},
                          {"3F", value(0.5)},
                          {"3FF0000000", value(1)},
                          {"7FF0000000000000", value(kInfinity)},
                          {"7FC00000", value(kMissing)},
                          {"FFEFFFFFFFFFFFFF", value(kMissing)},
                          {"", value(kMissing)},
                          {"3", value(kMissing)},
                          {" ", value(kMissing)},  // one column is no byte, blank or not
                          {"  ", value(kBlank)},
                          {"   ", value(kBlank)},
                          {"                ", value(kBlank)},
                          {"                    ", value(kBlank)},
                      });
}

TEST(RbhexInput, AnOddLastCharacterIsIgnored) {
  expect_texts(RBHEX, {
                          {"3F8", value(0.5)},
                          {"3FX", value(0.5)},
                          {"3F ", value(0.5)},
                          {"3FF000000000000", value(1)},
                          {"  1", {kMissing, 1101}},
                      });
}

TEST(RbhexInput, OfMoreThan16CharactersTheLast16Count) {
  expect_texts(RBHEX, {
                          {"XX3FF0000000000000", value(1)},
                          {"3FF00000000000004", value(1)},
                          {"3FF00000000000000000", value(0)},
                          {"  3FF0000000000000", value(1)},
                          {"                 1", {kMissing, 1101}},
                      });
}

TEST(RbhexInput, OtherCharactersFail) {
  expect_texts(RBHEX, {
                          {"3G", {kMissing, 1101}},
                          {"G3", {kMissing, 1101}},
                          {"3F 0", {kMissing, 1101}},
                          {"3FF000000000000G", {kMissing, 1101}},
                          {" 3FF", {kMissing, 1101}},
                      });
}

TEST(RbhexOutput, ShowsBytesTheMostSignificantFirst) {
  expect_shown(RBHEX, {
                          {1, 16, "3FF0000000000000"},
                          {1, 20, "3FF00000000000000000"},
                          {1, 17, "3FF00000000000000"},
                          {1, 8, "3F800000"},
                          {1, 10, "3FF0000000"},
                          {1, 2, "3F"},
                          {-2.5, 16, "C004000000000000"},
                          {1.0000000000000002, 16, "3FF0000000000001"},
                          {1, 1, " "},
                          {1, 3, "3F "},
                          {1, 5, "3F80 "},
                          {1, 15, "3FF00000000000 "},
                          {1, 0, ""},
                          {1e300, 8, "7F800000"},
                      });
}

TEST(RbhexOutput, SpecialValuesShowInTheLastColumn) {
  expect_shown(RBHEX, {
                          {kMissing, 16, "               ."},
                          {kMissing, 1, "."},
                          {kInfinity, 5, "    ."},
                          {-kInfinity, 20, "                   ."},
                          {kNan, 3, "  ."},
                          {kNan, 0, ""},
                      });
}

TEST(Rbhex, SpecialValuesInEveryWidth) {
  sweep(RBHEX, widths_to(40), [](const Writing& writing, double number, std::int64_t) {
    ASSERT_EQ(writing.status, 0);
    const std::size_t width = writing.field.size();
    if (width == 0) return;
    if (!std::isfinite(number) || number == kMissing) {
      ASSERT_EQ(writing.field, std::string(width - 1, ' ') + '.');
      return;
    }
    const std::size_t size = std::min<std::size_t>(width / 2, 8);
    std::string expected;
    if (size > 0) {
      const std::string field = write_plain(RB, number, static_cast<std::int64_t>(size), 0).field;
      for (std::size_t i = size; i-- > 0;) expected += hex(field.substr(i, 1));
    }
    expected.resize(width, width > 16 ? '0' : ' ');
    ASSERT_EQ(writing.field, expected);
  });
}

}  // namespace
}  // namespace test
