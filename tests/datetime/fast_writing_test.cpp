// The fast ways of dates and times as text beside their plain ways: the same bytes, the same status
// and the same records, bit for bit.
#include <iocv/column.h>

#include <bit>
#include <memory>

#include "datetime/obodt.h"
#include "datetime/oboida.h"
#include "datetime/obotim.h"
#include "datetime/writing.h"
#include "support/records_guard.h"
#include "support/values.h"

namespace {

using iocv::WriteLeaf;
using test::Format;

struct Way {
  int type;
  std::int64_t width;  // the text's own
  WriteLeaf* plain;
};

constexpr WriteLeaf* kPlainNumeric = iocv::write_date_leaf<iocv::write_numeric_date_plain>;
constexpr WriteLeaf* kPlainMonthOrQuarter =
    iocv::write_date_leaf<iocv::write_month_or_quarter_plain>;

constexpr WriteLeaf* kPlainName = iocv::write_date_leaf<iocv::write_name_plain>;

constexpr Way kWays[] = {
    {Format::DATE, 11, iocv::write_date_leaf<iocv::write_date_plain>},
    {Format::ADATE, 10, kPlainNumeric},
    {Format::EDATE, 10, kPlainNumeric},
    {Format::SDATE, 10, kPlainNumeric},
    {Format::DATETIME, 20, iocv::write_date_leaf<iocv::write_date_time_plain>},
    {Format::JDATE, 7, iocv::write_date_leaf<iocv::write_day_of_year_plain>},
    {Format::MOYR, 8, kPlainMonthOrQuarter},
    {Format::QYR, 8, kPlainMonthOrQuarter},
    {Format::WKYR, 10, iocv::write_date_leaf<iocv::write_week_plain>},
    {Format::WKDAY, 9, kPlainName},
    {Format::MONTH, 9, kPlainName},
    {Format::TIME, 8, iocv::write_leaf<iocv::write_time_plain>},
    {Format::DTIME, 11, iocv::write_leaf<iocv::write_time_plain>},
};

// All that a writer leaves, with bytes around the field.
struct Left {
  static constexpr std::int64_t kRoom = 48;

  char around[kRoom];
  std::int64_t status;
  IocvDateRecord record;
  IocvDateText letters;

