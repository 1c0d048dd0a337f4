#include "records.h"

#include <iocv/iocv.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <random>

namespace bench {
namespace {

constexpr std::int64_t kMostDigits = 11;  // shown; longer numbers are rare in fields

constexpr std::uint64_t kFirstDay = 115'860;  // 1 January 1900
constexpr std::uint64_t kDays = 73'049;       // of 200 years
constexpr std::uint64_t kCentury = 36'524;    // of those that two digits name
constexpr std::uint64_t kSecondsPerDay = 86'400;

bool is_date(const Row& row) {
  switch (row.type) {
    case VELT_Format::DATE:
    case VELT_Format::ADATE:
    case VELT_Format::EDATE:
    case VELT_Format::SDATE:
    case VELT_Format::DATETIME: return true;
    default: return false;
  }
}
bool is_time(const Row& row) {
  return row.type == VELT_Format::TIME || row.type == VELT_Format::DATETIME;
}

// What numbers always fit: how many digits, decimals included, and whether one may be negative.
struct Room {
  std::int64_t digits;
  bool has_sign;
};

Room room_of(const Row& row) {
  constexpr std::int64_t kDigitsOfBytes[] = {0, 2, 4, 6, 9, 11, 14, 16, 18};
  const std::int64_t point = row.decimals > 0 ? 1 : 0;
  const std::int64_t columns = row.width - point;
  const std::int64_t whole = columns - row.decimals - 1;  // with a sign and groups
  switch (row.type) {
    case VELT_Format::IB: return {kDigitsOfBytes[row.width], true};
    case VELT_Format::PIB: return {kDigitsOfBytes[row.width], false};
    case VELT_Format::P: return {2 * row.width - 1, true};
    case VELT_Format::Z: return {row.width, true};
    case VELT_Format::PCT:
    case VELT_Format::DOLLAR: return {columns - 3, true};
    case VELT_Format::COMMA:
    case VELT_Format::DOT:
      if (whole >= 1) return {row.decimals + whole - whole / 4, true};
      break;
    default: break;
  }
  return whole >= 1 ? Room{columns - 1, true} : Room{columns, false};
}

// A number of the last place's hundredths.
std::uint64_t some_hundredths(std::mt19937_64& random, std::int64_t digits) {
  std::uint64_t limit = 100;
  for (; digits > 0; --digits) limit *= 10;
  const std::uint64_t number = random() % (limit - 50);  // rounds to no more digits
  return number % 100 == 50 ? number + 1 : number;
}

double some_number(const Row& row, std::mt19937_64& random) {
  const Room room = room_of(row);
  const std::int64_t most = std::min(room.digits, kMostDigits);
  const std::int64_t least = std::min(row.decimals, most);
  const std::int64_t digits =
      least + static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(most - least + 1));
  const double scale = std::pow(10.0, static_cast<double>(row.decimals + 2));
  const double number = static_cast<double>(some_hundredths(random, digits)) / scale;
  return room.has_sign && random() % 4 == 0 ? -number : number;
}

// Six digits of mantissa and an exponent of -4 to 9.
double some_exponential(const Row& row, std::mt19937_64& random) {
  const std::uint64_t one = static_cast<std::uint64_t>(std::pow(10.0, row.decimals));
  std::uint64_t mantissa = 100 * one + random() % (900 * one);
  if (mantissa % 100 == 50) ++mantissa;
  const double exponent = static_cast<double>(random() % 14) - 4;
  const double power = std::pow(10.0, std::fabs(exponent));
  const double scale = 100 * static_cast<double>(one);
  const double number = exponent < 0 ? static_cast<double>(mantissa) / (scale * power)
                                     : static_cast<double>(mantissa) * power / scale;
  return random() % 4 == 0 && row.width > row.decimals + 7 ? -number : number;
}

double some_value(const Row& row, std::mt19937_64& random) {
  if (row.type == VELT_Format::E) return some_exponential(row, random);
  if (!is_date(row) && !is_time(row)) return some_number(row, random);
  const std::uint64_t days = row.width < 10 ? kCentury : kDays;  // years of two digits or of four
  const std::uint64_t day = is_date(row) ? kFirstDay + random() % days : 0;
  const std::uint64_t second = is_time(row) ? random() % kSecondsPerDay : 0;
  return static_cast<double>(day * kSecondsPerDay + second);
}

// What a format shows least of: days after its last year, long numbers, three digits of exponent.
double beyond(const Row& row) {
  if (is_date(row) || is_time(row)) return 1e12;
  return row.type == VELT_Format::E ? 1e250 : 1e17;
}

double some_odd_value(const Row& row, Odd kind, std::mt19937_64& random) {
  const double value = beyond(row) * static_cast<double>(1 + random() % 10'000);
  switch (kind) {
    case Odd::missing: return VELT_SystemMissing().number;
    case Odd::no_number: return random() % 2 == 0 ? std::nan("") : HUGE_VAL;
    case Odd::too_large: return value;
    default: return -value;
  }
}

// A missing number's point; letters; with an exponent or a month's name in lower case; with a plus
// or a part too few.
std::string odd_text(const Row& row, Odd kind, const std::string& digit) {
  switch (kind) {
    case Odd::missing: return ".";
    case Odd::no_number: return digit + "x" + digit;
    case Odd::too_large: return is_date(row) ? "1 jan 0" + digit : digit + "E+" + digit;
    default: return is_time(row) ? digit + ":0" : "+" + digit + "0";
  }
}

}  // namespace

std::string name_of(std::string_view type, std::int64_t width, std::int64_t decimals) {
  std::string name(type);
  name += std::to_string(width);
  if (decimals > 0) name += '.' + std::to_string(decimals);
  return name;
}

std::vector<double> make_values(const Row& row, std::size_t count) {
  std::mt19937_64 random(1582);
  std::vector<double> values(count);
  for (double& value : values) value = some_value(row, random);
  return values;
}

std::string make_fields(const Row& row, const std::vector<double>& values) {
  const auto width = static_cast<std::size_t>(row.width);
  std::string fields(values.size() * width, ' ');
  for (std::size_t i = 0; i < values.size(); ++i) {
    const OBS value = {.number = values[i]};
    IocvConvertOutput(&value, row.type, static_cast<int>(row.decimals), &fields[i * width],
                      static_cast<unsigned>(width));
  }
  return fields;
}

const std::vector<double>& values_of(const Row& row) {
  static std::map<std::string_view, std::vector<double>> made;
  std::vector<double>& values = made[row.name];
  if (values.empty()) values = make_values(row, kCold);
  return values;
}

const std::string& fields_of(const Row& row) {
  static std::map<std::string_view, std::string> made;
  std::string& fields = made[row.name];
  if (fields.empty()) fields = make_fields(row, values_of(row));
  return fields;
}

std::vector<double> make_odd_values(const Row& row, Odd kind, std::size_t count) {
  std::mt19937_64 random(1582);
  std::vector<double> values(count);
  for (double& value : values) value = some_odd_value(row, kind, random);
  return values;
}

std::string make_odd_fields(const Row& row, Odd kind, std::size_t count) {
  std::mt19937_64 random(1582);
  const auto width = static_cast<std::size_t>(row.width);
  std::string fields(count * width, ' ');
  for (std::size_t end = width; end <= fields.size(); end += width) {
    const std::string text = odd_text(row, kind, std::to_string(1 + random() % 9));
    const std::size_t length = std::min(text.size(), width);
    fields.replace(end - length, length, text, 0, length);
  }
  return fields;
}

}  // namespace bench
