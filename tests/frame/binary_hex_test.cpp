// PIBHEX, bytes as hexadecimal text, and what all binary formats do with negative widths.
#include "frame/binary_support.h"

namespace test {
namespace {

constexpr double kBlank = -77;

TEST(PibhexInput, ReadsHexadecimalDigits) {
  const RecordsGuard records;
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
  std::string digits(256, 'F');
  digits.back() = 'G';
  EXPECT_EQ(read(PIBHEX, digits, 0), (Reading{kMissing, 1101}));
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
}  // namespace test
