#include "platform/converter.h"

#include <cerrno>

namespace platform {
namespace {

constexpr auto kFailed = static_cast<std::size_t>(-1);

// Callers go on as if nothing had happened, errno included.
class ErrnoGuard {
 public:
  ErrnoGuard() = default;
  ~ErrnoGuard() { errno = saved_; }
  ErrnoGuard(const ErrnoGuard&) = delete;
  ErrnoGuard& operator=(const ErrnoGuard&) = delete;

 private:
  int saved_ = errno;
};

Converter::Outcome outcome_of(int error) noexcept {
  switch (error) {
    case EINVAL: return Converter::Outcome::incomplete;
    case E2BIG: return Converter::Outcome::no_room;
    default: return Converter::Outcome::invalid;
  }
}

}  // namespace

Converter::Result Converter::convert(std::string_view in, char* out, std::size_t room) noexcept {
  const ErrnoGuard errno_guard;
  char* input = const_cast<char*>(in.data());  // iconv does not write there
  std::size_t input_left = in.size();
  std::size_t room_left = room;
  iconv(descriptor_, nullptr, nullptr, nullptr, nullptr);
  Outcome outcome = Outcome::all;
  if (iconv(descriptor_, &input, &input_left, &out, &room_left) == kFailed) {
    outcome = outcome_of(errno);
  }
  // Code pages with combining characters hold the last one back until they are told of the end.
  if (iconv(descriptor_, nullptr, nullptr, &out, &room_left) == kFailed) {
    outcome = Outcome::no_room;
  }
  return {outcome, in.size() - input_left, room - room_left};
}

}  // namespace platform
