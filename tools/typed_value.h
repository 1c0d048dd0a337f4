// Values as a user types them.
#pragma once

#include <iocv/convert.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace iocv::tool {

// Room for one stored value of a format: blank, and wide enough for its strings.
class StoredValue {
 public:
  StoredValue() : StoredValue(0) {}
  explicit StoredValue(std::size_t bytes);

  OBS* get() noexcept { return units_.data(); }
  const OBS* get() const noexcept { return units_.data(); }
  double number() const noexcept { return units_.front().number; }

  // The string: its first bytes, or all, without the blanks at their end.
  std::string_view trimmed(std::size_t bytes) const noexcept;
  std::string_view trimmed() const noexcept { return trimmed(units_.size() * sizeof(OBS)); }

 private:
  std::vector<OBS> units_;
};

// A decimal number with a point, whatever the settings, and an optional exponent; "." or "missing"
// for the system-missing number; "inf" and "nan". Nothing for any other text; throws UsageError for
// a number beyond the range of a double.
std::optional<double> typed_number(std::string_view text);

// A date 2000-01-01, a date and time 2000-01-01T12:30:15.5 (a blank may stand for the T, the
// seconds may be absent), a time 12:30 or -100:30:15, a duration P1DT12H30M15S, as stored seconds.
std::optional<double> typed_moment(std::string_view text);

// The value that a text means under a format: the text's own bytes for strings, a moment or a
// number for dates and times, else a number. Throws UsageError for any other text.
StoredValue typed_value(std::string_view text, const VELT_Format& format);

}  // namespace iocv::tool
