#include "arguments.h"

#include <algorithm>
#include <span>

namespace iocv::tool {
namespace {

constexpr char kMark = '\x01';

// -5, -.5, -12:30, -PT5M, -inf, -nan, as opposed to -o and --json.
bool is_negative_value(std::string_view argument) {
  if (argument.size() < 2 || argument[0] != '-') return false;
  const char next = argument[1];
  return (next >= '0' && next <= '9') || next == '.' || next == 'P' || argument == "-inf" ||
         argument == "-nan";
}

// "--cca=" becomes "--cca" and an empty value: the parser would take the next argument instead.
std::vector<std::string> separated(int argc, const char* const* argv) {
  std::vector<std::string> arguments;
  bool options = true;
  for (std::string_view argument : std::span(argv + 1, argv + argc)) {
    options = options && argument != "--";
    const bool is_empty =
        options && argument.starts_with("--") && argument.find('=') == argument.size() - 1;
    if (is_empty) argument.remove_suffix(1);
    arguments.emplace_back(argument);
    if (is_empty) arguments.emplace_back();
  }
  return arguments;
}

}  // namespace

std::vector<std::string> marked_arguments(int argc, const char* const* argv) {
  std::vector<std::string> arguments = separated(argc, argv);
  if (arguments.empty() || (arguments[0] != "write" && arguments[0] != "read")) return arguments;
  const auto values = std::find(arguments.begin(), arguments.end(), "--");
  for (auto argument = arguments.begin() + 1; argument != arguments.end(); ++argument) {
    if (argument > values || !argument->starts_with('-') || is_negative_value(*argument)) {
      argument->insert(0, 1, kMark);
    }
  }
  if (values != arguments.end()) arguments.erase(values);  // it has done its work
  return arguments;
}

std::string plain(std::string_view argument) {
  if (argument.starts_with(kMark)) argument.remove_prefix(1);
  return std::string(argument);
}

}  // namespace iocv::tool
