// Values as text: shortest decimals, ISO 8601 out and in, and the calendar between them.
#include "value_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>

#include "civil.h"
#include "failure.h"
#include "typed_value.h"

namespace {

using namespace iocv::tool;

std::string number_text(double value) {
  std::string text;
  append_number(text, value);
  return text;
}

std::string iso_text(double value, IsoForm form) {
  std::string text = "=";
  return append_iso(text, value, form) ? text.substr(1) : "none, " + text;
}

TEST(NumberText, IsTheShortestDecimalInPlainNotationWherePeopleReadIt) {
  struct Case {
    double value;
    const char* text;
  };
  constexpr Case kCases[] = {
      {0.0, "0"},
      {-0.0, "-0"},
      {12.0, "12"},
      {-1234.5, "-1234.5"},
      {0.1, "0.1"},
      {100000.0, "100000"},
      {13166064000.0, "13166064000"},
      {9007199254740993.0, "9007199254740992"},
      {12345678901234568.0, "12345678901234568"},
      {99999999999999984.0, "99999999999999984"},
      {1e17, "1e+17"},
      {0.00001, "0.00001"},
      {0.000012345, "0.000012345"},
      {0.0000099, "9.9e-06"},
      {-1e300, "-1e+300"},
      {5e-324, "5e-324"},
      {0.30000000000000004, "0.30000000000000004"},
      {std::numeric_limits<double>::infinity(), "inf"},
      {-std::numeric_limits<double>::infinity(), "-inf"},
  };
  for (const Case& c : kCases) EXPECT_EQ(number_text(c.value), c.text);
  EXPECT_EQ(number_text(std::nan("")), "nan");
  EXPECT_EQ(number_text(-std::nan("")), "nan");
}

TEST(NumberText, OfCommonDecimalsIsTheShortestText) {
  // Every count of ten-thousandths near the ends of the range and at random, and its neighbours.
  const auto seed = std::random_device()();
  std::mt19937_64 random(seed);
  for (int i = 0; i < 200'000; ++i) {
    const auto units = i < 1000 ? i : static_cast<std::int64_t>(random() % 1'000'000'000'001'000);
    const double value = static_cast<double>(units) / 10000;
    for (const double near : {value, std::nextafter(value, 0.0), std::nextafter(value, 1e300)}) {
      if (near < 0.00001) continue;
      char digits[64];
      const auto end = std::to_chars(digits, digits + 64, near, std::chars_format::fixed).ptr;
      ASSERT_EQ(number_text(near), std::string(digits, end)) << "seed " << seed;
      ASSERT_EQ(number_text(-near), "-" + std::string(digits, end)) << "seed " << seed;
    }
  }
}

TEST(NumberText, ReadsBackBitForBit) {
  const auto seed = std::random_device()();
  std::mt19937_64 random(seed);
  for (int i = 0; i < 200'000; ++i) {
    // Every other value is of ordinary size.
    const auto bits = random();
    double value = std::bit_cast<double>(bits);
    if (i % 2 == 0) value = static_cast<double>(bits >> 11) / std::pow(10, bits % 20);
    if (std::isnan(value)) continue;
    const std::optional<double> back = typed_number(number_text(value));
    ASSERT_TRUE(back) << "seed " << seed << ", " << number_text(value);
    ASSERT_EQ(std::bit_cast<std::uint64_t>(*back), std::bit_cast<std::uint64_t>(value))
        << "seed " << seed << ", " << number_text(value);
  }
}

TEST(Missing, IsTheOnePattern) {
  EXPECT_TRUE(is_missing(-1.7976931348623157e308));
  EXPECT_FALSE(is_missing(-1.7976931348623155e308));
  EXPECT_FALSE(is_missing(-std::numeric_limits<double>::infinity()));
}

TEST(Calendar, EachDayFollowsTheOneBefore) {
  CivilDate date = civil_date(-600'000);
  EXPECT_EQ(date.year, -60);
  for (std::int64_t day = -600'000; day < 3'100'000; ++day) {
    const CivilDate now = civil_date(day);
    ASSERT_EQ(now.year, date.year) << day;
    ASSERT_EQ(now.month, date.month) << day;
    ASSERT_EQ(now.day, date.day) << day;
    ASSERT_TRUE(exists(now));
    ASSERT_EQ(day_number(now), day);
    ++date.day;
    if (!exists(date)) date = {date.year, date.month + 1, 1};
    if (!exists(date)) date = {date.year + 1, 1, 1};
  }
}

TEST(Calendar, KnowsItsDays) {
  struct Case {
    CivilDate date;
    std::int64_t day;
  };
  constexpr Case kCases[] = {
      {{1582, 10, 14}, 0},    {{1582, 10, 15}, 1},       {{1970, 1, 1}, 141428},
      {{2000, 1, 1}, 152385}, {{9999, 12, 31}, 3074324},
  };
  for (const Case& c : kCases) EXPECT_EQ(day_number(c.date), c.day);
}

TEST(IsoText, ShowsEachForm) {
  struct Case {
    double value;
    IsoForm form;
    const char* text;
  };
  using enum IsoForm;
  constexpr Case kCases[] = {
      {13166064000, date, "2000-01-01"},
      {13166064001, date, "2000-01-01T00:00:01"},
      {86400, date, "1582-10-15"},
      {0, date, "1582-10-14"},
      {-86400, date, "1582-10-13"},
      {265621593600, date, "9999-12-31"},
      {265621680000, date, "+10000-01-01"},
      {-49947840000, date, "0000-01-01"},
      {-49947926400, date, "-0001-12-31"},
      {13166064000, date_time, "2000-01-01T00:00:00"},
      {13166109015, date_time, "2000-01-01T12:30:15"},
      {13166109015.5, date_time, "2000-01-01T12:30:15.5"},
      {13166109015.1, date_time, "2000-01-01T12:30:15.1"},
      {-0.25, date_time, "1582-10-13T23:59:59.75"},
      {-86400.001, date_time, "1582-10-12T23:59:59.999"},
      {45015, time, "12:30:15"},
      {0, time, "00:00:00"},
      {-0.0, time, "00:00:00"},
      {-1800, time, "-00:30:00"},
      {360000.25, time, "100:00:00.25"},
      {-0.5, time, "-00:00:00.5"},
      {9007199254740991, time, "2501999792983:36:31"},
      {131415, duration, "P1DT12H30M15S"},
      {0.5, duration, "PT0H0M0.5S"},
      {-172800, duration, "-P2DT0H0M0S"},
      {45015, none, "none, ="},
      {9007199254740992, time, "none, ="},
      {-1.7976931348623157e308, date, "none, ="},
      {std::numeric_limits<double>::infinity(), date_time, "none, ="},
      {std::numeric_limits<double>::quiet_NaN(), duration, "none, ="},
  };
  for (const Case& c : kCases) EXPECT_EQ(iso_text(c.value, c.form), c.text) << c.value;
}

TEST(IsoText, ReadsBackAsTheSameDouble) {
  const auto seed = std::random_device()();
  std::mt19937_64 random(seed);
  using enum IsoForm;
  for (int i = 0; i < 100'000; ++i) {
    const double value =
        static_cast<double>(random() >> 11) / static_cast<double>(1ULL << (random() % 40 + 12));
    for (const IsoForm form : {date, date_time, time, duration}) {
      const std::string text = iso_text(value, form);
      ASSERT_EQ(typed_moment(text), value) << "seed " << seed << ", " << text;
      if (form == date_time || form == date) continue;
      ASSERT_EQ(typed_moment("-" + text), -value) << "seed " << seed << ", " << text;
    }
  }
}

TEST(TypedMoment, TakesDatesTimesAndDurations) {
  struct Case {
    const char* text;
    double value;
  };
  constexpr Case kCases[] = {
      {"2000-01-01", 13166064000},
      {"2000-01-01T12:30", 13166109000},
      {"2000-01-01T12:30:15.5", 13166109015.5},
      {"2000-01-01 12:30:15", 13166109015},
      {"1582-10-15", 86400},
      {"1582-10-14", 0},
      {"2000-02-29", 13171161600},
      {"+10000-01-01", 265621680000},
      {"-0001-12-31", -49947926400},
      {"1582-10-13T23:59:59.75", -0.25},
      {"12:30", 45000},
      {"1:02:03", 3723},
      {"100:00:00.25", 360000.25},
      {"-12:30:15", -45015},
      {"P1D", 86400},
      {"P1DT12H30M15S", 131415},
      {"PT0.5S", 0.5},
      {"-PT90M", -5400},
  };
  for (const Case& c : kCases) EXPECT_EQ(typed_moment(c.text), c.value) << c.text;
}

TEST(TypedMoment, RefusesWhatIsNone) {
  for (const char* const text : {"",
                                 "2000",
                                 "2000-1-1",
                                 "2000-13-01",
                                 "2000-00-01",
                                 "2001-02-29",
                                 "2000-01-32",
                                 "2000-01-00",
                                 "200-01-01",
                                 "02000-01-01",
                                 "10000-01-01",
                                 "+12345678901-01-01",
                                 "2000-01-01T",
                                 "2000-01-01T24:00",
                                 "2000-01-01T12:60",
                                 "2000-01-01T12:30:60",
                                 "2000-01-01T12:30:15.",
                                 "2000-01-01X",
                                 "2000-01-01T12:30:15Z",
                                 "2000-01-01T12:30x",
                                 "12",
                                 "12:3",
                                 "12:30:1",
                                 "12:30:15.5.5",
                                 ":30",
                                 "12345678901234:00",
                                 "P",
                                 "PT",
                                 "P1",
                                 "P1H",
                                 "PT1D",
                                 "PT1H1H",
                                 "PT1M1H",
                                 "P1.5D",
                                 "PT1.5M",
                                 "PT1.S",
                                 "P1DT",
                                 "P-1D",
                                 "P99999999999999D",
                                 "+12:30"}) {
    EXPECT_EQ(typed_moment(text), std::nullopt) << text;
  }
}

TEST(TypedNumber, TakesDecimalsAndNames) {
  struct Case {
    const char* text;
    double value;
  };
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  constexpr Case kCases[] = {
      {"12", 12},
      {"-1234.5", -1234.5},
      {"+5", 5},
      {".5", 0.5},
      {"1e6", 1e6},
      {"5e-324", 5e-324},
      {"inf", kInfinity},
      {"-inf", -kInfinity},
      {".", -1.7976931348623157e308},
      {"missing", -1.7976931348623157e308},
  };
  for (const Case& c : kCases) EXPECT_EQ(typed_number(c.text), c.value) << c.text;
  EXPECT_TRUE(std::isnan(typed_number("nan").value()));
  EXPECT_TRUE(std::signbit(typed_number("-0").value()));
}

TEST(TypedNumber, RefusesOtherTextsAndWhatNoDoubleHolds) {
  for (const char* const text : {"", "x", "1x", "1,5", "+-5", "--5", " 5", "5 ", "0x10", "+"}) {
    EXPECT_EQ(typed_number(text), std::nullopt) << text;
  }
  for (const char* const text : {"1e400", "-1e400", "1e-400"}) {
    EXPECT_THROW(typed_number(text), UsageError) << text;
  }
}

TEST(TypedValue, HoldsStringsAsTheyStand) {
  const StoredValue value = typed_value("abcdefghij", VELT_Format(VELT_Format::A, 4, 0));
  EXPECT_EQ(value.trimmed(), "abcdefghij");
  EXPECT_EQ(value.trimmed(4), "abcd");
  EXPECT_EQ(typed_value(" . ", VELT_Format(VELT_Format::A, 20, 0)).trimmed(), " .");
  EXPECT_EQ(typed_value("", VELT_Format(VELT_Format::A, 20, 0)).trimmed(), "");
}

TEST(TypedValue, SaysWhatATextIsNot) {
  struct Case {
    const char* text;
    VELT_Format::FormatType type;
    const char* message;
  };
  constexpr Case kCases[] = {
      {"abc", VELT_Format::F, "'abc' is not a number"},
      {"2000-01-01", VELT_Format::F, "'2000-01-01' is not a number"},
      {"abc", VELT_Format::DATE, "'abc' is neither a number nor an ISO 8601 date or time"},
      {"1e400", VELT_Format::F, "'1e400' lies beyond the range of a double"},
  };
  for (const Case& c : kCases) {
    try {
      typed_value(c.text, VELT_Format(c.type, 11, 0));
      ADD_FAILURE() << c.text;
    } catch (const UsageError& error) {
      EXPECT_STREQ(error.what(), c.message);
    }
  }
  EXPECT_EQ(typed_value("2000-01-01", VELT_Format(VELT_Format::MONTH, 9, 0)).number(), 13166064000);
}

}  // namespace
