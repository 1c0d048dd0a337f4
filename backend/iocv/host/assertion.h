// Programming errors of the host. They end the process in every build type, and what they print is
// part of the interface: the source's name does not depend on where the library was built.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace iocv {

// Prints as the C library's assert does unless the condition holds.
inline void require(bool condition, const char* source, const char* function, const char* text) {
  if (condition) return;
  std::fprintf(stderr, "%s: %s: Assertion `%s' failed.\n", source, function, text);
  std::abort();
}

}  // namespace iocv
