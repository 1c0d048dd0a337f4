#include <algorithm>
#include <cstddef>
#include <unordered_map>

#include "failure.h"
#include "input_rows.h"

namespace iocv::tool {
namespace {

std::string_view without_line_end(std::string_view text) {
  if (text.ends_with('\n')) text.remove_suffix(1);
  if (text.ends_with('\r')) text.remove_suffix(1);
  return text;
}

// Takes the value at the front of the text, and what is wrong with it.
std::string take_value(std::string_view& text, std::string& value) {
  value.clear();
  if (!text.starts_with('"')) {
    const std::size_t end = std::min(text.find(','), text.size());
    value = text.substr(0, end);
    text.remove_prefix(end);
    return value.find('"') == value.npos ? "" : "a quote stands inside a value without quotes";
  }
  for (;;) {
    text.remove_prefix(1);
    const std::size_t quote = text.find('"');
    if (quote == text.npos) return "a quote is not closed";
    value += text.substr(0, quote);
    text.remove_prefix(quote + 1);
    if (!text.starts_with('"')) break;  // two of them are one
    value += '"';
  }
  return text.empty() || text.front() == ',' ? "" : "more stands behind a closing quote";
}

// Parts a row into its values; the error is empty when it is well formed.
std::string part(std::string_view text, std::vector<std::string>& values) {
  values.clear();
  for (;;) {
    values.emplace_back();
    std::string error = take_value(text, values.back());
    if (!error.empty()) return error;
    if (text.empty()) return {};
    text.remove_prefix(1);  // the comma
  }
}

class CsvParser final : public RowParser {
 public:
  CsvParser(std::string_view head, const Layout& layout) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    std::string_view names = without_line_end(head);
    if (names.starts_with(kMark)) names.remove_prefix(kMark.size());
    const std::string error = part(names, texts_);
    if (!error.empty()) throw UsageError("the line of names: " + error);
    columns_ = texts_.size();
    place_fields(layout);
  }

  std::string parse(std::string_view row, std::vector<Given>& values) override {
    std::string error = part(without_line_end(row), texts_);
    if (!error.empty()) return error;
    if (texts_.size() != columns_) {
      return "the row has " + std::to_string(texts_.size()) + " values, the line of names " +
             std::to_string(columns_);
    }
    give(values);
    return {};
  }

 private:
  void place_fields(const Layout& layout) {
    std::unordered_map<std::string_view, std::size_t> columns;
    for (std::size_t i = 0; i < columns_; ++i) {
      if (columns.emplace(texts_[i], i).second) continue;
      throw UsageError("two columns have the name \"" + texts_[i] + "\"");
    }
    for (const LayoutField& field : layout.fields) {
      const auto found = columns.find(field.name);
      if (found == columns.end()) {
        throw UsageError("the CSV has no column \"" + field.name + "\"");
      }
      places_.push_back(found->second);
      columns.erase(found);
    }
    if (columns.empty()) return;
    const std::string name(columns.begin()->first);
    throw UsageError("the column \"" + name + "\" is no field of the layout");
  }

  void give(std::vector<Given>& values) {
    values.resize(places_.size());
    for (std::size_t i = 0; i < places_.size(); ++i) {
      const std::string& text = texts_[places_[i]];
      values[i].kind = text.empty() ? Given::Kind::missing : Given::Kind::text;
      values[i].text = text;
    }
  }

  std::vector<std::string> texts_;
  std::vector<std::size_t> places_;  // of the layout's fields among the columns
  std::size_t columns_ = 0;
};

}  // namespace

std::unique_ptr<RowParser> csv_parser(std::string_view head, const Layout& layout) {
  return std::make_unique<CsvParser>(head, layout);
}

}  // namespace iocv::tool
