#include "frame/obiah.h"

#include <iocv/string_formats.h>

#include "frame/hex.h"
#include "frame/leaf.h"

namespace iocv {
namespace {

constexpr std::size_t kUnit = sizeof(OBS);

}  // namespace

Status read_ahex(std::string_view field, char* value) noexcept {
  const std::size_t size = field.size() / 2;
  if (size == 0) return Status::ok;
  Status status = Status::ok;
  for (std::size_t i = 0; i < size; ++i) {
    const int high = hex_value(field[2 * i]);
    const int low = hex_value(field[2 * i + 1]);
    if (high < 0 || low < 0) {
      std::memset(value, ' ', size);  // the bytes that were made already, too
      status = Status::ahex_digit;
      break;
    }
    value[i] = static_cast<char>(16 * high + low);
  }
  std::memset(value + size, ' ', (kUnit - size % kUnit) % kUnit);
  return status;
}

void write_ahex(Field out, const char* value) noexcept {
  for (std::int64_t column = 0; column < out.width(); ++column) {
    const auto byte = static_cast<unsigned char>(value[column / 2]);
    out.put(column, hex_digit(column % 2 == 0 ? byte >> 4 : byte & 0xF));
  }
}

}  // namespace iocv

extern "C" {

void obiah_(const char* text, const std::int64_t* width, const std::int64_t*, OBS* value,
            std::int64_t* status, std::int64_t) {
  iocv::store(status, iocv::read_ahex(iocv::input_field(text, *width), iocv::bytes_of(value)));
}

void oboah_(const OBS* value, const std::int64_t* width, const std::int64_t*, char* text,
            std::int64_t* status, std::int64_t) {
  iocv::write_ahex(iocv::Field(text, *width), iocv::bytes_of(value));
  iocv::store(status, iocv::Status::ok);
}

}  // extern "C"
