#include "reference.h"

#include <date/date.h>

#include <cmath>

#include "reference_cursor.h"

namespace test {
namespace {

// Days since 14 October 1582 by the date library, whose years are short: whole cycles apart.
Number days_from(double year, double month, double day, std::int64_t century_begin) {
  if (month < 1 || month > 13 || day < 0 || day > 31) return std::nullopt;
  if ((year > 99 && year < 1582) || year > 5867441) return std::nullopt;
  auto y = static_cast<std::int64_t>(year);
  if (y < 100) {
    while (y < century_begin) y += 100;
  }
  const std::int64_t cycles = y / 400;
  const auto short_year = static_cast<int>(y % 400) + (month > 12 ? 1 : 0);
  const auto m = static_cast<unsigned>(month > 12 ? 1 : month);
  const date::sys_days first = date::year{short_year} / date::month{m} / 1;
  const date::sys_days origin = date::year{1582} / 10 / 14;
  const double number = static_cast<double>((first - origin).count() + cycles * 146097) + day - 1;
  return number < 1 ? std::nullopt : Number(number);
}

double days_in_month(double year, double month) {
  const auto y = date::year{static_cast<int>(static_cast<std::int64_t>(year) % 400)};
  const auto last = y / date::month{static_cast<unsigned>(month)} / date::last;
  return static_cast<unsigned>(last.day());
}

Number month_named(std::string_view word) {
  const std::string name = upper(word);
  for (std::size_t i = 0; i < 12; ++i) {
    if (name.substr(0, 3) == kMonths[i]) return static_cast<double>(i + 1);
  }
  for (std::size_t i = 0; i < 12; ++i) {
    if (name.substr(0, 4) == kRomans[i]) return static_cast<double>(i + 1);
  }
  return std::nullopt;
}

class Reader {
 public:
  Reader(std::string_view field, int code, const ReferenceSettings& settings)
      : field_(field), code_(code), settings_(settings), cursor_(field, settings.decimal) {}

  Reading read() {
    const double value = read_value();
    return status_ == 0 ? Reading{value, 0} : Reading{kMissing, status_};
  }

 private:
  double read_value() {
    if (field_.find_first_not_of(' ') == field_.npos) return kMissing;
    switch (code_) {
      case 21: return time(true);
      case 22: return date_time(1139);
      case 24: return jdate();
      case 25: return dtime();
      case 26: return weekday();
      case 27: return alone(month_item(1143), 1143);
      case 28: return moyr();
      case 29: return qyr();
      case 30: return wkyr();
      case 86: return date_time(1190);
      default: return date(false);
    }
  }

  // The first condition that does not hold decides; reading goes on to no purpose.
  bool need(bool condition, std::int64_t status) {
    if (!condition && status_ == 0) status_ = status;
    return condition;
  }

  double need(Number number, std::int64_t status) {
    need(number.has_value(), status);
    return number.value_or(0);
  }

  double alone(double value, std::int64_t status) {
    cursor_.blanks();
    need(cursor_.end(), status);
    return value;
  }

  Number placed_year(std::string_view digits, double last) const {
    if (digits.empty()) return std::nullopt;
    double year = *folded(digits);
    if (year >= 100) return year >= 1582 && year <= last ? Number(year) : std::nullopt;
    while (year < static_cast<double>(settings_.century_begin)) year += 100;
    return year;
  }

  Number stored(double year, double month, double day) const {
    const Number days = days_from(year, month, day, settings_.century_begin);
    return days ? Number(*days * 86400) : std::nullopt;
  }

  // --- dates ---

  std::string_view date_parts() const {
    return code_ == 23 ? "mdy" : code_ == 39 || code_ == 86 ? "ymd" : "dmy";
  }

  double date(bool more) {
    if (const Number taken = undelimited_date()) return *taken;
    const std::int64_t status = code_ == 23 ? 1136 : code_ == 38 ? 1151 : code_ == 39 ? 1152 : 1137;
    cursor_.blanks();
    double day = 0;
    double month = 0;
    double year = 0;
    for (std::size_t i = 0; i < 3; ++i) {
      need(i == 0 || cursor_.date_delimiter(), status);
      const char part = date_parts()[i];
      const std::string_view digits = cursor_.digits();
      if (part == 'm' && digits.empty()) {
        month = need(month_named(cursor_.word()), status);
        continue;
      }
      need(!digits.empty(), status);
      if (part == 'y') year = need(placed_year(digits, 5867440), status);
      if (part == 'm') month = *folded(digits);
      if (part == 'd') day = *folded(digits);
    }
    need(month >= 1 && month <= 12 && day >= 1 && day <= days_in_month(year, month), status);
    if (!more) alone(0, status);
    return need(stored(year, month, day), status);
  }

