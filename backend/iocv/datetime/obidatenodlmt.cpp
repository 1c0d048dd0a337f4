#include "datetime/obidatenodlmt.h"

#include <iocv/date_input.h>

#include <algorithm>
#include <array>

#include "datetime/date_formats.h"
#include "datetime/letters.h"
#include "datetime/str2digit.h"
#include "frame/leaf.h"

namespace iocv {
namespace {

constexpr std::size_t kShortest = 6;  // ddmmyy

enum Part : std::size_t { kDay, kMonth, kYear };

struct Piece {
  Part part;
  std::size_t length;
};

using Layout = std::array<Piece, 3>;

// The length of the date that text begins with: its run up to a delimiter and one character more,
// if there is one. By that character a date of six digits has a year of two digits only where it
// ends the field.
std::size_t run_length(std::string_view text) {
  const auto end = std::find_if(text.begin(), text.end(), is_delimiter);
  const auto run = static_cast<std::size_t>(end - text.begin());
  return std::min(run + 1, text.size());
}

// A month written in letters may have any length; it must leave at least two characters of the run
// for the year.
std::optional<Layout> layout_with_month_word(std::string_view run) {
  const auto end = std::find_if_not(run.begin() + 2, run.end(), is_letter);
  const auto day_and_month = static_cast<std::size_t>(end - run.begin());
  const std::size_t left = run.size() - day_and_month;
  if (left < 2) return std::nullopt;
  return Layout{{{kDay, 2}, {kMonth, day_and_month - 2}, {kYear, left == 2 ? 2U : 4U}}};
}

std::optional<Layout> layout_of(std::string_view run, DateOrder order) {
  const std::size_t year = run.size() == kShortest ? 2 : 4;
  switch (order) {
    case DateOrder::month_day_year: return Layout{{{kMonth, 2}, {kDay, 2}, {kYear, year}}};
    case DateOrder::year_month_day: return Layout{{{kYear, year}, {kMonth, 2}, {kDay, 2}}};
    default: break;
  }
  if (is_letter(run[2])) return layout_with_month_word(run);
  return Layout{{{kDay, 2}, {kMonth, 2}, {kYear, year}}};
}

std::optional<double> read_piece(std::string_view text, const Piece& piece) {
  if (text.size() < piece.length) return std::nullopt;
  const std::string_view characters = text.substr(0, piece.length);
  return piece.part == kMonth ? str2month(characters) : str2digit(characters);
}

}  // namespace

UndelimitedRead read_undelimited_date(std::string_view text, FormatCode code,
                                      const Settings& settings) noexcept {
  const double missing = settings.system_missing;
  const DateFormat& format = date_format(code);
  const UndelimitedRead not_taken = {false, missing, Status::ok, 0};
  const UndelimitedRead failed = {true, missing, format.bad_digits, 0};

  std::size_t consumed = !text.empty() && is_delimiter(text.front()) ? 1 : 0;
  if (consumed == text.size() || !is_digit(text[consumed])) return not_taken;
  const std::string_view run = text.substr(consumed, run_length(text.substr(consumed)));
  if (run.size() < kShortest) return not_taken;

  const std::optional<Layout> layout = layout_of(run, format.order);
  if (!layout) return failed;
  std::array<double, 3> parts = {};
  for (const Piece& piece : *layout) {
    const std::optional<double> value = read_piece(text.substr(consumed), piece);
    if (!value) return failed;
    parts[piece.part] = *value;
    consumed += piece.length;
  }
  // A year-first date may be followed by the T of its time at once.
  const bool any_text_may_follow = code == FormatCode::year_first || consumed == text.size();
  if (!any_text_may_follow && !is_delimiter(text[consumed])) return failed;

  const Read<double> day = day_number(parts[kYear], parts[kMonth], parts[kDay], settings);
  if (day.status != Status::ok) return {true, missing, day.status, consumed};
  return {true, day.value * kSecondsPerDay, Status::ok, consumed};
}

}  // namespace iocv

extern "C" std::int64_t obidatenodlmt_(const char* text, std::int64_t* position,
                                       const std::int64_t* width, const std::int32_t* type,
                                       double* value, std::int64_t* consumed,
                                       std::int64_t* status) {
  return iocv::store(
      iocv::read_undelimited_date(iocv::rest_of_field(text, *position, *width),
                                  static_cast<iocv::FormatCode>(*type), iocv::Settings::current()),
      position, value, consumed, status);
}
