// The doors: dispatch, the capped layer, the plain layer and the object layer, by way of strings
// and of codes that nobody claims.
#include <iocv/iocv.h>

#include "frame/leaf.h"
#include "support/addressed.h"
#include "support/code_page_guard.h"
#include "support/guarded.h"
#include "support/records_guard.h"

namespace {

using namespace std::string_literals;
using test::I;

constexpr std::int64_t kTrue = -1;
constexpr std::int64_t kFalse = 0;
constexpr std::size_t kWide = 40000;
constexpr std::size_t kCap = 32767;

// Units of storage that hold a string value, and its bytes.
struct Value {
  explicit Value(const std::string& text) : units(text.size() / 8 + 1) {
    std::memset(units.data(), '.', units.size() * sizeof(OBS));
    std::memcpy(units.data(), text.data(), text.size());
  }
  std::string bytes(std::size_t size) const {
    return {reinterpret_cast<const char*>(units.data()), size};
  }
  std::vector<OBS> units;
};

// Text whose bytes differ from place to place, without blanks.
std::string pattern(std::size_t size) {
  std::string text;
  for (std::size_t i = 0; i < size; ++i) text += static_cast<char>('!' + i % 89);
  return text;
}

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
  const test::CodePageGuard page("UTF-8");
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
          << door.name << ' ' << test::shown(c.text);
      EXPECT_EQ(value.bytes(c.value.size()), c.value) << door.name << ' ' << test::shown(c.text);
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

TEST(Doors, TakeTheTypeFrom32Bits) {
  const test::CodePageGuard page("UTF-8");
  struct Case {
    std::uint64_t slot;
    std::int64_t status;
    const char* value;
  };
  constexpr Case kCases[] = {
      {0x5A5A5A5A'00000001, 0, "4a      "},    {0x5A5A5A5A'00000002, 0, "J       "},
      {0xFFFFFFFF'00000001, 0, "4a      "},    {0x00000000'FFFFFFFF, 1105, "........"},
      {0x00000001'00000000, 1105, "........"},
  };
  for (const Case& c : kCases) {
    std::int32_t slot[2];
    std::memcpy(slot, &c.slot, sizeof c.slot);
    for (const bool capped : {false, true}) {
      Value value("........");
      std::int64_t status = 99;
      if (capped) {
        obicvn_("4a", I{1}, slot, I{2}, I{0}, value.units.data(), &status);
      } else {
        obicv_("4a", slot, I{2}, I{0}, value.units.data(), &status, 2);
      }
      EXPECT_EQ(status, c.status) << std::hex << c.slot;
      EXPECT_EQ(value.bytes(8), c.value) << std::hex << c.slot;
    }
    char text[] = "....";
    const Value value("J.......");
    std::int64_t status = 99;
    obocv_(value.units.data(), slot, I{2}, I{0}, text, &status, 2);
    EXPECT_EQ(status, c.status) << std::hex << c.slot;
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

TEST(Doors, ReadABinaryIntegerFromASlotOf64Bits) {
  std::int32_t slot[2];
  constexpr std::uint64_t kSlot = 0x5A5A5A5A'00000006;
  std::memcpy(slot, &kSlot, sizeof kSlot);
  OBS value = {.number = 0};
  std::int64_t status = 99;
  obicv_("\x05\x01", slot, I{2}, I{0}, &value, &status, 2);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(value.number, 261);
  char text[2];
  obocv_(&value, slot, I{2}, I{0}, text, &status, 2);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(std::string(text, 2), "\x05\x01");
}

TEST(InputDoors, ReadTheFirst32767BytesOfAWideField) {
  const test::CodePageGuard page("UTF-8");
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
    const test::Guarded text(c.text);
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
  const test::Guarded text(std::string(kCap, '4'));
  Value value(std::string(kWide, '.'));
  EXPECT_EQ(IocvConvertInput(text.data(), kWide, VELT_Format::AHEX, 0, value.units.data()), 0);
  EXPECT_EQ(value.bytes(16400), std::string(16383, 'D') + " " + std::string(16, '.'));
}

TEST(OutputDoors, WriteStrings) {
  const test::CodePageGuard page("UTF-8");
  struct Case {
    int type;
    std::string value;
    std::string text;
  };
  const Case cases[] = {{1, "abcdefghij", "abc"},     {1, "abcdefghij", "abcdefghij"},
                        {1, "ab\0def"s, "ab    "},    {1, "a\xC3\xA9", "a "},
                        {2, "\xAB\xCD\xEF", "ABCDE"}, {1, "a", ""}};
  for (const Case& c : cases) {
    const Value value(c.value);
    const auto width = static_cast<std::int64_t>(c.text.size());
    const VELT_Format format(static_cast<VELT_Format::FormatType>(c.type), static_cast<int>(width),
                             0);
    const OBS* units = value.units.data();
    for (int door = 0; door < 4; ++door) {
      const test::Guarded text(std::string(c.text.size(), '.'));
      std::int64_t status = 99;
      switch (door) {
        case 0: obocv_(units, &c.type, I{width}, I{0}, text.data(), &status, width); break;
        case 1: obocvn_(units, &c.type, I{width}, I{0}, text.data() - 7, I{8}, &status); break;
        case 2:
          status = IocvConvertOutput(units, c.type, 0, text.data(), static_cast<unsigned>(width));
          break;
        default: status = ToString(units, format, text.data());
      }
      EXPECT_EQ(test::shown(text.text()), test::shown(c.text)) << "door " << door;
      EXPECT_EQ(status, 0) << "door " << door;
      EXPECT_TRUE(text.intact());
    }
  }
}

TEST(OutputDoors, WriteNumbersAndWhatIsNone) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  constexpr double kMissing = -std::numeric_limits<double>::max();
  struct Case {
    double value;
    VELT_Format format;
    const char* field;
    const char* text;  // without the blanks at its ends
  };
  const Case cases[] = {
      {1234.5, {VELT_Format::F, 8, 2}, " 1234.50", "1234.50"},
      {kMissing, {VELT_Format::F, 8, 2}, "     .  ", "."},
      {kInfinity, {VELT_Format::E, 10, 2}, "         .", "."},
      {kMissing, {VELT_Format::E, 10, 2}, "  .       ", "."},
      {kInfinity, {VELT_Format::DATE, 11, 0}, "          .", "."},
      {13166064000.0, {VELT_Format::DATE, 11, 0}, "01-JAN-2000", "01-JAN-2000"},
      {1234.5, {VELT_Format::F, 0, 0}, "", ""},
  };
  for (const Case& c : cases) {
    const OBS value = {.number = c.value};
    const test::Guarded field(std::string_view(c.field).size());
    EXPECT_EQ(ToString(&value, c.format, field.data()), 0) << c.field;
    EXPECT_EQ(field.text(), c.field);
    EXPECT_TRUE(field.intact());
    EXPECT_EQ(ToString(&value, c.format), c.text);
  }
}

// Elapsed time in fewer than five columns is nobody's failure, and writes nothing.
TEST(OutputDoors, LeaveTheFieldThatAWriterLeaves) {
  const OBS value = {.number = 125};
  char text[] = "wxyz";
  EXPECT_EQ(IocvConvertOutput(&value, 85, 0, text, 4), 0);
  EXPECT_STREQ(text, "wxyz");
}

TEST(OutputDoors, LeaveTheFieldWhenNobodyWritesTheType) {
  const OBS value = {.number = 12};
  for (const int type : {13, 14, 18, 19, 41, 45, 46, 84, 87, 255, 0, -1, 256 + 1,
                         std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    for (int door = 0; door < 3; ++door) {
      const test::Guarded text("wxyz"s);
      std::int64_t status = 99;
      switch (door) {
        case 0: obocv_(&value, &type, I{4}, I{0}, text.data(), &status, 4); break;
        case 1: obocvn_(&value, &type, I{4}, I{0}, text.data() - 2, I{3}, &status); break;
        default: status = IocvConvertOutput(&value, type, 0, text.data(), 4);
      }
      EXPECT_EQ(status, 1105) << type;
      EXPECT_EQ(text.text(), "wxyz") << type;
    }
  }
}

// A wide field at each place in an 8-byte unit: its blanks begin that many bytes too far left, over
// its last converted bytes, and end as many before its end.
TEST(OutputDoors, BlankAWideFieldFromTheUnitItBeginsIn) {
  const std::string content = pattern(kWide);
  const Value value(content);
  const VELT_Format format(VELT_Format::A, kWide, 0);
  for (std::size_t place = 0; place < 8; ++place) {
    for (const bool object : {false, true}) {
      std::vector<OBS> storage(kWide / 8 + 3);
      char* first = reinterpret_cast<char*>(storage.data());
      std::memset(first, '.', storage.size() * sizeof(OBS));
      char* text = first + 8 + place;
      const int status =
          object ? ToString(value.units.data(), format, text)
                 : IocvConvertOutput(value.units.data(), VELT_Format::A, 0, text, kWide);
      EXPECT_EQ(status, 0);
      const std::string expected = std::string(8 + place, '.') + content.substr(0, kCap - place) +
                                   std::string(kWide - kCap, ' ') + std::string(16 - 8, '.');
      EXPECT_TRUE(std::string(first, expected.size()) == expected) << place;
    }
  }
}

TEST(OutputDoors, TheCappedLayerBlanksAWideFieldFromItsBase) {
  const std::string content = pattern(kWide);
  const Value value(content);
  const int type = VELT_Format::A;
  for (const std::int64_t position : {INT64_C(1), INT64_C(2), INT64_C(100), INT64_C(9000)}) {
    std::string base(kWide + 10000, '.');
    std::string expected = base;
    expected.replace(static_cast<std::size_t>(position - 1), kCap, content, 0, kCap);
    expected.replace(kCap, kWide - kCap, kWide - kCap, ' ');
    std::int64_t status = 99;
    obocvn_(value.units.data(), &type, I{kWide}, I{0}, base.data(), I{position}, &status);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(base == expected) << position;
  }
}

TEST(OutputDoors, AFieldAtTheCapHasNoBlanks) {
  const std::string content = pattern(kWide);
  const Value value(content);
  for (const std::size_t width : {kCap - 1, kCap, kCap + 1}) {
    std::string text(kWide, '.');
    ASSERT_EQ(reinterpret_cast<std::uintptr_t>(text.data()) % 8, 0U);
    IocvConvertOutput(value.units.data(), VELT_Format::A, 0, text.data(),
                      static_cast<unsigned>(width));
    const std::size_t used = std::min(width, kCap);
    EXPECT_TRUE(text == content.substr(0, used) + std::string(width - used, ' ') +
                            std::string(kWide - width, '.'))
        << width;
  }
}

TEST(ToStringText, IsTheFieldWithoutBlanksAndTabsAtItsEnds) {
  const test::CodePageGuard page("UTF-8");
  struct Case {
    VELT_Format format;
    std::string value;
    std::string text;
  };
  const Case cases[] = {
      {{VELT_Format::A, 6, 0}, " \tab \t", "ab"},     {{VELT_Format::A, 5, 0}, "a b c", "a b c"},
      {{VELT_Format::A, 5, 0}, "\na b\n", "\na b\n"}, {{VELT_Format::A, 5, 0}, "     ", ""},
      {{VELT_Format::A, 3, 0}, " \t ", ""},           {{VELT_Format::A, 0, 0}, "abc", ""},
      {{VELT_Format::A, 3, 0}, "ab\xC3\xA9", "ab"},   {{VELT_Format::AHEX, 4, 0}, "Jk", "4A6B"},
  };
  for (const Case& c : cases) {
    const Value value(c.value);
    EXPECT_EQ(ToString(value.units.data(), c.format), c.text) << test::shown(c.value);
  }
  const OBS twelve = {.number = 12.0};
  EXPECT_EQ(ToString(&twelve, {VELT_Format::UNUSED41, 4, 0}), "");  // nobody writes it
}

TEST(ToStringText, OfAWideFieldIsItsFirst32767Bytes) {
  const std::string content = pattern(kWide);
  const Value value(content);
  EXPECT_TRUE(ToString(value.units.data(), {VELT_Format::A, kWide, 0}) == content.substr(0, kCap));
  const Value widest(pattern(65535));
  EXPECT_TRUE(ToString(widest.units.data(), {VELT_Format::A, 65535, 0}) ==
              pattern(65535).substr(0, kCap));
}

// As through a copy of the field: what is still to be read is never overwritten.
TEST(Doors, TextAndValueMayShareStorage) {
  const test::CodePageGuard page("UTF-8");
  struct Case {
    int type;
    std::ptrdiff_t shift;  // of the other storage
    const char* read;
    const char* written;
  };
  constexpr Case kCases[] = {
      {VELT_Format::A, 0, "4142434445464748", "4142434445464748"},
      {VELT_Format::A, 8, "4142434445464748", "4142434445464748"},
      {VELT_Format::A, -8, "4142434445464748", "4142434445464748"},
      {VELT_Format::AHEX, 0, "ABCDEFGH", "3431343234333434"},
      {VELT_Format::AHEX, 8, "ABCDEFGH", "3431343234333434"},
      {VELT_Format::AHEX, -8, "ABCDEFGH", "3431343234333434"},
  };
  for (const Case& c : kCases) {
    OBS storage[6] = {};
    std::memcpy(storage[2].bytes, "4142434445464748", 16);
    char* other = reinterpret_cast<char*>(storage + 2) + c.shift;
    EXPECT_EQ(IocvConvertInput(storage[2].bytes, 16, c.type, 0, reinterpret_cast<OBS*>(other)), 0);
    EXPECT_EQ(std::string(other, std::strlen(c.read)), c.read) << c.type << ' ' << c.shift;
    std::memcpy(storage[2].bytes, "4142434445464748", 16);
    EXPECT_EQ(IocvConvertOutput(storage + 2, c.type, 0, other, 16), 0);
    EXPECT_EQ(std::string(other, 16), c.written) << c.type << ' ' << c.shift;
  }
}

TEST(SpecialValues, AreWrittenByEveryWriterAlike) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  constexpr double kLargest = std::numeric_limits<double>::max();
  const double nan = std::nan("");
  constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
  constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
  struct Case {
    double value;
    std::int64_t width;
    std::int64_t position;
    std::string text;  // over x
    std::int64_t result;
  };
  const Case cases[] = {
      {-kLargest, 8, 6, "     .  ", kTrue},
      {-kLargest, 8, 1, ".       ", kTrue},
      {-kLargest, 8, 8, "       .", kTrue},
      {-kLargest, 8, 9, "       .", kTrue},  // the nearest column
      {-kLargest, 8, 0, ".       ", kTrue},
      {-kLargest, 8, kLeast, ".       ", kTrue},
      {-kLargest, 8, kMost, "       .", kTrue},
      {kInfinity, 8, 1, "       .", kTrue},
      {-kInfinity, 8, 1, "       .", kTrue},
      {nan, 8, 1, "       .", kTrue},
      {nan, 1, 1, ".", kTrue},
      {-kLargest, 0, 1, "xx", kTrue},
      {1.5, 0, 1, "xx", kTrue},
      {1.5, -1, 1, "xx", kTrue},
      {nan, kLeast, 1, "xx", kTrue},
      {1.5, 8, 1, "xxxxxxxx", kFalse},
      {0.0, 8, 1, "xxxxxxxx", kFalse},
      {kLargest, 8, 1, "xxxxxxxx", kFalse},
      {std::nextafter(-kLargest, 0.0), 8, 1, "xxxxxxxx", kFalse},
  };
  for (const Case& c : cases) {
    for (const test::Edge edge : {test::Edge::end, test::Edge::begin}) {
      const test::Guarded text(std::string(c.text.size(), 'x'), edge);
      EXPECT_EQ(qobosp_(&c.value, text.data(), I{c.width}, I{c.position}, c.width), c.result)
          << c.value << ' ' << c.width << ' ' << c.position;
      EXPECT_EQ(text.text(), c.text) << c.value << ' ' << c.width << ' ' << c.position;
      EXPECT_TRUE(text.intact());
    }
  }
}

// Equality with the system-missing number of the settings is that of numbers.
TEST(SpecialValues, FollowTheSettings) {
  const test::RecordsGuard records;
  cmnglb_.system_missing = 0;
  cmasys_.system_missing = '?';
  struct Case {
    double value;
    const char* text;
    std::int64_t result;
  };
  constexpr Case kCases[] = {{0.0, " ? ", kTrue},
                             {-0.0, " ? ", kTrue},
                             {-std::numeric_limits<double>::max(), "xxx", kFalse},
                             {std::numeric_limits<double>::infinity(), "  ?", kTrue}};
  for (const Case& c : kCases) {
    char text[] = "xxx";
    EXPECT_EQ(qobosp_(&c.value, text, I{3}, I{2}, 3), c.result) << c.value;
    EXPECT_STREQ(text, c.text) << c.value;
  }
}

TEST(Dispatch, KnowsNoCodeOutsideItsTable) {
  for (const std::int64_t code :
       {INT64_C(0), INT64_C(-1), INT64_C(13), INT64_C(87), std::numeric_limits<std::int64_t>::min(),
        std::numeric_limits<std::int64_t>::max()}) {
    EXPECT_EQ(iocv::reader_of(code), nullptr) << code;
    EXPECT_EQ(iocv::writer_of(code), nullptr) << code;
  }
}

}  // namespace