  Number undelimited_date() {
    std::string_view text = field_;
    if (!text.empty() && kDateMarks.find(text[0]) != kDateMarks.npos) text.remove_prefix(1);
    if (text.empty() || !digit(text[0])) return std::nullopt;
    std::size_t length = std::min(text.find_first_of(kDateMarks), text.size()) + 1;
    length = std::min(length, text.size());
    if (length < 6) return std::nullopt;

    const std::int64_t status = code_ == 22   ? 1197
                                : code_ == 23 ? 1195
                                : code_ == 38 ? 1194
                                : code_ == 39 ? 1193
                                : code_ == 86 ? 1190
                                              : 1196;
    std::size_t month_length = 2;
    std::size_t year_length = length == 6 ? 2 : 4;
    if (date_parts() == "dmy" && letter(text[2])) {
      month_length = 0;
      while (2 + month_length < length && letter(text[2 + month_length])) ++month_length;
      need(length >= 4 + month_length, status);
      year_length = length == 4 + month_length ? 2 : 4;
    }
    double parts[3] = {};
    for (const char part : date_parts()) {
      const std::size_t count = part == 'd' ? 2 : part == 'm' ? month_length : year_length;
      if (!need(text.size() >= count, status)) return 0;
      const std::string_view piece = text.substr(0, count);
      if (part == 'm' && letter(piece[0])) {
        std::string key = upper(piece.substr(0, 4));
        while (key.back() == '\0') key.pop_back();  // as a cell of four bytes has them
        need(key != "IX", status);                  // nine is no word here
        parts[1] = need(month_named(key), status);
      } else {
        parts[part == 'd' ? 0 : part == 'm' ? 1 : 2] = need(folded(piece), status);
      }
      text.remove_prefix(count);
    }
    need(code_ == 86 || text.empty() || kDateMarks.find(text[0]) != kDateMarks.npos, status);
    const double value = need(stored(parts[2], parts[1], parts[0]), 608);
    cursor_.skip(field_.size() - text.size());
    return value;
  }

  // --- times ---

  double time(bool unbounded) {
    if (const Number taken = undelimited_time()) return *taken;
    double sign = 1;
    if (cursor_.rest().starts_with('T') && !Cursor(cursor_.rest().substr(1), '.').word_ahead()) {
      cursor_.skip(1);
    } else if (const char mark = cursor_.mark("-+")) {
      sign = mark == '-' ? -1 : 1;
    } else {
      cursor_.blanks();
    }
    const double hours = clock_part(unbounded ? 1e308 : 23);
    need(cursor_.time_delimiter(), 1146);
    double seconds = hours * 3600 + 60 * clock_part(59);
    if (at_end_of_time()) return sign * seconds;
    need(cursor_.time_delimiter(), 1146);
    seconds += clock_part(59);
    if (at_end_of_time()) return sign * seconds;
    need(cursor_.clock_mark(), 1146);
    const std::string_view digits = cursor_.digits();
    need(!digits.empty(), 1146);
    seconds += *folded(digits) / tenth_powers(digits.size());
    return alone(sign * seconds, 1146);
  }

  // Blanks, or one stray character among them.
  bool at_end_of_time() {
    const Cursor before = cursor_;
    cursor_.stray();
    cursor_.blanks();
    if (cursor_.end()) return true;
    cursor_ = before;
    return false;
  }

  double clock_part(double most) {
    const std::string_view digits = cursor_.digits();
    need(!digits.empty() && *folded(digits) <= most, 1146);
    return *folded(digits);
  }

  Number undelimited_time() {
    std::string_view text = cursor_.rest();
    if (text.starts_with(' ') || text.starts_with('T')) text.remove_prefix(1);
    if (text.size() < 4) return std::nullopt;
    while (text.ends_with(' ')) text.remove_suffix(1);
    const std::string stops = {':', ' ', settings_.decimal};
    const std::size_t stop = std::min(text.find_first_of(stops), text.size());
    if (stop < 4 || text.find_first_of(": ") != text.npos) return std::nullopt;
    if (stop < text.size() && text.find(settings_.decimal, stop + 1) != text.npos) {
      return std::nullopt;
    }
    const double limits[3] = {23, 59, 59};
    const double units[3] = {3600, 60, 1};
    const std::size_t parts = text.size() >= 6 ? 3 : 2;
    double value = 0;
    for (std::size_t i = 0; i < parts; ++i) {
      const double part = need(folded(text.substr(2 * i, 2)), 1192);
      need(part <= limits[i], 1192);
      value += units[i] * part;
    }
    if (text.size() == 5) need(kDateMarks.find(text[4]) != kDateMarks.npos, 1192);
    if (text.size() > 6) {
      need(text[6] == settings_.decimal, 1192);
      const std::string_view digits = text.substr(7);
      value += need(folded(digits), 1192) / tenth_powers(digits.size());
    }
    cursor_.skip(cursor_.rest().size());
    return value;
  }

