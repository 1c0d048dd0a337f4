// One conversion as the commands write and read print it.
#pragma once

#include <iocv/convert.h>

#include <string>
#include <string_view>

#include "typed_value.h"

namespace iocv::tool {

struct Conversion {
  VELT_Format format;
  StoredValue value;
  std::string field;
  int status;
};

// Appends the field: between bars, or for IB, P, PIB, PK and RB its bytes as hexadecimal digits.
// Example: "|  12.00|", "0C 00 00 00".
void append_field(std::string& text, const Conversion& conversion);

// Appends the value: a string without the blanks at its end, a number as its shortest decimal or,
// with `iso`, in the format's ISO 8601 form if it has one, "." when it is missing.
void append_value(std::string& text, const Conversion& conversion, bool iso);

// Appends "  status 1140: sentence" unless the status is 0, and a line feed.
void append_status(std::string& text, int status);

// {"format", "value", "iso", "field", "hex", "status", "message"}: a missing value, an absent ISO
// form and a field or string that is no UTF-8 are null.
std::string conversion_json(const Conversion& conversion);

// "[\n", the objects with commas and line feeds between them, "\n]\n".
std::string json_array(const std::vector<std::string>& objects);

}  // namespace iocv::tool
