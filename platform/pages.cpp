#include "platform/pages.h"

#include <algorithm>

#include "platform/utf8.h"

namespace platform {
namespace {

constexpr std::size_t index_of(char byte) noexcept { return static_cast<unsigned char>(byte); }

constexpr char byte_of(std::size_t index) noexcept { return static_cast<char>(index); }

// The same letter of the same code page in the target case, 0 bytes when there is none.
std::size_t change_case(Codec& codec, std::string_view character, Case target, char* out,
                        std::size_t room) noexcept {
  const char32_t code = codec.decode(character);
  return code == 0 ? 0 : codec.encode(in_case(code, target), out, room);
}

// The bytes in the target case; those that have none in one byte are themselves.
std::array<char, 256> case_table(Codec& codec, Case target) noexcept {
  std::array<char, 256> table;
  for (std::size_t i = 0; i < table.size(); ++i) {
    const char byte = byte_of(i);
    table[i] = byte;
    if (i >= 128) change_case(codec, {&byte, 1}, target, &table[i], 1);
  }
  return table;
}

}  // namespace

std::size_t Utf8Page::length(std::string_view text) const noexcept { return utf8_length(text); }

std::size_t Utf8Page::change_case(std::string_view character, Case target,
                                  char* out) const noexcept {
  return utf8_encode(in_case(utf8_decode(character), target), out);
}

bool Utf8Page::append_utf8(std::string_view text, std::string& out) const {
  bool complete = true;
  while (!text.empty()) {
    std::size_t length = utf8_length(text);
    if (length != 0) {
      out += text.substr(0, length);
    } else {
      out += kReplacement;
      length = 1;
      complete = false;
    }
    text.remove_prefix(length);
  }
  return complete;
}

SingleBytePage::SingleBytePage(std::string name, std::unique_ptr<Codec> codec)
    : CodePage(std::move(name)),
      lower_(case_table(*codec, Case::lower)),
      upper_(case_table(*codec, Case::upper)),
      codec_(std::move(codec)) {}

std::size_t SingleBytePage::change_case(std::string_view character, Case target,
                                        char* out) const noexcept {
  *out = (target == Case::lower ? lower_ : upper_)[index_of(character.front())];
  return 1;
}

bool SingleBytePage::append_utf8(std::string_view text, std::string& out) const {
  const std::lock_guard lock(mutex_);
  return codec_->append_utf8(text, out);
}

bool MultibytePage::fits(Codec& codec) {
  for (std::size_t i = 128; i < 256; ++i) {
    const char byte = byte_of(i);
    if (codec.examine({&byte, 1}) == Sequence::incomplete) return true;
  }
  return false;
}

MultibytePage::MultibytePage(std::string name, std::unique_ptr<Codec> codec)
    : CodePage(std::move(name)), codec_(std::move(codec)) {
  for (std::size_t i = 0; i < first_.size(); ++i) {
    char bytes[2] = {byte_of(i), 0};
    first_[i] = codec_->examine({bytes, 1});
    second_[i].fill(Sequence::invalid);
    if (first_[i] != Sequence::incomplete) continue;
    for (std::size_t j = 0; j < second_[i].size(); ++j) {
      bytes[1] = byte_of(j);
      second_[i][j] = codec_->examine({bytes, 2});
    }
  }
}

std::size_t MultibytePage::length(std::string_view text) const noexcept {
  if (text.empty()) return 0;
  Sequence found = first_[index_of(text[0])];
  if (found == Sequence::character) return 1;
  if (found == Sequence::invalid || text.size() < 2) return 0;
  found = second_[index_of(text[0])][index_of(text[1])];
  if (found == Sequence::character) return 2;
  if (found == Sequence::invalid) return 0;
  const std::lock_guard lock(mutex_);
  for (std::size_t length = 3; length <= std::min(text.size(), kLongestCharacter); ++length) {
    if (codec_->examine(text.substr(0, length)) == Sequence::character) return length;
  }
  return 0;
}

std::size_t MultibytePage::change_case(std::string_view character, Case target,
                                       char* out) const noexcept {
  const std::lock_guard lock(mutex_);
  return platform::change_case(*codec_, character, target, out, kLongestCharacter);
}

bool MultibytePage::append_utf8(std::string_view text, std::string& out) const {
  const std::lock_guard lock(mutex_);
  return codec_->append_utf8(text, out);
}

}  // namespace platform
