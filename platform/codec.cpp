#include "platform/codec.h"

#include <array>

#include "platform/utf8.h"

namespace platform {
namespace {

using Outcome = Converter::Outcome;

// A character stands for three codes at most.
using Utf8Buffer = std::array<char, 4 * kLongestUtf8>;

constexpr bool fixed_in_ascii(char byte) noexcept {
  return byte == ' ' || (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
         (byte >= 'a' && byte <= 'z');
}

}  // namespace

bool Codec::usable() noexcept {
  if (!to_utf8_ || !from_utf8_) return false;
  for (int code = 1; code < 128; ++code) {
    const char byte = static_cast<char>(code);
    if (examine({&byte, 1}) != Sequence::character) return false;
    if (fixed_in_ascii(byte) && decode({&byte, 1}) != static_cast<char32_t>(code)) return false;
  }
  return true;
}

Sequence Codec::examine(std::string_view bytes) noexcept {
  Utf8Buffer buffer;
  switch (to_utf8_.convert(bytes, buffer.data(), buffer.size()).outcome) {
    case Outcome::all: return Sequence::character;
    case Outcome::incomplete: return Sequence::incomplete;
    default: return Sequence::invalid;
  }
}

char32_t Codec::decode(std::string_view character) noexcept {
  Utf8Buffer buffer;
  const auto [outcome, taken, written] = to_utf8_.convert(character, buffer.data(), buffer.size());
  const std::string_view text(buffer.data(), written);
  if (outcome != Outcome::all || text.empty() || utf8_length(text) != text.size()) return 0;
  return utf8_decode(text);
}

std::size_t Codec::encode(char32_t code, char* out, std::size_t room) noexcept {
  std::array<char, kLongestUtf8> text;
  const std::size_t length = utf8_encode(code, text.data());
  const auto [outcome, taken, written] = from_utf8_.convert({text.data(), length}, out, room);
  return outcome == Outcome::all ? written : 0;
}

bool Codec::append_utf8(std::string_view text, std::string& out) {
  std::string part(text.size() * kLongestUtf8 + sizeof(Utf8Buffer), '\0');
  bool complete = true;
  while (!text.empty()) {
    const auto [outcome, taken, written] = to_utf8_.convert(text, part.data(), part.size());
    out.append(part, 0, written);
    text.remove_prefix(taken);
    if (outcome == Outcome::invalid || outcome == Outcome::incomplete) {
      out += kReplacement;
      text.remove_prefix(1);
      complete = false;
    }
  }
  return complete;
}

}  // namespace platform
