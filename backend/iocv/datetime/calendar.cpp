#include "datetime/calendar.h"

#include <iocv/calendar.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <optional>

#include "datetime/names.h"

namespace iocv {
namespace {

// x as an integer when it is a whole number of [low, high].
std::optional<std::int64_t> whole(double x, std::int64_t low, std::int64_t high) {
  if (!(x >= static_cast<double>(low) && x <= static_cast<double>(high))) return std::nullopt;
  const auto n = static_cast<std::int64_t>(x);
  return static_cast<double>(n) == x ? std::optional(n) : std::nullopt;
}

// Wraps: only a century window at the ends of the integers gets there.
std::int64_t wrapping_sum(std::int64_t a, std::int64_t b) {
  return static_cast<std::int64_t>(static_cast<std::uint64_t>(a) + static_cast<std::uint64_t>(b));
}

// Days from the month table's start to the day before month m of year y, without a leap day of y.
std::int64_t days_before(std::int64_t y, std::int64_t m) {
  const std::int64_t years = y * 365 + (y + 3) / 4 - (y + 99) / 100 + (y + 399) / 400;
  const std::int64_t months = (m + 2) * 3055 / 100;  // [91, 458]
  if (m <= 2) return years + months - 578192;
  return years + months - 578194 + (is_leap(y) ? 1 : 0);
}

}  // namespace

Read<double> day_number(double year, double month, double day, const Settings& settings) noexcept {
  const double missing = settings.system_missing;
  const Read<double> failure = {missing, Status::calendar_date};
  if (year == missing || month == missing || day == missing) return {missing, Status::ok};

  const std::optional<std::int64_t> y = whole(year, 0, kLastYear);
  const std::optional<std::int64_t> m = whole(month, 1, 13);
  const std::optional<std::int64_t> d = whole(day, 0, 31);
  if (!y || !m || !d) return failure;

  // A century window that a host has put far outside the years has no day numbers.
  constexpr std::int64_t kFarthest = std::int64_t{1} << 54;
  const std::int64_t full = full_year(*y, settings);
  if (full < -kFarthest || full > kFarthest) return failure;
  const double number = static_cast<double>(days_before(full, *m)) + day;
  // Years 100 to 1581 are taken as written, so all their days lie before the first.
  if (number + 1 == number || number <= 0) return failure;
  return {number, Status::ok};
}

std::int64_t full_year(std::int64_t year, const Settings& settings) noexcept {
  if (year > 99) return year;
  const std::int64_t begin = settings.century_begin;
  const std::int64_t century = begin / 100 * 100;
  const std::int64_t full = wrapping_sum(year, century);
  return full < begin ? wrapping_sum(full, 100) : full;
}

bool in_century(std::int64_t year, const Settings& settings) noexcept {
  const std::int64_t begin = settings.century_begin;
  return year >= begin && year <= wrapping_sum(begin, 99);
}

MonthDay month_and_day(std::int64_t year, std::int64_t day_of_year) noexcept {
  // Far outside any year nothing is promised but a month that no date has.
  std::int64_t d = std::clamp<std::int64_t>(day_of_year, -1'000'000'000, 1'000'000'000);
  const std::int64_t leap = is_leap(year) ? 1 : 0;
  if (d > 59 + leap) d += 2 - leap;  // as if February had 30 days
  const std::int64_t month = (d + 91) * 100 / 3055;
  return {month - 2, d + 91 - month * 3055 / 100};
}

CalendarDate date_of(double value) noexcept {
  const double bounded = std::abs(value) < kTooLarge ? value : kTooLarge;
  const auto day = static_cast<std::int64_t>(bounded / static_cast<double>(kSecondsPerDay));

  // Centuries of 146097 / 4 days, years of 1461 / 4 days, months of 153 / 5 days. The ranges in
  // brackets are those of values from 1 March of year 0 on.
  const std::int64_t t = 4 * (day + kDaysBeforeOrigin) - 1;
  const std::int64_t century = t / 146097;
  const std::int64_t t2 = 4 * (t % 146097 / 4) + 3;      // [3, 146099]
  const std::int64_t year = t2 / 1461;                   // [0, 99]
  const std::int64_t u = 5 * ((t2 % 1461 + 4) / 4) - 3;  // [2, 1827]
  const std::int64_t month = u / 153;                    // [0, 11], March first
  const std::int64_t in_next_year = month < 10 ? 0 : 1;
  return {100 * century + year + in_next_year, month + 3 - 12 * in_next_year, (u % 153 + 5) / 5};
}

ClockTime time_of(double value) noexcept {
  const double bounded = std::abs(value) < kTooLarge ? value : 0.0;
  const double of_day = std::fmod(bounded, static_cast<double>(kSecondsPerDay));
  const auto hour = static_cast<std::int64_t>(of_day / static_cast<double>(kSecondsPerHour));
  const double of_hour = of_day - static_cast<double>(kSecondsPerHour * hour);
  const auto minute = static_cast<std::int64_t>(of_hour / static_cast<double>(kSecondsPerMinute));
  return {hour, minute, of_hour - static_cast<double>(kSecondsPerMinute * minute)};
}

Breakdown break_down(double value) noexcept {
  const CalendarDate date = date_of(value);
  const ClockTime time = time_of(value);
  return {time.seconds, date.year, date.month, date.day, time.hour, time.minute};
}

namespace {

template <class T>
void store_relaxed(T& target, T value) {
  std::atomic_ref<T>(target).store(value, std::memory_order_relaxed);
}

void record_month_letters(std::int64_t month) {
  const std::string_view letters = month_letters(month);
  for (std::size_t i = 0; i < sizeof cmadtm_.month; ++i) {
    store_relaxed(cmadtm_.month[i], letters.empty() ? ' ' : letters[i]);
  }
}

}  // namespace

void record_missing(double missing) noexcept {
  store_relaxed(cmndtm_.seconds, missing);
  record_month_letters(std::atomic_ref(cmndtm_.month).load(std::memory_order_relaxed));
}

void record_breakdown(const Breakdown& fields) noexcept {
  store_relaxed(cmndtm_.seconds, fields.seconds);
  store_relaxed(cmndtm_.year, fields.year);
  store_relaxed(cmndtm_.month, fields.month);
  store_relaxed(cmndtm_.day, fields.day);
  store_relaxed(cmndtm_.hour, fields.hour);
  store_relaxed(cmndtm_.minute, fields.minute);
  record_month_letters(fields.month);
}

}  // namespace iocv

