#include "frame/obihex.h"

#include <iocv/binary_formats.h>

#include "frame/binary.h"
#include "frame/hex.h"
#include "frame/leaf.h"

namespace iocv {

Status hex_to_bytes(std::string_view text, char* bytes) noexcept {
  for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
    const int high = hex_value(text[i]);
    const int low = hex_value(text[i + 1]);
    if (high < 0 || low < 0) return Status::hex_digit;
    bytes[i / 2] = static_cast<char>(16 * high + low);
  }
  return Status::ok;
}

void bytes_to_hex(const char* bytes, Field out) noexcept {
  for (std::int64_t column = 0; column + 1 < out.width(); column += 2) {
    const int byte = byte_value(bytes[column / 2]);
    out.put(column, hex_digit(byte >> 4));
    out.put(column + 1, hex_digit(byte & 15));
  }
}

}  // namespace iocv

extern "C" {

void obihex_(const char* text, const std::int64_t* width, char* bytes, std::int64_t* status,
             std::int64_t, std::int64_t) {
  iocv::store(status, iocv::hex_to_bytes(iocv::input_field(text, *width), bytes));
}

void obohex_(const char* bytes, const std::int64_t* width, char* text, std::int64_t, std::int64_t) {
  iocv::bytes_to_hex(bytes, iocv::Field(text, *width));
}

}  // extern "C"
