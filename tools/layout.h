// Layouts: where the fields of a record lie, and how they are read and shown.
#pragma once

#include <iocv/format.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "settings.h"

namespace iocv::tool {

// No field of any layout ends beyond this byte of its record.
inline constexpr std::int64_t kLongestRecord = 1 << 19;

// How a field's value is shown.
enum class Show {
  number,  // the stored value
  iso,     // ISO 8601
  text,    // the field's own text, or the string
};

// What becomes of a field that a line does not reach.
enum class ShortLines {
  reject,
  blank,  // a field wholly beyond the end of its line reads as blanks
  pad,    // a field cut by the end of its line does, too: the line counts as padded with blanks
};

struct LayoutField {
  std::string name;
  std::int64_t at = 0;  // 1-based first byte
  VELT_Format format = {VELT_Format::F, 8, 2};
  Show show = Show::number;

  // The byte behind the field, counted from 0.
  std::int64_t end() const noexcept { return at - 1 + format.Width(); }
};

struct Layout {
  std::int64_t record = 0;  // bytes of a record; 0 when records are lines
  bool crlf = false;        // lines end in CR and LF
  ShortLines short_lines = ShortLines::reject;
  Settings settings;
  std::vector<LayoutField> fields;  // in the order of the layout, which is that of the columns

  bool lines() const noexcept { return record == 0; }
};

// A layout, or everything that is wrong with its text, each "FILE:LINE:COLUMN: sentence".
struct LayoutReading {
  Layout layout;
  std::vector<std::string> errors;
  explicit operator bool() const noexcept { return errors.empty(); }
};

// Reads a layout from the text of the TOML file of that name.
LayoutReading read_layout(std::string_view text, const std::string& file);

// Reads the file; throws FileError when that fails and UsageError, with all errors, for a bad
// layout.
Layout load_layout(const std::string& file);

}  // namespace iocv::tool
