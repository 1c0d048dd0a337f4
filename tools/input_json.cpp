#include <nlohmann/json.hpp>

#include <unordered_map>

#include "input_rows.h"

namespace iocv::tool {
namespace {

using nlohmann::json;

// False for true, false, arrays and objects.
bool give_value(const json& value, Given& given) {
  if (value.is_null()) {
    given.kind = Given::Kind::missing;
  } else if (value.is_number()) {
    given.kind = Given::Kind::number;
    given.number = value.get<double>();
  } else if (value.is_string()) {
    given.kind = Given::Kind::text;
    given.text = value.get_ref<const std::string&>();
  } else {
    return false;
  }
  return true;
}

class JsonSource final : public RowSource {
 public:
  JsonSource(InputFile& file, const Layout& layout) : lines_(file) {
    for (std::size_t i = 0; i < layout.fields.size(); ++i) places_[layout.fields[i].name] = i;
  }

  std::string_view head() const override { return {}; }
  std::int64_t position() const override { return lines_.position(); }

  bool next(InputRow& row) override {
    do {
      raw_.clear();
      row.offset = lines_.position();
      if (!lines_.append_to(raw_)) return false;
    } while (raw_.find_first_not_of(" \t\r\n") == raw_.npos);
    row.number = ++number_;
    row.raw = raw_;
    row.error = take(row.values);
    return true;
  }

 private:
  std::string take(std::vector<Given>& values) {
    values.assign(places_.size(), {});
    json object;
    try {
      object = json::parse(raw_);
    } catch (const json::parse_error& error) {
      return "the line is no JSON from byte " + std::to_string(error.byte) + " on";
    } catch (const json::out_of_range&) {
      return "a number lies beyond the range of a double";
    }
    if (!object.is_object()) return "the line is no JSON object";
    for (const auto& [key, value] : object.items()) {
      const auto place = places_.find(key);
      if (place == places_.end()) return "the key \"" + key + "\" is no field of the layout";
      if (!give_value(value, values[place->second])) {
        return "the value of \"" + key + "\" is neither a number, a string nor null";
      }
    }
    return {};
  }

  Lines lines_;
  std::string raw_;
  std::unordered_map<std::string, std::size_t> places_;  // of the layout's fields
  std::int64_t number_ = 0;
};

}  // namespace

std::unique_ptr<RowSource> json_source(InputFile& file, const Layout& layout) {
  return std::make_unique<JsonSource>(file, layout);
}

}  // namespace iocv::tool
