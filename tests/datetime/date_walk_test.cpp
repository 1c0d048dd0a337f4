// Every day from 15 October 1582 to 31 December 9999 through every date writer, against an
// independent calendar and layouts spelled out here.
#include <memory>

#include "datetime/writing.h"
#include "support/records_guard.h"

namespace {

using test::Format;
using test::WrittenField;

constexpr date::sys_days kFirst = date::year{1582} / 10 / 15;
constexpr date::sys_days kLast = date::year{9999} / 12 / 31;

// A text built without an allocation.
class Text {
 public:
  Text& operator<<(std::string_view part) {
    std::copy(part.begin(), part.end(), bytes_ + size_);
    size_ += part.size();
    return *this;
  }
  [[nodiscard]] std::size_t size() const { return size_; }
  // The field shows this text, cut or padded. Byte by byte: wide loads would wait for the stores of
  // single bytes and double the time of a walk.
  [[nodiscard]] bool fills(std::string_view field) const {
    for (std::size_t i = 0; i < field.size(); ++i) {
      if (field[i] != (i < size_ ? bytes_[i] : ' ')) return false;
    }
    return true;
  }

 private:
  char bytes_[16];
  std::size_t size_ = 0;
};

// The parts of a date as text.
struct Parts {
  explicit Parts(date::sys_days day) {
    const date::year_month_day ymd = day;
    const auto m = static_cast<unsigned>(ymd.month());
    const int days = (day - date::sys_days{ymd.year() / 1 / 1}).count();
    set(year, static_cast<int>(ymd.year()));
    set(month, static_cast<int>(m));
    set(of_month, static_cast<int>(static_cast<unsigned>(ymd.day())));
    set(of_year, days + 1);
    set(week, days / 7 + 1);
    if (week[0] == '0') week[0] = ' ';
    quarter[0] = "111222333444"[m - 1];
    constexpr std::string_view kNames[] = {"JANUARY",   "FEBRUARY", "MARCH",    "APRIL",
                                           "MAY",       "JUNE",     "JULY",     "AUGUST",
                                           "SEPTEMBER", "OCTOBER",  "NOVEMBER", "DECEMBER"};
    constexpr std::string_view kWeekdays[] = {"SUNDAY",   "MONDAY", "TUESDAY", "WEDNESDAY",
                                              "THURSDAY", "FRIDAY", "SATURDAY"};
    name = kNames[m - 1];
    weekday = kWeekdays[date::weekday{day}.c_encoding()];
  }

  template <std::size_t digits>
  static void set(std::array<char, digits>& text, int n) {
    for (auto digit = text.rbegin(); digit != text.rend(); ++digit, n /= 10) {
      *digit = static_cast<char>('0' + n % 10);
    }
  }

  // The whole text of a format, with two or four digits of the year.
  [[nodiscard]] Text text(int type, std::size_t year_digits) const {
    const auto view = [](const auto& part) { return std::string_view(part.data(), part.size()); };
    const std::string_view y = view(year).substr(4 - year_digits);
    const std::string_view m = view(month);
    const std::string_view d = view(of_month);
    Text whole;
    switch (type) {
      case Format::DATE: return whole << d << "-" << name.substr(0, 3) << "-" << y;
      case Format::ADATE: return whole << m << "/" << d << "/" << y;
      case Format::EDATE: return whole << d << "." << m << "." << y;
      case Format::SDATE: return whole << y << "/" << m << "/" << d;
      case Format::JDATE: return whole << y << view(of_year);
      case Format::MOYR: return whole << name.substr(0, 3) << " " << y;
      case Format::QYR: return whole << view(quarter) << " Q " << y;
      case Format::WKYR: return whole << view(week) << " WK " << y;
      case Format::WKDAY: return whole << weekday;
      default: return whole << name;
    }
  }

  // Whether the field is the format's under a century window that holds the year.
  [[nodiscard]] bool show_as(std::string_view field, int type) const {
    const bool is_name = type == Format::WKDAY || type == Format::MONTH;
    for (const std::size_t year_digits : {4U, 2U}) {
      const Text whole = text(type, year_digits);
      if (is_name || whole.size() <= field.size()) return whole.fills(field);
    }
    return field.find_first_not_of('*') == field.npos;
  }

  std::array<char, 4> year;
  std::array<char, 2> month;
  std::array<char, 2> of_month;
  std::array<char, 3> of_year;
  std::array<char, 2> week;
  std::array<char, 1> quarter;
  std::string_view name;
  std::string_view weekday;
};

struct Column {
  int type;
  std::int64_t width;
};

// Walks all days with one format of each type and width; the window follows the days' centuries.
void walk(const std::vector<Column>& columns, std::int64_t stride) {
  const test::RecordsGuard guard;
  std::vector<std::unique_ptr<WrittenField>> fields;
  for (const Column& column : columns) {
    fields.push_back(std::make_unique<WrittenField>(column.width));
  }
  const double step = static_cast<double>(stride) * 86400;
  double value = 86400;
  std::int64_t days = 0;
  for (date::sys_days day = kFirst; day <= kLast; day += date::days{stride}, value += step) {
    const Parts parts(day);
    const date::year_month_day ymd = day;
    cmndtm_.century_begin = static_cast<int>(ymd.year()) / 100 * 100;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const std::int64_t status = fields[i]->write(columns[i].type, 0, value);
      if (status != 0 || !parts.show_as(fields[i]->text(), columns[i].type)) {
        FAIL() << "type " << columns[i].type << " of " << value << ": |" << fields[i]->text()
               << "| " << status;
      }
    }
    ++days;
  }
  EXPECT_EQ(days, (3'074'324 + stride - 1) / stride);
  for (const auto& field : fields) EXPECT_TRUE(field->intact());
}

const std::vector<Column> kOwnWidths = {
    {Format::DATE, 11}, {Format::ADATE, 10}, {Format::EDATE, 10}, {Format::SDATE, 10},
    {Format::JDATE, 7}, {Format::MOYR, 8},   {Format::QYR, 8},    {Format::WKYR, 10},
    {Format::WKDAY, 9}, {Format::MONTH, 9}};

TEST(DateWalk, EveryDay) { walk({{Format::DATE, 11}}, 1); }

TEST(DateWalk, EveryFormatOnEvery13thDay) { walk(kOwnWidths, 13); }

TEST(LongDateWalk, EveryFormatOnEveryDay) { walk(kOwnWidths, 1); }

std::vector<Column> all_widths() {
  std::vector<Column> columns;
  for (const int type : {Format::DATE, Format::ADATE, Format::EDATE, Format::SDATE, Format::JDATE,
                         Format::MOYR, Format::QYR, Format::WKYR, Format::WKDAY, Format::MONTH}) {
    for (std::int64_t width = 1; width <= 13; ++width) columns.push_back({type, width});
  }
  return columns;
}

TEST(DateWalk, EveryWidthOnEvery211thDay) { walk(all_widths(), 211); }

TEST(LongDateWalk, EveryWidthOnEveryDay) { walk(all_widths(), 1); }

}  // namespace
