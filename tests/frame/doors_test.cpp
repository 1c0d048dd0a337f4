// What readers and writers share at their doors: types, special values, the table.
#include <iocv/iocv.h>

#include "frame/doors_support.h"
#include "frame/leaf.h"
#include "support/addressed.h"
#include "support/code_page_guard.h"
#include "support/guarded.h"
#include "support/records_guard.h"
#include "support/values.h"

namespace test {
namespace {

constexpr std::int64_t kTrue = -1;
constexpr std::int64_t kFalse = 0;

TEST(Doors, TakeTheTypeFrom32Bits) {
  const CodePageGuard page("UTF-8");
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

// As through a copy of the field: what is still to be read is never overwritten.
TEST(Doors, TextAndValueMayShareStorage) {
  const CodePageGuard page("UTF-8");
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
  constexpr double kLargest = std::numeric_limits<double>::max();
  const double nan = std::nan("");
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
      {-kLargest, 8, kLowest, ".       ", kTrue},
      {-kLargest, 8, kHighest, "       .", kTrue},
      {kInfinity, 8, 1, "       .", kTrue},
      {-kInfinity, 8, 1, "       .", kTrue},
      {nan, 8, 1, "       .", kTrue},
      {nan, 1, 1, ".", kTrue},
      {-kLargest, 0, 1, "xx", kTrue},
      {1.5, 0, 1, "xx", kTrue},
      {1.5, -1, 1, "xx", kTrue},
      {nan, kLowest, 1, "xx", kTrue},
      {1.5, 8, 1, "xxxxxxxx", kFalse},
      {0.0, 8, 1, "xxxxxxxx", kFalse},
      {kLargest, 8, 1, "xxxxxxxx", kFalse},
      {std::nextafter(-kLargest, 0.0), 8, 1, "xxxxxxxx", kFalse},
  };
  for (const Case& c : cases) {
    for (const Edge edge : {Edge::end, Edge::begin}) {
      const Guarded text(std::string(c.text.size(), 'x'), edge);
      EXPECT_EQ(qobosp_(&c.value, text.data(), I{c.width}, I{c.position}, c.width), c.result)
          << c.value << ' ' << c.width << ' ' << c.position;
      EXPECT_EQ(text.text(), c.text) << c.value << ' ' << c.width << ' ' << c.position;
      EXPECT_TRUE(text.intact());
    }
  }
}

// Equality with the system-missing number of the settings is that of numbers.
TEST(SpecialValues, FollowTheSettings) {
  const RecordsGuard records;
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

TEST(DispatchTable, KnowsNoCodeOutsideItsTable) {
  for (const std::int64_t code :
       {INT64_C(0), INT64_C(-1), INT64_C(13), INT64_C(87), kLowest, kHighest}) {
    EXPECT_EQ(iocv::reader_of(code), nullptr) << code;
    EXPECT_EQ(iocv::writer_of(code), nullptr) << code;
  }
}

}  // namespace
}  // namespace test
