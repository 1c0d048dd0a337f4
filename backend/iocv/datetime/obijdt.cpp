#include "datetime/obijdt.h"

#include <iocv/date_input.h>

#include "datetime/read_period.h"
#include "frame/leaf.h"

namespace iocv {
namespace {

constexpr std::int64_t kYearUnit = 1000;  // a year and a day in one number: yyyyddd
constexpr std::int64_t kLastDay = 366;    // in any year

struct YearAndDay {
  std::int64_t year;
  std::int64_t day;
};

// Day 0, the last one of the year before, can be written in this form only.
std::optional<YearAndDay> split(std::int64_t number) {
  if (number % kYearUnit > kLastDay) return std::nullopt;
  return YearAndDay{number / kYearUnit, number % kYearUnit};
}

std::optional<YearAndDay> take_day(std::int64_t year, Scanner& scanner) {
  const TokenType separator = scanner.next().type;
  if (separator != TokenType::decimal_mark && separator != TokenType::date_separator) {
    return std::nullopt;
  }
  const std::optional<std::int64_t> day = number_between(scanner.next(), 1, kLastDay);
  return day ? std::optional(YearAndDay{year, *day}) : std::nullopt;
}

// The number of digits tells the form.
std::optional<YearAndDay> take_year_and_day(const Token& first, Scanner& scanner) {
  if (first.type != TokenType::number) return std::nullopt;
  const auto number = [&first] { return static_cast<std::int64_t>(first.value); };
  switch (first.length) {
    case 5:
    case 7: return split(number());  // [0, 9999999]
    case 2:
    case 4: return take_day(number(), scanner);
    default: return std::nullopt;
  }
}

std::optional<double> take_jdate(const Token& first, Scanner& scanner, const Settings& settings) {
  const std::optional<YearAndDay> read = take_year_and_day(first, scanner);
  if (!read) return std::nullopt;
  const std::optional<std::int64_t> year =
      year_named(static_cast<double>(read->year), kLastYear, settings);
  if (!year) return std::nullopt;
  const Read<double> before = day_number(static_cast<double>(*year), 1, 0, settings);
  if (before.status != Status::ok) return std::nullopt;
  return (before.value + static_cast<double>(read->day)) * kSecondsPerDay;
}

}  // namespace

DateRead read_jdate_plain(std::string_view field, std::int64_t, const Settings& settings) noexcept {
  return read_period(field, Status::jdate_text, settings, take_jdate);
}

}  // namespace iocv

extern "C" void obijdt_(const char* text, const std::int64_t* width, double* value,
                        std::int64_t* status, std::int64_t* position, std::int64_t) {
  iocv::store(iocv::read_jdate(iocv::input_field(text, *width), 0, iocv::Settings::current()),
              value, status, position);
}
