// How a command ends, and the failures that end one early.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace iocv::tool {

enum class Exit : int {
  clean = 0,
  failures = 1,  // all is done, and something in the data failed
  usage = 2,     // the command line or the layout is wrong; nothing was done
  file = 3,      // a file cannot be opened, read or written
};

// What the user asked for makes no sense: a bad option, format, value or layout.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Trouble with a file; error is an errno. The text reads "cannot open 'a.txt': Permission denied".
class FileError : public std::runtime_error {
 public:
  FileError(std::string_view action, std::string_view path, int error);
};

}  // namespace iocv::tool
