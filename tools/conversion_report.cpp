#include "conversion_report.h"

#include "format_traits.h"
#include "json.h"
#include "value_text.h"

namespace iocv::tool {
namespace {

// The ISO 8601 form; empty when there is none.
std::string iso_of(const Conversion& conversion) {
  std::string text;
  append_iso(text, conversion.value.number(), iso_form(conversion.format.TypeEx()));
  return text;
}

}  // namespace

void append_field(std::string& text, const Conversion& conversion) {
  if (is_raw(conversion.format.TypeEx())) {
    append_hex(text, conversion.field, " ");
  } else {
    text.append("|").append(conversion.field).append("|");
  }
}

void append_value(std::string& text, const Conversion& conversion, bool iso) {
  if (conversion.format.IsString()) {
    text += conversion.value.trimmed();
  } else if (is_missing(conversion.value.number())) {
    text += '.';
  } else if (const std::string form = iso ? iso_of(conversion) : ""; !form.empty()) {
    text += form;
  } else {
    append_number(text, conversion.value.number());
  }
}

void append_status(std::string& text, int status) {
  if (status != 0) {
    text += "  status " + std::to_string(status) + ": " + iocv_status_text(status);
  }
  text += '\n';
}

std::string conversion_json(const Conversion& conversion) {
  const auto text_or_null = [](std::string_view text) {
    return is_utf8(text) ? std::optional(text) : std::nullopt;
  };
  JsonObject object;
  object.text("format", format_to_text(conversion.format));
  if (conversion.format.IsString()) {
    object.text_or_null("value", text_or_null(conversion.value.trimmed())).null("iso");
  } else if (is_missing(conversion.value.number())) {
    object.null("value").null("iso");
  } else {
    const std::string iso = iso_of(conversion);
    object.number("value", conversion.value.number());
    object.text_or_null("iso", iso.empty() ? std::nullopt : std::optional<std::string_view>(iso));
  }
  const bool raw = is_raw(conversion.format.TypeEx());
  object.text_or_null("field", raw ? std::nullopt : text_or_null(conversion.field));
  object.hex("hex", conversion.field);
  object.integer("status", conversion.status);
  object.text("message", iocv_status_text(conversion.status));
  return object.str();
}

std::string json_array(const std::vector<std::string>& objects) {
  std::string text = "[\n";
  for (const std::string& object : objects) {
    if (&object != &objects.front()) text += ",\n";
    text += object;
  }
  text += objects.empty() ? "]\n" : "\n]\n";
  return text;
}

}  // namespace iocv::tool
