// Sets the current code page and restores the one before at the end of its scope.
#pragma once

#include <iocv/platform.h>

#include <stdexcept>
#include <string>

namespace test {

class CodePageGuard {
 public:
  explicit CodePageGuard(const std::string& name) {
    if (!VELTMBsetCodePage(name.c_str())) throw std::runtime_error("no code page " + name);
  }
  ~CodePageGuard() { VELTMBsetCodePage(saved_.c_str()); }
  CodePageGuard(const CodePageGuard&) = delete;
  CodePageGuard& operator=(const CodePageGuard&) = delete;

 private:
  std::string saved_ = VELTMBgetCodePage();
};

}  // namespace test
