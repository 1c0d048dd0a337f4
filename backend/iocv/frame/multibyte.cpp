#include "frame/multibyte.h"

#include <iocv/fields.h>

#include "frame/place.h"

namespace iocv {

std::size_t valid_prefix(std::string_view text) noexcept {
  std::size_t valid = ascii_run(text);
  while (const std::size_t length = character_length(text.substr(valid))) {
    valid += length;
    valid += ascii_run(text.substr(valid));
  }
  return valid;
}

bool replace_invalid(char* text, std::size_t size, char replacement) noexcept {
  bool found = false;
  for (std::size_t at = 0; (at += valid_prefix({text + at, size - at})) < size; ++at) {
    found = true;
    if (replacement != 0) text[at] = replacement;
  }
  return found;
}

std::size_t find_character(std::string_view text, char byte) noexcept {
  if (static_cast<unsigned char>(byte) > 127) return text.npos;
  std::size_t at = 0;
  while (const std::size_t length = character_length(text.substr(at))) {
    if (text[at] == byte) return at;  // a longer character begins with a byte above 127
    at += length;
  }
  return text.npos;
}

}  // namespace iocv

extern "C" {

std::int64_t chtrnn_(const char* base, const std::int64_t* position, const std::int64_t* length) {
  return static_cast<std::int64_t>(iocv::valid_prefix(iocv::text_at(base, *position, *length)));
}

std::int64_t chtrnc_(const char* base, const std::int64_t* position, const std::int64_t* length,
                     std::int64_t) {
  return chtrnn_(base, position, length);
}

std::int64_t chtruncn_(const char* source, char* destination, const std::int64_t* length) {
  const iocv::Field out(destination, *length);
  const std::size_t count = iocv::valid_prefix(iocv::text_at(source, 1, *length));
  const auto columns = static_cast<std::int64_t>(count);
  if (count != 0) std::memmove(out.data(), source, count);
  out.part(columns, out.width() - columns).blank();
  return columns;
}

std::int64_t icnbtn_(const char* base, const std::int64_t* position, const std::int64_t* length) {
  const std::string_view text = iocv::text_at(base, *position, *length);
  if (text.empty()) return 0;
  const std::size_t bytes = iocv::character_length(text);
  return bytes != 0 ? static_cast<std::int64_t>(bytes) : -1;
}

std::int64_t icnbtc_(const char* base, const std::int64_t* position, const std::int64_t* length,
                     std::int64_t) {
  return icnbtn_(base, position, length);
}

std::int64_t icndxn_(const char* base, const std::int64_t* position, const std::int64_t* length,
                     const char* byte) {
  const std::string_view text = iocv::text_at(base, *position, *length);
  const std::size_t offset = iocv::find_character(text, *byte);
  return offset != text.npos ? static_cast<std::int64_t>(offset) + 1 : 0;
}

std::int64_t icndxc_(const char* base, const std::int64_t* position, const std::int64_t* length,
                     const char* byte, std::int64_t) {
  return icndxn_(base, position, length, byte);
}

std::int64_t qinvmn_(char* base, const std::int64_t* position, const std::int64_t* length,
                     const char* replacement) {
  const iocv::Field field = iocv::field_at(base, *position, *length);
  return iocv::logical(
      iocv::replace_invalid(field.data(), static_cast<std::size_t>(field.width()), *replacement));
}

std::int64_t qinvmc_(char* base, const std::int64_t* position, const std::int64_t* length,
                     const char* replacement, std::int64_t) {
  return qinvmn_(base, position, length, replacement);
}

}  // extern "C"
