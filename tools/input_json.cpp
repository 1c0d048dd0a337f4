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

class JsonParser final : public RowParser {
 public:
  explicit JsonParser(const Layout& layout) {
    for (std::size_t i = 0; i < layout.fields.size(); ++i) places_[layout.fields[i].name] = i;
  }

  std::string parse(std::string_view row, std::vector<Given>& values) override {
    values.assign(places_.size(), {});
    json object;
    try {
      object = json::parse(row);
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

 private:
  std::unordered_map<std::string, std::size_t> places_;  // of the layout's fields
};

}  // namespace

std::unique_ptr<RowParser> json_parser(const Layout& layout) {
  return std::make_unique<JsonParser>(layout);
}

}  // namespace iocv::tool
