// The three kinds of code pages.
#pragma once

#include <array>
#include <memory>
#include <mutex>

#include "platform/code_page.h"
#include "platform/codec.h"

namespace platform {

class Utf8Page final : public CodePage {
 public:
  Utf8Page() : CodePage("UTF-8") {}
  [[nodiscard]] std::size_t length(std::string_view text) const noexcept override;
  std::size_t change_case(std::string_view character, Case target,
                          char* out) const noexcept override;
  bool append_utf8(std::string_view text, std::string& out) const override;
};

// Every byte is a character, also one that has no meaning.
class SingleBytePage final : public CodePage {
 public:
  SingleBytePage(std::string name, std::unique_ptr<Codec> codec);
  [[nodiscard]] std::size_t length(std::string_view) const noexcept override { return 1; }
  std::size_t change_case(std::string_view character, Case target,
                          char* out) const noexcept override;
  bool append_utf8(std::string_view text, std::string& out) const override;

 private:
  std::array<char, 256> lower_;
  std::array<char, 256> upper_;
  mutable std::mutex mutex_;
  std::unique_ptr<Codec> codec_;  // under the lock
};

// Characters of one byte or more. Tables answer for the first two bytes, iconv for the rest.
class MultibytePage final : public CodePage {
 public:
  // True when some byte is not yet a character.
  static bool fits(Codec& codec);

  MultibytePage(std::string name, std::unique_ptr<Codec> codec);
  [[nodiscard]] std::size_t length(std::string_view text) const noexcept override;
  std::size_t change_case(std::string_view character, Case target,
                          char* out) const noexcept override;
  bool append_utf8(std::string_view text, std::string& out) const override;

 private:
  std::array<Sequence, 256> first_;
  std::array<std::array<Sequence, 256>, 256> second_;  // for the bytes that are incomplete alone
  mutable std::mutex mutex_;
  std::unique_ptr<Codec> codec_;  // under the lock
};

}  // namespace platform
