#include "datetime/obimon.h"

#include <iocv/date_input.h>

#include "datetime/month_word.h"
#include "datetime/read_period.h"
#include "frame/leaf.h"

namespace iocv {
namespace {

bool is_name(const Token& token) {
  return token.type == TokenType::word && token.length <= kLongestName;
}

std::optional<std::int64_t> month_of(const Token& token) {
  if (!is_name(token)) return number_between(token, 1, kMonths);
  const std::int64_t month = month_of_word(token.text);
  return month != 0 ? std::optional(month) : std::nullopt;
}

bool separates_year(const Token& token) {
  return token.type == TokenType::blanks || token.type == TokenType::decimal_mark ||
         token.type == TokenType::date_separator;
}

std::optional<double> take_month(const Token& first, Scanner&, const Settings&) {
  return month_of(first);
}

std::optional<double> take_month_and_year(const Token& first, Scanner& scanner,
                                          const Settings& settings) {
  const std::optional<std::int64_t> month = month_of(first);
  if (!month || !separates_year(scanner.next())) return std::nullopt;
  const std::optional<std::int64_t> year = year_of(scanner.next(), settings);
  if (!year) return std::nullopt;
  return stored_date(*year, *month, 1, settings);
}

std::optional<double> take_weekday(const Token& first, Scanner&, const Settings&) {
  const std::int64_t day = is_name(first) ? weekday_of_word(first.text) : 0;
  return day != 0 ? std::optional(static_cast<double>(day)) : std::nullopt;
}

}  // namespace

DateRead read_month_plain(std::string_view field, std::int64_t, const Settings& settings) noexcept {
  return read_period(field, Status::month_text, settings, take_month);
}

DateRead read_moyr_plain(std::string_view field, std::int64_t, const Settings& settings) noexcept {
  return read_period(field, Status::moyr_text, settings, take_month_and_year);
}

DateRead read_wkday(std::string_view field, std::int64_t, const Settings& settings) noexcept {
  return read_period(field, Status::wkday_text, settings, take_weekday);
}

}  // namespace iocv

extern "C" {

void obimon_(const char* text, const std::int64_t* width, double* value, std::int64_t* status,
             std::int64_t* position, std::int64_t) {
  iocv::store(iocv::read_month(iocv::input_field(text, *width), 0, iocv::Settings::current()),
              value, status, position);
}

void obimoy_(const char* text, const std::int64_t* width, double* value, std::int64_t* status,
             std::int64_t* position, std::int64_t) {
  iocv::store(iocv::read_moyr(iocv::input_field(text, *width), 0, iocv::Settings::current()), value,
              status, position);
}

void obiwkd_(const char* text, const std::int64_t* width, double* value, std::int64_t* status,
             std::int64_t* position, std::int64_t) {
  iocv::store(iocv::read_wkday(iocv::input_field(text, *width), 0, iocv::Settings::current()),
              value, status, position);
}

}  // extern "C"
