#include "json.h"

#include <array>
#include <charconv>
#include <cmath>

#include "value_text.h"

namespace iocv::tool {
namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";

// The bytes of a character by its first byte, with the range of its second, which rules out
// overlong forms and surrogates; all further bytes are 80..BF.
struct Utf8Row {
  unsigned char first, last;
  std::size_t length;
  unsigned char second_from, second_to;
};
constexpr std::array<Utf8Row, 9> kUtf8 = {{
    {0x00, 0x7F, 1, 0x00, 0x00},
    {0xC2, 0xDF, 2, 0x80, 0xBF},
    {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF},
    {0xED, 0xED, 3, 0x80, 0x9F},
    {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF},
    {0xF1, 0xF3, 4, 0x80, 0xBF},
    {0xF4, 0xF4, 4, 0x80, 0x8F},
}};

constexpr bool within(char c, unsigned char from, unsigned char to) {
  const auto code = static_cast<unsigned char>(c);
  return code >= from && code <= to;
}

// The length of the character at the start of the bytes, 0 when there is none.
std::size_t utf8_length(std::string_view bytes) noexcept {
  for (const Utf8Row& row : kUtf8) {
    if (!within(bytes[0], row.first, row.last)) continue;
    if (row.length > bytes.size()) return 0;
    if (row.length > 1 && !within(bytes[1], row.second_from, row.second_to)) return 0;
    for (std::size_t i = 2; i < row.length; ++i) {
      if (!within(bytes[i], 0x80, 0xBF)) return 0;
    }
    return row.length;
  }
  return 0;
}

void append_escaped(std::string& text, char c) {
  switch (c) {
    case '"': text += "\\\""; return;
    case '\\': text += "\\\\"; return;
    case '\n': text += "\\n"; return;
    case '\r': text += "\\r"; return;
    case '\t': text += "\\t"; return;
    default: break;
  }
  if (within(c, 0x00, 0x1F) || c == 0x7F) {
    text += "\\u00";
    append_hex(text, {&c, 1});
  } else {
    text += c;
  }
}

}  // namespace

void append_hex(std::string& text, std::string_view bytes, std::string_view separator) {
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (i > 0) text += separator;
    const auto byte = static_cast<unsigned char>(bytes[i]);
    text += kHexDigits[byte >> 4];
    text += kHexDigits[byte & 15];
  }
}

bool is_utf8(std::string_view bytes) noexcept {
  while (!bytes.empty()) {
    const std::size_t length = utf8_length(bytes);
    if (length == 0) return false;
    bytes.remove_prefix(length);
  }
  return true;
}

void append_json_string(std::string& text, std::string_view value) {
  text += '"';
  while (!value.empty()) {
    const std::size_t length = utf8_length(value);
    if (length == 1) {
      append_escaped(text, value[0]);
    } else if (length == 0) {
      text += "\uFFFD";
    } else {
      text += value.substr(0, length);
    }
    value.remove_prefix(length == 0 ? 1 : length);
  }
  text += '"';
}

void JsonObject::key(std::string_view name) {
  members_ += members_.empty() ? "{" : ", ";
  append_json_string(members_, name);
  members_ += ": ";
}

JsonObject& JsonObject::text(std::string_view name, std::string_view value) {
  key(name);
  append_json_string(members_, value);
  return *this;
}

JsonObject& JsonObject::text_or_null(std::string_view name, std::optional<std::string_view> value) {
  return value ? text(name, *value) : null(name);
}

JsonObject& JsonObject::number(std::string_view name, double value) {
  key(name);
  if (!std::isfinite(value)) members_ += '"';
  append_number(members_, value);
  if (!std::isfinite(value)) members_ += '"';
  return *this;
}

JsonObject& JsonObject::integer(std::string_view name, std::int64_t value) {
  key(name);
  members_ += std::to_string(value);
  return *this;
}

JsonObject& JsonObject::flag(std::string_view name, bool value) {
  key(name);
  members_ += value ? "true" : "false";
  return *this;
}

JsonObject& JsonObject::null(std::string_view name) {
  key(name);
  members_ += "null";
  return *this;
}

JsonObject& JsonObject::hex(std::string_view name, std::string_view bytes) {
  key(name);
  members_ += '"';
  append_hex(members_, bytes);
  members_ += '"';
  return *this;
}

}  // namespace iocv::tool
