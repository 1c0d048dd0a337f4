// iocv read: fields to values.
#include "arguments.h"
#include "conversion_report.h"
#include "format_traits.h"
#include "options.h"

namespace iocv::tool {
namespace {

struct ReadOptions {
  std::string format;
  std::vector<std::string> texts;
  Settings settings;
  bool iso = false;
  bool json = false;
};

int hex_digit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// The bytes that hexadecimal digits stand for; blanks may part them.
std::string bytes_from_hex(const std::string& text) {
  std::string bytes;
  int high = -1;
  for (const char c : text) {
    if (c == ' ' && high < 0) continue;
    const int digit = hex_digit(c);
    if (digit < 0) throw UsageError("'" + text + "' is not a run of hexadecimal digits");
    if (high < 0) {
      high = digit;
    } else {
      bytes += static_cast<char>(high * 16 + digit);
      high = -1;
    }
  }
  if (high >= 0) throw UsageError("'" + text + "' ends in half a byte");
  return bytes;
}

std::string bytes_of_width(const VELT_Format& format, std::size_t count) {
  const std::size_t width = format.Width();
  return std::to_string(count) + (count == 1 ? " byte, " : " bytes, ") + format_to_text(format) +
         " takes " + std::to_string(width);
}

// The field: text is padded with blanks, bytes must be all there.
std::string field_from(const std::string& text, const VELT_Format& format) {
  const std::size_t width = format.Width();
  const bool raw = is_raw(format.TypeEx());
  std::string field = raw ? bytes_from_hex(text) : text;
  if (field.size() > width || (raw && field.size() < width)) {
    throw UsageError("'" + text + "' has " + bytes_of_width(format, field.size()));
  }
  field.resize(width, ' ');
  return field;
}

Conversion read_field(const VELT_Format& format, const std::string& text) {
  Conversion conversion{format, StoredValue(format.Width()), field_from(text, format), 0};
  if (!format.IsString()) *conversion.value.get() = VELT_SystemMissing();
  conversion.status = FromString(conversion.field.data(), format, conversion.value.get());
  return conversion;
}

Exit read(const ReadOptions& options) {
  apply(options.settings);
  const VELT_Format format = format_argument(plain(options.format));
  std::string lines;
  std::vector<std::string> objects;
  bool failed = false;
  for (const std::string& text : options.texts) {
    const Conversion conversion = read_field(format, plain(text));
    failed |= conversion.status != 0;
    if (options.json) {
      objects.push_back(conversion_json(conversion));
    } else {
      append_value(lines, conversion, options.iso);
      append_status(lines, conversion.status);
    }
  }
  print(options.json ? json_array(objects) : lines);
  return failed ? Exit::failures : Exit::clean;
}

}  // namespace

Command add_read(CLI::App& tool) {
  auto options = std::make_shared<ReadOptions>();
  CLI::App* const app = tool.add_subcommand("read", "Reads fields of a format as values");
  app->footer(
      "A text is a field, padded with blanks on its right; a longer one than the format is wide "
      "is\n"
      "an error. Fields of IB, P, PIB, PK and RB are typed as hexadecimal digits, all of them. "
      "The\n"
      "custom currencies read as F. Each value is printed as its shortest decimal, dates and "
      "times\n"
      "as seconds, a missing one as \".\", a string without the blanks at its end.\n"
      "\n"
      "  iocv read COMMA9 1,234.5            1234.5\n"
      "  iocv read DATE11 1-JAN-2000         13166064000\n"
      "  iocv read --iso DATE11 1-JAN-2000   2000-01-01\n"
      "  iocv read IB4 0C000000              12");
  add_positional(*app, "FORMAT", options->format, "a format: F8.2, DATE11, A20, 86:20");
  add_positional(*app, "TEXT", options->texts, "the fields");
  app->add_flag("--iso", options->iso, "print dates and times as ISO 8601");
  app->add_flag("--json", options->json, "print an array of objects");
  add_settings(*app, options->settings);
  return {app, [options] { return read(*options); }};
}

}  // namespace iocv::tool
