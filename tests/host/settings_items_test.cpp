// The items that a settings buffer is made of.
#include <algorithm>

#include "host/backend_settings_support.h"
#include "support/guarded.h"

namespace test {
namespace {

TEST(SettingsSerializer, WritesEachItemBehindTheMark) {
  BackendSettings::Serializer out;
  EXPECT_EQ(out.GetString(), bytes_of_hex("0100"));
  out.Send(static_cast<short>(-2));
  out.Send(0x01020304);
  out.Send(0x0102030405060708LL);
  out.Send(1.0);
  out.Send(true);
  out.Send(false);
  out.Send('\xA0');
  out.Send(std::string("a\0b", 3));
  out.Send(std::string());
  EXPECT_EQ(out.GetString(), bytes_of_hex("0100 FEFF 04030201 0807060504030201 000000000000F03F"
                                          "01 00 A0 03000000 610062 00000000"));
}

struct Items {
  short small = 0;
  int number = 0;
  long long large = 0;
  double real = 0;
  bool on = false;
  bool off = true;
  char byte = 0;
  std::string text = "before";

  bool operator==(const Items&) const = default;
};

// How many of the items were there.
int receive(BackendSettings::Deserializer& in, Items& items) {
  const bool received[] = {in.Receive(items.small), in.Receive(items.number),
                           in.Receive(items.large), in.Receive(items.real),
                           in.Receive(items.on),    in.Receive(items.off),
                           in.Receive(items.byte),  in.Receive(items.text)};
  return static_cast<int>(std::count(std::begin(received), std::end(received), true));
}

TEST(SettingsDeserializer, ReadsEachItemInBothByteOrders) {
  const Items kItems = {-2, 0x01020304, 0x0102030405060708, 1.0, true, false, '\xA0', "a"};
  const char* const kBuffers[] = {
      "0100 FEFF 04030201 0807060504030201 000000000000F03F 80 00 A0 01000000 61",
      "0001 FFFE 01020304 0102030405060708 3FF0000000000000 01 00 A0 00000001 61",
  };
  for (const char* hex : kBuffers) {
    const std::string buffer = bytes_of_hex(hex);
    const Guarded guarded(buffer);
    Items items;
    BackendSettings::Deserializer trusting(guarded.data());
    EXPECT_EQ(receive(trusting, items), 8);
    EXPECT_EQ(items, kItems);
    items = {};
    BackendSettings::Deserializer bounded(guarded.data(), guarded.size());
    EXPECT_EQ(receive(bounded, items), 8);
    EXPECT_EQ(items, kItems);
    char more = 'x';
    EXPECT_FALSE(bounded.Receive(more));
    EXPECT_EQ(more, 'x');
  }
}

TEST(SettingsDeserializer, NeverReadsBeyondTheLengthAndStopsForGood) {
  const std::string buffer =
      bytes_of_hex("0100 FEFF 04030201 0807060504030201 000000000000F03F 80 00 A0 01000000 61");
  constexpr std::size_t kEnds[] = {4, 8, 16, 24, 25, 26, 27, 32};
  for (std::size_t length = 0; length <= buffer.size(); ++length) {
    const Guarded guarded(std::string_view(buffer).substr(0, length));
    BackendSettings::Deserializer in(guarded.data(), length);
    Items items;
    const auto there = std::count_if(std::begin(kEnds), std::end(kEnds),
                                     [&](std::size_t end) { return end <= length; });
    EXPECT_EQ(receive(in, items), there) << length;
    EXPECT_EQ(items.text, there == 8 ? "a" : "before");
  }
  const std::string negative = bytes_of_hex("0100 FFFFFFFF 41");
  BackendSettings::Deserializer trusting(negative.data());
  std::string text = "before";
  EXPECT_FALSE(trusting.Receive(text));
  EXPECT_EQ(text, "before");
  char byte = 'x';
  EXPECT_FALSE(trusting.Receive(byte));
}

TEST(SettingsSwapBytes, ReversesItemsOfTwoFourAndEightBytes) {
  short two = 0x0102;
  BackendSettings::SwapBytes(two);
  EXPECT_EQ(two, 0x0201);
  int four = 0x01020304;
  BackendSettings::SwapBytes(four);
  EXPECT_EQ(four, 0x04030201);
  long long eight = 0x0102030405060708;
  BackendSettings::SwapBytes(eight);
  EXPECT_EQ(eight, 0x0807060504030201);
  double real = 1.0;
  BackendSettings::SwapBytes(real);
  BackendSettings::SwapBytes(real);
  EXPECT_EQ(real, 1.0);
}

}  // namespace
}  // namespace test
