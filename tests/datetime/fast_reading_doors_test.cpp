// The doors above the fast ways of dates and times as input, beside the plain ways.
#include <iocv/column.h>

#include "fast_reading.h"

namespace {

using namespace test::fast_reading;

class FastReadingDoors : public testing::Test {
 protected:
  void expect_same(const Way& way, std::string_view text) { fields_.expect_same(way, text); }

 private:
  const test::RecordsGuard guard_;
  AllFields fields_;
};

TEST_F(FastReadingDoors, EveryWidthAndSettings) {
  std::mt19937_64 random = test::random_source();
  SCOPED_TRACE(test::seed_text());
  const double missing[] = {iocv::kSystemMissing, 1,   12,    15,    2001, 0, -0.0, -1, NAN, -NAN,
                            13'191'292'800,       1e3, -1e-9, 86'400};
  for (const char decimal : {'.', ','}) {
    for (const double number : missing) {
      cmnloc_.decimal = decimal;
      cmnglb_.system_missing = number;
      cmndtm_.century_begin = decimal == '.' ? 1900 : 1950;
      for (const Way& way : kWays) {
        for (const Parts parts :
             {Parts{15, 1, 2001}, Parts{1, 12, 2001, 12}, Parts{12, 9, 2015, 1}}) {
          const std::string text = composed(way.pattern, parts);
          for (std::size_t width = 0; width <= text.size(); ++width) {
            expect_same(way, std::string_view(text).substr(0, width));
            expect_same(way, std::string(width, ' ') + text);
            expect_same(way, text + std::string(width, ' '));
          }
          expect_same(way, text + "x");
          for (int i = 0; i < 50; ++i) expect_same(way, disturbed(text, random));
        }
      }
    }
  }
}

iocv::DateRead read_by_core(const Way& way, std::string_view text, bool fast) {
  using namespace iocv;
  const Settings settings;
  const auto code = static_cast<FormatCode>(way.type);
  switch (way.type) {
    case Format::DATETIME:
    case kYearFirst: return (fast ? read_datetime : read_datetime_plain)(text, 0, code, settings);
    case Format::TIME: return (fast ? read_time : read_time_plain)(text, 0, settings);
    case Format::JDATE: return (fast ? read_jdate : read_jdate_plain)(text, 0, settings);
    case Format::MONTH: return (fast ? read_month : read_month_plain)(text, 0, settings);
    case Format::MOYR: return (fast ? read_moyr : read_moyr_plain)(text, 0, settings);
    case Format::QYR: return (fast ? read_qyr : read_qyr_plain)(text, 0, settings);
    case Format::WKYR: return (fast ? read_wkyr : read_wkyr_plain)(text, 0, settings);
    case Format::DTIME: return (fast ? read_dtime : read_dtime_plain)(text, 0, settings);
    default: return (fast ? read_date : read_date_plain)(text, 0, code, settings);
  }
}

// The core that columns call, with the position of what it read.
TEST_F(FastReadingDoors, TheCoreAnswersAsItsPlainWay) {
  std::mt19937_64 random = test::random_source();
  SCOPED_TRACE(test::seed_text());
  const auto expect_same_core = [](const Way& way, const std::string& text) {
    const iocv::DateRead fast = read_by_core(way, text, true);
    const iocv::DateRead plain = read_by_core(way, text, false);
    ASSERT_TRUE(fast.value == plain.value && fast.status == plain.status &&
                (fast.value == iocv::kSystemMissing || fast.position == plain.position))
        << way.type << ' ' << text;
  };
  for (int i = 0; i < 100'000 && !HasFatalFailure(); ++i) {
    const Way& way = kWays[random() % std::size(kWays)];
    const auto part = [&](unsigned last) { return static_cast<unsigned>(1 + random() % last); };
    std::string text = composed(way.pattern, {part(31), part(12), 1580 + part(500), part(90'000)});
    if (i % 2 == 0) text = disturbed(text, random);
    expect_same_core(way, text);
    const Way& period = kPeriods[random() % std::size(kPeriods)];
    expect_same_core(period, some_period(period.type, random));
    expect_same_core(way, some_date(way.type, random) + some_time(random));
  }
}

int read_by_convert(const Way& way, const std::string& text, double& value) {
  OBS stored = {.number = 4711};
  const int status =
      IocvConvertInput(text.data(), static_cast<unsigned>(text.size()), way.type, 0, &stored);
  value = stored.number;
  return status;
}

TEST_F(FastReadingDoors, OtherDoorsAndColumnsAnswerAsThePlainWay) {
  constexpr std::size_t kCount = 50;
  std::mt19937_64 random = test::random_source();
  SCOPED_TRACE(test::seed_text());
  cmndtm_.century_begin = 1950;
  const std::unique_ptr<iocv_settings, void (*)(iocv_settings*)> settings(iocv_settings_new(),
                                                                          iocv_settings_free);
  const auto some_text = [&](const Way& way, std::size_t width) {
    const bool has_date = way.pattern.find('y') != std::string_view::npos;
    const auto part = [&](unsigned last) { return static_cast<unsigned>(1 + random() % last); };
    std::string text;
    if (&way >= std::begin(kPeriods) && &way < std::end(kPeriods)) {
      text = some_period(way.type, random);
    } else if (random() % 2 == 0) {
      text = composed(way.pattern, {part(31), part(12), 1580 + part(500), part(90'000)});
    } else {
      text = (has_date ? some_date(way.type, random) : "") +
             (way.pattern.find('H') != std::string_view::npos ? some_time(random) : "");
    }
    text.resize(width, ' ');
    return text;
  };
  const auto expect_same_column = [&](const Way& way) {
    const std::size_t usual = way.pattern.size();
    const std::size_t width =
        random() % 2 ? usual : std::max<std::size_t>(usual + random() % 9, 4) - 4;
    std::string fields;
    for (std::size_t n = 0; n < kCount; ++n) fields += some_text(way, width);
    std::vector<double> values(kCount);
    std::vector<std::int32_t> statuses(kCount);
    iocv_read_column(fields.data(), width, kCount, way.type, static_cast<std::int64_t>(width), 0,
                     settings.get(), values.data(), statuses.data(), nullptr);
    for (std::size_t n = 0; n < kCount; ++n) {
      const std::string text = fields.substr(n * width, width);
      const Reading plain =
          read_by(way.plain, way.type, text.data(), static_cast<std::int64_t>(width));
      double converted = 0;
      const int status = read_by_convert(way, text, converted);
      EXPECT_EQ((Reading{std::bit_cast<std::uint64_t>(values[n]), statuses[n]}), plain) << text;
      EXPECT_EQ((Reading{std::bit_cast<std::uint64_t>(converted), status}), plain) << text;
    }
  };
  for (int i = 0; i < 1000 && !HasFailure(); ++i) {
    for (const Way& way : kWays) expect_same_column(way);
    for (const Way& way : kPeriods) expect_same_column(way);
  }
}

}  // namespace
