#include "encode.h"

#include <iocv/convert.h>
#include <iocv/status.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "failure.h"
#include "format_traits.h"
#include "value_text.h"

namespace iocv::tool {
namespace {

Refusal refusal(std::string message) { return {std::nullopt, std::move(message)}; }
Refusal failure(int status) { return {status, iocv_status_text(status)}; }

bool overlap(std::vector<Column> columns) {
  std::sort(columns.begin(), columns.end(),
            [](const Column& a, const Column& b) { return a.from < b.from; });
  std::size_t end = 0;
  for (const Column& column : columns) {
    if (column.from < end) return true;
    end = std::max(end, column.from + column.width);
  }
  return false;
}

bool is_date_or_time(int code) {
  return takes_iso(code);  // weekdays and months count as dates
}

bool holds_infinity(int code) { return code == VELT_Format::RB; }

// Asterisks instead of a number; dates and times may have them in one part only.
bool shows_no_fit(std::string_view field, const Column& column) {
  if (column.raw) return false;
  if (is_date_or_time(column.format.TypeEx())) return field.find('*') != field.npos;
  return field.find_first_not_of('*') == field.npos;
}

// Whether a field that reads as `back` holds the value: dates to the second, times to the fraction
// that they are rounded to.
bool is_kept(double value, double back, int code) {
  if (is_missing(value) || is_missing(back)) return is_missing(value) == is_missing(back);
  const IsoForm form = iso_form(code);
  const bool rounds =
      form == IsoForm::time || form == IsoForm::duration || form == IsoForm::date_time;
  return rounds ? std::fabs(value - back) < 1 : value == back;
}

}  // namespace

std::size_t record_bytes(const Layout& layout) {
  if (!layout.lines()) return static_cast<std::size_t>(layout.record);
  std::int64_t end = 0;
  for (const LayoutField& field : layout.fields) end = std::max(end, field.end());
  return static_cast<std::size_t>(end);
}

Encoder::Encoder(const Layout& layout)
    : columns_(columns_of(layout)),
      overlapping_(overlap(columns_)),
      lines_(layout.lines()),
      blank_(record_bytes(layout), ' ') {
  if (lines_) blank_ += layout.crlf ? "\r\n" : "\n";
}

void Encoder::begin() {
  record_ = blank_;
  if (overlapping_) written_.assign(blank_.size(), 0);
}

std::optional<Refusal> Encoder::put(std::size_t index, const Given& given) {
  const Column& column = columns_[index];
  field_.assign(column.width, ' ');
  std::optional<Refusal> refused =
      column.string ? put_string(column, given) : put_number(column, given);
  return refused ? refused : place(column);
}

void Encoder::put_missing(std::size_t index) {
  if (!put(index, {})) return;
  field_.assign(columns_[index].width, ' ');
  place(columns_[index]);
}

// Takes the field at work into the record.
std::optional<Refusal> Encoder::place(const Column& column) {
  if (lines_ && field_.find('\n') != field_.npos) {
    return refusal("a line feed in the field would end the line");
  }
  if (overlapping_) {
    for (std::size_t i = 0; i < column.width; ++i) {
      if (written_[column.from + i] != 0 && record_[column.from + i] != field_[i]) {
        return refusal("a field that shares bytes with it has other ones");
      }
    }
    std::fill_n(written_.begin() + static_cast<std::ptrdiff_t>(column.from), column.width, '\1');
  }
  record_.replace(column.from, column.width, field_);
  return std::nullopt;
}

std::optional<Refusal> Encoder::put_string(const Column& column, const Given& given) {
  if (given.kind == Given::Kind::missing) text_.clear();
  if (given.kind == Given::Kind::number) return refusal("a number stands where a text belongs");
  if (given.kind == Given::Kind::text && !code_page_.convert(text_, given.text)) {
    return refusal("a character has no place in the code page");
  }
  if (text_.find('\0') != text_.npos) return refusal("a zero byte stands in the text");
  text_.erase(text_.find_last_not_of(' ') + 1);
  if (text_.size() > column.string_bytes) {
    return refusal("the text has " + std::to_string(text_.size()) + " bytes, the field holds " +
                   std::to_string(column.string_bytes));
  }
  if (column.format.TypeEx() == VELT_Format::A) {
    std::copy(text_.begin(), text_.end(), field_.begin());
    return std::nullopt;
  }
  const StoredValue value = typed_value(text_, column.format);
  const int status = ToString(value.get(), column.format, field_.data());
  if (status != 0) return failure(status);
  return std::nullopt;
}

std::optional<Refusal> Encoder::put_number(const Column& column, const Given& given) {
  double value = 0;
  if (std::optional<Refusal> refused = take_number(column, given, value)) return refused;
  field_.assign(column.width, ' ');
  if (is_missing(value)) return put_missing_number(column, value);
  const bool infinities = holds_infinity(column.format.TypeEx());
  if (std::isnan(value) || (std::isinf(value) && !infinities)) {
    return refusal(column.format_text + (infinities
                                             ? " holds no not-a-number"
                                             : " holds neither infinities nor not-a-number"));
  }
  OBS stored = {};
  stored.number = value;
  const int status = ToString(&stored, column.format, field_.data());
  if (status != 0) return failure(status);
  if (shows_no_fit(field_, column)) {
    return refusal("the value does not fit " + column.format_text);
  }
  // Numbers are rounded as their format likes; dates and times must be what they were.
  return is_date_or_time(column.format.TypeEx()) ? check_kept(column, value)
                                                 : check_decimals(column, value);
}

// Digits without a decimal character read as if it stood before the format's decimals. Where whole
// digits left no room for it, the number would come back ten times smaller or more; what rounding
// leaves is zero or more than half of it.
std::optional<Refusal> Encoder::check_decimals(const Column& column, double value) {
  if (column.raw || column.format.Decimals() == 0) return std::nullopt;
  OBS back = VELT_SystemMissing();
  const int status = FromString(field_.data(), column.format, &back);
  if (status != 0 || is_missing(back.number) || back.number == 0) return std::nullopt;
  if (std::fabs(back.number) > std::fabs(value) / 2) return std::nullopt;
  return refusal("the value leaves " + column.format_text + " no room for its decimal character");
}

// Blanks read as missing under every format of text, and eight bytes of RB may be the number
// itself; what the writers show for it reads as no number.
std::optional<Refusal> Encoder::put_missing_number(const Column& column, double value) {
  if (column.format.TypeEx() == VELT_Format::RB && column.width == sizeof value) {
    std::memcpy(field_.data(), &value, sizeof value);
  } else if (column.raw) {
    return refusal(column.format_text + " has no missing value");
  }
  return check_kept(column, value);
}

// Refuses a field that reads as another value.
std::optional<Refusal> Encoder::check_kept(const Column& column, double value) {
  OBS back = VELT_SystemMissing();
  const int status = FromString(field_.data(), column.format, &back);
  if (status == 0 && is_kept(value, back.number, column.format.TypeEx())) return std::nullopt;
  return refusal(is_missing(value) ? column.format_text + " has no missing value"
                                   : column.format_text + " would lose a part of the value");
}

std::optional<Refusal> Encoder::take_number(const Column& column, const Given& given,
                                            double& value) {
  switch (given.kind) {
    case Given::Kind::missing: value = VELT_SystemMissing().number; return std::nullopt;
    case Given::Kind::number: value = given.number; return std::nullopt;
    case Given::Kind::text: break;
  }
  if (column.show == Show::text) return take_field_text(column, given.text, value);
  try {
    std::optional<double> number = typed_number(given.text);
    if (!number && column.show == Show::iso) number = typed_moment(given.text);
    if (!number) {
      return refusal(column.show == Show::iso ? "the text is neither a date, a time nor a number"
                                              : "the text is not a number");
    }
    value = *number;
    return std::nullopt;
  } catch (const UsageError& error) {
    return refusal(error.what());
  }
}

// What is shown as the field's own text is read as one.
std::optional<Refusal> Encoder::take_field_text(const Column& column, const std::string& text,
                                                double& value) {
  if (text.size() > column.width) {
    return refusal("the text has " + std::to_string(text.size()) + " bytes, the field holds " +
                   std::to_string(column.width));
  }
  std::copy(text.begin(), text.end(), field_.begin());
  OBS stored = VELT_SystemMissing();
  const int status = FromString(field_.data(), column.format, &stored);
  if (status != 0) return failure(status);
  value = stored.number;
  return std::nullopt;
}

}  // namespace iocv::tool
