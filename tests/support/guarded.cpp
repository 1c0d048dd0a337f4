#include "support/guarded.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <stdexcept>

namespace test {
namespace {

std::size_t page() {
  static const auto size = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  return size;
}

}  // namespace

Guarded::Guarded(std::size_t size, Edge edge) : size_(size) {
  mapped_ = (size / page() + 1) * page();
  void* memory = mmap(nullptr, mapped_ + 2 * page(), PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) throw std::runtime_error("mmap");
  pages_ = static_cast<char*>(memory) + page();
  if (mprotect(pages_, mapped_, PROT_READ | PROT_WRITE) != 0) throw std::runtime_error("mprotect");
  std::memset(pages_, kSentinel, mapped_);
  first_ = edge == Edge::end ? pages_ + mapped_ - size : pages_;
}

Guarded::Guarded(std::string_view content, Edge edge) : Guarded(content.size(), edge) {
  std::copy(content.begin(), content.end(), first_);
}

Guarded::~Guarded() { munmap(pages_ - page(), mapped_ + 2 * page()); }

bool Guarded::intact() const {
  const auto is_sentinel = [](char c) { return c == kSentinel; };
  return std::all_of(pages_, first_, is_sentinel) &&
         std::all_of(first_ + size_, pages_ + mapped_, is_sentinel);
}

std::string shown(std::string_view bytes) {
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == ' ') {
      text += "\u00b7";
    } else if (byte < 0x20 || byte > 0x7E) {
      char escape[5];
      std::snprintf(escape, sizeof escape, "\\x%02X", byte);
      text += escape;
    } else {
      text += c;
    }
  }
  return text;
}

}  // namespace test
