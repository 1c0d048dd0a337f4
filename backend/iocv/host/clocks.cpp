// The current date and time, elapsed and processor time.
#include <iocv/calendar.h>
#include <iocv/clocks.h>
#include <sys/resource.h>

#include <algorithm>
#include <atomic>
#include <ctime>
#include <mutex>
#include <string_view>

#include "datetime/calendar.h"
#include "frame/field.h"
#include "host/clock_source.h"
#include "numeric/encdic.h"

namespace iocv {
namespace {

constexpr std::string_view kMonths = "JanFebMarAprMayJunJulAugSepOctNovDec";

// No reading of the calendar lies before the second day of the clock.
constexpr std::int64_t kEarliest = kSecondsPerDay;

std::int64_t system_seconds() { return std::time(nullptr); }

ProcessorTime system_processor_time() {
  rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  return {usage.ru_utime, usage.ru_stime};
}

std::int64_t now() { return std::max(clock_source.seconds(), kEarliest); }

// Follows a change of zone as localtime does, without the record that all threads share. One thread
// at a time, because tzset replaces the zone that localtime_r reads.
std::tm local_fields(std::int64_t seconds) {
  static constinit std::mutex mutex;
  const std::lock_guard lock(mutex);
  const std::time_t clock = seconds;
  std::tm fields = {};
  tzset();
  localtime_r(&clock, &fields);
  return fields;
}

void write_clock(Field date, Field time) {
  const std::tm fields = local_fields(now());
  write_two_digits(date, 0, fields.tm_mday);
  date.put(2, ' ');
  const std::string_view month = kMonths.substr(3 * static_cast<std::size_t>(fields.tm_mon), 3);
  for (std::size_t i = 0; i < month.size(); ++i) {
    date.put(3 + static_cast<std::int64_t>(i), month[i]);
  }
  date.put(6, ' ');
  write_two_digits(date, 7, fields.tm_year % 100);
  write_two_digits(time, 0, fields.tm_hour);
  time.put(2, ':');
  write_two_digits(time, 3, fields.tm_min);
  time.put(5, ':');
  write_two_digits(time, 6, fields.tm_sec);
}

std::int64_t milliseconds(const timeval& time) {
  return std::int64_t{time.tv_sec} * 1000 + time.tv_usec / 1000;
}

constinit std::atomic<std::int64_t> start_mark = 0;

}  // namespace

constinit ClockSource clock_source = {system_seconds, system_processor_time};

std::int64_t local_offset(std::int64_t now) noexcept {
  const std::tm fields = local_fields(now);
  const std::int64_t day = VeltDay(fields.tm_mday, fields.tm_mon + 1, fields.tm_year + 1900);
  return (day - kUnixOriginDay) * kSecondsPerDay + fields.tm_hour * kSecondsPerHour +
         fields.tm_min * kSecondsPerMinute + fields.tm_sec - now;
}

}  // namespace iocv

extern "C" {

int CClockC(char date[9], char time[8]) {
  iocv::write_clock({date, 9}, {time, 8});
  return 8;
}

std::int64_t cclock_(char* date, char* time, std::int64_t date_length, std::int64_t time_length) {
  iocv::write_clock({date, std::min<std::int64_t>(date_length, 9)},
                    {time, std::min<std::int64_t>(time_length, 8)});
  return 8;
}

void bclock_(std::int64_t date[3], std::int64_t time[3]) {
  const std::tm fields = iocv::local_fields(iocv::now());
  date[0] = fields.tm_mday;
  date[1] = fields.tm_mon + 1;
  date[2] = fields.tm_year % 100;
  time[0] = fields.tm_hour;
  time[1] = fields.tm_min;
  time[2] = fields.tm_sec;
}

double sclock_() {
  const std::int64_t now = iocv::now();
  static const std::int64_t offset = iocv::local_offset(now);
  return static_cast<double>(now + offset) + static_cast<double>(iocv::kUnixOrigin);
}

void timset_() { iocv::start_mark.store(iocv::clock_source.seconds(), std::memory_order_relaxed); }

void timtot_(std::int64_t* cpu, std::int64_t* elapsed) {
  const iocv::ProcessorTime used = iocv::clock_source.processor_time();
  const std::int64_t passed =
      iocv::clock_source.seconds() - iocv::start_mark.load(std::memory_order_relaxed);
  *cpu = std::max<std::int64_t>(iocv::milliseconds(used.user) + iocv::milliseconds(used.system), 0);
  *elapsed = std::max<std::int64_t>(passed * 1000, 0);
}

}  // extern "C"
