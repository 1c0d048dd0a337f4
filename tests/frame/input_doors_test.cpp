// The doors to the readers: the plain, the capped and the object layer, by way of strings and of
// codes that nobody claims.
#include <iocv/iocv.h>

#include "frame/doors_support.h"
#include "support/addressed.h"
#include "support/code_page_guard.h"
#include "support/guarded.h"

namespace test {
namespace {

using namespace std::string_literals;

struct Door {
  const char* name;
  int (*read)(const std::string& text, int type, OBS* value);
};

constexpr Door kReadDoors[] = {
    {"obicv_",
     [](const std::string& text, int type, OBS* value) {
       std::int64_t status = 99;
       const I width{static_cast<std::int64_t>(text.size())};
       obicv_(text.data(), &type, width, I{0}, value, &status, width.value);
       return static_cast<int>(status);
     }},
    {"obicvn_",
     [](const std::string& text, int type, OBS* value) {
       std::int64_t status = 99;
       const std::string base = "xx" + text;
       const I width{static_cast<std::int64_t>(text.size())};
       obicvn_(base.data(), I{3}, &type, width, I{0}, value, &status);
       return static_cast<int>(status);
     }},
    {"IocvConvertInput",
     [](const std::string& text, int type, OBS* value) {
       return IocvConvertInput(text.data(), static_cast<unsigned>(text.size()), type, 0, value);
     }},
    {"FromString",
     [](const std::string& text, int type, OBS* value) {
       const VELT_Format format(static_cast<VELT_Format::FormatType>(type),
                                static_cast<int>(text.size()), 0);
       return FromString(text.data(), format, value);
     }},
};

TEST(InputDoors, ReadStrings) {
  const CodePageGuard page("UTF-8");
  struct Case {
    int type;
    std::string text;
    std::string value;  // over dots
    int status;
  };
  const Case cases[] = {
      {1, "abc", "abc     ", 0},
      {1, "ab\0"s, "ab!     ", 1158},
      {1, "123456789", "123456789       ", 0},
      {1, "", "........", 0},
      {2, "4a6B", "Jk      ", 0},
      {2, "4G", "        ", 1117},
      {2, "4", "........", 0},
  };
  for (const Door& door : kReadDoors) {
    for (const Case& c : cases) {
      Value value(std::string(c.value.size(), '.'));
      EXPECT_EQ(door.read(c.text, c.type, value.units.data()), c.status)
          << door.name << ' ' << shown(c.text);
      EXPECT_EQ(value.bytes(c.value.size()), c.value) << door.name << ' ' << shown(c.text);
    }
  }
}

// The currencies have a writer, no reader; FromString alone reads them, as F.
TEST(InputDoors, LeaveTheValueWhenNobodyReadsTheType) {
  for (const Door& door : kReadDoors) {
    const bool object = door.name == "FromString"s;
    for (const int type : {13, 14, 18, 19, 33, 34, 35, 36, 37, 40, 41, 45, 46, 84, 87, 255}) {
      if (object && type >= 33 && type <= 37) continue;
      OBS value = {.number = 12345.678};
      EXPECT_EQ(door.read("   1.5", type, &value), 1105) << door.name << ' ' << type;
      EXPECT_EQ(value.number, 12345.678) << door.name << ' ' << type;
    }
    if (object) continue;  // its types have eight bits
    for (const int type : {0, -1, 256 + 1, 65536 + 1, std::numeric_limits<int>::min(),
                           std::numeric_limits<int>::max()}) {
      OBS value = {.number = 12345.678};
      EXPECT_EQ(door.read("   1.5", type, &value), 1105) << door.name << ' ' << type;
      EXPECT_EQ(value.number, 12345.678) << door.name << ' ' << type;
    }
  }
}

TEST(InputDoors, FromStringReadsTheCurrenciesAsNumbers) {
  for (int type = VELT_Format::CCA; type <= VELT_Format::CCE; ++type) {
    OBS value = {.number = 12345.678};
    const VELT_Format format(static_cast<VELT_Format::FormatType>(type), 6, 1);
    EXPECT_EQ(FromString("   1.5", format, &value), 0) << type;
    EXPECT_EQ(value.number, 1.5) << type;
  }
}

TEST(InputDoors, FromStringKnowsNoTerminator) {
  const VELT_Format format(VELT_Format::DATE, 11, 0);
  OBS value = {.number = 0};
  EXPECT_EQ(FromString("1-JAN-2000 ", format, &value), 0);
  EXPECT_EQ(value.number, 13166064000.0);
  EXPECT_EQ(FromString("1-JAN-2000", format, &value), 1137);
  EXPECT_EQ(value, VELT_SystemMissing().number);
}

TEST(InputDoors, ReadTheFirst32767BytesOfAWideField) {
  const CodePageGuard page("UTF-8");
  struct Case {
    std::string text;  // ends at an unmapped page: nothing behind it is read
    int status;
    std::string end;  // of the value, the rest of the unit included
  };
  std::string bad = pattern(kCap);
  bad.back() = '\0';
  const Case cases[] = {{pattern(kCap), 0, pattern(kCap).substr(kCap - 3) + " "},
                        {bad, 1158, pattern(kCap).substr(kCap - 3, 2) + "! "}};
  for (const Case& c : cases) {
    const Guarded text(c.text);
    for (const bool capped : {false, true}) {
      Value value(std::string(kWide, '.'));
      std::int64_t status = 99;
      const int type = VELT_Format::A;
      if (capped) {
        obicvn_(text.data() - 4, I{5}, &type, I{kWide}, I{0}, value.units.data(), &status);
      } else {
        status = IocvConvertInput(text.data(), kWide, type, 0, value.units.data());
      }
      EXPECT_EQ(status, c.status);  // the reader's own: that of a field too wide never shows
      EXPECT_EQ(value.bytes(kWide).substr(0, kCap - 3), c.text.substr(0, kCap - 3));
      EXPECT_EQ(value.bytes(kWide).substr(kCap - 3), c.end + std::string(kWide - kCap - 1, '.'));
    }
  }
}

TEST(InputDoors, ReadAWideFieldOfDigits) {
  const Guarded text(std::string(kCap, '4'));
  Value value(std::string(kWide, '.'));
  EXPECT_EQ(IocvConvertInput(text.data(), kWide, VELT_Format::AHEX, 0, value.units.data()), 0);
  std::string expected(16400, '.');
  expected.replace(0, 16383, 16383, 'D');
  expected[16383] = ' ';
  EXPECT_EQ(value.bytes(16400), expected);
}

}  // namespace
}  // namespace test
