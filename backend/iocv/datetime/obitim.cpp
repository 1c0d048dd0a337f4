#include "datetime/obitim.h"

#include <iocv/date_input.h>

#include <cmath>

#include "datetime/obitim_states.h"
#include "datetime/obitimenodlmt.h"
#include "frame/leaf.h"
#include "numeric/powers.h"

namespace iocv {
namespace {

// Adds up the parts of a time from tokens.
class TimeMachine {
 public:
  enum class Step { more, stop, fail };

  TimeMachine(Hours hours, TimeState first) : hours_(hours), state_(first) {}

  // What follows from the token that the scanner has just read.
  Step take(const Token& token, const Scanner& scanner) {
    switch (time_action(state_, token.type)) {
      case TimeAction::take_sign: return take_sign(token);
      case TimeAction::skip: state_ = next_state(state_); return Step::more;
      case TimeAction::take_hours: return take_hours(token.value);
      case TimeAction::take_minutes:
        return take_sixtieth(token.value, kSecondsPerMinute, TimeState::after_minutes);
      case TimeAction::take_seconds: return take_sixtieth(token.value, 1, TimeState::after_seconds);
      case TimeAction::take_fraction:
        time_ += token.value / power_of_ten(token.length);
        return Step::stop;
      // Whatever is left now is judged once, when the machine has stopped.
      case TimeAction::end:
      case TimeAction::trailing_blanks: return Step::stop;
      case TimeAction::blanks_after_minutes:
        state_ = TimeState::seconds;
        return scanner.at_end() ? Step::stop : Step::more;
      default: return Step::fail;
    }
  }

  [[nodiscard]] double time() const { return sign_ * time_; }

 private:
  Step take_sign(const Token& token) {
    const std::optional<double> sign = sign_of(token);
    if (!sign) return Step::fail;
    sign_ = *sign;
    state_ = TimeState::hours;
    return Step::more;
  }

  Step take_hours(double hours) {
    if (hours_ == Hours::of_day && hours > kLastHour) return Step::fail;
    time_ = hours * kSecondsPerHour;
    state_ = TimeState::after_hours;
    return Step::more;
  }

  Step take_sixtieth(double count, std::int64_t seconds, TimeState after) {
    if (count > kLastMinuteOrSecond) return Step::fail;
    time_ += static_cast<double>(seconds) * count;
    state_ = after;
    return Step::more;
  }

  Hours hours_;
  TimeState state_;
  double sign_ = 1;
  double time_ = 0;
};

}  // namespace

std::optional<double> sign_of(const Token& token) noexcept {
  if (token.text.starts_with('-')) return -1.0;
  if (token.text.starts_with('+')) return 1.0;
  return std::nullopt;
}

DateRead read_time_at(std::string_view field, std::size_t position, Hours hours,
                      const Settings& settings) noexcept {
  const std::size_t start = std::min(position, field.size());
  const UndelimitedRead digits = read_undelimited_time(field.substr(start), settings);
  if (digits.taken) return {digits.value, digits.status, start + digits.consumed};

  const double missing = settings.system_missing;
  Scanner scanner(field, settings.decimal, position);
  Token token = scanner.next();
  if (token.type == TokenType::blanks && scanner.at_end()) {
    return {missing, Status::ok, scanner.position()};
  }
  const bool marked = token.type == TokenType::word && token.text == "T";
  if (marked) token = scanner.next();  // no sign may follow the mark

  TimeMachine machine(hours, marked ? TimeState::hours : TimeState::sign_or_hours);
  TimeMachine::Step step = machine.take(token, scanner);
  while (step == TimeMachine::Step::more) step = machine.take(scanner.next(), scanner);
  if (step == TimeMachine::Step::fail || !scanner.only_blanks_left() ||
      !std::isfinite(machine.time())) {
    return {missing, Status::time_text, scanner.position()};
  }
  return {machine.time(), Status::ok, scanner.position()};
}

DateRead read_time_plain(std::string_view field, std::int64_t, const Settings& settings) noexcept {
  return read_time_at(field, 0, Hours::unbounded, settings);
}

}  // namespace iocv

extern "C" void obitim_(const char* text, const std::int64_t* width, const std::int64_t* unbounded,
                        double* value, std::int64_t* status, std::int64_t* position, std::int64_t) {
  const std::string_view field = iocv::input_field(text, *width);
  const iocv::Settings settings = iocv::Settings::current();
  iocv::store(*unbounded != 0 ? iocv::read_time(field, 0, settings)
                              : iocv::read_time_at(field, iocv::offset_of(*position),
                                                   iocv::Hours::of_day, settings),
              value, status, position);
}
