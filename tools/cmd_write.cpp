// iocv write: values to fields.
#include "arguments.h"
#include "conversion_report.h"
#include "options.h"

namespace iocv::tool {
namespace {

struct WriteOptions {
  std::string format;
  std::vector<std::string> values;
  Settings settings;
  bool json = false;
};

Conversion write_value(const VELT_Format& format, const std::string& text) {
  Conversion conversion{format, typed_value(text, format), std::string(format.Width(), ' '), 0};
  conversion.status = ToString(conversion.value.get(), format, conversion.field.data());
  return conversion;
}

Exit write(const WriteOptions& options) {
  apply(options.settings);
  const VELT_Format format = format_argument(plain(options.format));
  std::string lines;
  std::vector<std::string> objects;
  bool failed = false;
  for (const std::string& value : options.values) {
    const Conversion conversion = write_value(format, plain(value));
    failed |= conversion.status != 0;
    if (options.json) {
      objects.push_back(conversion_json(conversion));
    } else {
      append_field(lines, conversion);
      append_status(lines, conversion.status);
    }
  }
  print(options.json ? json_array(objects) : lines);
  return failed ? Exit::failures : Exit::clean;
}

}  // namespace

Command add_write(CLI::App& tool) {
  auto options = std::make_shared<WriteOptions>();
  CLI::App* const app = tool.add_subcommand("write", "Writes values as fields of a format");
  app->footer(
      "A value is a decimal number with a point (12.5, -1e6), \".\" or \"missing\" for the\n"
      "system-missing value, inf or nan; under A and AHEX it is the string itself. Date and time\n"
      "formats also take 2000-01-01, 2000-01-01T12:30:15.5, 12:30:15 and P1DT12H30M15S.\n"
      "A pattern is four texts between commas or points: negative prefix, prefix, suffix, "
      "negative\n"
      "suffix.\n"
      "Each field is printed between bars, those of IB, P, PIB, PK and RB in hexadecimal digits.\n"
      "\n"
      "  iocv write DOLLAR10.2 -1234.5     |-$1,234.50|\n"
      "  iocv write DATE11 2000-01-01      |01-JAN-2000|\n"
      "  iocv write IB4 12                 0C 00 00 00");
  add_positional(*app, "FORMAT", options->format, "a format: F8.2, DATE11, A20, 40:12.2");
  add_positional(*app, "VALUE", options->values, "the values");
  app->add_flag("--json", options->json, "print an array of objects");
  add_settings(*app, options->settings);
  return {app, [options] { return write(*options); }};
}

}  // namespace iocv::tool
