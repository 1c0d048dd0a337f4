// What the header promises of columns beyond the equality with single conversions.
#include <iocv/extension.h>
#include <iocv/iocv.h>

#include "column/column_support.h"
#include "support/guarded.h"
#include "support/records_guard.h"
#include "support/values.h"

namespace {

using namespace std::string_literals;
using iocv::column::read;
using iocv::column::read_strings;
using iocv::column::string_value_size;
using iocv::column::write;
using iocv::column::write_strings;
using test::Format;
using test::Result;
using test::Settings;

constexpr double kMissing = -std::numeric_limits<double>::max();
constexpr int kA = VELT_Format::A;
constexpr int kAhex = VELT_Format::AHEX;
constexpr int kF = VELT_Format::F;
constexpr int kNoConverter = 1105;

struct Row {
  Format format;
  std::string text;
  double value;
  int status;
};

TEST(ColumnRead, ReadsTheExamples) {
  const std::string fields = "   1.5     x  ";
  double values[2] = {};
  std::int32_t statuses[2] = {-1, -1};
  EXPECT_EQ(read(fields.data(), 7, 2, {kF, 6}, Settings(), values, statuses), (Result{1, 1}));
  EXPECT_EQ(values[0], 1.5);
  EXPECT_EQ(values[1], kMissing);
  EXPECT_EQ(statuses[0], 0);
  EXPECT_EQ(statuses[1], 1102);

  char strings[16];
  EXPECT_EQ(read_strings("abcdef", 3, 2, {kA, 3}, Settings(), strings, 8, statuses),
            (Result{0, 2}));
  EXPECT_EQ(std::string(strings, 16), "abc     def     ");
}

TEST(ColumnWrite, WritesTheExamples) {
  const double values[] = {1.5, -2};
  std::string fields(12, '#');
  EXPECT_EQ(write(values, 2, {kF, 6, 2}, Settings(), fields.data(), 6), (Result{0, 2}));
  EXPECT_EQ(fields, "  1.50 -2.00");

  std::string texts(6, '#');
  EXPECT_EQ(write_strings("abc     def     ", 8, 2, {kA, 3}, Settings(), texts.data(), 3),
            (Result{0, 2}));
  EXPECT_EQ(texts, "abcdef");
}

TEST(ColumnRead, ReadsTypesThatOnlySomeDoorsRead) {
  const Row rows[] = {
      {{VELT_Format::CCA, 6}, "  12.5", 12.5, 0},
      {{VELT_Format::CCE, 6, 1}, "   125", 12.5, 0},
      {{85, 7}, "  02:05", 125, 0},
      {{85, 5}, "0:1.x", kMissing, 1189},
      {{86, 16}, "2000-01-01 12:30", 13166064000 + 45000, 0},
  };
  for (const Row& row : rows) {
    double value = 0;
    std::int32_t status = -1;
    read(row.text.data(), row.text.size(), 1, row.format, Settings(), &value, &status);
    EXPECT_EQ(value, row.value) << row.text;
    EXPECT_EQ(status, row.status) << row.text;
  }
}

TEST(ColumnWrite, WritesTypesThatOnlySomeDoorsWrite) {
  const Row rows[] = {
      {{85, 10, 2}, "  02:05.50", 125.5, 0},
      {{85, 4, 0}, "####", 125.5, 0},
      {{85, 5, 5}, ".    ", kMissing, 0},
      {{86, 7, 0}, "      .", kMissing, 0},
      {{86, 16, 0}, "################", 13166064000, kNoConverter},
      {{86, 7, 0}, "#######", 0, kNoConverter},
      {{41, 8, 2}, "     .  ", kMissing, 0},
      {{41, 8, 2}, "########", 1, kNoConverter},
  };
  for (const Row& row : rows) {
    std::string field(row.text.size(), '#');
    std::int32_t status = -1;
    write(&row.value, 1, row.format, Settings(), field.data(), field.size(), &status);
    EXPECT_EQ(field, row.text) << row.format.type;
    EXPECT_EQ(status, row.status) << row.text;
  }
}

// A converter that must not be asked.
class Intruder : public IocvConverter, public IocvExtension {
 public:
  int Input(double*, const char*, int, int) override { return asked(); }
  int Output(const double*, char*, int, int) override { return asked(); }
  IocvConverter*& FindConverter(int) override {
    asked();
    return self_;
  }
  int count = 0;

