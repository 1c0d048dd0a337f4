#include "frame/obip.h"

#include <iocv/binary_formats.h>

#include <algorithm>

#include "frame/attempts.h"
#include "frame/binary.h"
#include "frame/leaf.h"
#include "frame/obip_fast.h"
#include "frame/obop_fast.h"
#include "numeric/powers.h"

namespace iocv {
namespace {

constexpr char kMinus = 13;

constexpr bool means_negative(int sign) { return sign == 11 || sign == 13; }

// Ten to the power 2 x 155 - 2 is the largest that exists; bytes before the last 155 hold zeros.
constexpr std::int64_t kWidestDivided = 155;

// False when the value has too many digits.
bool put_packed(Field out, double value, std::int64_t decimals) {
  const std::int64_t width = std::min(out.width(), kWidestDivided);
  double number = (std::abs(value) * power_of_ten(decimals) + 0.5) / power_of_ten(2 * width - 2);
  if (!(number < 10)) return false;
  const std::int64_t last = out.width() - 1;
  out.part(0, out.width() - width).fill(0);
  for (std::int64_t column = out.width() - width; column < last; ++column) {
    out.put(column, static_cast<char>(take_digits(number)));
  }
  const char sign = value < 0 ? kMinus : kPackedPlus;
  out.put(last, static_cast<char>(16 * static_cast<int>(number) + sign));
  return true;
}

constexpr std::size_t kWord = 8;

// Without the zeros in front, as far as more than a word is left.
std::string_view without_zeros(std::string_view field) {
  while (kLittleEndian && field.size() > kWord) {
    const auto zeros = static_cast<std::size_t>(std::countr_zero(load8(field.data()))) / 8;
    field.remove_prefix(zeros);
    if (zeros < kWord) break;
  }
  return field;
}

// What a field without its first bytes holds; value is what these folded to.
Read<double> fold_packed(std::string_view field, double value, std::int64_t decimals,
                         const Settings& settings) {
  for (std::size_t i = 0; i + 1 < field.size(); ++i) {
    const int high = byte_value(field[i]) >> 4;
    const int low = byte_value(field[i]) & 15;
    if (high > 9 || low > 9) return {settings.system_missing, Status::packed_digit};
    value = value * 100 + 10 * high + low;
  }
  const int high = byte_value(field.back()) >> 4;
  const int sign = byte_value(field.back()) & 15;
  if (high > 9) return {settings.system_missing, Status::packed_digit};
  value = value * 10 + high;
  Status status = Status::ok;
  if (sign <= 9) {  // an unsigned number: kept, and reported
    status = Status::packed_sign;
    value = value * 10 + sign;
  } else if (means_negative(sign)) {
    value = -value;
  }
  if (decimals != 0) value /= power_of_ten(decimals);
  return {value, status};
}

}  // namespace

Read<double> read_p_plain(std::string_view field, std::int64_t decimals,
                          const Settings& settings) noexcept {
  if (field.empty()) return {settings.system_missing, Status::ok};
  return fold_packed(field, 0, decimals, settings);
}

Read<double> read_p_wide(std::string_view field, std::int64_t decimals,
                         const Settings& settings) noexcept {
  const std::string_view rest = without_zeros(field);
  Read<double> result;
  if (rest.size() > kWord && try_sixteen_digits(load8(rest.data()), result.value))
    return fold_packed(rest.substr(kWord), result.value, decimals, settings);
  if (rest.size() < field.size() && read_by<PackedReader>(rest, decimals, settings, result))
    return result;
  return read_p_plain(field, decimals, settings);
}

Read<double> read_p(std::string_view field, std::int64_t decimals,
                    const Settings& settings) noexcept {
  Read<double> result;
  if (read_by<PackedReader>(field, decimals, settings, result)) return result;
  return read_p_wide(field, decimals, settings);
}

Status write_p(Field out, double value, std::int64_t decimals, const Settings& settings) noexcept {
  if (written_by<PackedWriter>(out, value, decimals, settings)) return Status::ok;
  return write_p_plain(out, value, decimals, settings);
}

Status write_p_plain(Field out, double value, std::int64_t decimals,
                     const Settings& settings) noexcept {
  return write_p_rest(out, value, decimals, settings);
}

Status write_p_number(Field out, double value, std::int64_t decimals) noexcept {
  if (put_packed(out, value, decimals)) return Status::ok;
  clear_packed(out);
  return Status::packed_overflow;
}

}  // namespace iocv

extern "C" {

void obip_(const char* text, const std::int64_t* width, const std::int64_t* decimals, OBS* value,
           std::int64_t* status, std::int64_t) {
  iocv::read_leaf<iocv::read_p>(text, &iocv::type_code<iocv::FormatCode::p>, width, decimals, value,
                                status);
}

void obop_(const OBS* value, const std::int64_t* width, const std::int64_t* decimals, char* text,
           std::int64_t* status, std::int64_t) {
  iocv::write_leaf<iocv::write_p>(value, &iocv::type_code<iocv::FormatCode::p>, width, decimals,
                                  text, status);
}

}  // extern "C"
