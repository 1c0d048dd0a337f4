// Settings buffers of any bytes.
#include <iocv/backend_settings.h>

#include "harness.h"

namespace {

void receive_all(BackendSettings::Deserializer in) {
  int number = 0;
  double real = 0;
  bool flag = false;
  std::string text;
  while (in.Receive(number) && in.Receive(text) && in.Receive(real) && in.Receive(flag)) {
  }
  char item = 42;
  FUZZ_REQUIRE(!in.Receive(item) && item == 42);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  // Items of every kind are received up to the end and not beyond; after the first that is not
  // wholly there nothing is.
  const fuzz::Exact exact(bytes);
  receive_all(BackendSettings::Deserializer(exact.data(), size));

  BackendSettings settings;
  std::string buffer(bytes);
  buffer.shrink_to_fit();
  settings.setSettings(buffer);
  FUZZ_REQUIRE(buffer == bytes);

  // What was read is written and read back whole, in every byte.
  std::string written = settings.getSettings();
  BackendSettings again;
  again.setSettings(written);
  FUZZ_REQUIRE(again.getSettings() == written);

  // Assignment copies every field; a second reading appends the currencies and changes no other.
  BackendSettings copy;
  copy = settings;
  FUZZ_REQUIRE(copy.getSettings() == written);
  copy.setSettings(written);
  FUZZ_REQUIRE(copy.getCustomCurrencies().size() == 2 * settings.getCustomCurrencies().size());
  copy.setCustomCurrencies(settings.getCustomCurrencies());
  FUZZ_REQUIRE(copy.getSettings() == written);

  settings.getSettingsWithU8CCs();
  return 0;
}
