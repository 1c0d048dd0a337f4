// The doors to the writers: the plain, the capped and the object layer, by way of strings and of
// codes that nobody claims.
#include <iocv/iocv.h>

#include "frame/doors_support.h"
#include "support/addressed.h"
#include "support/code_page_guard.h"
#include "support/guarded.h"
#include "support/values.h"

namespace test {
namespace {

using namespace std::string_literals;

TEST(OutputDoors, WriteStrings) {
  const CodePageGuard page("UTF-8");
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
      const Guarded text(std::string(c.text.size(), '.'));
      std::int64_t status = 99;
      switch (door) {
        case 0: obocv_(units, &c.type, I{width}, I{0}, text.data(), &status, width); break;
        case 1: obocvn_(units, &c.type, I{width}, I{0}, text.data() - 7, I{8}, &status); break;
        case 2:
          status = IocvConvertOutput(units, c.type, 0, text.data(), static_cast<unsigned>(width));
          break;
        default: status = ToString(units, format, text.data());
      }
      EXPECT_EQ(shown(text.text()), shown(c.text)) << "door " << door;
      EXPECT_EQ(status, 0) << "door " << door;
      EXPECT_TRUE(text.intact());
    }
  }
}

TEST(OutputDoors, WriteNumbersAndWhatIsNone) {
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
    const Guarded field(std::string_view(c.field).size());
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
      const Guarded text("wxyz"s);
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
  const CodePageGuard page("UTF-8");
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
    EXPECT_EQ(ToString(value.units.data(), c.format), c.text) << shown(c.value);
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

}  // namespace
}  // namespace test
