#include "datetime/obiwky.h"

#include <iocv/date_input.h>

#include "datetime/names.h"
#include "datetime/read_period.h"
#include "frame/leaf.h"

namespace iocv {
namespace {

constexpr std::int64_t kWeeks = 53;

bool is_mark(const Token& token) { return token.type == TokenType::word && token.text == "WK"; }

std::optional<double> take_week(const Token& first, Scanner& scanner, const Settings& settings) {
  const std::optional<std::int64_t> week = number_between(first, 1, kWeeks);
  if (!week || !is_mark(scanner.next_item())) return std::nullopt;
  const std::optional<std::int64_t> year = year_of(scanner.next_item(), settings);
  if (!year) return std::nullopt;
  const MonthDay begin = month_and_day(*year, (*week - 1) * kWeekdays + 1);
  return stored_date(*year, begin.month, begin.day, settings);
}

}  // namespace

DateRead read_wkyr_plain(std::string_view field, std::int64_t, const Settings& settings) noexcept {
  return read_period(field, Status::wkyr_text, settings, take_week);
}

}  // namespace iocv

extern "C" void obiwky_(const char* text, const std::int64_t* width, double* value,
                        std::int64_t* status, std::int64_t* position, std::int64_t) {
  iocv::store(iocv::read_wkyr(iocv::input_field(text, *width), 0, iocv::Settings::current()), value,
              status, position);
}
