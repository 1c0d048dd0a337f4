#include "layout.h"

#include <toml++/toml.h>

#include <algorithm>
#include <array>
#include <optional>
#include <unordered_set>

#include "failure.h"
#include "files.h"
#include "format_traits.h"

namespace iocv::tool {
namespace {

std::string quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

Show usual_show(const VELT_Format& format) {
  if (format.IsString() || format.TypeEx() == VELT_Format::DTIME) return Show::text;
  if (iso_form(format.TypeEx()) != IsoForm::none) return Show::iso;
  return takes_iso(format.TypeEx()) ? Show::text : Show::number;  // weekdays and months have names
}

// Why a format cannot be shown so; empty when it can.
std::string show_error(const VELT_Format& format, Show show) {
  const std::string name = format_to_text(format);
  if (show == Show::number && format.IsString()) return name + " holds no number";
  if (show == Show::iso && iso_form(format.TypeEx()) == IsoForm::none) {
    return name + " has no ISO 8601 form";
  }
  if (show == Show::text && is_raw(format.TypeEx())) return name + " has no text";
  return {};
}

// Takes a layout from its TOML tables, key by key, and notes what is wrong where.
class LayoutReader {
 public:
  void read(const toml::table& root);
  void error(const toml::source_region& where, std::string_view sentence);

  // What was read; the errors are in the order of the text.
  LayoutReading finish(const std::string& file);

 private:
  using Take = void (LayoutReader::*)(std::string_view key, const toml::node& value);
  struct Key {
    std::string_view name;
    Take take;
  };
  static const std::array<Key, 15> kKeys;
  static const std::array<Key, 4> kFieldKeys;

  void take_all(const toml::table& table, std::span<const Key> keys, std::string_view place);
  template <class T>
  std::optional<T> as(std::string_view key, const toml::node& value, std::string_view kind);

  void take_record(std::string_view key, const toml::node& value);
  void take_lines(std::string_view key, const toml::node& value);
  void take_crlf(std::string_view key, const toml::node& value);
  void take_short_lines(std::string_view key, const toml::node& value);
  void take_century(std::string_view key, const toml::node& value);
  void take_leading_zero(std::string_view key, const toml::node& value);
  void take_setting(std::string_view key, const toml::node& value);
  void take_currency(std::string_view key, const toml::node& value);
  void take_fields(std::string_view key, const toml::node& value);
  void take_name(std::string_view key, const toml::node& value);
  void take_at(std::string_view key, const toml::node& value);
  void take_format(std::string_view key, const toml::node& value);
  void take_as(std::string_view key, const toml::node& value);

  void check_framing(const toml::table& root);
  void finish_field(const toml::table& table, std::size_t errors_before);
  std::string field_title() const;

  struct Error {
    toml::source_position where;
    std::string sentence;
  };

