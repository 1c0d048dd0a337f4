#include "datetime/obiqyr.h"

#include <iocv/date_input.h>

#include "datetime/read_period.h"
#include "frame/leaf.h"

namespace iocv {
namespace {

constexpr std::int64_t kQuarters = 4;
constexpr std::int64_t kMonthsInQuarter = 3;

bool is_mark(const Token& token) { return token.type == TokenType::word && token.text == "Q"; }

// The quarter and its mark, in either order.
std::optional<double> take_quarter(const Token& first, Scanner& scanner, const Settings& settings) {
  const Token second = scanner.next_item();
  const bool mark_first = is_mark(first);
  const Token& number = mark_first ? second : first;
  const std::optional<std::int64_t> quarter = number_between(number, 1, kQuarters);
  if (!quarter || !(mark_first || is_mark(second))) return std::nullopt;
  const std::optional<std::int64_t> year = year_of(scanner.next_item(), settings);
  if (!year) return std::nullopt;
  return stored_date(*year, (*quarter - 1) * kMonthsInQuarter + 1, 1, settings);
}

}  // namespace

DateRead read_qyr_plain(std::string_view field, std::int64_t, const Settings& settings) noexcept {
  return read_period(field, Status::qyr_text, settings, take_quarter);
}

}  // namespace iocv

extern "C" void obiqyr_(const char* text, const std::int64_t* width, double* value,
                        std::int64_t* status, std::int64_t* position, std::int64_t) {
  iocv::store(iocv::read_qyr(iocv::input_field(text, *width), 0, iocv::Settings::current()), value,
              status, position);
}
