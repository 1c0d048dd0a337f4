// The scanner of numbers in free form: a state machine over classes of bytes.
#include <iocv/number_input.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "frame/leaf.h"
#include "numeric/obif.h"
#include "numeric/powers.h"

namespace iocv {
namespace {

enum class Class : std::uint8_t {
  sign,
  digit,
  grouping,
  currency,
  exponent,
  end,  // the text is used up
  blank,
  decimal,
  percent,
  other,
};
constexpr std::size_t kClasses = 10;

// The bytes of each class; every other byte, and all from 128 on, are Class::other.
struct ClassRow {
  Class name;
  std::string_view with_dot;    // "." is the decimal character
  std::string_view with_comma;  // "," is
};
constexpr ClassRow kClassRows[] = {
    {Class::sign, "+-", "+-"},         {Class::digit, "0123456789", "0123456789"},
    {Class::grouping, ",", "."},       {Class::currency, "$", "$"},
    {Class::exponent, "DEde", "DEde"}, {Class::blank, " ", " "},
    {Class::decimal, ".", ","},        {Class::percent, "%", "%"},
};

using ClassTable = std::array<Class, 128>;

constexpr ClassTable class_table(std::string_view ClassRow::*bytes) {
  ClassTable table;
  table.fill(Class::other);
  for (const ClassRow& row : kClassRows) {
    for (const char byte : row.*bytes) table[static_cast<std::size_t>(byte)] = row.name;
  }
  return table;
}

constexpr ClassTable decDotChrTyp = class_table(&ClassRow::with_dot);
constexpr ClassTable decCommaChrTyp = class_table(&ClassRow::with_comma);

Class class_of(char byte, const ClassTable& table) {
  const auto code = static_cast<unsigned char>(byte);
  return code < table.size() ? table[code] : Class::other;
}

enum class State : std::uint8_t {
  start,          // nothing but blanks seen
  currency,       // currency sign seen, no digits
  sign,           // sign seen, no digits
  integer,        // in the integer digits
  fraction,       // after the decimal character
  letter,         // after an exponent letter
  letter_blank,   // blank after an exponent letter
  exponent_sign,  // after the exponent's sign
  sign_blank,     // blank after the exponent's sign
  exponent,       // in the exponent digits
  trailing,       // after a trailing blank or percent sign
};
constexpr std::size_t kStates = 11;

enum class Action : std::uint8_t {
  skip,    // a leading blank
  empty,   // the text is blank
  dollar,  // a currency sign
  group,   // a grouping character
  sign,    // the number's sign
  whole,   // an integer digit
  point,   // the decimal character
  decim,   // a fraction digit
  expon,   // an exponent letter, or the sign of an exponent without letter
  lblank,  // the blank after the letter
  esign,   // the exponent's sign
  sblank,  // the blank after the exponent's sign
  first,   // the first exponent digit
  next,    // a further exponent digit
  prcnt,   // a percent sign
  tblank,  // a trailing blank
  done,    // the end of a number
  after,   // a byte behind a trailing blank or percent sign
  bad,     // a byte that may not stand here
};

// What to do with a byte of each class in each state.
constexpr auto kroute = [] {
  using enum Action;
  return std::array<std::array<Action, kClasses>, kStates>{{
      // clang-format off
      // sign  digit  group  curr.   expon. end    blank   decim  prcnt  other
      {sign,   whole, bad,   dollar, bad,   empty, skip,   point, bad,   bad},    // start
      {sign,   whole, bad,   dollar, bad,   done,  skip,   point, bad,   bad},    // currency
      {bad,    whole, bad,   dollar, bad,   done,  skip,   point, bad,   bad},    // sign
      {expon,  whole, group, bad,    expon, done,  tblank, point, prcnt, bad},    // integer
      {expon,  decim, bad,   bad,    expon, done,  tblank, bad,   prcnt, bad},    // fraction
      {esign,  first, bad,   bad,    bad,   bad,   lblank, bad,   bad,   bad},    // letter
      {esign,  first, bad,   bad,    bad,   bad,   bad,    bad,   bad,   bad},    // letter_blank
      {bad,    first, bad,   bad,    bad,   bad,   sblank, bad,   bad,   bad},    // exponent_sign
      {bad,    first, bad,   bad,    bad,   bad,   bad,    bad,   bad,   bad},    // sign_blank
      {bad,    next,  bad,   bad,    bad,   done,  tblank, bad,   prcnt, bad},    // exponent
      {after,  after, after, after,  after, done,  tblank, after, bad,   after},  // trailing
      // clang-format on
  }};
}();

// Digits in the order of the text, leading zeros included, nine at a time: the chunk is exact, and
// the double that whole chunks are folded into rounds once a chunk.
class Digits {
 public:
  void add(std::int64_t digit) {
    if (chunk_digits_ == kChunk) {
      folded_ = folded_ * power_of_ten(kChunk) + static_cast<double>(chunk_);
      folded_digits_ += kChunk;
      chunk_ = 0;
      chunk_digits_ = 0;
    }
    chunk_ = chunk_ * 10 + digit;
    ++chunk_digits_;
  }

  [[nodiscard]] std::int64_t count() const { return folded_digits_ + chunk_digits_; }

  [[nodiscard]] double value() const {
    const auto chunk = static_cast<double>(chunk_);
    return folded_digits_ == 0 ? chunk : power_of_ten(chunk_digits_) * folded_ + chunk;
  }

