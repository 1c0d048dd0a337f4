#include "frame/obia.h"

#include <iocv/string_formats.h>

#include "frame/leaf.h"
#include "frame/multibyte.h"

namespace iocv {
namespace {

constexpr char kBadByte = '!';
constexpr std::size_t kUnit = sizeof(OBS);

}  // namespace

// In both directions text and value may share their bytes, so nothing is stored before the move.

Status read_a(std::string_view field, char* value) noexcept {
  if (field.empty()) return Status::ok;
  const std::size_t size = field.size();
  std::memmove(value, field.data(), size);
  const bool bad = replace_invalid(value, size, kBadByte);
  std::memset(value + size, ' ', (kUnit - size % kUnit) % kUnit);
  return bad ? Status::string_bytes : Status::ok;
}

void write_a(Field out, const char* value) noexcept {
  if (out.empty()) return;
  const std::size_t valid = valid_prefix({value, static_cast<std::size_t>(out.width())});
  std::memmove(out.data(), value, valid);
  const auto columns = static_cast<std::int64_t>(valid);
  out.part(columns, out.width() - columns).blank();
}

}  // namespace iocv

extern "C" {

void obia_(const char* text, const std::int64_t* width, const std::int64_t*, OBS* value,
           std::int64_t* status, std::int64_t) {
  iocv::store(status, iocv::read_a(iocv::input_field(text, *width), iocv::bytes_of(value)));
}

void oboa_(const OBS* value, const std::int64_t* width, const std::int64_t*, char* text,
           std::int64_t* status, std::int64_t) {
  iocv::write_a(iocv::Field(text, *width), iocv::bytes_of(value));
  iocv::store(status, iocv::Status::ok);
}

}  // extern "C"