  Layout layout_;
  std::vector<Error> errors_;
  bool lines_ = false;
  LayoutField field_;  // the one being read
  std::optional<Show> show_;
  std::unordered_set<std::string> names_;
};

const std::array<LayoutReader::Key, 15> LayoutReader::kKeys = {{
    {"record", &LayoutReader::take_record},
    {"lines", &LayoutReader::take_lines},
    {"crlf", &LayoutReader::take_crlf},
    {"short_lines", &LayoutReader::take_short_lines},
    {"century", &LayoutReader::take_century},
    {"decimal", &LayoutReader::take_setting},
    {"leading_zero", &LayoutReader::take_leading_zero},
    {"missing", &LayoutReader::take_setting},
    {"code_page", &LayoutReader::take_setting},
    {"cca", &LayoutReader::take_currency},
    {"ccb", &LayoutReader::take_currency},
    {"ccc", &LayoutReader::take_currency},
    {"ccd", &LayoutReader::take_currency},
    {"cce", &LayoutReader::take_currency},
    {"field", &LayoutReader::take_fields},
}};

const std::array<LayoutReader::Key, 4> LayoutReader::kFieldKeys = {{
    {"name", &LayoutReader::take_name},
    {"at", &LayoutReader::take_at},
    {"format", &LayoutReader::take_format},
    {"as", &LayoutReader::take_as},
}};

void LayoutReader::error(const toml::source_region& where, std::string_view sentence) {
  errors_.push_back({where.begin, std::string(sentence)});
}

LayoutReading LayoutReader::finish(const std::string& file) {
  std::stable_sort(errors_.begin(), errors_.end(),
                   [](const Error& a, const Error& b) { return a.where < b.where; });
  LayoutReading reading{std::move(layout_), {}};
  for (const Error& error : errors_) {
    reading.errors.push_back(file + ":" + std::to_string(error.where.line) + ":" +
                             std::to_string(error.where.column) + ": " + error.sentence);
  }
  return reading;
}

void LayoutReader::take_all(const toml::table& table, std::span<const Key> keys,
                            std::string_view place) {
  for (const auto& [name, value] : table) {
    const std::string_view text = name.str();
    const auto key =
        std::find_if(keys.begin(), keys.end(), [&](const Key& k) { return k.name == text; });
    if (key == keys.end()) {
      error(name.source(), "unknown key " + quoted(text) + " in " + std::string(place));
    } else {
      (this->*key->take)(text, value);
    }
  }
}

template <class T>
std::optional<T> LayoutReader::as(std::string_view key, const toml::node& value,
                                  std::string_view kind) {
  if (std::optional<T> exact = value.value_exact<T>()) return exact;
  error(value.source(), quoted(key) + " must be " + std::string(kind));
  return std::nullopt;
}

void LayoutReader::read(const toml::table& root) {
  // The framing comes first: fields are checked against it.
  check_framing(root);
  take_all(root, kKeys, "the layout");
}

void LayoutReader::check_framing(const toml::table& root) {
  lines_ = root["lines"].value_or(false);
  const toml::node* const record = root.get("record");
  const toml::source_region start = {{1, 1}, {1, 1}, {}};
  if (!record && !lines_) {
    error(start, "the layout needs \"record\", the bytes of a record, or \"lines = true\"");
  }
  if (record && lines_)
    error(record->source(), "\"record\" and \"lines = true\" exclude each other");
  for (const std::string_view key : {"crlf", "short_lines"}) {
    const toml::node* const value = root.get(key);
    if (value && !lines_) error(value->source(), quoted(key) + " needs \"lines = true\"");
  }
  if (!root.contains("field")) error(start, "the layout has no [[field]]");
  // Taken here and not in the order of the keys, which would put it behind the fields.
  if (record) layout_.record = record->value_or<std::int64_t>(0);
}

void LayoutReader::take_record(std::string_view key, const toml::node& value) {
  const auto bytes = as<std::int64_t>(key, value, "a whole number of bytes");
  if (bytes && (*bytes < 1 || *bytes > kLongestRecord)) {
    error(value.source(), "\"record\" must be from 1 to " + std::to_string(kLongestRecord));
  }
}

void LayoutReader::take_lines(std::string_view key, const toml::node& value) {
  as<bool>(key, value, "true or false");
}

void LayoutReader::take_crlf(std::string_view key, const toml::node& value) {
  layout_.crlf = as<bool>(key, value, "true or false").value_or(false);
}

void LayoutReader::take_short_lines(std::string_view key, const toml::node& value) {
  const std::string text = value.value_or<std::string>("");
  if (text == "reject") {
    layout_.short_lines = ShortLines::reject;
  } else if (text == "blank") {
    layout_.short_lines = ShortLines::blank;
  } else if (text == "pad") {
    layout_.short_lines = ShortLines::pad;
  } else {
    error(value.source(), quoted(key) + " must be \"reject\", \"blank\" or \"pad\"");
  }
}

void LayoutReader::take_century(std::string_view key, const toml::node& value) {
  const auto year = as<std::int64_t>(key, value, "a year");
  if (!year) return;
  const std::string wrong = set_century(layout_.settings, *year);
  if (!wrong.empty()) error(value.source(), wrong);
}

void LayoutReader::take_leading_zero(std::string_view key, const toml::node& value) {
  layout_.settings.leading_zero = as<bool>(key, value, "true or false");
}

void LayoutReader::take_setting(std::string_view key, const toml::node& value) {
  const auto text = as<std::string>(key, value, "a string");
  if (!text) return;
  const auto set = key == "decimal" ? set_decimal : key == "missing" ? set_missing : set_code_page;
  const std::string wrong = set(layout_.settings, *text);
  if (!wrong.empty()) error(value.source(), wrong);
}

void LayoutReader::take_currency(std::string_view key, const toml::node& value) {
  const auto pattern = as<std::string>(key, value, "a string");
  if (!pattern) return;
  const auto index = static_cast<std::size_t>(key.back() - 'a');
  const std::string wrong = set_currency(layout_.settings, index, *pattern);
  if (!wrong.empty()) error(value.source(), wrong);
}

void LayoutReader::take_fields(std::string_view, const toml::node& value) {
  const toml::array* const tables = value.as_array();
  if (!tables || tables->empty() || !tables->is_homogeneous<toml::table>()) {
    return error(value.source(), "\"field\" must be tables, each headed [[field]]");
  }
  for (const toml::node& node : *tables) {
    const toml::table& table = *node.as_table();
    const std::size_t errors_before = errors_.size();
    field_ = {};
    show_.reset();
    field_.name = table["name"].value_or<std::string>("");
    take_all(table, kFieldKeys, field_title());
    finish_field(table, errors_before);
    layout_.fields.push_back(field_);
  }
}

std::string LayoutReader::field_title() const {
  if (!field_.name.empty()) return "field " + quoted(field_.name);
  return "field " + std::to_string(layout_.fields.size() + 1);
}

void LayoutReader::take_name(std::string_view key, const toml::node& value) {
  const auto name = as<std::string>(key, value, "a string");
  if (!name) return;
  if (name->empty()) error(value.source(), "the name of " + field_title() + " is empty");
  if (!name->empty() && !names_.insert(*name).second) {
    error(value.source(), "two fields have the name " + quoted(*name));
  }
}

void LayoutReader::take_at(std::string_view key, const toml::node& value) {
  const auto at = as<std::int64_t>(key, value, "a whole number, the field's first byte");
  if (!at) return;
  if (*at < 1 || *at > kLongestRecord) {
    return error(value.source(), "\"at\" must be from 1 to " + std::to_string(kLongestRecord));
  }
  field_.at = *at;
}

void LayoutReader::take_format(std::string_view key, const toml::node& value) {
  const auto text = as<std::string>(key, value, "a string");
  if (!text) return;
  const FormatReading reading = format_from_text(*text);
  if (!reading) return error(value.source(), reading.error);
  if (!reads(reading.format.TypeEx())) {
    return error(value.source(), "fields of " + format_to_text(reading.format) + " cannot be read");
  }
  field_.format = reading.format;
}

void LayoutReader::take_as(std::string_view key, const toml::node& value) {
  const std::string text = value.value_or<std::string>("");
  if (text == "number") {
    show_ = Show::number;
  } else if (text == "iso") {
    show_ = Show::iso;
  } else if (text == "text") {
    show_ = Show::text;
  } else {
    error(value.source(), quoted(key) + " must be \"number\", \"iso\" or \"text\"");
  }
}

// What only the whole field shows, if its keys are right.
void LayoutReader::finish_field(const toml::table& table, std::size_t errors_before) {
  for (const std::string_view key : {"name", "at", "format"}) {
    if (!table.contains(key)) error(table.source(), field_title() + " lacks " + quoted(key));
  }
  if (errors_.size() != errors_before) return;
  const std::int64_t limit = lines_ ? kLongestRecord : layout_.record;
  if (limit > 0 && field_.end() > limit) {
    error(table["at"].node()->source(),
          field_title() + " ends at byte " + std::to_string(field_.end()) + ", beyond the " +
              (lines_ ? "longest line" : "record") + " of " + std::to_string(limit) + " bytes");
  }
  field_.show = show_.value_or(usual_show(field_.format));
  const std::string wrong = show_error(field_.format, field_.show);
  if (!wrong.empty()) error(table["as"].node()->source(), field_title() + ": " + wrong);
}

}  // namespace

LayoutReading read_layout(std::string_view text, const std::string& file) {
  LayoutReader reader;
  try {
    reader.read(toml::parse(text));
  } catch (const toml::parse_error& e) {
    reader.error(e.source(), e.description());
  }
  return reader.finish(file);
}

Layout load_layout(const std::string& file) {
  LayoutReading reading = read_layout(read_file(file), file);
  if (reading) return std::move(reading.layout);
  std::string all;
  for (const std::string& error : reading.errors) all += (all.empty() ? "" : "\n") + error;
  throw UsageError(all);
}

}  // namespace iocv::tool
