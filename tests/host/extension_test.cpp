// The extension hook: a host's own converters, codes 85 and 86, and the texts they are built from.
// No Java machine runs in this program; java_test.cpp has one.
#include <iocv/host.h>
#include <iocv/iocv.h>

#include <clocale>
#include <cstdlib>
#include <locale>
#include <sstream>

#include "support/guarded.h"
#include "support/records_guard.h"
#include "support/values.h"

namespace {

using test::Edge;
using test::Guarded;

constexpr double kMissing = -1.7976931348623157e+308;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

// The records hold their initial values, and a Java machine is looked for where there is none.
class Surroundings : public ::testing::Environment {
 public:
  void SetUp() override {
    iocvinit_();
    setenv("JAVA_HOME", "/nonexistent", 1);
  }
};
const auto* const surroundings = ::testing::AddGlobalTestEnvironment(new Surroundings);

// What a converter was asked last, and what it answers.
class FakeConverter : public IocvConverter {
 public:
  int Input(double* value, const char* text, int width, int decimals) override {
    asked = "input";
    where = text;
    asked_width = width;
    asked_decimals = decimals;
    *value = 42.5;
    return answer;
  }
  int Output(const double* value, char* field, int width, int decimals) override {
    asked = "output";
    where = field;
    asked_width = width;
    asked_decimals = decimals;
    shown = *value;
    if (writes) *field = '#';
    return answer;
  }

  std::string asked;
  const char* where = nullptr;
  int asked_width = 0;
  int asked_decimals = 0;
  double shown = 0;
  int answer = 0;
  bool writes = true;
};

// Has a converter for 41, and for three codes that it is asked for only by mistake or in disguise.
class FakeExtension : public IocvExtension {
 public:
  IocvConverter*& FindConverter(int code) override {
    codes.push_back(code);
    return code == 41 || code == 5 || code == 85 || code == 86 ? found : none;
  }

  FakeConverter converter;
  IocvConverter* found = &converter;
  IocvConverter* none = nullptr;
  std::vector<int> codes;
};

// Registers an extension for the length of a test.
class Registered {
 public:
  Registered() : before_(SetIocvExtension(&fake)) {}
  ~Registered() { SetIocvExtension(before_); }
  Registered(const Registered&) = delete;
  Registered& operator=(const Registered&) = delete;

  FakeExtension fake;