  bool operator==(const Left& other) const {
    return std::memcmp(around, other.around, sizeof around) == 0 && status == other.status &&
           std::memcmp(&record, &other.record, sizeof record) == 0 &&
           std::memcmp(&letters, &other.letters, sizeof letters) == 0;
  }
};

Left left_by(WriteLeaf* leaf, const Way& way, std::int64_t width, std::int64_t decimals,
             double value) {
  Left left;
  std::memset(&left, 0x5A, sizeof left);
  const IocvDateRecord before = cmndtm_;
  std::memset(&cmadtm_, 0x5A, sizeof cmadtm_);
  const OBS stored = {.number = value};
  const std::int32_t type = way.type;
  leaf(&stored, &type, &width, &decimals, left.around + 4, &left.status);
  left.record = cmndtm_;
  left.letters = cmadtm_;
  cmndtm_ = before;
  return left;
}

void dispatched(const OBS* value, const std::int32_t* type, const std::int64_t* width,
                const std::int64_t* decimals, char* text, std::int64_t* status) {
  obocv_(value, type, width, decimals, text, status, *width);
}

void expect_same(const Way& way, std::int64_t width, std::int64_t decimals, double value) {
  const Left plain = left_by(way.plain, way, width, decimals, value);
  const Left fast = left_by(dispatched, way, width, decimals, value);
  if (plain == fast) return;
  FAIL() << "type " << way.type << " width " << width << '.' << decimals << " of "
         << test::described(value) << ": |" << test::shown({fast.around, sizeof fast.around})
         << "| " << fast.status << ", plain |" << test::shown({plain.around, sizeof plain.around})
         << "| " << plain.status << "; seconds " << fast.record.seconds << ", "
         << plain.record.seconds;
}

iocv::Status write_by_core(const Way& way, iocv::Field out, std::int64_t decimals, double value) {
  const iocv::Settings settings = iocv::Settings::current();
  const auto code = static_cast<iocv::FormatCode>(way.type);
  switch (way.type) {
    case Format::DATE: return iocv::write_date(out, value, decimals, settings);
    case Format::DATETIME: return iocv::write_date_time(out, value, decimals, settings);
    case Format::JDATE: return iocv::write_day_of_year(out, value, decimals, settings);
    case Format::MOYR:
    case Format::QYR: return iocv::write_month_or_quarter(out, value, decimals, code, settings);
    case Format::WKDAY:
    case Format::MONTH: return iocv::write_name(out, value, decimals, code, settings);
    case Format::WKYR: return iocv::write_week(out, value, decimals, settings);
    case Format::TIME:
    case Format::DTIME: return iocv::write_time(out, value, decimals, code, settings);
    default: return iocv::write_numeric_date(out, value, decimals, code, settings);
  }
}

void write_by_flat(const OBS* stored, const std::int32_t* type, const std::int64_t* width,
                   const std::int64_t* decimals, char* text, std::int64_t* status) {
  test::write_flat(*type, stored->number, *width, *decimals, text, *status);
}

void write_by_convert(const OBS* stored, const std::int32_t* type, const std::int64_t* width,
                      const std::int64_t* decimals, char* text, std::int64_t* status) {
  *status = IocvConvertOutput(stored, *type, static_cast<int>(*decimals), text,
                              static_cast<unsigned>(std::max<std::int64_t>(*width, 0)));
}

// Through the other doors, and through the core, which knows no records.
void expect_same_elsewhere(const Way& way, std::int64_t width, std::int64_t decimals,
                           double value) {
  const Left plain = left_by(way.plain, way, width, decimals, value);
  const Left flat = left_by(write_by_flat, way, width, decimals, value);
  EXPECT_TRUE(flat == plain) << way.type << ' ' << test::described(value);
  const Left convert = left_by(write_by_convert, way, width, decimals, value);
  EXPECT_TRUE(convert == plain) << way.type << ' ' << test::described(value);
  Left core = plain;
  std::memset(core.around, 0x5A, sizeof core.around);
  core.status =
      static_cast<std::int64_t>(write_by_core(way, {core.around + 4, width}, decimals, value));
  EXPECT_TRUE(core == plain) << way.type << ' ' << test::described(value);
}

constexpr std::int64_t kDays = 3'074'324;
constexpr double kDay = 86400;

// Some time of a day: midnight, its neighbours, whole seconds, fractions, boundaries of a minute.
double some_time(std::mt19937_64& random) {
  const auto second = static_cast<double>(random() % 86400);
  const double minute = 60 * static_cast<double>(random() % 1440);
  const double fraction = std::ldexp(static_cast<double>(random() >> 11), -53);
  switch (random() % 6) {
    case 0: return 0;
    case 1: return second;
    case 2: return second + fraction;
    case 3: return minute + std::ldexp(fraction, -20);
    case 4: return minute + 60 - std::ldexp(fraction, -20);
    default: return minute;
  }
}

// Values that lie at the edges of what is ordinary, and far outside.
std::vector<double> edge_values() {
  std::vector<double> values = test::special_values();
  const double edges[] = {
      0,    kDay,   2 * kDay, test::on(2000, 2, 29),   (kDays + 1) * kDay, kDays * kDay,
      1e17, 36'000, 360'000,  std::ldexp(1, 31) * 128, std::ldexp(1, 32),  std::ldexp(1, 52)};
  for (double edge : edges) {
    for (double value : {edge, -edge}) {
      values.push_back(value);
      double below = value;
      double above = value;
      for (int i = 0; i < 40; ++i) {
        values.push_back(below = std::nextafter(below, -test::kInfinity));
        values.push_back(above = std::nextafter(above, test::kInfinity));
      }
      for (const double step : {0.5, 1.0, 59.0, 60.0, 3600.0, 86399.0, 86400.0}) {
        values.push_back(value - step);
        values.push_back(value + step);
      }
    }
  }
  return values;
}

// Mostly the widths at which a text changes its shape.
std::int64_t some_width(const Way& way, std::mt19937_64& random) {
  if (random() % 4 == 0) return static_cast<std::int64_t>(random() % 41);
  return way.width + static_cast<std::int64_t>(random() % 9) - 4;
}

std::int64_t some_decimals(std::mt19937_64& random) {
  return static_cast<std::int64_t>(random() % 19) - 1;
}

class FastWriting : public testing::Test {
 protected:
  const test::RecordsGuard guard_;
};

// Every stride-th day with one of its times and as a whole day.
void walk_days(std::int64_t stride, bool every_format) {
  std::mt19937_64 random = test::random_source();
  SCOPED_TRACE(test::seed_text());
  for (std::int64_t day = 1; day <= kDays && !testing::Test::HasFailure(); day += stride) {
    const double midnight = static_cast<double>(day) * kDay;
    for (const Way& way : kWays) {
      if (!every_format && way.type != kWays[static_cast<std::size_t>(day) % std::size(kWays)].type)
        continue;
      expect_same(way, way.width, 0, midnight);
      expect_same(way, way.width, 0, midnight + some_time(random));
      expect_same(way, some_width(way, random), some_decimals(random),
                  midnight + some_time(random));
    }
  }
}

TEST_F(FastWriting, EveryThirteenthDayInOneFormat) { walk_days(13, false); }

// Times of day, and what TIME takes for hours beyond a day.
TEST_F(FastWriting, EverySecondOfADay) {
  std::mt19937_64 random = test::random_source();
  SCOPED_TRACE(test::seed_text());
  for (std::int64_t second = 0; second < 86400 && !HasFailure(); ++second) {
    const auto seconds = static_cast<double>(second);
    for (const Way& way : kWays) {
      expect_same(way, way.width, 0, test::on(2024, 2, 29) + seconds);
      expect_same(way, way.width, 0, seconds);
      expect_same(way, way.width, 2, seconds + some_time(random));
      expect_same(way, some_width(way, random), some_decimals(random), seconds + some_time(random));
    }
  }
}

// Hours and days of one to three digits.
void write_times(int count) {
  std::mt19937_64 random = test::random_source();
  SCOPED_TRACE(test::seed_text());
  for (int i = 0; i < count && !testing::Test::HasFailure(); ++i) {
    for (const Way& way : kWays) {
      if (way.type != Format::TIME && way.type != Format::DTIME) continue;
      const std::uint64_t unit = way.type == Format::TIME ? 3600 : 86400;
      const auto whole = static_cast<double>(random() % (random() % 2 ? 110 : 11) * unit);
      const double hundredths = static_cast<double>(random() % 8'640'000) / 100;
      const double value = whole + (random() % 2 ? hundredths : some_time(random));
      const bool negative = random() % 16 == 0;
      expect_same(way, some_width(way, random), some_decimals(random), negative ? -value : value);
    }
  }
}

TEST_F(FastWriting, TimesAndDurations) { write_times(200'000); }

// Half of them within a thousand units in the last place of where a digit or its rounding changes.
void write_fractions(int count) {
  std::mt19937_64 random = test::random_source();
  SCOPED_TRACE(test::seed_text());
  for (int i = 0; i < count && !testing::Test::HasFailure(); ++i) {
    const Way& way = kWays[std::size(kWays) - 1 - random() % 2];
    const std::uint64_t decimals = random() % 9;
    const double unit = std::pow(10.0, static_cast<double>(decimals));
    const auto whole = static_cast<double>(random() % 360'000 >> random() % 20);
    double value = whole + std::ldexp(static_cast<double>(random() >> 11), -53);
    if (random() % 2 == 0) {
      const auto halves = static_cast<double>(random() % static_cast<std::uint64_t>(2 * unit));
      value = std::bit_cast<double>(std::bit_cast<std::uint64_t>(whole + halves / 2 / unit) +
                                    random() % 2001 - 1000);
    }
    const std::uint64_t more = random() % 4 == 0 ? random() % 20 : 0;
    const auto width = way.width + static_cast<std::int64_t>(1 + decimals + more);
    expect_same(way, width, static_cast<std::int64_t>(decimals), value);
  }
}

TEST_F(FastWriting, FractionsOfSeconds) { write_fractions(1'000'000); }

TEST_F(FastWriting, EdgesUnderEveryWidthDecimalsAndSettings) {
  const std::vector<double> values = edge_values();
  for (const char decimal : {'.', ','}) {
    for (const double missing : {test::kMissing, kDay, 13'166'064'000.0, 0.0, -1.0, test::kNan}) {
      cmnloc_.decimal = decimal;
      cmnglb_.system_missing = missing;
      cmasys_.system_missing = decimal == '.' ? '?' : '.';
      cmndtm_.century_begin = decimal == '.' ? 1900 : 9950;
      for (const Way& way : kWays) {
        for (std::size_t i = 0; i < values.size(); ++i) {
          const auto n = static_cast<std::int64_t>(i);
          const std::int64_t width = n % 3 == 0 ? n / 3 % 41 : way.width + n % 7 - 3;
          expect_same(way, width, n % 5 - 1, values[i]);
        }
        expect_same(way, way.width, 0, missing);
        expect_same(way, way.width, 0, 13'166'064'000.0);
        expect_same(way, -3, 0, kDay);
      }
    }
  }
}

TEST_F(FastWriting, EveryDoorIsTheSame) {
  std::mt19937_64 random = test::random_source();
  SCOPED_TRACE(test::seed_text());
  for (const Way& way : kWays) {
    for (int i = 0; i < 20'000; ++i) {
      const auto day = static_cast<double>(random() % (kDays + 100));
      expect_same_elsewhere(way, way.width, 0, day * kDay + some_time(random));
      expect_same_elsewhere(way, some_width(way, random), some_decimals(random),
                            day * kDay + some_time(random));
    }
    for (const double value : edge_values()) {
      expect_same_elsewhere(way, way.width, 0, value);
      expect_same_elsewhere(way, some_width(way, random), some_decimals(random), value);
    }
  }
}

// A column leaves the records alone.
TEST_F(FastWriting, ColumnsAreTheSame) {
  constexpr std::size_t kCount = 50;
  constexpr std::size_t kStride = 44;
  std::mt19937_64 random = test::random_source();
  SCOPED_TRACE(test::seed_text());
  const std::vector<double> edges = edge_values();
  const std::unique_ptr<iocv_settings, void (*)(iocv_settings*)> settings(iocv_settings_new(),
                                                                          iocv_settings_free);
  for (int i = 0; i < 10'000 && !HasFailure(); ++i) {
    const Way& way = kWays[random() % std::size(kWays)];
    const std::int64_t width = random() % 2 ? way.width : some_width(way, random);
    const std::int64_t decimals = some_decimals(random);
    const bool is_time = way.type == Format::TIME || way.type == Format::DTIME;
    std::vector<double> values(kCount);
    for (double& value : values) {
      value =
          static_cast<double>(random() % (is_time ? 100 : kDays + 9)) * (is_time ? 3600 : kDay) +
          some_time(random);
      if (random() % 16 == 0) value = edges[random() % edges.size()];
    }
    std::string fields(kCount * kStride, '\x5A');
    std::vector<std::int32_t> statuses(kCount);
    const IocvDateRecord before = cmndtm_;
    iocv_write_column(values.data(), kCount, way.type, width, decimals, settings.get(),
                      fields.data(), kStride, statuses.data(), nullptr);
    EXPECT_EQ(std::memcmp(&before, &cmndtm_, sizeof before), 0);
    for (std::size_t n = 0; n < kCount; ++n) {
      const Left plain = left_by(way.plain, way, width, decimals, values[n]);
      const std::string_view field(fields.data() + n * kStride, kStride);
      EXPECT_TRUE(field == std::string_view(plain.around + 4, kStride) &&
                  statuses[n] == plain.status)
          << way.type << ' ' << width << '.' << decimals << ' ' << test::described(values[n]);
    }
  }
}

TEST_F(FastWriting, AnyBits) {
  std::mt19937_64 random = test::random_source();
  SCOPED_TRACE(test::seed_text());
  for (int i = 0; i < 200'000; ++i) {
    const Way& way = kWays[random() % std::size(kWays)];
    expect_same(way, way.width, 0, test::any_double(random));
    expect_same(way, way.width, 0, std::ldexp(static_cast<double>(random()), -26));  // below 2^38
  }
}

TEST(LongFastWriting, EveryDayInEveryFormat) {
  const test::RecordsGuard guard;
  walk_days(1, true);
}

TEST(LongFastWriting, FractionsOfSeconds) { write_fractions(20'000'000); }

TEST(LongFastWriting, TimesAndDurations) { write_times(10'000'000); }

}  // namespace