int VeltDay(int day, int month, int year) {
  const std::int64_t m = month < 3 ? std::int64_t{month} + 9 : std::int64_t{month} - 3;
  const std::int64_t y = month < 3 ? std::int64_t{year} - 1 : std::int64_t{year};
  return static_cast<int>(y / 100 * 146097 / 4 + y % 100 * 1461 / 4 + (153 * m + 2) / 5 + day -
                          iocv::kDaysBeforeOrigin);
}

extern "C" {

double yrmoda_(const double* year, const double* month, const double* day, std::int64_t* status) {
  const iocv::Read<double> read = iocv::day_number(*year, *month, *day, iocv::Settings::current());
  *status = static_cast<std::int64_t>(read.status);
  return read.value;
}

void obdtexp_(const double* value, std::int64_t* year, std::int64_t* month, std::int64_t* day,
              std::int64_t* hour, std::int64_t* minute, double* seconds) {
  if (*value == cmnglb_.system_missing) {
    *seconds = cmnglb_.system_missing;
    return;
  }
  const iocv::Breakdown fields = iocv::break_down(*value);
  *year = fields.year;
  *month = fields.month;
  *day = fields.day;
  *hour = fields.hour;
  *minute = fields.minute;
  *seconds = fields.seconds;
}

void obdtex_(const double* value) {
  if (*value == cmnglb_.system_missing) {
    iocv::record_missing(cmnglb_.system_missing);
  } else {
    iocv::record_breakdown(iocv::break_down(*value));
  }
}

void obdtxdate_(const double* value, std::int64_t* year, std::int64_t* month, std::int64_t* day) {
  const iocv::CalendarDate date = iocv::date_of(*value);
  *year = date.year;
  *month = date.month;
  *day = date.day;
}

void obdtxtime_(const double* value, std::int64_t* hour, std::int64_t* minute, double* seconds) {
  const iocv::ClockTime time = iocv::time_of(*value);
  *hour = time.hour;
  *minute = time.minute;
  *seconds = time.seconds;
}

void obcldr_(const std::int64_t* year, const std::int64_t* day_of_year, std::int64_t* month,
             std::int64_t* day) {
  const iocv::MonthDay date = iocv::month_and_day(*year, *day_of_year);
  *month = date.month;
  *day = date.day;
}

std::int64_t year4_(const std::int64_t* year) {
  return iocv::full_year(*year, iocv::Settings::current());
}

std::int64_t q2digy_(const std::int64_t* year) {
  return iocv::in_century(*year, iocv::Settings::current()) ? -1 : 0;
}

}  // extern "C"
