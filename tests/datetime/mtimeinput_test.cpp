// Elapsed minutes and seconds (code 85).
#include "datetime/mtimeinput.h"

#include <iocv/host.h>

#include <clocale>

#include "datetime/reading.h"

namespace {

using test::kMissing;
using test::Reading;

struct Case {
  std::string text;
  double value;
  std::int64_t status;
};

Reading read(const std::string& text, char decimal_point = '.') {
  static test::FieldEdges edges;
  const iocv::Read<double> read = iocv::read_elapsed(edges.at_end(text), decimal_point);
  EXPECT_EQ(read.value, iocv::read_elapsed(edges.at_begin(text), decimal_point).value);
  return {read.value, static_cast<std::int64_t>(read.status)};
}

void expect_all(std::span<const Case> cases, char decimal_point = '.') {
  for (const Case& c : cases) {
    EXPECT_EQ(read(c.text, decimal_point), (Reading{c.value, c.status})) << c.text;
  }
}

TEST(ElapsedInput, MinutesAndSeconds) {
  const Case cases[] = {
      {"12:30", 750, 0},         {"1230", 750, 0},    {"12.5", 12.5, 0},
      {"1234.5", 754.5, 0},      {"1:02.5", 62.5, 0}, {"1:75", 135, 0},
      {" \t\n1:30\n\t ", 90, 0}, {"12-30", 750, 0},   {"12 30", 750, 0},
      {"12x30", 750, 0},         {":30", 30, 0},      {"12:", 720, 0},
      {"123:", 7380, 0},         {"1 2 3", 62.3, 0},  {"0:00.5", 0.5, 0},
      {"00123456", 74096, 0},
  };
  expect_all(cases);
}

TEST(ElapsedInput, ALonePointTakesTheTwoDigitsBeforeItAsSeconds) {
  const Case cases[] = {
      {"5.25", 5.25, 0}, {"12.5", 12.5, 0}, {"112.5", 72.5, 0}, {"1234.5", 754.5, 0},
      {".25", 0.25, 0},  {"12.", 12, 0},    {"123.", 83, 0},    {"99999.75", 60039.75, 0},
  };
  expect_all(cases);
}

TEST(ElapsedInput, OnlyALoneSeparatorIsComparedWithTheDecimalPoint) {
  const Case cases[] = {
      {"12.5", 725, 0},    {"12,5", 12.5, 0},   {"1:02.5", 62.5, 0},
      {"1:02,5", 62.5, 0}, {"1.02,5", 62.5, 0},
  };
  expect_all(cases, ',');
  EXPECT_EQ(read("1,02.5"), (Reading{62.5, 0}));
}

TEST(ElapsedInput, ASignCountsInTheLengthOfDigitsAlone) {
  const Case cases[] = {
      {"-12:30", -750, 0}, {"-1234", -7384, 0}, {"-123", -723, 0},   {"-12", kMissing, 1179},
      {"-0:00", -0.0, 0},  {"+12:30", 12.3, 0}, {"+1230", 1230, 0},  {"-1:02.5", -62.5, 0},
      {"-12.5", -12.5, 0}, {" -1:30 ", -90, 0}, {"--1:30", -1.3, 0},
  };
  expect_all(cases);
}

TEST(ElapsedInput, TextsTooShortAndBadFractionsFail) {
  const Case cases[] = {
      {"", kMissing, 1169},
      {"  ", kMissing, 1169},
      {" \t\n ", kMissing, 1169},
      {"12", kMissing, 1169},
      {" 12  ", kMissing, 1169},
      {"1:", kMissing, 1169},
      {"123", kMissing, 1179},
      {" 123 ", kMissing, 1179},
      {"1:2.x", kMissing, 1189},
      {"1:2.3x", kMissing, 1189},
      {"1:2:3:4", kMissing, 1189},
      {"12.x5", 720.5, 0},
      {"1:2x", 62, 0},
      {"1::", 60, 0},
      {"1:2:", 62, 0},
  };
  expect_all(cases);
}

TEST(ElapsedInput, OnlyTheDigitsWrapAt32Bits) {
  const Case cases[] = {
      {"71582789:00", 4294967340.0, 0},
      {"100000000:00", 6000000000.0, 0},
      {"3000000000:00", 180000000000.0, 0},
      {"0:4294967297", 1, 0},
      {"4294967296:00", 0, 0},
      {"0:00.5000000000", 0.0705032704, 0},
      {"4294967295:4294967295", 61 * 4294967295.0, 0},
  };
  expect_all(cases);
  EXPECT_EQ(read("0:00." + std::string(400, '1')).status, 0);
  EXPECT_EQ(read("0:00." + std::string(400, '1')).value, 0);  // over an infinite power of ten
}

// What the reader may leave the caller's status at.
TEST(ElapsedInput, TheClassStoresAStatusOnlyOnFailure) {
  mTimeInput reader;
  int status = 77;
  EXPECT_EQ(reader.convertTimeStringToObs("12:30", 0, status), 750);
  EXPECT_EQ(status, 77);
  EXPECT_EQ(reader.convertTimeStringToObs("12:30", 255, status), 750);
  EXPECT_EQ(reader.convertTimeStringToObs("12", 0, status), kMissing);
  EXPECT_EQ(status, 1169);
  EXPECT_EQ(reader.convertTimeStringToObs("123", 0, status), kMissing);
  EXPECT_EQ(status, 1179);
  EXPECT_EQ(reader.convertTimeStringToObs("1:2.x", 0, status), kMissing);
  EXPECT_EQ(status, 1189);
}

TEST(ElapsedInput, TheClassFollowsTheNumericLocaleOfTheProcess) {
  mTimeInput reader;
  int status = 0;
  const std::string before = std::setlocale(LC_NUMERIC, nullptr);
  std::setlocale(LC_NUMERIC, "C");
  iocvsetdeccharcomma_();  // not the library's own setting
  EXPECT_EQ(reader.convertTimeStringToObs("12.5", 0, status), 12.5);
  iocvsetdecchardot_();
  ASSERT_NE(std::setlocale(LC_NUMERIC, "de_DE.UTF-8"), nullptr) << "scripts/setup makes it";
  EXPECT_EQ(reader.convertTimeStringToObs("12.5", 0, status), 725);
  EXPECT_EQ(reader.convertTimeStringToObs("12,5", 0, status), 12.5);
  std::setlocale(LC_NUMERIC, before.c_str());
  EXPECT_EQ(status, 0);
}

// Text of digits and separators, cut by hand once more.
TEST(ElapsedInput, EveryShortTextReadsAsTold) {
  constexpr std::string_view kAlphabet = "059:.-x ";
  const auto number = [](std::string_view digits) {
    double n = 0;
    for (const char c : digits) n = n * 10 + (c - '0');
    return n;
  };
  for (int n = 0; n < 8 * 8 * 8 * 8 * 8; ++n) {
    std::string text;
    for (int rest = n, i = 0; i < 5; ++i, rest /= 8) {
      text += kAlphabet[static_cast<std::size_t>(rest % 8)];
    }
    std::string core = text.substr(std::min(text.find_first_not_of(' '), text.size()));
    while (core.ends_with(' ')) core.pop_back();
    Reading expected = {kMissing, 0};
    const std::size_t length = core.size();
    const double sign = core.starts_with('-') ? -1 : 1;
    if (core.starts_with('-')) core.erase(0, 1);
    const std::size_t i = core.find_first_not_of("0123456789");
    if (length < 3) {
      expected.status = 1169;
    } else if (i == core.npos && length < 4) {
      expected.status = 1179;
    } else if (i == core.npos) {
      expected.value =
          sign * (60 * number(core.substr(0, length - 2)) + number(core.substr(length - 2)));
    } else {
      const std::size_t j = core.find_first_not_of("0123456789", i + 1);
      std::string minutes = core.substr(0, i);
      std::string seconds = core.substr(i + 1, j - i - 1);
      std::string fraction = j == core.npos ? "" : core.substr(j + 1);
      if (j == core.npos && core[i] == '.') {
        fraction = seconds;
        seconds = minutes.substr(i < 3 ? 0 : i - 2);
        minutes.erase(i < 3 ? 0 : i - 2);
      }
      if (fraction.find_first_not_of("0123456789") != fraction.npos) {
        expected.status = 1189;
      } else {
        expected.value = sign * (60 * number(minutes) + number(seconds) +
                                 number(fraction) / std::pow(10.0, fraction.size()));
      }
    }
    ASSERT_EQ(read(text), expected) << "|" << text << "|";
  }
}

}  // namespace
