#include "frame/obiib.h"

#include <iocv/binary_formats.h>

#include "frame/attempts.h"
#include "frame/binary.h"
#include "frame/leaf.h"
#include "frame/obiib_fast.h"
#include "frame/oboib_fast.h"
#include "numeric/powers.h"

namespace iocv {
namespace {

constexpr int kLargestPositive = 127;  // a last byte above it marks a negative number

// Turns the bytes of a magnitude into those of its negative.
void complement(Field out) {
  int carry = 1;
  for (std::int64_t column = 0; column < out.width(); ++column) {
    const int byte = 255 - byte_value(out.data()[column]) + carry;
    carry = byte >> 8;
    out.put(column, static_cast<char>(byte));
  }
}

// False when the number does not fit.
bool put_signed(Field out, double number) {
  const double whole = std::trunc(number < 0 ? number - 0.5 : number + 0.5);
  if (!std::isfinite(whole)) return false;
  const bool negative = whole < 0;
  const double rest = put_bytes(out, std::abs(whole));
  if (negative) complement(out);
  return rest == 0 && (byte_value(out.data()[out.width() - 1]) > kLargestPositive) == negative;
}

}  // namespace

Read<double> read_ib_plain(std::string_view field, std::int64_t decimals,
                           const Settings& settings) noexcept {
  if (field.empty()) return {settings.system_missing, Status::ok};
  const bool negative = byte_value(field.back()) > kLargestPositive;
  double magnitude = 0;
  for (std::size_t i = field.size(); i-- > 0;) {
    const int byte = byte_value(field[i]);
    const int last_place = i == 0 ? 1 : 0;
    magnitude = magnitude * 256 + (negative ? 255 - byte + last_place : byte);
  }
  if (decimals != 0) magnitude /= power_of_ten(decimals);
  return {negative ? -magnitude : magnitude, Status::ok};
}

Read<double> read_ib(std::string_view field, std::int64_t decimals,
                     const Settings& settings) noexcept {
  Read<double> result;
  if (read_by<BinaryReader<true>>(field, decimals, settings, result)) return result;
  return read_ib_plain(field, decimals, settings);
}

Status write_ib(Field out, double value, std::int64_t decimals, const Settings& settings) noexcept {
  if (written_by<BinaryWriter<true>>(out, value, decimals, settings)) return Status::ok;
  return write_ib_plain(out, value, decimals, settings);
}

Status write_ib_plain(Field out, double value, std::int64_t decimals,
                      const Settings& settings) noexcept {
  return write_ib_rest(out, value, decimals, settings);
}

Status write_ib_number(Field out, double value, std::int64_t decimals) noexcept {
  const double number = decimals != 0 ? value * power_of_ten(decimals) : value;
  if (put_signed(out, number)) return Status::ok;
  out.fill(0);
  return Status::binary_overflow;
}

}  // namespace iocv

extern "C" {

void obiib_(const char* text, const std::int64_t* width, const std::int64_t* decimals, OBS* value,
            std::int64_t* status, std::int64_t) {
  iocv::read_leaf<iocv::read_ib>(text, &iocv::type_code<iocv::FormatCode::ib>, width, decimals,
                                 value, status);
}

void oboib_(const OBS* value, const std::int64_t* width, const std::int64_t* decimals, char* text,
            std::int64_t* status, std::int64_t) {
  iocv::write_leaf<iocv::write_ib>(value, &iocv::type_code<iocv::FormatCode::ib>, width, decimals,
                                   text, status);
}

}  // extern "C"
