#include "frame/obirbh.h"

#include <iocv/binary_formats.h>

#include <algorithm>

#include "frame/leaf.h"
#include "frame/obihex.h"
#include "frame/obirb.h"
#include "frame/qobosp.h"

namespace iocv {
namespace {

constexpr std::int64_t kBytes = 8;
constexpr std::int64_t kDigits = 2 * kBytes;

}  // namespace

Read<double> read_rbhex(std::string_view field, std::int64_t decimals,
                        const Settings& settings) noexcept {
  if (field.size() < 2) return {settings.system_missing, Status::ok};
  if (field.find_first_not_of(' ') == field.npos) return {settings.blank_value, Status::ok};
  field.remove_suffix(field.size() % 2);
  if (field.size() > kDigits) field.remove_prefix(field.size() - kDigits);
  char bytes[kBytes];
  const Status status = hex_to_bytes(field, bytes);
  if (status != Status::ok) return {settings.system_missing, status};
  const std::size_t size = field.size() / 2;
  std::reverse(bytes, bytes + size);  // to the order of RB
  return read_rb({bytes, size}, decimals, settings);
}

Status write_rbhex(Field out, double value, std::int64_t decimals,
                   const Settings& settings) noexcept {
  if (write_special(out, value, out.width() - 1, settings)) return Status::ok;
  const std::int64_t size = std::min(out.width() / 2, kBytes);
  char bytes[kBytes];
  write_rb({bytes, size}, value, decimals, settings);
  std::reverse(bytes, bytes + size);
  bytes_to_hex(bytes, out.part(0, 2 * size));
  // An odd last column is blank; columns beyond the sixteenth hold zeros.
  out.part(2 * size, out.width()).fill(out.width() > kDigits ? '0' : ' ');
  return Status::ok;
}

}  // namespace iocv

extern "C" {

void obirbh_(const char* text, const std::int64_t* width, const std::int64_t* decimals, OBS* value,
             std::int64_t* status, std::int64_t) {
  iocv::read_leaf<iocv::read_rbhex>(text, &iocv::type_code<iocv::FormatCode::rbhex>, width,
                                    decimals, value, status);
}

void oborbh_(const OBS* value, const std::int64_t* width, const std::int64_t* decimals, char* text,
             std::int64_t* status, std::int64_t) {
  iocv::write_leaf<iocv::write_rbhex>(value, &iocv::type_code<iocv::FormatCode::rbhex>, width,
                                      decimals, text, status);
}

}  // extern "C"
