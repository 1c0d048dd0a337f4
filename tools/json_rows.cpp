#include "json_rows.h"

#include <cmath>

#include "json.h"
#include "value_text.h"

namespace iocv::tool {

JsonRows::JsonRows(const std::vector<std::string>& names, std::string& out) : out_(out) {
  for (const std::string& name : names) {
    std::string key = keys_.empty() ? "{" : ", ";
    append_json_string(key, name);
    keys_.push_back(key + ": ");
  }
}

void JsonRows::number(double value) {
  begin_value();
  const bool quoted = !std::isfinite(value);
  if (quoted) out_ += '"';
  append_number(out_, value);
  if (value == 0 && std::signbit(value)) out_ += ".0";  // many readers take -0 as the integer 0
  if (quoted) out_ += '"';
}

void JsonRows::text(std::string_view value) {
  begin_value();
  append_json_string(out_, value);
}

void JsonRows::moment(std::string_view value) {
  begin_value();
  out_ += '"';
  out_ += value;
  out_ += '"';
}

void JsonRows::missing() {
  begin_value();
  out_ += "null";
}

void JsonRows::end_row() {
  out_ += "}\n";
  values_ = 0;
}

}  // namespace iocv::tool