 private:
  IocvExtension* before_;
};

struct Written {
  std::string field;
  std::int64_t status;
  bool operator==(const Written&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Written& w) {
  return out << '|' << test::shown(w.field) << "| " << w.status;
}

// obocvext_ over a field of the given bytes, at both edges of unmapped pages.
Written write(double value, std::int64_t code, std::int64_t width, std::int64_t decimals,
              char before = '?') {
  Written written = {};
  for (const Edge edge : {Edge::end, Edge::begin}) {
    const auto size = static_cast<std::size_t>(std::max<std::int64_t>(width, 0));
    const Guarded field(std::string(size, before), edge);
    const OBS obs = {.number = value};
    const std::int64_t status = obocvext_(&obs, &code, &width, &decimals, field.data(), width);
    EXPECT_TRUE(field.intact()) << test::described(value) << " " << code << ":" << width;
    if (edge == Edge::begin) {
      EXPECT_EQ(written, (Written{field.text(), status}));
    }
    written = {field.text(), status};
  }
  return written;
}

struct Got {
  double value;
  std::int64_t status;
};

// obicvext_ of a field flush with an unmapped page.
Got read(std::string_view text, std::int64_t code, Edge edge = Edge::end) {
  const Guarded field(text, edge);
  const auto width = static_cast<std::int64_t>(text.size());
  const std::int64_t decimals = 0;
  OBS value = {.number = 12345.678};
  const std::int64_t status = obicvext_(field.data(), &code, &width, &decimals, &value, width);
  return {value.number, status};
}

TEST(Extension, IsRegisteredAndReplaced) {
  FakeExtension first;
  FakeExtension second;
  EXPECT_EQ(SetIocvExtension(&first), nullptr);
  EXPECT_EQ(SetIocvExtension(&second), &first);
  EXPECT_EQ(SetIocvExtension(nullptr), &second);
  EXPECT_EQ(SetIocvExtension(nullptr), nullptr);
}

// Slots 0 and 1 are the destructor's.
TEST(Extension, HasItsFunctionsInTheSlotsThatHostsExpect) {
  const auto slot = [](const void* object, std::size_t index) {
    void* const* table = nullptr;
    std::memcpy(&table, object, sizeof table);
    return table[index];
  };
  FakeExtension extension;
  using Find = IocvConverter*& (*)(IocvExtension*, int);
  IocvExtension* const as_extension = &extension;
  EXPECT_EQ(&reinterpret_cast<Find>(slot(as_extension, 2))(as_extension, 41), &extension.found);
  EXPECT_EQ(&reinterpret_cast<Find>(slot(as_extension, 2))(as_extension, 42), &extension.none);

  IocvConverter* const as_converter = &extension.converter;
  using Input = int (*)(IocvConverter*, double*, const char*, int, int);
  double value = 0;
  reinterpret_cast<Input>(slot(as_converter, 2))(as_converter, &value, "x", 3, 4);
  EXPECT_EQ(extension.converter.asked, "input");
  EXPECT_EQ(value, 42.5);
  using Output = int (*)(IocvConverter*, const double*, char*, int, int);
  char field[] = "ab";
  reinterpret_cast<Output>(slot(as_converter, 3))(as_converter, &value, field, 2, 7);
  EXPECT_EQ(extension.converter.asked, "output");
  EXPECT_STREQ(field, "#b");
  EXPECT_EQ(extension.converter.asked_decimals, 7);
}

TEST(Extension, WithoutOneEveryOtherCodeHasNoConverterAndChangesNothing) {
  for (const std::int64_t code : {41, 13, 33, 0, -5, 84, 87, 5, 1000}) {
    const Got got = read("   1.5", code);
    EXPECT_EQ(got.status, 1105) << code;
    EXPECT_EQ(got.value, 12345.678) << code;
    EXPECT_EQ(write(12, code, 4, 0), (Written{"????", 1105})) << code;
  }
  EXPECT_EQ(read("2000-01-01 12:30", 86).status, 1105);  // input of 86 is the dispatcher's
}

TEST(Extension, ReadsThroughItsConverter) {
  Registered registered;
  FakeConverter& converter = registered.fake.converter;
  converter.answer = 77;
  const std::int64_t code = 41;
  const std::int64_t width = 6;
  const std::int64_t decimals = 2;
  const char text[] = "   1.5";
  OBS value = {.number = 0};
  EXPECT_EQ(obicvext_(text, &code, &width, &decimals, &value, 6), 77);
  EXPECT_EQ(value.number, 42.5);
  EXPECT_EQ(converter.asked, "input");
  EXPECT_EQ(converter.where, text);  // leading blanks and all
  EXPECT_EQ(converter.asked_width, 6);
  EXPECT_EQ(converter.asked_decimals, 2);
  EXPECT_EQ(registered.fake.codes, std::vector<int>{41});
  converter.answer = -3;
  EXPECT_EQ(obicvext_(text, &code, &width, &decimals, &value, 6), -3);

  const Got none = read("1", 42);
  EXPECT_EQ(none.status, 1105);
  EXPECT_EQ(none.value, 12345.678);
}

TEST(Extension, WritesThroughItsConverter) {
  Registered registered;
  FakeConverter& converter = registered.fake.converter;
  converter.answer = 78;
  const OBS value = {.number = -0.5};
  const std::int64_t code = 41;
  const std::int64_t width = 4;
  const std::int64_t decimals = -1;
  char field[] = "wxyz";
  EXPECT_EQ(obocvext_(&value, &code, &width, &decimals, field, 4), 78);
  EXPECT_STREQ(field, "#xyz");
  EXPECT_EQ(converter.asked, "output");
  EXPECT_EQ(converter.where, field);
  EXPECT_EQ(converter.asked_width, 4);
  EXPECT_EQ(converter.asked_decimals, -1);
  EXPECT_EQ(converter.shown, -0.5);
  EXPECT_EQ(write(1, 42, 4, 0), (Written{"????", 1105}));
}

TEST(Extension, IsNotAskedForTheCodesThatTheHookConverts) {
  Registered registered;
  EXPECT_EQ(read("12:30", 85).value, 750);
  EXPECT_EQ(write(125, 85, 5, 0), (Written{"02:05", 0}));
  EXPECT_EQ(write(0, 86, 8, 0), (Written{"       .", 0}));
  EXPECT_TRUE(registered.fake.codes.empty());
  EXPECT_EQ(read("2000", 86).value, 42.5);
  EXPECT_EQ(registered.fake.codes, std::vector<int>{86});
}

TEST(Extension, ComparesCodesIn64BitsAndIsAskedIn32) {
  constexpr std::int64_t k85 = (std::int64_t{1} << 32) + 85;
  EXPECT_EQ(read("12:30", k85).status, 1105);
  EXPECT_EQ(write(125, k85, 5, 0), (Written{"?????", 1105}));
  Registered registered;
  EXPECT_EQ(read("12:30", k85).value, 42.5);
  EXPECT_EQ(write(125, k85, 5, 0), (Written{"#????", 0}));
  EXPECT_EQ(write(125, k85 + 1, 5, 0), (Written{"#????", 0}));
  EXPECT_EQ(registered.fake.codes, (std::vector<int>{85, 85, 85, 86, 86}));

  const std::int64_t code = 41;
  const std::int64_t width = (std::int64_t{1} << 32) + 5;
  const std::int64_t decimals = (std::int64_t{-1} << 32) - 2;
  OBS value = {.number = 0};
  obicvext_("12345", &code, &width, &decimals, &value, 5);
  EXPECT_EQ(registered.fake.converter.asked_width, 5);
  EXPECT_EQ(registered.fake.converter.asked_decimals, -2);
}

TEST(Dispatch, SendsUnknownCodesToTheHook) {
  OBS value = {.number = 12345.678};
  EXPECT_EQ(IocvConvertInput("   1.5", 6, 33, 0, &value), 1105);
  EXPECT_EQ(value.number, 12345.678);
  char wxyz[] = "wxyz";
  value.number = 12;
  EXPECT_EQ(IocvConvertOutput(&value, 41, 0, wxyz, 4), 1105);
  EXPECT_STREQ(wxyz, "wxyz");
  value.number = 125;
  EXPECT_EQ(IocvConvertOutput(&value, 85, 0, wxyz, 4), 0);
  EXPECT_STREQ(wxyz, "wxyz");
  value.number = 12;
  EXPECT_EQ(ToString(&value, {VELT_Format::UNUSED41, 4, 0}), "");

  Registered registered;
  FakeConverter& converter = registered.fake.converter;
  converter.answer = 77;
  EXPECT_EQ(IocvConvertInput("   1.5", 6, 41, 3, &value), 77);
  EXPECT_EQ(value.number, 42.5);
  EXPECT_EQ(converter.asked_width, 6);
  EXPECT_EQ(converter.asked_decimals, 3);
  EXPECT_EQ(IocvConvertOutput(&value, 41, 0, wxyz, 4), 77);
  EXPECT_STREQ(wxyz, "#xyz");  // the converter saw the caller's bytes
  converter.writes = false;
  wxyz[0] = 'w';
  EXPECT_EQ(IocvConvertOutput(&value, 41, 0, wxyz, 4), 77);
  EXPECT_STREQ(wxyz, "wxyz");
  registered.fake.codes.clear();
  IocvConvertInput("1", 1, -5, 0, &value);
  IocvConvertOutput(&value, 0, 0, wxyz, 1);
  EXPECT_EQ(registered.fake.codes, (std::vector<int>{-5, 0}));
}

TEST(Dispatch, ReadsAndWritesElapsedTimeThroughEveryDoor) {
  const char memory[] = "  02:05 and what else is there";
  OBS value = {.number = 0};
  EXPECT_EQ(IocvConvertInput(memory, 7, 85, 0, &value), 0);
  EXPECT_EQ(value.number, 125);
  const Guarded field("  02:05");
  value.number = 0;
  EXPECT_EQ(IocvConvertInput(field.data(), 7, 85, 0, &value), 0);
  EXPECT_EQ(value.number, 125);
  const Guarded out(8);
  EXPECT_EQ(IocvConvertOutput(&value, 85, 0, out.data(), 8), 0);
  EXPECT_EQ(out.text(), "   02:05");
  EXPECT_TRUE(out.intact());
}

TEST(MissingValue, StandsWhereTheUnitsDigitWouldWhateverTheCode) {
  struct Case {
    std::int64_t code;
    std::int64_t width;
    std::int64_t decimals;
    const char* field;
  };
  constexpr Case kCases[] = {
      {41, 8, 2, "     .  "},    {85, 8, 2, "     .  "},   {85, 4, 0, "   ."},
      {85, 5, 5, ".    "},       {86, 7, 0, "      ."},    {86, 10, 0, "         ."},
      {85, 1, 0, "."},           {85, 0, 0, ""},           {85, -3, 0, ""},
      {0, 3, 0, "  ."},          {-7, 3, 1, " . "},        {85, 3, -1, "  ."},
      {85, 3, 3, ".  "},         {85, 3, kMost, ".  "},    {85, 3, kLeast, "  ."},
      {41, 3, kMost - 2, ".  "}, {1LL << 40, 3, 2, ".  "},
  };
  Registered registered;
  for (const Case& c : kCases) {
    EXPECT_EQ(write(kMissing, c.code, c.width, c.decimals), (Written{c.field, 0}))
        << c.code << ":" << c.width << "." << c.decimals;
  }
  EXPECT_TRUE(registered.fake.codes.empty());
}

TEST(MissingValue, IsTheConstantBitForBit) {
  test::RecordsGuard guard;
  cmnglb_.system_missing = 125;
  EXPECT_EQ(write(125, 85, 5, 0), (Written{"02:05", 0}));
  EXPECT_EQ(write(kMissing, 85, 5, 0), (Written{"    .", 0}));
  EXPECT_EQ(write(std::nextafter(kMissing, 0), 85, 5, 0), (Written{"*****", 0}));
}

TEST(MissingValue, HasTheCharacterOfTheRecordInForce) {
  test::RecordsGuard guard;
  const std::int32_t option = 1;
  iocvset_(&option, "#");
  EXPECT_EQ(write(kMissing, 41, 3, 0), (Written{"  #", 0}));
  IocvSystemText other = {};
  other.system_missing = '~';
  const auto name = [](IocvSystemText* text) {
    seecmn_(&cmnglb_, &cmaglb_, &cmnsys_, text, &cmnmch_, &cmamch_, &cmnloc_, &cmndtm_, &cmadtm_);
  };
  name(&other);
  EXPECT_EQ(write(kMissing, 41, 3, 0), (Written{"  ~", 0}));
  name(&cmasys_);
  EXPECT_EQ(write(kMissing, 41, 3, 0), (Written{"  #", 0}));
}

TEST(Elapsed, WritesMinutesSecondsAndTheDecimalsThatFit) {
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
      {125.5, 6, kLeast, " 02:05"},
      {125.5, 9, kMost, "02:05.500"},
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
    EXPECT_EQ(write(c.value, 85, c.width, c.decimals), (Written{c.field, 0}))
        << test::described(c.value) << " 85:" << c.width << "." << c.decimals;
  }
}

TEST(Elapsed, LeavesFieldsNarrowerThanFiveAlone) {
  for (std::int64_t width = -2; width < 5; ++width) {
    const std::string kept(static_cast<std::size_t>(std::max<std::int64_t>(width, 0)), '?');
    for (const double value : {0.0, 125.0, -1e300, kNan, kInfinity}) {
      EXPECT_EQ(write(value, 85, width, 0), (Written{kept, 0})) << width;
    }
  }
}

TEST(Elapsed, LosesAMinuteOf2751SecondsInTheFirst360000) {
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

TEST(Elapsed, WritesAPointInEverySettingAndLocale) {
  test::RecordsGuard guard;
  iocvsetdeccharcomma_();
  EXPECT_EQ(write(125.5, 85, 10, 2), (Written{"  02:05.50", 0}));
  for (const char* name : {"C", "de_DE.UTF-8", "fr_FR.UTF-8"}) {
    if (!std::setlocale(LC_ALL, name)) {
      std::cout << "locale " << name << " is not installed: nothing to test under it\n";
      continue;
    }
    EXPECT_EQ(write(1234567.5, 85, 12, 2), (Written{" 20576:07.50", 0})) << name;
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

TEST(Elapsed, FollowsItsRulesForSpecialAndRandomValues) {
  SCOPED_TRACE(test::seed_text());
  std::vector<double> values = test::special_values();
  std::mt19937_64 random = test::random_source();
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
            << test::described(value) << " 85:" << width << "." << decimals;
      }
    }
    EXPECT_TRUE(field.intact());
  }
}

TEST(ElapsedInput, ReadsTheFieldAndNothingBehindIt) {
  const std::int64_t code = 85;
  const std::int64_t decimals = 0;
  OBS value = {.number = 0};
  std::int64_t width = 6;
  EXPECT_EQ(obicvext_("  1:30XYZ", &code, &width, &decimals, &value, 6), 0);
  EXPECT_EQ(value.number, 90);
  width = 40;  // a zero byte ends the text before the width does
  EXPECT_EQ(obicvext_("  1:30", &code, &width, &decimals, &value, 40), 0);
  EXPECT_EQ(value.number, 90);
  for (const std::int64_t none : {std::int64_t{0}, std::int64_t{-1}, kLeast}) {
    const Guarded nothing("");
    EXPECT_EQ(obicvext_(nothing.data(), &code, &none, &decimals, &value, 0), 1169) << none;
    EXPECT_EQ(value.number, kMissing);
  }
}

TEST(ElapsedInput, ReadsEveryForm) {
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
      const Got got = read(c.text, 85, edge);
      EXPECT_EQ(got.status, c.status) << c.text;
      EXPECT_EQ(std::bit_cast<std::uint64_t>(got.value), std::bit_cast<std::uint64_t>(c.value))
          << c.text << ": " << test::described(got.value);
    }
  }
}

