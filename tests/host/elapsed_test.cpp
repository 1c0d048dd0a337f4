// Elapsed minutes and seconds (code 85) through the hook.
#include <clocale>
#include <locale>
#include <sstream>

#include "host/extension_support.h"
#include "support/records_guard.h"

namespace test {
namespace {

TEST(ElapsedOutput, WritesMinutesSecondsAndTheDecimalsThatFit) {
  struct Case {
    double value;
    std::int64_t width;
    std::int64_t decimals;
    const char* field;
  };
  constexpr Case kCases[] = {
      {125, 8, 0, "   02:05"},
      {-125, 8, 0, "  -02:05"},
      {3660, 8, 0, "   60:00"},
      {7260, 8, 0, "  120:00"},
      {125.5, 10, 2, "  02:05.50"},
      {-125.5, 10, 2, " -02:05.50"},
      {125.5, 8, 5, "02:05.50"},
      {-125.5, 8, 5, "-02:05.5"},
      {125.5, 7, 5, "02:05.5"},
      {125.5, 6, 5, " 02:05"},
      {125.5, 5, 5, "02:05"},
      {59.999, 8, 2, "00:59.00"},
      {59.999, 9, 3, "00:59.999"},
      {-0.5, 10, 1, "  -00:00.5"},
      {-0.5, 5, 0, "*****"},
      {-0.5, 6, 0, "-00:00"},
      {-0.0, 5, 0, "00:00"},
      {-0.0, 8, 2, "00:00.00"},
      {0, 5, 0, "00:00"},
      {9.96, 7, 1, "00:09.0"},
      {7507.5, 9, 2, "125:07.50"},
      {359999, 7, 0, "5999:59"},
      {359999, 6, 0, "******"},
      {600000, 5, 0, "*****"},
      {125, 5, -3, "02:05"},
      {125.5, 6, kLowest, " 02:05"},
      {125.5, 9, kHighest, "02:05.500"},
      {0.125, 30, 40, "        00:00.1250000000000000"},
      {5e-324, 8, 2, "00:00.00"},
      {kInfinity, 5, 0, "*****"},
      {-kInfinity, 7, 2, "*******"},
      {kNan, 5, 0, "*****"},
      {18446744073709551616.0, 30, 0, "******************************"},
      {-18446744073709551616.0, 30, 2, "******************************"},
      {1e300, 40, 0, "****************************************"},
      // 5124095576030430.4 and 5124095576030429.9 hours, which a double holds as ...430
      {18446744073709549568.0, 21, 0, "307445734561825800:08"},
      {18446744073709547520.0, 21, 0, "307445734561825800:00"},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(write(c.value, 85, c.width, c.decimals), (Writing{c.field, 0}))
        << described(c.value) << " 85:" << c.width << "." << c.decimals;
  }
}

TEST(ElapsedOutput, LeavesFieldsNarrowerThanFiveAlone) {
  for (std::int64_t width = -2; width < 5; ++width) {
    const std::string kept(static_cast<std::size_t>(std::max<std::int64_t>(width, 0)), '?');
    for (const double value : {0.0, 125.0, -1e300, kNan, kInfinity}) {
      EXPECT_EQ(write(value, 85, width, 0), (Writing{kept, 0})) << width;
    }
  }
}

TEST(ElapsedOutput, LosesAMinuteOf2751SecondsInTheFirst360000) {
  constexpr int kSeconds = 360000;
  int lost = 0;
  int first = -1;
  const std::int64_t code = 85;
  const std::int64_t width = 7;
  const std::int64_t decimals = 0;
  for (int s = 0; s < kSeconds; ++s) {
    char field[8] = {};
    const OBS value = {.number = static_cast<double>(s)};
    ASSERT_EQ(obocvext_(&value, &code, &width, &decimals, field, 7), 0);
    int minutes = -1;
    int seconds = -1;
    ASSERT_EQ(std::sscanf(field, "%d:%2d", &minutes, &seconds), 2) << field;
    ASSERT_EQ(seconds, s % 60) << field;
    if (minutes == s / 60) continue;
    ASSERT_EQ(minutes, s / 60 - 1) << field;
    if (lost++ == 0) first = s;
  }
  EXPECT_EQ(lost, 2751);
  EXPECT_EQ(first, 3660);
}

TEST(ElapsedOutput, WritesAPointInEverySettingAndLocale) {
  RecordsGuard guard;
  iocvsetdeccharcomma_();
  EXPECT_EQ(write(125.5, 85, 10, 2), (Writing{"  02:05.50", 0}));
  for (const char* name : {"C", "de_DE.UTF-8", "fr_FR.UTF-8"}) {
    if (!std::setlocale(LC_ALL, name)) {
      std::cout << "locale " << name << " is not installed: nothing to test under it\n";
      continue;
    }
    EXPECT_EQ(write(1234567.5, 85, 12, 2), (Writing{" 20576:07.50", 0})) << name;
  }
  std::setlocale(LC_ALL, "C");
}

// The same rules once more, by other means.
std::string elapsed_by_stream(double value, std::int64_t width, std::int64_t decimals) {
  if (!(std::fabs(value) < 0x1p64)) return std::string(static_cast<std::size_t>(width), '*');
  const auto s = static_cast<std::uint64_t>(std::fabs(value));
  const auto h = s / 3600;
  auto m = static_cast<long long>(std::trunc((double(s) / 3600.0 - double(h)) * 60.0));
  if (h != 0) m += static_cast<long long>(h) * 60;
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text.fill('0');
  text.width(2);
  text << m << ':';
  text.width(2);
  text << s % 60;
  const auto room = width - static_cast<std::int64_t>(text.str().size()) - (value < 0 ? 2 : 1);
  const auto places = std::min({decimals, room, std::int64_t{16}});
  if (places > 0) {
    char fixed[400];
    const int length = std::snprintf(fixed, sizeof fixed, "%.*f", int(places), value);
    text << std::string(fixed + length - (places + 1), fixed + length);
  }
  const std::string all = (value < 0 ? "-" : "") + text.str();
  const auto blanks = width - static_cast<std::int64_t>(all.size());
  if (blanks < 0) return std::string(static_cast<std::size_t>(width), '*');
  return std::string(static_cast<std::size_t>(blanks), ' ') + all;
}

TEST(ElapsedOutput, FollowsItsRulesForSpecialAndRandomValues) {
  SCOPED_TRACE(seed_text());
  std::vector<double> values = special_values();
  std::mt19937_64 random = random_source();
  for (int i = 0; i < 300; ++i) {
    values.push_back(std::ldexp(static_cast<double>(random() >> 11), -static_cast<int>(i % 53)));
  }
  const std::int64_t code = 85;
  for (std::int64_t width = 5; width <= 40; width += 5) {
    const Guarded field(static_cast<std::size_t>(width));
    for (const double value : values) {
      if (value == kMissing) continue;
      for (const std::int64_t decimals : {-1, 0, 1, 2, 7, 16, 20}) {
        const OBS obs = {.number = value};
        ASSERT_EQ(obocvext_(&obs, &code, &width, &decimals, field.data(), width), 0);
        ASSERT_EQ(field.text(), elapsed_by_stream(value, width, decimals))
            << described(value) << " 85:" << width << "." << decimals;
      }
    }
    EXPECT_TRUE(field.intact());
  }
}

TEST(ElapsedField, ReadsTheFieldAndNothingBehindIt) {
  const std::int64_t code = 85;
  const std::int64_t decimals = 0;
  OBS value = {.number = 0};
  std::int64_t width = 6;
  EXPECT_EQ(obicvext_("  1:30XYZ", &code, &width, &decimals, &value, 6), 0);
  EXPECT_EQ(value.number, 90);
  width = 40;  // a zero byte ends the text before the width does
  EXPECT_EQ(obicvext_("  1:30", &code, &width, &decimals, &value, 40), 0);
  EXPECT_EQ(value.number, 90);
  for (const std::int64_t none : {std::int64_t{0}, std::int64_t{-1}, kLowest}) {
    const Guarded nothing("");
    EXPECT_EQ(obicvext_(nothing.data(), &code, &none, &decimals, &value, 0), 1169) << none;
    EXPECT_EQ(value.number, kMissing);
  }
}

TEST(ElapsedField, ReadsEveryForm) {
  std::setlocale(LC_NUMERIC, "C");
  struct Case {
    std::string_view text;
    double value;
    std::int64_t status;
  };
  constexpr Case kCases[] = {
      {"  02:05", 125, 0},
      {"12:30", 750, 0},
      {"1230", 750, 0},
      {"12.5", 12.5, 0},
      {"1234.5", 754.5, 0},
      {"1:02.5", 62.5, 0},
      {"-12:30", -750, 0},
      {"-1234", -7384, 0},
      {"-123", -723, 0},
      {"-0:00", -0.0, 0},
      {"+12:30", 12.3, 0},
      {"+1230", 1230, 0},
      {"0:00.5000000000", 0.0705032704, 0},
      {"1 2 3", 62.3, 0},
      {"1:75", 135, 0},
      {"1:2x", 62, 0},
      {"71582789:00", 4294967340, 0},
      {"100000000:00", 6000000000, 0},
      {"3000000000:00", 180000000000, 0},
      {"0:4294967297", 1, 0},
      {"\t 1:30 \n", 90, 0},
      {"1:30\0junk", 90, 0},
      {"\0"
       "1:30",
       kMissing, 1169},
      {"", kMissing, 1169},
      {"       ", kMissing, 1169},
      {"12", kMissing, 1169},
      {"123", kMissing, 1179},
      {"1:2.x", kMissing, 1189},
  };
  for (const Case& c : kCases) {
    for (const Edge edge : {Edge::end, Edge::begin}) {
      const Reading got = read(c.text, 85, edge);
      EXPECT_EQ(got.status, c.status) << c.text;
      EXPECT_EQ(std::bit_cast<std::uint64_t>(got.value), std::bit_cast<std::uint64_t>(c.value))
          << c.text << ": " << described(got.value);
    }
  }
}

TEST(ElapsedField, AsksTheLocaleForTheDecimalPointAndNotTheSettings) {
  RecordsGuard guard;
  iocvsetdeccharcomma_();
  std::setlocale(LC_NUMERIC, "C");
  EXPECT_EQ(read("12.5", 85).value, 12.5);
  iocvsetdecchardot_();
  if (std::setlocale(LC_NUMERIC, "de_DE.UTF-8")) {
    EXPECT_EQ(read("12.5", 85).value, 725);
    EXPECT_EQ(read("12,5", 85).value, 12.5);
  } else {
    std::cout << "locale de_DE.UTF-8 is not installed: no decimal comma to test\n";
  }
  std::setlocale(LC_NUMERIC, "C");
}

}  // namespace
}  // namespace test
