// Year-first date-times (code 86) where no Java machine runs, and the texts that the hook's fields
// are built from.
#include <locale>

#include "host/extension_support.h"

namespace test {
namespace {

TEST(YearFirstOutput, NeedsNoJavaForWhatIsNoDate) {
  struct Case {
    double value;
    std::int64_t width;
    const char* field;
  };
  constexpr Case kCases[] = {
      {86399, 10, "         ."},
      {86399.999, 8, "       ."},
      {0, 24, "                       ."},
      {-1e300, 12, "           ."},
      {-kInfinity, 9, "        ."},
      {13166064000, 7, "*******"},
      {0, 7, "*******"},
      {kNan, 3, "***"},
      {13166064000, 1, "*"},
      {13166064000, 0, ""},
      {13166064000, -4, ""},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(write(c.value, 86, c.width, 0), (Writing{c.field, 0}))
        << described(c.value) << " " << c.width;
  }
}

TEST(YearFirstOutput, IsBlankWithoutAJavaMachine) {
  for (const double value : {86400.0, 13166064000.0, 1e300, kInfinity, kNan}) {
    for (std::int64_t width = 8; width <= 26; ++width) {
      const std::string blank(static_cast<std::size_t>(width), ' ');
      for (const std::int64_t decimals : {std::int64_t{0}, std::int64_t{3}, kHighest, kLowest}) {
        EXPECT_EQ(write(value, 86, width, decimals), (Writing{blank, 0})) << value << " " << width;
      }
    }
  }
  EXPECT_EQ(customFormatter().convertDate(86400, "yyyy"), "");
  EXPECT_EQ(customFormatter().convertDecimal(1.5, "0.0"), "");
}

// A locale that groups digits and has another point, for the streams of the whole process.
class Grouping : public std::numpunct<char> {
 protected:
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\1"; }
};

TEST(ExtensionTexts, OfWholeNumbersAreTheSameInEveryLocale) {
  const std::locale before = std::locale::global(std::locale(std::locale::classic(), new Grouping));
  EXPECT_EQ(timeAsString(0), "0");
  EXPECT_EQ(timeAsString(-12), "-12");
  EXPECT_EQ(timeAsString(307445734561825860), "307445734561825860");
  EXPECT_EQ(timeAsString(std::numeric_limits<long>::min()), "-9223372036854775808");
  EXPECT_EQ(timeAsString(std::numeric_limits<long>::max()), "9223372036854775807");
  EXPECT_EQ(DoubleToString2(12345.5, 2), ".50");
  EXPECT_EQ(DoubleToString(0.25, 2), ".26");
  std::locale::global(before);
}

TEST(ExtensionTexts, OfDecimalsAreCutToTheRoom) {
  struct Case {
    double value;
    int room;
    int decimals;
    const char* text;
  };
  constexpr int kMin = std::numeric_limits<int>::min();
  constexpr int kMax = std::numeric_limits<int>::max();
  constexpr Case kCases[] = {
      {125.5, 8, 2, ".50"},
      {125.5, 1, 2, ".5"},
      {125.5, 2, 2, ".50"},
      {125.5, 0, 2, ""},
      {125.5, -1, 2, ""},
      {125.5, 8, 0, ""},
      {125.5, 8, -1, ""},
      {59.999, 8, 2, ".00"},
      {-0.5, 8, 1, ".5"},
      {0.125, 40, 40, ".1250000000000000"},
      {125.5, kMin, kMax, ""},
      {125.5, kMax, kMin, ""},
      {0.5, kMax, kMax, ".5000000000000000"},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(decimalAsString(c.value, c.room, c.decimals), c.text)
        << c.value << " " << c.room << " " << c.decimals;
  }
}

TEST(ExtensionTexts, OfFixedNotationKeepTheLastCharacters) {
  struct Case {
    double value;
    unsigned n;
    const char* text;
  };
  constexpr Case kCases[] = {
      {125.5, 2, ".50"},
      {125.5, 0, "6"},
      {kInfinity, 5, "inf"},
      {-kInfinity, 5, "-inf"},
      {-kInfinity, 2, "inf"},
      {0, 0, "0"},
      {0.1, 16, ".1000000000000000"},
      {0.1, 17, ".1000000000000000"},
      {0.1, 4294967295U, ".1000000000000000"},
      {-1e300, 3, ".000"},
  };
  for (const Case& c : kCases) EXPECT_EQ(DoubleToString2(c.value, c.n), c.text) << c.value;
}

TEST(ExtensionTexts, OfSignificantDigitsHaveHalfAUnitAddedAndTheFirstDropped) {
  struct Case {
    double value;
    unsigned n;
    const char* text;
  };
  constexpr Case kCases[] = {
      {0.25, 2, ".26"},
      {0.5, 1, ".6"},
      {0.999, 2, ""},
      {0, 5, "e-06"},
      {0.25, 16, ".25"},
      {0.1, 4294967295U, ".1"},
      {0.123456789012345678, 16, ".1234567890123457"},
      {kInfinity, 3, "nf"},
  };
  for (const Case& c : kCases) EXPECT_EQ(DoubleToString(c.value, c.n), c.text) << c.value;
}

std::string streamed(double value, unsigned precision, bool fixed) {
  std::ostringstream text;
  text.imbue(std::locale::classic());
  if (fixed) text << std::fixed;
  text.precision(static_cast<std::streamsize>(precision));
  text << value;
  return text.str();
}

TEST(ExtensionTexts, OfDoublesAreThoseOfAStreamInTheClassicLocale) {
  SCOPED_TRACE(seed_text());
  std::vector<double> values = special_values();
  values.push_back(-kNan);
  std::mt19937_64 random = random_source();
  for (int i = 0; i < 2000; ++i) {
    values.push_back(any_double(random));
    values.push_back(static_cast<double>(random() >> 11) * 0x1p-53);
    // Ties of the rounding to a few decimals.
    values.push_back(static_cast<double>(random() % 100000) / 64.0);
  }
  for (const double value : values) {
    for (unsigned n = 0; n <= 17; ++n) {
      const unsigned most = std::min(n, 16U);
      const std::string fixed = streamed(value, most, true);
      const std::size_t kept = std::min<std::size_t>(fixed.size(), most + 1);
      ASSERT_EQ(DoubleToString2(value, n), fixed.substr(fixed.size() - kept))
          << described(value) << " " << n;
      const double power = std::pow(10.0, n);
      const double shown = n < 16 ? (value * power + 0.5) / power : value;
      ASSERT_EQ(DoubleToString(value, n), streamed(shown, most, false).substr(1, n + 1))
          << described(value) << " " << n;
    }
  }
}

}  // namespace
}  // namespace test