TEST(ElapsedInput, AsksTheLocaleForTheDecimalPointAndNotTheSettings) {
  test::RecordsGuard guard;
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

TEST(YearFirst, NeedsNoJavaForWhatIsNoDate) {
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
    EXPECT_EQ(write(c.value, 86, c.width, 0), (Written{c.field, 0}))
        << test::described(c.value) << " " << c.width;
  }
}

TEST(YearFirst, IsBlankWithoutAJavaMachine) {
  for (const double value : {86400.0, 13166064000.0, 1e300, kInfinity, kNan}) {
    for (std::int64_t width = 8; width <= 26; ++width) {
      const std::string blank(static_cast<std::size_t>(width), ' ');
      for (const std::int64_t decimals : {std::int64_t{0}, std::int64_t{3}, kMost, kLeast}) {
        EXPECT_EQ(write(value, 86, width, decimals), (Written{blank, 0})) << value << " " << width;
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

TEST(Texts, OfWholeNumbersAreTheSameInEveryLocale) {
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

TEST(Texts, OfDecimalsAreCutToTheRoom) {
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

TEST(Texts, OfFixedNotationKeepTheLastCharacters) {
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

TEST(Texts, OfSignificantDigitsHaveHalfAUnitAddedAndTheFirstDropped) {
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

TEST(Texts, OfDoublesAreThoseOfAStreamInTheClassicLocale) {
  SCOPED_TRACE(test::seed_text());
  std::vector<double> values = test::special_values();
  values.push_back(-kNan);
  std::mt19937_64 random = test::random_source();
  for (int i = 0; i < 2000; ++i) {
    values.push_back(test::any_double(random));
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
          << test::described(value) << " " << n;
      const double power = std::pow(10.0, n);
      const double shown = n < 16 ? (value * power + 0.5) / power : value;
      ASSERT_EQ(DoubleToString(value, n), streamed(shown, most, false).substr(1, n + 1))
          << test::described(value) << " " << n;
    }
  }
}

}  // namespace
