// Times and date-times under every width and number of decimals, against texts spelled out here
// from whole seconds and 64ths.
#include "datetime/writing.h"
#include "support/values.h"

namespace {

using test::Format;
using test::kHighest;
using test::kLowest;
using test::WrittenField;

std::string two(std::int64_t n) {
  return {static_cast<char>('0' + n / 10), static_cast<char>('0' + n % 10)};
}

std::string right_aligned(const std::string& text, std::size_t width) {
  return std::string(width - text.size(), ' ') + text;
}

// A number of 64ths with so many decimals: rounded half up, cut where it would round up to one.
// Empty for an exact half, which the last bit of the writers' sums decides.
std::string fraction_text(std::int64_t n, std::size_t decimals) {
  std::int64_t unit = 1;
  for (std::size_t i = 0; i < decimals; ++i) unit *= 10;
  if (n * unit % 64 == 32) return {};
  std::int64_t rounded = (n * unit + 32) / 64;
  if (rounded == unit) rounded = n * unit / 64;
  const std::string digits = std::to_string(rounded);
  return std::string(decimals - digits.size(), '0') + digits;
}

// A value of whole seconds and 64ths.
struct Value {
  std::int64_t seconds;
  std::int64_t n;
  bool negative;

  [[nodiscard]] double number() const {
    const double magnitude = static_cast<double>(seconds) + static_cast<double>(n) / 64;
    return negative ? -magnitude : magnitude;
  }
};

// The longest of the texts that fits: hours and minutes, with seconds, with a fraction.
std::string longest(const std::string& minutes, const Value& value, std::size_t width,
                    std::int64_t decimals) {
  const std::string seconds = minutes + ":" + two(value.seconds % 60);
  if (decimals > 0 && seconds.size() + 2 <= width) {
    const std::size_t room = width - seconds.size() - 1;
    const std::string fraction =
        fraction_text(value.n, std::min(room, static_cast<std::size_t>(decimals)));
    return fraction.empty() ? "" : right_aligned(seconds + "." + fraction, width);
  }
  if (seconds.size() <= width) return right_aligned(seconds, width);
  if (minutes.size() <= width) return right_aligned(minutes, width);
  return std::string(width, '*');
}

// Empty where an exact half decides a digit.
std::string time_text(int type, const Value& value, std::size_t width, std::int64_t decimals) {
  const std::string sign = value.negative && value.number() < 0 ? "-" : "";
  const std::string minutes = ":" + two(value.seconds / 60 % 60);
  const std::int64_t hours = value.seconds / 3600;
  if (type == Format::TIME) {
    return longest(sign + std::to_string(hours) + minutes, value, width, decimals);
  }
  const std::string days = hours < 24 ? "  " : std::to_string(hours / 24) + " ";
  const std::string text = longest(sign + days + two(hours % 24) + minutes, value, width, decimals);
  if (text.find('*') == text.npos) return text;
  const std::string rounded = std::to_string((value.seconds + 43200) / 86400);
  if (rounded.size() + sign.size() > width) return text;
  return right_aligned(rounded == "0" ? rounded : sign + rounded, width);
}

TEST(TimeWalk, TimesAndDurationsUnderEveryWidthAndDecimals) {
  std::int64_t compared = 0;
  for (std::size_t width = 0; width <= 26; ++width) {
    const WrittenField field(static_cast<std::int64_t>(width));
    for (const std::int64_t seconds :
         {0,      1,       59,      60,      3599,    3600,      35999,  36000,
          43199,  43200,   86399,   86400,   90061,   359999,    360000, 863999,
          864000, 3599999, 3600000, 8639999, 8640000, 1234567890}) {
      for (std::int64_t n = 0; n < 64; ++n) {
        for (const bool negative : {false, true}) {
          for (std::int64_t decimals = -1; decimals <= 12; ++decimals) {
            for (const int type : {Format::TIME, Format::DTIME}) {
              const Value value = {seconds, n, negative};
              const std::string text = time_text(type, value, width, decimals);
              if (text.empty()) continue;
              const std::int64_t status = field.write(type, decimals, value.number());
              ASSERT_TRUE(field.text() == text && status == 0)
                  << "type " << type << " decimals " << decimals << " of " << value.number()
                  << ": |" << field.text() << "|, not |" << text << "|";
              ++compared;
            }
          }
        }
      }
    }
    EXPECT_TRUE(field.intact());
  }
  EXPECT_GT(compared, 1'800'000);
}

TEST(TimeWalk, DateTimesUnderEveryWidthAndDecimals) {
  for (std::size_t width = 12; width <= 40; ++width) {
    const WrittenField field(static_cast<std::int64_t>(width));
    for (const std::int64_t seconds : {0, 59, 60, 3599, 3600, 45015, 86399}) {
      for (std::int64_t n = 0; n < 64; ++n) {
        for (std::int64_t decimals = -1; decimals <= 12; ++decimals) {
          const Value value = {seconds, n, false};
          const std::string date = "29-FEB-2000";
          const std::string hour = date + " " + two(seconds / 3600);
          const std::string text =
              width < 14   ? right_aligned(date, width)
              : width < 17 ? right_aligned(hour, width)
                           : longest(hour + ":" + two(seconds / 60 % 60), value, width, decimals);
          if (text.empty()) continue;
          field.write(Format::DATETIME, decimals, test::on(2000, 2, 29, value.number()));
          ASSERT_EQ(field.text(), text) << decimals << " " << value.number();
        }
      }
    }
    EXPECT_TRUE(field.intact());
  }
}

TEST(TimeWalk, EverySecondOfADay) {
  const WrittenField time(8);
  const WrittenField date_time(20);
  const double day = test::on(1999, 12, 31);
  for (int second = 0; second < 86400; ++second) {
    const std::string minutes = ":" + two(second / 60 % 60) + ":" + two(second % 60);
    for (const double part : {0.0, 0.999}) {
      time.write(Format::TIME, 0, second + part);
      ASSERT_EQ(time.text(), right_aligned(std::to_string(second / 3600) + minutes, 8));
      date_time.write(Format::DATETIME, 0, day + second + part);
      ASSERT_EQ(date_time.text(), "31-DEC-1999 " + two(second / 3600) + minutes);
    }
  }
}

constexpr int kTypes[] = {Format::DATE,  Format::TIME,  Format::DATETIME, Format::ADATE,
                          Format::JDATE, Format::DTIME, Format::WKDAY,    Format::MONTH,
                          Format::MOYR,  Format::QYR,   Format::WKYR,     Format::EDATE,
                          Format::SDATE};

// Whatever the value, each column is written, nothing outside them, and only with what dates and
// times are made of.
void expect_sound(const WrittenField& field, int type, std::int64_t decimals, double value) {
  const std::int64_t status = field.write(type, decimals, value);
  const bool sound = field.text().find_first_not_of(" *.-/:0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ") ==
                     std::string_view::npos;
  ASSERT_TRUE(sound && (status == 0 || status == 1140 || status == 1141))
      << "type " << type << " decimals " << decimals << " of " << test::described(value) << ": |"
      << test::shown(field.text()) << "| " << status;
}

TEST(TimeWalk, SpecialValuesUnderEveryWidthAndDecimals) {
  for (std::int64_t width = 0; width <= 45; ++width) {
    for (const test::Edge edge : {test::Edge::end, test::Edge::begin}) {
      const WrittenField field(width, edge);
      for (const int type : kTypes) {
        for (const double value : test::special_values()) {
          for (std::int64_t decimals = -2; decimals <= 20; ++decimals) {
            if (edge == test::Edge::begin && decimals % 7 != 0) continue;
            expect_sound(field, type, decimals, value);
          }
          expect_sound(field, type, kLowest, value);
          expect_sound(field, type, kHighest, value);
        }
      }
      EXPECT_TRUE(field.intact()) << width;
    }
  }
}

TEST(TimeWalk, AnyBitsAndVeryWideFields) {
  SCOPED_TRACE(test::seed_text());
  std::mt19937_64 random = test::random_source();
  for (const std::int64_t width : {1, 9, 11, 20, 30, 400, 32767}) {
    const WrittenField field(width);
    for (int i = 0; i < (width > 1000 ? 20 : 2000); ++i) {
      const double value = test::any_double(random);
      for (const int type : kTypes) {
        for (const std::int64_t decimals : {std::int64_t{0}, std::int64_t{2}, width, kHighest}) {
          expect_sound(field, type, decimals, value);
        }
      }
    }
    EXPECT_TRUE(field.intact()) << width;
  }
}

}  // namespace
