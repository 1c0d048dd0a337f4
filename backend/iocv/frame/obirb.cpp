#include "frame/obirb.h"

#include <iocv/binary_formats.h>

#include <algorithm>
#include <bit>
#include <cmath>

#include "frame/binary.h"
#include "frame/leaf.h"

namespace iocv {
namespace {

constexpr std::int64_t kDoubleBytes = 8;
constexpr std::int64_t kSingleBytes = 4;
static_assert(sizeof(double) == kDoubleBytes && sizeof(float) == kSingleBytes);

// The pattern of so many bytes whose most significant ones these are, the last the highest.
std::uint64_t pattern(std::string_view bytes, std::int64_t size) {
  std::uint64_t bits = 0;
  for (std::size_t i = bytes.size(); i-- > 0;) {
    bits = bits << 8 | static_cast<unsigned char>(bytes[i]);
  }
  return bits << 8 * (size - static_cast<std::int64_t>(bytes.size()));
}

// Fills the field with the most significant bytes of a pattern of so many, the highest last.
void put_pattern(Field out, std::uint64_t bits, std::int64_t size) {
  bits >>= 8 * (size - out.width());
  for (std::int64_t column = 0; column < out.width(); ++column, bits >>= 8) {
    out.put(column, static_cast<char>(bits & 0xFF));
  }
}

// The pattern of the nearest single; not-a-number keeps its sign and the top of its payload and is
// made quiet, whatever the processor's conversion would make of it.
std::uint32_t single_pattern(double value) {
  if (!std::isnan(value)) return std::bit_cast<std::uint32_t>(static_cast<float>(value));
  const auto bits = std::bit_cast<std::uint64_t>(value);
  const auto sign = static_cast<std::uint32_t>(bits >> 32) & 0x8000'0000U;
  const auto payload = static_cast<std::uint32_t>(bits >> 29) & 0x003F'FFFFU;
  return sign | 0x7FC0'0000U | payload;
}

}  // namespace

Read<double> read_rb(std::string_view field, std::int64_t, const Settings& settings) noexcept {
  if (field.empty()) return {settings.system_missing, Status::ok};
  field = field.substr(0, kDoubleBytes);
  double value;
  if (field.size() > kSingleBytes) {
    value = std::bit_cast<double>(pattern(field, kDoubleBytes));
  } else {
    value = std::bit_cast<float>(static_cast<std::uint32_t>(pattern(field, kSingleBytes)));
  }
  return {std::isnan(value) ? settings.system_missing : value, Status::ok};
}

Status write_rb(Field out, double value, std::int64_t, const Settings& settings) noexcept {
  if (out.empty()) return Status::ok;
  if (value == settings.system_missing) {
    // Files hold question marks where seven bytes FF were meant; readers know them.
    out.fill('?');
    out.put(out.width() - 1, '\x7F');
  } else if (out.width() > kSingleBytes) {
    const std::int64_t zeros = std::max<std::int64_t>(out.width() - kDoubleBytes, 0);
    out.part(0, zeros).fill(0);
    put_pattern(out.part(zeros, kDoubleBytes), std::bit_cast<std::uint64_t>(value), kDoubleBytes);
  } else {
    put_pattern(out, single_pattern(value), kSingleBytes);
  }
  return Status::ok;
}

}  // namespace iocv

extern "C" {

void obirb_(const char* text, const std::int64_t* width, const std::int64_t* decimals, OBS* value,
            std::int64_t* status, std::int64_t) {
  iocv::read_leaf<iocv::read_rb>(text, &iocv::type_code<iocv::FormatCode::rb>, width, decimals,
                                 value, status);
}

void oborb_(const OBS* value, const std::int64_t* width, const std::int64_t* decimals, char* text,
            std::int64_t* status, std::int64_t) {
  iocv::write_leaf<iocv::write_rb>(value, &iocv::type_code<iocv::FormatCode::rb>, width, decimals,
                                   text, status);
}

}  // extern "C"