  double dtime() {
    cursor_.blanks();
    const char mark = digit(cursor_.rest()[0]) ? '+' : cursor_.mark("-+");
    const std::string_view digits = cursor_.digits();
    need(mark != 0 && !digits.empty(), 1138);
    double seconds = *folded(digits) * 86400;
    if (!cursor_.end()) {
      // A sign would take the blanks before it for its own.
      need(cursor_.mark(":") || (cursor_.blanks() > 0 && !cursor_.mark_ahead()), 1138);
      if (!cursor_.end()) seconds += time(false);
    }
    if (status_ != 0) status_ = 1138;
    return (mark == '-' ? -1 : 1) * seconds;
  }

  double date_time(std::int64_t status) {
    const double day = date(true);
    need(!cursor_.end(), status);
    const double seconds = time(false);
    if (status_ != 0) status_ = status;
    return day + seconds;
  }

  // --- periods ---

  double month_item(std::int64_t status) {
    cursor_.blanks();
    const std::string_view word = cursor_.word();
    if (!word.empty()) return need(word.size() <= 9 ? month_named(word) : Number(), status);
    const std::string_view digits = cursor_.digits();
    need(!digits.empty() && *folded(digits) >= 1 && *folded(digits) <= 12, status);
    return *folded(digits);
  }

  double weekday() {
    cursor_.blanks();
    const std::string_view word = cursor_.word();
    need(word.size() >= 2 && word.size() <= 9, 1147);
    const std::size_t found =
        std::string_view("SU-MO-TU-WE-TH-FR-SA").find(upper(word.substr(0, 2)));
    need(found != std::string_view::npos, 1147);
    return alone(static_cast<double>(found / 3 + 1), 1147);
  }

  double moyr() {
    const double month = month_item(1144);
    need(cursor_.date_delimiter(), 1144);
    const double year = need(placed_year(cursor_.digits(), 5867441), 1144);
    return alone(need(stored(year, month, 1), 1144), 1144);
  }

  double qyr() {
    cursor_.blanks();
    std::string_view quarter = cursor_.digits();
    if (!quarter.empty()) cursor_.blanks();
    need(cursor_.word() == "Q", 1145);
    cursor_.blanks();
    if (quarter.empty()) {
      quarter = cursor_.digits();
      cursor_.blanks();
    }
    need(!quarter.empty() && *folded(quarter) >= 1 && *folded(quarter) <= 4, 1145);
    const double year = need(placed_year(cursor_.digits(), 5867441), 1145);
    return alone(need(stored(year, 3 * *folded(quarter) - 2, 1), 1145), 1145);
  }

  double wkyr() {
    cursor_.blanks();
    const std::string_view week = cursor_.digits();
    need(!week.empty() && *folded(week) >= 1 && *folded(week) <= 53, 1148);
    cursor_.blanks();
    need(cursor_.word() == "WK", 1148);
    cursor_.blanks();
    const double year = need(placed_year(cursor_.digits(), 5867441), 1148);
    return alone(need(day_of_year(year, 7 * *folded(week) - 6, 1148), 1148), 1148);
  }

  // By counting on from 1 January; 1582 begins before the calendar does.
  Number day_of_year(double year, double day, std::int64_t status) {
    const double january_1583 = need(days_from(1583, 1, 1, settings_.century_begin), status);
    const Number january =
        year == 1582 ? Number(january_1583 - 365) : days_from(year, 1, 1, settings_.century_begin);
    if (!january || *january + day - 1 < 1) return std::nullopt;
    return (*january + day - 1) * 86400;
  }

  double jdate() {
    cursor_.blanks();
    const std::string_view digits = cursor_.digits();
    std::string_view year = digits;
    double day = 0;
    if (digits.size() == 5 || digits.size() == 7) {
      year = digits.substr(0, digits.size() - 3);
      day = *folded(digits.substr(digits.size() - 3));
    } else {
      need(digits.size() == 2 || digits.size() == 4, 1142);
      need(cursor_.mark(".,-/") != 0, 1142);
      const std::string_view of_year = cursor_.digits();
      need(!of_year.empty(), 1142);
      day = *folded(of_year);
      need(day > 0, 1142);
    }
    need(day <= 366, 1142);
    const double y = need(placed_year(year, 5867441), 1142);
    need(y >= 1583, 1142);
    return alone(need(day_of_year(y, day, 1142), 1142), 1142);
  }

  std::string_view field_;
  int code_;
  ReferenceSettings settings_;
  Cursor cursor_;
  std::int64_t status_ = 0;
};

}  // namespace

Reading reference_read(std::string_view field, int code, const ReferenceSettings& settings) {
  return Reader(field, code, settings).read();
}

}  // namespace test
