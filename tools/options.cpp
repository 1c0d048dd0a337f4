#include "options.h"

#include <charconv>

#include "arguments.h"
#include "files.h"

namespace iocv::tool {
namespace {

std::string century_from_text(Settings& settings, std::string_view text) {
  std::int64_t year = 0;
  const auto [end, error] = std::from_chars(text.begin(), text.end(), year);
  if (error != std::errc() || end != text.end()) year = 0;  // a year that no century begins with
  return set_century(settings, year);
}

// An option whose value `set` takes, or says what is wrong with it.
void add_setting(CLI::App& command, const std::string& name, const std::string& kind,
                 const std::string& help, std::function<std::string(std::string_view)> set) {
  command
      .add_option_function<std::string>(
          name,
          [name, set = std::move(set)](const std::string& value) {
            const std::string wrong = set(plain(value));
            if (!wrong.empty()) throw CLI::ValidationError(name, wrong);
          },
          help)
      ->type_name(kind);
}

}  // namespace

void add_settings(CLI::App& command, Settings& settings) {
  add_setting(command, "--century", "YEAR",
              "first of the hundred years that two digits stand for (1900)",
              [&](std::string_view text) { return century_from_text(settings, text); });
  add_setting(command, "--decimal", "CHARACTER", "decimal character, . or , (.)",
              [&](std::string_view text) { return set_decimal(settings, text); });
  command.add_flag_callback(
      "--leading-zero", [&] { settings.leading_zero = true; },
      "write a 0 before the decimal character of numbers below 1");
  add_setting(command, "--missing", "CHARACTER", "system-missing character (.)",
              [&](std::string_view text) { return set_missing(settings, text); });
  add_setting(command, "--code-page", "NAME", "code page of strings (UTF-8)",
              [&](std::string_view text) { return set_code_page(settings, text); });
  for (std::size_t i = 0; i < settings.currencies.size(); ++i) {
    const char letter = static_cast<char>('a' + i);
    add_setting(command, std::string("--cc") + letter, "PATTERN",
                std::string("pattern of CC") + static_cast<char>('A' + i) + ", as in -,$,,CR",
                [&settings, i](std::string_view text) { return set_currency(settings, i, text); });
  }
}

void add_positional(CLI::App& command, const std::string& name, std::string& value,
                    const std::string& help) {
  command.add_option(name, value, help)->required()->type_name("");
}

void add_positional(CLI::App& command, const std::string& name, std::vector<std::string>& values,
                    const std::string& help) {
  command.add_option(name, values, help)->required()->type_name("");
}

VELT_Format format_argument(const std::string& text) {
  FormatReading reading = format_from_text(text);
  if (!reading) throw UsageError(reading.error);
  return reading.format;
}

void print(std::string_view text) {
  OutputFile out = OutputFile::standard_output();
  out.write(text);
  out.commit();
}

}  // namespace iocv::tool