 private:
  int asked() {
    ++count;
    return 0;
  }
  IocvConverter* self_ = this;
};

TEST(Column, AsksNoExtension) {
  Intruder intruder;
  IocvExtension* const before = SetIocvExtension(&intruder);
  double value = 7;
  std::string field = "     1";
  for (const int type : {0, 13, 41, 46, 86, 255}) {
    EXPECT_EQ(write(&value, 1, {type, 6}, Settings(), field.data(), 6), (Result{1, 0})) << type;
    if (type == 86) continue;
    EXPECT_EQ(read(field.data(), 6, 1, {type, 6}, Settings(), &value), (Result{1, 0})) << type;
  }
  SetIocvExtension(before);
  EXPECT_EQ(intruder.count, 0);
  EXPECT_EQ(value, 7);
  EXPECT_EQ(field, "     1");
}

TEST(Column, RefusesNumbersOfStringTypesAndStringsOfOthers) {
  for (const int type : {kA, kAhex}) {
    double values[] = {7, kMissing};
    std::string fields = "4142434445464748";
    std::int32_t statuses[] = {-1, -1};
    EXPECT_EQ(read(fields.data(), 8, 2, {type, 8}, Settings(), values, statuses), (Result{2, 0}));
    EXPECT_EQ(statuses[0], kNoConverter);
    EXPECT_EQ(statuses[1], kNoConverter);
    EXPECT_EQ(values[0], 7);
    EXPECT_EQ(write(values, 2, {type, 8}, Settings(), fields.data(), 8, statuses), (Result{2, 0}));
    EXPECT_EQ(statuses[1], kNoConverter);
    EXPECT_EQ(fields, "4142434445464748");
  }
  for (const int type : test::all_types()) {
    if (test::is_string(type)) continue;
    std::string strings = "abcdefghABCDEFGH";
    std::string fields = "       1       2";
    std::int32_t statuses[] = {-1, -1};
    EXPECT_EQ(read_strings(fields.data(), 8, 2, {type, 8}, Settings(), strings.data(), 8, statuses),
              (Result{2, 0}));
    EXPECT_EQ(
        write_strings(strings.data(), 8, 2, {type, 8}, Settings(), fields.data(), 8, statuses),
        (Result{2, 0}));
    EXPECT_EQ(statuses[0], kNoConverter);
    EXPECT_EQ(statuses[1], kNoConverter);
    EXPECT_EQ(strings, "abcdefghABCDEFGH");
    EXPECT_EQ(fields, "       1       2");
  }
}

TEST(Column, CountsFailuresFromTheFirst) {
  const std::string fields = "  1 x   2y     3z   ";
  double values[5];
  EXPECT_EQ(read(fields.data(), 4, 5, {kF, 4}, Settings(), values), (Result{3, 1}));
  EXPECT_EQ(read(fields.data(), 4, 1, {kF, 4}, Settings(), values), (Result{0, 1}));
  EXPECT_EQ(read(fields.data() + 4, 4, 1, {kF, 4}, Settings(), values), (Result{1, 0}));

  // A kept value counts, too: a positive packed number whose sign is a digit.
  const std::string packed = "\x12\x34\x12\x3C"s;
  std::int32_t statuses[2];
  EXPECT_EQ(read(packed.data(), 2, 2, {VELT_Format::P, 2}, Settings(), values, statuses),
            (Result{1, 0}));
  EXPECT_EQ(statuses[0], 1106);
  EXPECT_EQ(values[1], 123);

  const double numbers[] = {1, -1, kMissing, -2};
  std::string written(16, '#');
  EXPECT_EQ(write(numbers, 4, {VELT_Format::N, 4}, Settings(), written.data(), 4), (Result{2, 1}));
  EXPECT_EQ(written, "0001   .   .   .");
}

TEST(Column, OfNoFieldsTouchesNothing) {
  const Result none = {0, 0};
  for (const int type : test::all_types()) {
    const Format format(type, 8, 2);
    EXPECT_EQ(read(nullptr, 8, 0, format, Settings(), nullptr), none);
    EXPECT_EQ(read_strings(nullptr, 8, 0, format, Settings(), nullptr, 8), none);
    EXPECT_EQ(write(nullptr, 0, format, Settings(), nullptr, 8), none);
    EXPECT_EQ(write_strings(nullptr, 8, 0, format, Settings(), nullptr, 8), none);
  }
}

TEST(Column, IsTheSameWithoutStatuses) {
  std::mt19937_64 random = test::random_source();
  for (const int type : test::all_types()) {
    const Format format(type, 8, 2);
    std::string fields;
    for (int i = 0; i < 50; ++i) fields += test::sample_field(format, random);
    std::vector<double> with(50, 7.0);
    std::vector<double> without(50, 7.0);
    std::vector<std::int32_t> statuses(50);
    EXPECT_EQ(read(fields.data(), 8, 50, format, Settings(), with.data(), statuses.data()),
              read(fields.data(), 8, 50, format, Settings(), without.data()));
    EXPECT_EQ(std::memcmp(with.data(), without.data(), 50 * sizeof(double)), 0) << type;
    std::string again = fields;
    EXPECT_EQ(write(with.data(), 50, format, Settings(), fields.data(), 8, statuses.data()),
              write(with.data(), 50, format, Settings(), again.data(), 8));
    EXPECT_EQ(fields, again) << type;
  }
}

TEST(Column, TakesWidthsThatVeltFormatCuts) {
  const double value = 1.5;
  std::string field(60, '#');
  write(&value, 1, {kF, 50, 2}, Settings(), field.data(), 50);
  const std::string blanks(46, ' ');
  EXPECT_EQ(field, blanks + "1.50##########");
  double again = 0;
  read(field.data(), 50, 1, {kF, 50, 2}, Settings(), &again);
  EXPECT_EQ(again, 1.5);

  const Format cut = VELT_Format(VELT_Format::F, 50, 2);
  EXPECT_EQ(cut.type, kF);
  EXPECT_EQ(cut.width, 40);
  EXPECT_EQ(cut.decimals, 2);
}

TEST(Column, SeesNoMoreThanTheFirst32767BytesOfAField) {
  constexpr std::size_t kWide = 40000;
  constexpr std::size_t kSeen = 32767;
  const double value = 1.5;
  const std::string blanks(kSeen - 3, ' ');
  const std::string text(kWide, 'x');
  std::string field(kWide, '#');
  for (const std::int64_t width : {std::int64_t{kWide}, std::numeric_limits<std::int64_t>::max()}) {
    EXPECT_EQ(write(&value, 1, {kF, width, 1}, Settings(), field.data(), kWide), (Result{0, 1}));
    EXPECT_EQ(field, blanks + "1.5" + std::string(kWide - kSeen, '#'));
    double again = 0;
    EXPECT_EQ(read(field.data(), kWide, 1, {kF, width}, Settings(), &again), (Result{0, 1}));
    EXPECT_EQ(again, 1.5);
  }
  EXPECT_EQ(string_value_size({kA, kWide}), kSeen + 1);
  std::string string(kSeen + 2, '?');
  read_strings(text.data(), kWide, 1, {kA, kWide}, Settings(), string.data(), kSeen + 1);
  EXPECT_EQ(string, text.substr(0, kSeen) + " ?");
}

TEST(Column, TellsTheSizeOfStrings) {
  const struct {
    Format format;
    std::size_t size;
  } rows[] = {
      {{kA, -5}, 0},     {{kA, 0}, 0},      {{kA, 1}, 8},      {{kA, 8}, 8},
      {{kA, 9}, 16},     {{kAhex, 0}, 0},   {{kAhex, 1}, 8},   {{kAhex, 16}, 8},
      {{kAhex, 17}, 16}, {{kAhex, 32}, 16}, {{kAhex, 33}, 24},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(string_value_size(row.format), row.size)
        << row.format.type << ' ' << row.format.width;
  }
}

TEST(Column, StringsMayLieAtAnyAddress) {
  std::string values(19, '?');
  read_strings("abcd", 2, 2, {kA, 2}, Settings(), values.data() + 1, 9);
  EXPECT_EQ(values, "?ab      ?cd      ?");
  std::string fields(4, '#');
  write_strings(values.data() + 1, 9, 2, {kAhex, 2}, Settings(), fields.data(), 2);
  EXPECT_EQ(fields, "6163");
}

TEST(ColumnWrite, LeavesTheDateOfTheRecordsAlone) {
  const test::RecordsGuard guard;
  const double date = 13166064000;
  obdtex_(&date);
  const double other = 86400;
  std::string field(11, ' ');
  write(&other, 1, {VELT_Format::DATE, 11}, Settings(), field.data(), 11);
  EXPECT_EQ(field, "15-OCT-1582");
  EXPECT_EQ(cmndtm_.year, 2000);
}

}  // namespace
