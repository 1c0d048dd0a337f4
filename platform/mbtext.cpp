// Text in the current code page.
#include <iocv/platform.h>

#include <cstring>
#include <string_view>

#include "platform/code_page.h"

namespace {

using platform::Case;
using platform::CodePage;

constexpr bool is_ascii(char byte) noexcept { return static_cast<unsigned char>(byte) < 128; }

std::string_view view(const char* text, std::int64_t length) noexcept {
  return length > 0 ? std::string_view(text, static_cast<std::size_t>(length)) : std::string_view();
}

// Changes the case of the character of length bytes at text, if its other case is as long.
void change_one(const CodePage& page, char* text, std::size_t length, Case target) noexcept {
  char changed[platform::kLongestCharacter];
  if (page.change_case({text, length}, target, changed) == length) {
    std::memcpy(text, changed, length);
  }
}

void change_case(char* text, std::int64_t size, Case target) noexcept {
  const CodePage& page = CodePage::current();
  std::string_view rest = view(text, size);
  while (!rest.empty()) {
    std::size_t length = 1;
    if (is_ascii(*text)) {
      *text = platform::ascii_in_case(*text, target);
    } else if (const std::size_t found = page.length(rest); found != 0) {
      change_one(page, text, found, target);
      length = found;
    }
    rest.remove_prefix(length);
    text += length;
  }
}

}  // namespace

extern "C" {

int VELTMBmblen_A(const char* text, std::int64_t length) noexcept {
  if (length < 1) return 0;
  if (is_ascii(*text)) return *text != 0 ? 1 : -1;
  const std::size_t found = CodePage::current().length(view(text, length));
  return found != 0 ? static_cast<int>(found) : -1;
}

void VELTMBmemlwr_A(char* text, std::int64_t length) noexcept {
  change_case(text, length, Case::lower);
}

void VELTMBmemupr_A(char* text, std::int64_t length) noexcept {
  change_case(text, length, Case::upper);
}

}  // extern "C"

int VELTMBGenericToU8(std::string& out, const std::string& in) {
  std::string converted;
  const bool complete = CodePage::current().append_utf8(in, converted);
  out = std::move(converted);
  return complete ? 0 : 1;
}

bool VELTMBsetCodePage(const char* name) { return CodePage::select(name); }

std::string VELTMBgetCodePage() { return CodePage::current().name(); }
