#include "temporaries.h"

#include <unistd.h>

#include <array>
#include <atomic>
#include <climits>
#include <csignal>
#include <cstring>
#include <stdexcept>

namespace iocv::tool {
namespace {

// What a signal's handler may look at: plain bytes, valid while in_use.
struct Slot {
  std::atomic<bool> taken = false;
  std::atomic<bool> in_use = false;
  char path[PATH_MAX] = {};
};
static_assert(std::atomic<bool>::is_always_lock_free, "a signal's handler reads it");

std::array<Slot, 8> slots;

extern "C" void end_by_signal(int signal) {
  for (Slot& slot : slots) {
    if (slot.in_use) ::unlink(slot.path);
  }
  std::signal(signal, SIG_DFL);
  ::raise(signal);
}

}  // namespace

void remove_temporaries_on_signals() {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction action = {};
    if (::sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) continue;
    action = {};
    action.sa_handler = end_by_signal;
    ::sigaction(signal, &action, nullptr);
  }
}

Temporary::Temporary(const std::string& path) : slot_(-1) {
  if (path.size() >= PATH_MAX) throw std::length_error("the path '" + path + "' is too long");
  for (std::size_t i = 0; i < slots.size(); ++i) {
    if (slots[i].taken.exchange(true)) continue;
    std::memcpy(slots[i].path, path.c_str(), path.size() + 1);
    slots[i].in_use = true;
    slot_ = static_cast<int>(i);
    return;
  }
  throw std::length_error("too many temporary files");
}

Temporary::~Temporary() {
  Slot& slot = slots[static_cast<std::size_t>(slot_)];
  slot.in_use = false;
  slot.taken = false;
}

}  // namespace iocv::tool
