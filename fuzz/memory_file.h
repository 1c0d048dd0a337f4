// A file in memory, which has a path as any other.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <string>
#include <string_view>

#include "harness.h"

namespace fuzz {

class MemoryFile {
 public:
  explicit MemoryFile(std::string_view bytes) : number_(::memfd_create("records", 0)) {
    const auto size = static_cast<ssize_t>(bytes.size());
    FUZZ_REQUIRE(number_ >= 0 && ::write(number_, bytes.data(), bytes.size()) == size);
  }
  ~MemoryFile() { ::close(number_); }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  std::string path() const { return "/proc/self/fd/" + std::to_string(number_); }

 private:
  int number_;
};

}  // namespace fuzz
