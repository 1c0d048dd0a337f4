// Reads the items of a settings buffer, never beyond its end.
#include <iocv/backend_settings.h>

#include <cstring>
#include <limits>

namespace {

constexpr short kByteOrderMark = 1;
// No object is larger.
constexpr std::size_t kUnbounded = std::numeric_limits<std::ptrdiff_t>::max();

}  // namespace

BackendSettings::Deserializer::Deserializer(const char* bytes) : Deserializer(bytes, kUnbounded) {}

BackendSettings::Deserializer::Deserializer(const char* bytes, std::size_t length)
    : next_(bytes), left_(length) {
  short mark = kByteOrderMark;
  Receive(mark);
  swap_ = mark != kByteOrderMark;
}

// The next bytes, or null, now and from now on, when fewer are left.
const char* BackendSettings::Deserializer::take(std::size_t count) {
  if (count > left_) {
    left_ = 0;
    return nullptr;
  }
  const char* taken = next_;
  next_ += count;
  left_ -= count;
  return taken;
}

template <class Item>
bool BackendSettings::Deserializer::receive(Item& item) {
  const char* bytes = take(sizeof item);
  if (!bytes) return false;
  std::memcpy(&item, bytes, sizeof item);
  if (swap_) SwapBytes(item);
  return true;
}

bool BackendSettings::Deserializer::Receive(short& item) { return receive(item); }
bool BackendSettings::Deserializer::Receive(int& item) { return receive(item); }
bool BackendSettings::Deserializer::Receive(long long& item) { return receive(item); }
bool BackendSettings::Deserializer::Receive(double& item) { return receive(item); }

bool BackendSettings::Deserializer::Receive(char& item) {
  const char* byte = take(1);
  if (byte) item = *byte;
  return byte != nullptr;
}

bool BackendSettings::Deserializer::Receive(bool& item) {
  const char* byte = take(1);
  if (byte) item = *byte != 0;
  return byte != nullptr;
}

bool BackendSettings::Deserializer::Receive(std::string& item) {
  int length = 0;
  if (!Receive(length)) return false;
  const auto count =
      static_cast<std::size_t>(length);  // a negative one is more than any buffer has
  const char* bytes = take(count);
  if (!bytes) return false;
  item.assign(bytes, count);
  return true;
}
