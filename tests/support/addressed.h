// An integer argument of the flat interface: chblkn_(base, I{2}, I{3}) passes the addresses.
#pragma once

#include <cstdint>

namespace test {

struct I {
  std::int64_t value;
  operator const std::int64_t*() const { return &value; }
};

}  // namespace test
