// Writes the items of a settings buffer.
#include <iocv/backend_settings.h>

#include <limits>

namespace {

constexpr std::size_t kReserved = 200;  // a typical buffer
constexpr short kByteOrderMark = 1;

}  // namespace

template <class Item>
void BackendSettings::Serializer::append(const Item& item) {
  bytes_.append(reinterpret_cast<const char*>(&item), sizeof item);
}

BackendSettings::Serializer::Serializer() {
  bytes_.reserve(kReserved);
  Send(kByteOrderMark);
}

void BackendSettings::Serializer::Send(short item) { append(item); }
void BackendSettings::Serializer::Send(int item) { append(item); }
void BackendSettings::Serializer::Send(long long item) { append(item); }
void BackendSettings::Serializer::Send(double item) { append(item); }
void BackendSettings::Serializer::Send(bool item) { bytes_ += item ? '\1' : '\0'; }
void BackendSettings::Serializer::Send(char item) { bytes_ += item; }

void BackendSettings::Serializer::Send(const std::string& item) {
  constexpr std::size_t kLongest = std::numeric_limits<int>::max();
  const std::size_t length = std::min(item.size(), kLongest);
  Send(static_cast<int>(length));
  bytes_.append(item, 0, length);
}

const std::string& BackendSettings::Serializer::GetString() const { return bytes_; }
