// The texts of ordinary values are those that the plain way writes: shortest decimals as
// std::to_chars makes them, and dates and times digit by digit.
#include "common_text.h"

#include <gtest/gtest.h>

#include <charconv>
#include <limits>

#include "sample.h"

namespace {

using namespace iocv::tool;

std::string plain_number(double value) {
  if (std::isnan(value)) return "nan";
  char text[64];
  const double magnitude = std::fabs(value);
  const bool plain = magnitude == 0 || (magnitude >= 0.00001 && magnitude < 1e17);
  const char* const end =
      plain ? std::to_chars(text, text + sizeof text, value, std::chars_format::fixed).ptr
            : std::to_chars(text, text + sizeof text, value).ptr;
  return {text, static_cast<std::size_t>(end - text)};
}

std::string number_text(double value) {
  char text[kNumberRoom + 1];
  text[kNumberRoom] = '\x7F';
  const std::string result(text, put_number(text, value));
  EXPECT_EQ(text[kNumberRoom], '\x7F') << result;
  return result;
}

// Whether put_common_number answers, or leaves the number to std::to_chars.
bool is_common(double value) {
  char text[kCommonRoom];
  return put_common_number(text, value) != nullptr;
}

std::string padded(std::int64_t number, std::size_t digits) {
  const std::string text = std::to_string(number);
  return std::string(text.size() < digits ? digits - text.size() : 0, '0') + text;
}

std::string plain_clock(std::int64_t seconds) {
  return padded(seconds / 3600, 2) + ":" + padded(seconds / 60 % 60, 2) + ":" +
         padded(seconds % 60, 2);
}

std::string plain_date(std::int64_t day) {
  const CivilDate date = civil_date(day);
  return padded(date.year, 4) + "-" + padded(date.month, 2) + "-" + padded(date.day, 2);
}

std::string common_iso(double value, IsoForm form) {
  char text[kCommonRoom];
  const char* const end = put_common_iso(text, value, form);
  return end ? std::string(text, static_cast<std::size_t>(end - text)) : "none";
}

// A decimal of up to 12 digits, up to 6 of them behind the point, as fields hold them.
double random_decimal(std::mt19937_64& random) {
  constexpr std::int64_t kTens[] = {1, 10, 100, 1000, 10000, 100000, 1000000};
  const auto limit = static_cast<std::uint64_t>(kTens[random() % 7] * kTens[random() % 7]);
  const auto units = static_cast<std::int64_t>(random() % limit);
  const double value = static_cast<double>(units) / static_cast<double>(kTens[random() % 7]);
  return random() % 4 == 0 ? -value : value;
}

// Decimals and the doubles beside them, counts of ten-thousandths near 10^15, any doubles.
void compare_numbers(std::int64_t rounds) {
  const std::uint64_t seed = test::random_seed();
  SCOPED_TRACE("IOCV_TEST_SEED=" + std::to_string(seed));
  std::mt19937_64 random(seed);
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  for (std::int64_t i = 0; i < rounds; ++i) {
    const double decimal = random_decimal(random);
    const double big = static_cast<double>(1'000'000'000'000'100 - random() % 200000) / 10000;
    const double any = std::bit_cast<double>(random());
    for (const double value : {decimal, std::nextafter(decimal, kInfinity),
                               std::nextafter(decimal, -kInfinity), big, any}) {
      ASSERT_EQ(number_text(value), plain_number(value)) << i;
    }
  }
}

TEST(CommonNumber, HasTheTextOfThePlainWay) { compare_numbers(400'000); }

TEST(LongCommonNumber, HasTheTextOfThePlainWay) { compare_numbers(10'000'000); }

TEST(CommonNumber, IsEveryCountOfTenThousandthsInSomeRanges) {
  if (!common::kWordsAreTexts) return;
  for (std::int64_t units = 0; units < 1'000'000; ++units) {
    const double value = static_cast<double>(units) / 10000;
    ASSERT_TRUE(is_common(value));
    ASSERT_EQ(number_text(value), plain_number(value));
    ASSERT_EQ(number_text(-value), plain_number(-value));
  }
  // Around each power of ten, where a digit more begins.
  for (std::int64_t power = 10; power <= 1'000'000'000'000'000; power *= 10) {
    for (std::int64_t units = power - 1000; units <= power + 1000; ++units) {
      const double value = static_cast<double>(units) / 10000;
      ASSERT_EQ(number_text(value), plain_number(value));
      if (units >= 0) {
        ASSERT_EQ(is_common(value), units < 1'000'000'000'000'000);
      }
    }
  }
}

TEST(CommonNumber, IsNothingElse) {
  for (const double value :
       {0.00001, 0.00005, 1e-300, 0.12345, 1e11, 1e17, 1e300, 2.5e-5, std::nextafter(0.5, 1),
        std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN(),
        std::numeric_limits<double>::denorm_min()}) {
    EXPECT_FALSE(is_common(value)) << value;
    EXPECT_FALSE(is_common(-value)) << value;
    EXPECT_EQ(number_text(value), plain_number(value));
  }
  EXPECT_EQ(number_text(0.0), "0");
  EXPECT_EQ(number_text(-0.0), "-0");
}

TEST(CommonDigits, AreThoseOfTheNumber) {
  for (std::uint32_t number = 0; number < 100'000'000; number += number < 200'000 ? 1 : 9973) {
    const std::uint64_t digits = common::eight_digits(number);
    std::uint32_t back = 0;
    for (int i = 0; i < 8; ++i) {
      ASSERT_LT(digits >> 8 * i & 0xFF, 10U) << number;
      back = back * 10 + static_cast<std::uint32_t>(digits >> 8 * i & 0xFF);
    }
    ASSERT_EQ(back, number);
  }
}

TEST(CommonIso, EveryDayToTheYear9999) {
  if (!common::kWordsAreTexts) return;
  const std::int64_t end = day_number({10000, 1, 1});
  for (std::int64_t day = 0; day < end; ++day) {
    const CivilDate date = civil_date(day);
    const common::Date common =
        common::date_of(static_cast<std::uint32_t>(day + kDaysBeforeOrigin));
    ASSERT_EQ(common.year, date.year) << day;
    ASSERT_EQ(static_cast<int>(common.month), date.month) << day;
    ASSERT_EQ(static_cast<int>(common.day), date.day) << day;
    if (day % 31 != 0) continue;
    const auto seconds = static_cast<double>(day * kSecondsPerDay);
    ASSERT_EQ(common_iso(seconds, IsoForm::date), plain_date(day));
    ASSERT_EQ(common_iso(seconds, IsoForm::date_time), plain_date(day) + "T00:00:00");
    ASSERT_EQ(common_iso(seconds + 86399, IsoForm::date), plain_date(day) + "T23:59:59");
  }
  EXPECT_EQ(common_iso(static_cast<double>(end * kSecondsPerDay) - 1, IsoForm::date_time),
            "9999-12-31T23:59:59");
  EXPECT_EQ(common_iso(static_cast<double>(end * kSecondsPerDay), IsoForm::date), "none");
}

TEST(CommonIso, EverySecondBelowAHundredHours) {
  if (!common::kWordsAreTexts) return;
  for (std::int64_t seconds = 0; seconds < 360000; ++seconds) {
    ASSERT_EQ(common_iso(static_cast<double>(seconds), IsoForm::time), plain_clock(seconds));
    ASSERT_EQ(common_iso(static_cast<double>(seconds), IsoForm::date_time),
              plain_date(seconds / kSecondsPerDay) + "T" + plain_clock(seconds % kSecondsPerDay));
  }
}

TEST(CommonIso, IsNothingElse) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  for (const IsoForm form : {IsoForm::date, IsoForm::date_time, IsoForm::time}) {
    for (const double value : {-1.0, -0.0, 0.5, 45015.25, kInfinity, -kInfinity, kNan, 1e300}) {
      EXPECT_EQ(common_iso(value, form), "none") << value;
    }
  }
  EXPECT_EQ(common_iso(360000, IsoForm::time), "none");
  EXPECT_EQ(common_iso(5, IsoForm::duration), "none");
  EXPECT_EQ(common_iso(5, IsoForm::none), "none");
}

}  // namespace
