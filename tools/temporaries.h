// Files that must not outlive a run that is broken off.
#pragma once

#include <string>

namespace iocv::tool {

// From here on SIGINT, SIGTERM and SIGHUP remove the registered files before they end the process
// as they always do. A signal that the process was started to ignore stays ignored.
void remove_temporaries_on_signals();

// Registers a path until the object goes away, which does not remove the file. At most eight paths
// are registered at a time, and none that is longer than the system allows.
class Temporary {
 public:
  explicit Temporary(const std::string& path);
  ~Temporary();
  Temporary(const Temporary&) = delete;
  Temporary& operator=(const Temporary&) = delete;

 private:
  int slot_;
};

}  // namespace iocv::tool
