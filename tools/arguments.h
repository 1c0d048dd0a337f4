// Command lines whose values may look like options.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace iocv::tool {

// The arguments after the program's name; "--cca=" is "--cca" and an empty value. Those of `write`
// and `read` are values as they stand: a negative number is no option there, a command's name no
// command and a bracket no list, so every argument but an option gets a mark in front that the
// parser does not know; `plain` takes it off. Behind "--", which is dropped, nothing is an option.
std::vector<std::string> marked_arguments(int argc, const char* const* argv);

std::string plain(std::string_view argument);

}  // namespace iocv::tool
