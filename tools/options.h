// What the commands have in common on the command line.
#pragma once

#include <CLI/CLI.hpp>

#include <iocv/format.h>

#include <functional>
#include <string>
#include <vector>

#include "failure.h"
#include "settings.h"

namespace iocv::tool {

// A command of the tool: its part of the command line and what it does when that was parsed.
struct Command {
  CLI::App* app;
  std::function<Exit()> run;
};

Command add_write(CLI::App& tool);
Command add_read(CLI::App& tool);
Command add_formats(CLI::App& tool);
Command add_decode(CLI::App& tool);

// Adds --century, --decimal, --leading-zero, --missing, --code-page and --cca to --cce; what is
// given goes to settings, and what is wrong with it into the parser's error.
void add_settings(CLI::App& command, Settings& settings);

// Adds a required positional argument, or the last one, of which there are any number.
void add_positional(CLI::App& command, const std::string& name, std::string& value,
                    const std::string& help);
void add_positional(CLI::App& command, const std::string& name, std::vector<std::string>& values,
                    const std::string& help);

// The format that a text names; throws UsageError for any other text.
VELT_Format format_argument(const std::string& text);

// Writes to standard output, or throws FileError.
void print(std::string_view text);

}  // namespace iocv::tool
