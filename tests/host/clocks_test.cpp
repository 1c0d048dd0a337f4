// The clocks, with a clock and zones of the test's own.
#include <iocv/iocv.h>
#include <sys/resource.h>

#include <cstdlib>
#include <ctime>
#include <thread>

#include "datetime/calendar.h"
#include "host/clock_source.h"
#include "support/guarded.h"

namespace {

constexpr double kUnixOrigin = 12219379200.0;

std::int64_t fake_seconds = 0;
iocv::ProcessorTime fake_processor_time = {};

// Replaces the clock in its scope.
class FakeClock {
 public:
  explicit FakeClock(std::int64_t seconds) {
    fake_seconds = seconds;
    fake_processor_time = {};
    iocv::clock_source = {[] { return fake_seconds; }, [] { return fake_processor_time; }};
  }
  ~FakeClock() { iocv::clock_source = before_; }
  FakeClock(const FakeClock&) = delete;
  FakeClock& operator=(const FakeClock&) = delete;

 private:
  iocv::ClockSource before_ = iocv::clock_source;
};

// Sets the zone in its scope; whoever asks for the local time has to notice.
class Zone {
 public:
  explicit Zone(const char* name) {
    if (const char* before = std::getenv("TZ")) before_ = before;
    setenv("TZ", name, 1);
  }
  ~Zone() {
    if (before_.empty()) {
      unsetenv("TZ");
    } else {
      setenv("TZ", before_.c_str(), 1);
    }
  }
  Zone(const Zone&) = delete;
  Zone& operator=(const Zone&) = delete;

