// Rows of values read from CSV or JSON Lines.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "files.h"
#include "layout.h"

namespace iocv::tool {

// A value as its row gives it.
struct Given {
  enum class Kind { missing, number, text };
  Kind kind = Kind::missing;
  double number = 0;
  std::string text;  // UTF-8
};

struct InputRow {
  std::int64_t number;        // from 1, names not counted
  std::int64_t offset;        // of its first byte in the file, from 0
  std::string_view raw;       // as it stands in the file, with the line's end
  std::vector<Given> values;  // in the order of the layout's fields
  std::string error;          // why it is no row; empty when it is one
};

class RowSource {
 public:
  virtual ~RowSource() = default;

  // False at the end of the file. A row stays until the next call.
  virtual bool next(InputRow& row) = 0;

  // The line of names as it stands in the file; empty where there is none.
  virtual std::string_view head() const = 0;
  // How many bytes were read.
  virtual std::int64_t position() const = 0;
};

// CSV: the first line names the fields, each once and in any order; throws UsageError when it does
// not. Lines end in LF or CR LF, quotes as RFC 4180 has them; an empty value is missing.
std::unique_ptr<RowSource> csv_source(InputFile& file, const Layout& layout);

// JSON Lines: an object a line, its keys the fields' names; null and absent ones are missing. Blank
// lines are no rows.
std::unique_ptr<RowSource> json_source(InputFile& file, const Layout& layout);

// The lines of a file, each with its line feed.
class Lines {
 public:
  explicit Lines(InputFile& file) : file_(file), buffer_(1 << 16) {}

  // Appends the next line; false at the end of the file. Throws FileError for a text that grows
  // beyond kLongestRow.
  bool append_to(std::string& text);
  std::int64_t position() const noexcept { return position_; }

 private:
  static constexpr std::size_t kLongestRow = 1 << 28;

  InputFile& file_;
  std::vector<char> buffer_;
  std::string_view rest_;
  std::int64_t position_ = 0;
};

}  // namespace iocv::tool
