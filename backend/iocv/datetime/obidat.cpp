#include "datetime/obidat.h"

#include <iocv/date_input.h>

#include "datetime/month_word.h"
#include "datetime/obdtps.h"
#include "datetime/obidat_states.h"
#include "datetime/obidatenodlmt.h"
#include "frame/leaf.h"

namespace iocv {
namespace {

// Takes the parts of a date from tokens, in the order of its format.
class DateMachine {
 public:
  DateMachine(DateOrder order, const Settings& settings)
      : road_(date_road(order)), state_(road_.first), settings_(settings) {}

  [[nodiscard]] bool done() const { return state_ == DateState::done; }

  // False when the token does not belong where it stands.
  bool take(const Token& token) {
    switch (date_action(state_, token.type)) {
      case DateAction::take_month: return take_month(token);
      case DateAction::skip: state_ = behind_delimiter(state_); return true;
      case DateAction::take_day: return take_day(token);
      case DateAction::take_year: return take_year(token);
      default: return false;
    }
  }

  // The parts, once all are taken, as a stored date; here no day may lie outside its month.
  [[nodiscard]] std::optional<double> date() const {
    if (day_ < 1 || day_ > static_cast<double>(month_length(year_, month_))) return std::nullopt;
    return stored_date(year_, month_, static_cast<std::int64_t>(day_), settings_);
  }

 private:
  bool take_month(const Token& token) {
    if (token.type == TokenType::word) {
      month_ = month_of_word(token.text);
    } else {
      month_ = token.value <= kMonths ? static_cast<std::int64_t>(token.value) : 0;
    }
    state_ = road_.after_month;
    return month_ >= 1;
  }

  bool take_day(const Token& token) {
    day_ = token.value;
    state_ = road_.after_day;
    return true;
  }

  bool take_year(const Token& token) {
    const std::optional<std::int64_t> year = year_named(token.value, kLastYear - 1, settings_);
    if (!year) return false;
    year_ = *year;
    state_ = road_.after_year;
    return true;
  }

  DateRoad road_;
  DateState state_;
  const Settings& settings_;
  double day_ = 0;
  std::int64_t month_ = 0;
  std::int64_t year_ = 0;
};

// What may stand behind the year.
enum class Trailing { blanks, anything };

DateRead read(std::string_view field, FormatCode code, Trailing trailing,
              const Settings& settings) {
  const UndelimitedRead digits = read_undelimited_date(field, code, settings);
  if (digits.taken) return {digits.value, digits.status, digits.consumed};

  const double missing = settings.system_missing;
  const DateFormat& format = date_format(code);
  Scanner scanner(field, settings.decimal);
  Token token = scanner.next_item();
  if (token.type == TokenType::blanks) return {missing, Status::ok, scanner.position()};

  DateMachine machine(format.order, settings);
  bool good = machine.take(token);
  while (good && !machine.done()) good = machine.take(scanner.next());
  const std::optional<double> date = good ? machine.date() : std::nullopt;
  if (!date || (trailing == Trailing::blanks && !scanner.only_blanks_left())) {
    return {missing, format.bad_text, scanner.position()};
  }
  return {*date, Status::ok, scanner.position()};
}

}  // namespace

DateRead read_date_plain(std::string_view field, std::int64_t, FormatCode code,
                         const Settings& settings) noexcept {
  return read(field, code, Trailing::blanks, settings);
}

DateRead read_leading_date(std::string_view field, FormatCode code,
                           const Settings& settings) noexcept {
  return read(field, code, Trailing::anything, settings);
}

}  // namespace iocv

extern "C" void obidat_(const char* text, const std::int64_t* width,
                        const std::int64_t* allow_trailing, double* value, const std::int32_t* type,
                        std::int64_t* status, std::int64_t* position, std::int64_t) {
  const std::string_view field = iocv::input_field(text, *width);
  const auto code = static_cast<iocv::FormatCode>(*type);
  const iocv::Settings settings = iocv::Settings::current();
  iocv::store(*allow_trailing != 0 ? iocv::read_leading_date(field, code, settings)
                                   : iocv::read_date(field, 0, code, settings),
              value, status, position);
}
