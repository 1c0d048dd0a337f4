#include "csv.h"

#include <algorithm>

#include "value_text.h"

namespace iocv::tool {
namespace {

bool needs_quotes(std::string_view value) {
  return std::any_of(value.begin(), value.end(),
                     [](char c) { return c == ',' || c == '"' || c == '\n' || c == '\r'; });
}

}  // namespace

void CsvRows::begin_value() {
  if (values_++ == 0) {
    row_start_ = out_.size();
  } else {
    out_ += ',';
  }
}

void CsvRows::number(double value) {
  begin_value();
  append_number(out_, value);
}

void CsvRows::text(std::string_view value) {
  begin_value();
  if (!needs_quotes(value)) {
    out_ += value;
    return;
  }
  out_ += '"';
  for (const char c : value) {
    if (c == '"') out_ += '"';
    out_ += c;
  }
  out_ += '"';
}

void CsvRows::end_row() {
  // An empty line would be no row to many readers.
  if (values_ == 1 && out_.size() == row_start_) out_ += "\"\"";
  out_ += '\n';
  values_ = 0;
}

}  // namespace iocv::tool
