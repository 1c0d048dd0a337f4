// The code pages: immutable once made and alive as long as the process, so that threads share them
// freely and changing the current one is the store of a pointer.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "platform/letter_case.h"

namespace platform {

// No character of any code page is longer.
inline constexpr std::size_t kLongestCharacter = 4;

class CodePage {
 public:
  // The current code page; until one is selected that of the environment.
  static const CodePage& current() noexcept;

  // Makes the named one current; false when iconv does not know it or ASCII is not part of it.
  static bool select(const char* name);

  virtual ~CodePage() = default;
  CodePage(const CodePage&) = delete;
  CodePage& operator=(const CodePage&) = delete;

  // The name under which it was selected.
  [[nodiscard]] const std::string& name() const noexcept { return name_; }

  // Bytes of the character that text begins with, whose first byte is above 127; 0 when it is no
  // character or text ends inside it.
  [[nodiscard]] virtual std::size_t length(std::string_view text) const noexcept = 0;

  // Writes such a character in the target case at out, which has room for kLongestCharacter bytes,
  // and returns its length there; 0 when this code page does not have it.
  virtual std::size_t change_case(std::string_view character, Case target,
                                  char* out) const noexcept = 0;

  // Appends text to out as UTF-8; false when a byte became U+FFFD.
  virtual bool append_utf8(std::string_view text, std::string& out) const = 0;

 protected:
  explicit CodePage(std::string name) : name_(std::move(name)) {}

 private:
  std::string name_;
};

}  // namespace platform
