// The extension hook: a host's own converters, and what they are asked.
// No Java machine runs in this program; java_test.cpp has one.
#include <iocv/host.h>
#include <iocv/iocv.h>

#include "host/extension_support.h"
#include "support/guarded.h"
#include "support/records_guard.h"

namespace test {
namespace {

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
    const Reading got = read("   1.5", code);
    EXPECT_EQ(got.status, 1105) << code;
    EXPECT_EQ(got.value, 12345.678) << code;
    EXPECT_EQ(write(12, code, 4, 0), (Writing{"????", 1105})) << code;
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

  const Reading none = read("1", 42);
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
  EXPECT_EQ(write(1, 42, 4, 0), (Writing{"????", 1105}));
}

TEST(Extension, IsNotAskedForTheCodesThatTheHookConverts) {
  Registered registered;
  EXPECT_EQ(read("12:30", 85).value, 750);
  EXPECT_EQ(write(125, 85, 5, 0), (Writing{"02:05", 0}));
  EXPECT_EQ(write(0, 86, 8, 0), (Writing{"       .", 0}));
  EXPECT_TRUE(registered.fake.codes.empty());
  EXPECT_EQ(read("2000", 86).value, 42.5);
  EXPECT_EQ(registered.fake.codes, std::vector<int>{86});
}

TEST(Extension, ComparesCodesIn64BitsAndIsAskedIn32) {
  constexpr std::int64_t k85 = (std::int64_t{1} << 32) + 85;
  EXPECT_EQ(read("12:30", k85).status, 1105);
  EXPECT_EQ(write(125, k85, 5, 0), (Writing{"?????", 1105}));
  Registered registered;
  EXPECT_EQ(read("12:30", k85).value, 42.5);
  EXPECT_EQ(write(125, k85, 5, 0), (Writing{"#????", 0}));
  EXPECT_EQ(write(125, k85 + 1, 5, 0), (Writing{"#????", 0}));
  EXPECT_EQ(registered.fake.codes, (std::vector<int>{85, 85, 85, 86, 86}));

  const std::int64_t code = 41;
  const std::int64_t width = (std::int64_t{1} << 32) + 5;
  const std::int64_t decimals = (std::int64_t{-1} << 32) - 2;
  OBS value = {.number = 0};
  obicvext_("12345", &code, &width, &decimals, &value, 5);
  EXPECT_EQ(registered.fake.converter.asked_width, 5);
  EXPECT_EQ(registered.fake.converter.asked_decimals, -2);
}

TEST(ExtensionDoors, SendsUnknownCodesToTheHook) {
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

TEST(ExtensionDoors, ReadsAndWritesElapsedTimeThroughEveryDoor) {
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

TEST(ExtensionMissing, StandsWhereTheUnitsDigitWouldWhateverTheCode) {
  struct Case {
    std::int64_t code;
    std::int64_t width;
    std::int64_t decimals;
    const char* field;
  };
  constexpr Case kCases[] = {
      {41, 8, 2, "     .  "},   {85, 8, 2, "     .  "},
      {85, 4, 0, "   ."},       {85, 5, 5, ".    "},
      {86, 7, 0, "      ."},    {86, 10, 0, "         ."},
      {85, 1, 0, "."},          {85, 0, 0, ""},
      {85, -3, 0, ""},          {0, 3, 0, "  ."},
      {-7, 3, 1, " . "},        {85, 3, -1, "  ."},
      {85, 3, 3, ".  "},        {85, 3, kHighest, ".  "},
      {85, 3, kLowest, "  ."},  {41, 3, kHighest - 2, ".  "},
      {1LL << 40, 3, 2, ".  "},
  };
  Registered registered;
  for (const Case& c : kCases) {
    EXPECT_EQ(write(kMissing, c.code, c.width, c.decimals), (Writing{c.field, 0}))
        << c.code << ":" << c.width << "." << c.decimals;
  }
  EXPECT_TRUE(registered.fake.codes.empty());
}

TEST(ExtensionMissing, IsTheConstantBitForBit) {
  RecordsGuard guard;
  cmnglb_.system_missing = 125;
  EXPECT_EQ(write(125, 85, 5, 0), (Writing{"02:05", 0}));
  EXPECT_EQ(write(kMissing, 85, 5, 0), (Writing{"    .", 0}));
  EXPECT_EQ(write(std::nextafter(kMissing, 0), 85, 5, 0), (Writing{"*****", 0}));
}

TEST(ExtensionMissing, HasTheCharacterOfTheRecordInForce) {
  RecordsGuard guard;
  const std::int32_t option = 1;
  iocvset_(&option, "#");
  EXPECT_EQ(write(kMissing, 41, 3, 0), (Writing{"  #", 0}));
  IocvSystemText other = {};
  other.system_missing = '~';
  const auto name = [](IocvSystemText* text) {
    seecmn_(&cmnglb_, &cmaglb_, &cmnsys_, text, &cmnmch_, &cmamch_, &cmnloc_, &cmndtm_, &cmadtm_);
  };
  name(&other);
  EXPECT_EQ(write(kMissing, 41, 3, 0), (Writing{"  ~", 0}));
  name(&cmasys_);
  EXPECT_EQ(write(kMissing, 41, 3, 0), (Writing{"  #", 0}));
}

}  // namespace
}  // namespace test