 private:
  std::string before_;
};

constexpr const char* kIndia = "IST-5:30";
constexpr const char* kNewYork = "EST5EDT,M3.2.0,M11.1.0";
constexpr const char* kAuckland = "NZST-12NZDT,M9.5.0,M4.1.0/3";

constexpr std::int64_t kNovember = 1793869623;  // 5 November 2026 09:07:03 UTC

struct ClockCase {
  const char* zone;
  std::int64_t seconds;
  const char* date;
  const char* time;
  std::array<std::int64_t, 3> date_fields;
  std::array<std::int64_t, 3> time_fields;
};

const ClockCase kClockCases[] = {
    {"UTC0", kNovember, "05 Nov 26", "09:07:03", {5, 11, 26}, {9, 7, 3}},
    {kIndia, kNovember, "05 Nov 26", "14:37:03", {5, 11, 26}, {14, 37, 3}},
    {kNewYork, kNovember, "05 Nov 26", "04:07:03", {5, 11, 26}, {4, 7, 3}},
    {kAuckland, kNovember, "05 Nov 26", "22:07:03", {5, 11, 26}, {22, 7, 3}},
    // Daylight-saving time follows the calendar at each call.
    {kNewYork, kNovember - 120 * 86400, "08 Jul 26", "05:07:03", {8, 7, 26}, {5, 7, 3}},
    {"UTC0", 946684799, "31 Dec 99", "23:59:59", {31, 12, 99}, {23, 59, 59}},
    {"UTC0", 946684800, "01 Jan 00", "00:00:00", {1, 1, 0}, {0, 0, 0}},
    {"UTC0", 951782400, "29 Feb 00", "00:00:00", {29, 2, 0}, {0, 0, 0}},
    // A clock before its second day counts as that.
    {"UTC0", 0, "02 Jan 70", "00:00:00", {2, 1, 70}, {0, 0, 0}},
    {"UTC0", 86399, "02 Jan 70", "00:00:00", {2, 1, 70}, {0, 0, 0}},
    {"UTC0", 86401, "02 Jan 70", "00:00:01", {2, 1, 70}, {0, 0, 1}},
    {"UTC0", -1, "02 Jan 70", "00:00:00", {2, 1, 70}, {0, 0, 0}},
    {kNewYork, 0, "01 Jan 70", "19:00:00", {1, 1, 70}, {19, 0, 0}},
};

TEST(Clocks, TextAndFieldsOfTheLocalTime) {
  for (const ClockCase& c : kClockCases) {
    SCOPED_TRACE(testing::Message() << c.zone << " " << c.seconds);
    const Zone zone(c.zone);
    const FakeClock clock(c.seconds);
    const test::Guarded date(9);
    const test::Guarded time(8);
    EXPECT_EQ(CClockC(date.data(), time.data()), 8);
    EXPECT_EQ(date.text(), c.date);
    EXPECT_EQ(time.text(), c.time);
    std::memset(date.data(), '#', 9);
    std::memset(time.data(), '#', 8);
    EXPECT_EQ(cclock_(date.data(), time.data(), 9, 8), 8);
    EXPECT_EQ(date.text(), c.date);
    EXPECT_EQ(time.text(), c.time);
    std::array<std::int64_t, 3> date_fields;
    std::array<std::int64_t, 3> time_fields;
    bclock_(date_fields.data(), time_fields.data());
    EXPECT_EQ(date_fields, c.date_fields);
    EXPECT_EQ(time_fields, c.time_fields);
  }
}

TEST(Clocks, TextsKeepToTheLengthsOfTheirBuffers) {
  const Zone zone("UTC0");
  const FakeClock clock(kNovember);
  for (std::int64_t date_length = -1; date_length <= 12; ++date_length) {
    for (std::int64_t time_length = -1; time_length <= 12; ++time_length) {
      const auto size = [](std::int64_t n) {
        return static_cast<std::size_t>(std::max<std::int64_t>(n, 0));
      };
      const test::Guarded date(size(date_length));
      const test::Guarded time(size(time_length));
      EXPECT_EQ(cclock_(date.data(), time.data(), date_length, time_length), 8);
      const std::string rest(4, test::Guarded::kSentinel);
      EXPECT_EQ(date.text(), ("05 Nov 26" + rest).substr(0, date.size()));
      EXPECT_EQ(time.text(), ("09:07:03" + rest).substr(0, time.size()));
    }
  }
}

TEST(Clocks, MonthNamesAreInMixedCase) {
  const Zone zone("UTC0");
  constexpr const char* kNames[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                    "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  for (int month = 0; month < 12; ++month) {
    std::tm fields = {};
    fields.tm_year = 104;
    fields.tm_mon = month;
    fields.tm_mday = 7;
    const FakeClock clock(timegm(&fields));
    char date[9];
    char time[8];
    CClockC(date, time);
    EXPECT_EQ(std::string(date, 9), std::string("07 ") + kNames[month] + " 04");
  }
}

// Local time less the clock, without the library.
std::int64_t reference_offset(std::int64_t seconds) {
  const std::time_t clock = seconds;
  std::tm fields = {};
  tzset();
  localtime_r(&clock, &fields);
  return timegm(&fields) - clock;
}

TEST(Clocks, TheLocalOffsetIsThatOfTheZoneInForce) {
  for (const char* name : {"UTC0", kIndia, kNewYork, kAuckland, "XXX23:59:58", "YYY-23:59:58"}) {
    const Zone zone(name);
    for (std::int64_t seconds = 86400; seconds < 6'000'000'000; seconds += 12'345'677) {
      ASSERT_EQ(iocv::local_offset(seconds), reference_offset(seconds)) << name << " " << seconds;
    }
  }
  const Zone zone(kIndia);
  EXPECT_EQ(iocv::local_offset(kNovember), 5 * 3600 + 30 * 60);
}

TEST(Clocks, TheStoredDateKeepsTheOffsetOfLoading) {
  const auto offset = static_cast<double>(reference_offset(std::time(nullptr)));
  const FakeClock clock(kNovember);
  EXPECT_EQ(sclock_(), kNovember + offset + kUnixOrigin);
  EXPECT_EQ(sclock_(), sclock_());
  {
    const Zone zone(offset == 19800 ? kNewYork : kIndia);
    EXPECT_EQ(sclock_(), kNovember + offset + kUnixOrigin);
    fake_seconds = kNovember + 180 * 86400 + 1;
    EXPECT_EQ(sclock_(), static_cast<double>(fake_seconds) + offset + kUnixOrigin);
  }
  for (const std::int64_t early : {std::int64_t{0}, std::int64_t{86399}, std::int64_t{-5}}) {
    fake_seconds = early;
    EXPECT_EQ(sclock_(), 86400 + offset + kUnixOrigin);
  }
}

TEST(Clocks, TheSystemsClockIsTheSource) {
  const double before = static_cast<double>(std::time(nullptr));
  const auto offset = static_cast<double>(reference_offset(std::time(nullptr)));
  const double now = sclock_() - offset - kUnixOrigin;
  EXPECT_GE(now, before);
  EXPECT_LE(now, static_cast<double>(std::time(nullptr)));
  EXPECT_EQ(now, std::trunc(now));

  // Some processor time has to be used before it shows.
  volatile double sink = 1;
  for (int i = 0; i < 20'000'000; ++i) sink = sink * 1.0000001;
  rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  const std::int64_t used = usage.ru_utime.tv_sec * 1000 + usage.ru_utime.tv_usec / 1000 +
                            usage.ru_stime.tv_sec * 1000 + usage.ru_stime.tv_usec / 1000;
  std::int64_t cpu = -7;
  std::int64_t elapsed = -7;
  timset_();
  timtot_(&cpu, &elapsed);
  EXPECT_GE(cpu, used);
  EXPECT_LE(cpu, used + 2000);
  EXPECT_GT(cpu, 0);
  EXPECT_TRUE(elapsed == 0 || elapsed == 1000) << elapsed;
}

TEST(Clocks, LoadingLeavesTheCurrentDateInTheRecord) {
  const std::time_t clock = std::time(nullptr);
  std::tm now = {};
  localtime_r(&clock, &now);
  const auto field = [](std::int64_t n) { return static_cast<double>(n); };
  const double recorded =
      iocv::day_number(field(cmndtm_.year), field(cmndtm_.month), field(cmndtm_.day), {}).value *
          86400 +
      field(cmndtm_.hour) * 3600 + field(cmndtm_.minute) * 60 + cmndtm_.seconds;
  const double expected = field(clock) + field(reference_offset(clock)) + kUnixOrigin;
  EXPECT_LE(recorded, expected);
  EXPECT_GE(recorded, expected - 600);
  constexpr const char* kNames[] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                    "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
  EXPECT_EQ(std::string(cmadtm_.month, 3), kNames[cmndtm_.month - 1]);
  EXPECT_EQ(cmndtm_.century_begin, 1900);
  EXPECT_EQ(cmndtm_.century_mode, 1);
}

TEST(Timers, CountFromTheStartMarkInWholeSeconds) {
  FakeClock clock(0);
  std::int64_t cpu = -7;
  std::int64_t elapsed = -7;
  timset_();  // at the epoch, where a process begins without a mark
  timtot_(&cpu, &elapsed);
  EXPECT_EQ(elapsed, 0);  // the clock is not raised here
  fake_seconds = 100;
  timtot_(&cpu, &elapsed);
  EXPECT_EQ(elapsed, 100'000);
  timset_();
  timtot_(&cpu, &elapsed);
  EXPECT_EQ(elapsed, 0);
  fake_seconds = 103;
  timtot_(&cpu, &elapsed);
  EXPECT_EQ(elapsed, 3000);
  fake_seconds = 99;  // set back meanwhile
  timtot_(&cpu, &elapsed);
  EXPECT_EQ(elapsed, 0);
}

TEST(Timers, ProcessorTimeAddsUserAndSystemMilliseconds) {
  const FakeClock clock(0);
  struct Case {
    iocv::ProcessorTime time;
    std::int64_t cpu;
  };
  const Case kCases[] = {
      {{{1, 0}, {0, 0}}, 1000},    {{{0, 0}, {2, 0}}, 2000}, {{{1, 500'000}, {2, 250'000}}, 3750},
      {{{0, 999}, {0, 999}}, 0},  // each is cut to milliseconds before they are added
      {{{0, 1999}, {0, 1999}}, 2}, {{{-1, 0}, {0, 0}}, 0},
  };
  for (const Case& c : kCases) {
    fake_processor_time = c.time;
    std::int64_t cpu = -7;
    std::int64_t elapsed = -7;
    timtot_(&cpu, &elapsed);
    EXPECT_EQ(cpu, c.cpu);
  }
}

TEST(ClocksThreads, MayBeReadAtOnce) {
  std::vector<std::thread> threads;
  for (int i = 0; i < 8; ++i) {
    threads.emplace_back([] {
      for (int pass = 0; pass < 200; ++pass) {
        char date[9];
        char time[8];
        std::int64_t fields[6];
        std::int64_t cpu = 0;
        std::int64_t elapsed = 0;
        EXPECT_EQ(CClockC(date, time), 8);
        bclock_(fields, fields + 3);
        EXPECT_GT(sclock_(), kUnixOrigin);
        timset_();
        timtot_(&cpu, &elapsed);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

// Ends with 0 when a process that starts in this zone has its local time.
void exit_with_offset_error(std::int64_t expected) {
  const FakeClock clock(kNovember);
  const auto offset = static_cast<std::int64_t>(sclock_() - kUnixOrigin) - kNovember;
  std::_Exit(offset == expected ? 0 : 1);
}

TEST(ClocksDeathTest, AProcessTakesTheOffsetOfItsZoneWhenItLoadsTheLibrary) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";  // a new process, which loads anew
  const Zone zone(kIndia);
  EXPECT_EXIT(exit_with_offset_error(5 * 3600 + 30 * 60), testing::ExitedWithCode(0), "");
}

TEST(ClocksDeathTest, ElapsedTimeBeforeAnyMarkCountsFromTheEpoch) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(
      {
        const FakeClock clock(12);
        std::int64_t cpu = 0;
        std::int64_t elapsed = 0;
        timtot_(&cpu, &elapsed);
        std::_Exit(elapsed == 12'000 ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

}  // namespace
