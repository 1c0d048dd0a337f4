// JSON as the tool writes it: one object or array element on a line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace iocv::tool {

// Two upper-case digits a byte, with an optional separator between the bytes.
void append_hex(std::string& text, std::string_view bytes, std::string_view separator = {});

// Well-formed UTF-8: no overlong forms, no surrogates, nothing above U+10FFFF.
bool is_utf8(std::string_view bytes) noexcept;

// Appends a JSON string; bytes that are no UTF-8 become U+FFFD, one for each.
void append_json_string(std::string& text, std::string_view value);

// Builds one object; the members stand in the order of the calls.
class JsonObject {
 public:
  JsonObject& text(std::string_view key, std::string_view value);
  JsonObject& text_or_null(std::string_view key, std::optional<std::string_view> value);
  JsonObject& number(std::string_view key, double value);  // "inf", "-inf" and "nan" as strings
  JsonObject& integer(std::string_view key, std::int64_t value);
  JsonObject& flag(std::string_view key, bool value);
  JsonObject& null(std::string_view key);
  JsonObject& hex(std::string_view key, std::string_view bytes);

  // {"key": value, ...} without a line feed.
  std::string str() const { return members_.empty() ? "{}" : members_ + "}"; }

 private:
  void key(std::string_view name);

  std::string members_;
};

}  // namespace iocv::tool