 private:
  static constexpr std::int64_t kChunk = 9;
  double folded_ = 0;
  std::int64_t folded_digits_ = 0;
  std::int64_t chunk_ = 0;         // [0, 999999999]
  std::int64_t chunk_digits_ = 0;  // [0, 9]
};

// value x 10^scale, value above 0 with so many digits; infinity when it is out of range.
double scaled(double value, std::int64_t scale, std::int64_t digits) {
  constexpr std::int64_t kNear = 9;  // taken whatever the number of digits
  constexpr std::int64_t kSmallest = -308;
  constexpr std::int64_t kBeyond = 309;  // integer digits of a number that may be no double
  const bool near = scale >= -kNear && scale <= kNear;
  if (near || (scale >= kSmallest && scale + digits < kBeyond)) {
    return scale < 0 ? value / power_of_ten(-scale) : value * power_of_ten(scale);
  }
  // At the ends of the range a power of ten may itself be no double: by way of logarithms.
  constexpr double kLn10 = 2.302585092994046;
  constexpr double kLowestLog = -708.396;
  constexpr double kHighestLog = 709.782;
  const double log = std::log(value) + kLn10 * static_cast<double>(scale);
  const bool in_range = kLowestLog <= log && log <= kHighestLog;
  return in_range ? std::exp(log) : std::numeric_limits<double>::infinity();
}

class Scanner {
 public:
  Scanner(FormatCode type, std::int64_t decimals)
      // Beyond these bounds no number is in range, and scale can be counted on without overflow.
      : type_(type), scale_(-std::clamp<std::int64_t>(decimals, -kFar, kFar)) {}

  // Carries out the action for one byte, or for the end of the text.
  Status take(Class name, char byte) {
    switch (kroute[static_cast<std::size_t>(state_)][static_cast<std::size_t>(name)]) {
      case Action::skip: return Status::ok;
      case Action::empty: blank_ = true; return Status::ok;
      case Action::dollar: return currency_sign();
      case Action::group:
        return allow(type_ == FormatCode::comma || type_ == FormatCode::dollar ||
                     type_ == FormatCode::dot);
      case Action::sign: negative_ = byte == '-'; return go(State::sign);
      case Action::whole: digits_.add(byte - '0'); return go(State::integer);
      case Action::point:
        point_ = true;
        scale_ = 0;
        return go(State::fraction);
      case Action::decim:
        digits_.add(byte - '0');
        --scale_;
        return Status::ok;
      case Action::expon: return start_exponent(name, byte);
      case Action::lblank: return go(State::letter_blank);
      case Action::esign: exponent_negative_ = byte == '-'; return go(State::exponent_sign);
      case Action::sblank: return go(State::sign_blank);
      case Action::first: exponent_ = byte - '0'; return go(State::exponent);
      case Action::next:
        exponent_ = exponent_ * 10 + (byte - '0');
        return allow(exponent_ <= kLargestExponent);
      case Action::prcnt: go(State::trailing); return allow(type_ == FormatCode::pct);
      case Action::tblank: return go(State::trailing);
      case Action::done: return compose();
      case Action::after: return Status::text_after_number;
      case Action::bad: break;
    }
    return Status::number_character;
  }

  // Once the end was taken.
  [[nodiscard]] bool blank() const { return blank_; }
  [[nodiscard]] double value() const { return value_; }

 private:
  static constexpr std::int64_t kFar = 1'000'000;
  static constexpr std::int64_t kLargestExponent = 999;

  Status go(State state) {
    state_ = state;
    return Status::ok;
  }

  static Status allow(bool condition) { return condition ? Status::ok : Status::number_character; }

  Status currency_sign() {
    if (state_ == State::start) state_ = State::currency;
    return allow(type_ == FormatCode::dollar);
  }

  Status start_exponent(Class name, char byte) {
    if (!point_) scale_ = 0;  // an exponent cancels the implied decimals, as a point does
    if (name == Class::exponent) return go(State::letter);
    exponent_negative_ = byte == '-';
    return go(State::exponent_sign);
  }

  Status compose() {
    if (digits_.count() == 0) return Status::no_digits;
    value_ = digits_.value();
    if (value_ == 0) return Status::ok;  // a zero has neither scale nor sign
    scale_ += exponent_negative_ ? -exponent_ : exponent_;
    value_ = scaled(value_, scale_, digits_.count());
    if (!std::isfinite(value_)) return Status::number_range;
    if (negative_) value_ = -value_;
    return Status::ok;
  }

  FormatCode type_;
  State state_ = State::start;
  std::int64_t scale_;
  std::int64_t exponent_ = 0;
  Digits digits_;
  double value_ = 0;
  bool negative_ = false;
  bool exponent_negative_ = false;
  bool point_ = false;
  bool blank_ = false;
};

}  // namespace

Read<double> scan_number(std::string_view text, std::int64_t decimals, FormatCode type,
                         const Settings& settings) noexcept {
  const bool comma = decimal_character(type, settings) == ',';
  const ClassTable& classes = comma ? decCommaChrTyp : decDotChrTyp;
  Scanner scanner(type, decimals);
  for (const char byte : text) {
    const Status status = scanner.take(class_of(byte, classes), byte);
    if (status != Status::ok) return {settings.system_missing, status};
  }
  const Status status = scanner.take(Class::end, ' ');
  if (status != Status::ok) return {settings.system_missing, status};
  return {scanner.blank() ? settings.blank_value : scanner.value(), Status::ok};
}

}  // namespace iocv

extern "C" void fancy_f(const char* text, const std::int32_t* type, const std::int64_t* length,
                        const std::int64_t* decimals, double* value, std::int64_t* status) {
  const auto [number, result] =
      iocv::scan_number(iocv::input_field(text, *length), *decimals,
                        static_cast<iocv::FormatCode>(*type), iocv::Settings::current());
  *value = number;
  iocv::store(status, result);
}
