// RB, RBHEX and PIBHEX, and bytes as hexadecimal text.
#include "frame/binary_support.h"

namespace {

using namespace binary_test;  // NOLINT(google-build-using-namespace)

constexpr double kBlank = -77;

Reading value(double number) { return {number, 0}; }
double from_bits(std::uint64_t bits) { return std::bit_cast<double>(bits); }

struct TextCase {
  const char* text;
  Reading expected;
};

void expect_texts(const Format& format, const std::vector<TextCase>& cases) {
  for (const TextCase& c : cases) {
    for (const std::int64_t decimals : {std::int64_t{0}, std::int64_t{3}, INT64_MIN}) {
      EXPECT_EQ(read(format, c.text, decimals), c.expected) << format.name << " |" << c.text << "|";
    }
  }
}

struct ShownCase {
  double value;
  std::int64_t width;
  const char* text;
  std::int64_t status = 0;
};

void expect_shown(const Format& format, const std::vector<ShownCase>& cases) {
  for (const ShownCase& c : cases) {
    for (const std::int64_t decimals : {std::int64_t{0}, std::int64_t{3}, INT64_MAX}) {
      EXPECT_EQ(write(format, c.value, c.width, decimals), (Writing{c.text, c.status}))
          << format.name << c.width << " of " << test::described(c.value);
    }
  }
}

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
  const test::RecordsGuard records;
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
  SCOPED_TRACE(test::seed_text());
  std::mt19937_64 random = test::random_source();
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
  const test::RecordsGuard records;
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

TEST(PibhexInput, ReadsHexadecimalDigits) {
  const test::RecordsGuard records;
  cmnglb_.blank_value = kBlank;
  expect_texts(PIBHEX, {
                           {"ff", value(255)},
                           {"FF", value(255)},
                           {"0", value(0)},
                           {"00ff", value(255)},
                           {"", value(kMissing)},
                           {" ", value(kBlank)},
                           {"    ", value(kBlank)},
                           {"F F", {kMissing, 1101}},
                           {" F", {kMissing, 1101}},
                           {"F ", {kMissing, 1101}},
                           {"G", {kMissing, 1101}},
                           {"-1", {kMissing, 1101}},
                           {"20000000000001", value(9007199254740993 - 1)},  // 2^53 + 1 is even
                       });
  EXPECT_EQ(read(PIBHEX, std::string(256, 'F'), 0), value(kInfinity));
  EXPECT_EQ(read(PIBHEX, std::string(255, 'F') + "G", 0), (Reading{kMissing, 1101}));
}

TEST(PibhexInput, EveryFieldOfOneAndTwoBytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF0123456789abcdef";
  const auto digit = [&](char c) {
    const std::size_t at = kDigits.find(c);
    return at == kDigits.npos ? -1 : static_cast<int>(at % 16);
  };
  for (int first = 0; first < 256; ++first) {
    const std::string one(1, static_cast<char>(first));
    const int high = digit(one[0]);
    if (one != " ") {
      ASSERT_EQ(read_plain(PIBHEX, one, 0), high < 0 ? (Reading{kMissing, 1101}) : value(high));
    }
    for (int second = 0; second < 256; ++second) {
      std::string two = one;
      two += static_cast<char>(second);
      if (two == "  ") continue;
      const int low = digit(two[1]);
      ASSERT_EQ(read_plain(PIBHEX, two, 0),
                high < 0 || low < 0 ? (Reading{kMissing, 1101}) : value(16 * high + low));
    }
  }
}

TEST(PibhexOutput, WritesHexadecimalDigits) {
  expect_shown(PIBHEX, {
                           {255, 2, "FF"},
                           {255, 4, "00FF"},
                           {256, 2, "**"},
                           {-1, 2, "**", 1134},
                           {-0.3, 4, "****", 1134},
                           {-0.0, 4, "0000"},
                           {0.49999999999999994, 1, "1"},
                           {15.5, 1, "*"},
                           {15.4, 1, "F"},
                           {4503599627370497, 14, "10000000000002"},
                           {-1, 0, ""},
                       });
}

TEST(PibhexOutput, SpecialValuesShowInTheLastColumn) {
  expect_shown(PIBHEX, {
                           {kMissing, 4, "   ."},
                           {kInfinity, 4, "   ."},
                           {-kInfinity, 4, "   ."},  // before negative
                           {kNan, 1, "."},
                       });
}

TEST(PibhexOutput, EveryNumberOfUpToFourDigits) {
  for (int width = 1; width <= 4; ++width) {
    for (int n = 0; n < 1 << 4 * width; ++n) {
      char expected[16];
      std::snprintf(expected, sizeof expected, "%0*X", width, static_cast<unsigned>(n));
      ASSERT_EQ(write_plain(PIBHEX, n, width, 0), (Writing{expected, 0}));
      ASSERT_EQ(read_plain(PIBHEX, expected, 0), value(n));
    }
    const std::string asterisks(static_cast<std::size_t>(width), '*');
    ASSERT_EQ(write_plain(PIBHEX, 1 << 4 * width, width, 0), (Writing{asterisks, 0}));
  }
}

TEST(Pibhex, SpecialValuesInEveryWidth) {
  sweep(PIBHEX, widths_to(40, {255, 256, 257}),
        [](const Writing& writing, double number, std::int64_t) {
          const std::size_t width = writing.field.size();
          const std::string asterisks(width, '*');
          if (width == 0) {
            ASSERT_EQ(writing.status, 0);
          } else if (!std::isfinite(number) || number == kMissing) {
            ASSERT_EQ(writing, (Writing{std::string(width - 1, ' ') + '.', 0}));
          } else if (number < 0) {
            ASSERT_EQ(writing, (Writing{asterisks, 1134}));
          } else if (width < 256 && number + 0.5 >= std::ldexp(1.0, 4 * static_cast<int>(width))) {
            ASSERT_EQ(writing, (Writing{asterisks, 0}));
          } else {
            ASSERT_EQ(writing.status, 0);
            ASSERT_EQ(read_plain(PIBHEX, writing.field, 0), value(std::trunc(number + 0.5)));
          }
        });
}

TEST(HexText, BytesFromDigits) {
  struct Case {
    const char* text;
    const char* bytes;
    std::int64_t status;
  };
  constexpr Case kCases[] = {
      {"", "", 0},
      {"4", "", 0},
      {"4a6B", "4A 6B", 0},
      {"4a6", "4A", 0},
      {"4a6G", "4A", 1101},
      {"G04a", "", 1101},
      {" 1", "", 1101},
      {"4aX", "4A", 0},
      {"41424344454647484G", "41 42 43 44 45 46 47 48", 1101},
  };
  for (const Case& c : kCases) {
    const Guarded text{std::string_view(c.text)};
    const Guarded result(text.size() / 2);
    const auto width = static_cast<std::int64_t>(text.size());
    std::int64_t status = 99;
    obihex_(text.data(), &width, result.data(), &status, width,
            static_cast<std::int64_t>(result.size()));
    std::string expected = bytes(c.bytes);
    expected.resize(result.size(), Guarded::kSentinel);  // bytes made before a failure stay
    EXPECT_EQ(hex(result.text()), hex(expected)) << c.text;
    EXPECT_EQ(status, c.status) << c.text;
    EXPECT_TRUE(result.intact());
  }
}

TEST(HexText, DigitsFromBytes) {
  struct Case {
    std::int64_t width;
    const char* text;
  };
  constexpr Case kCases[] = {
      {-4, ""}, {0, ""}, {1, "Z"}, {2, "4A"}, {3, "4AZ"}, {4, "4AB0"}, {5, "4AB0Z"}, {6, "4AB0F9"},
  };
  for (const Case& c : kCases) {
    const auto size = static_cast<std::size_t>(std::max<std::int64_t>(c.width, 0));
    const Guarded source(bytes("4A B0 F9").substr(0, size / 2));
    const Guarded text(size);
    std::memset(text.data(), 'Z', text.size());
    obohex_(source.data(), &c.width, text.data(), c.width,
            static_cast<std::int64_t>(source.size()));
    EXPECT_EQ(text.text(), c.text);
    EXPECT_TRUE(text.intact());
  }
}

TEST(NegativeWidths, ReadAsMissingAndWriteNothing) {
  for (const Format& format : {IB, PIBHEX, P, PIB, PK, RB, RBHEX}) {
    for (const std::int64_t width : {std::int64_t{-1}, INT64_MIN}) {
      const std::int64_t decimals = 0;
      OBS obs = {.number = 12345};
      std::int64_t status = 99;
      format.read(nullptr, &width, &decimals, &obs, &status, 0);
      EXPECT_EQ((Reading{obs.number, status}), value(kMissing)) << format.name;
      for (const double number : {1.0, -1.0, kMissing, kNan, kInfinity}) {
        EXPECT_EQ(write_over(format, nullptr, width, number, decimals), 0) << format.name;
      }
    }
  }
}

}  // namespace
