// What the binary integer formats share.
#pragma once

#include <cmath>

#include "frame/field.h"
#include "frame/settings.h"
#include "frame/status.h"

namespace iocv {

constexpr int byte_value(char byte) noexcept { return static_cast<unsigned char>(byte); }

// What a format answers to a value that is no ordinary number.
struct SpecialStatuses {
  Status nan;
  Status infinite;
  Status missing;
};

inline Status special_status(double value, const Settings& settings,
                             const SpecialStatuses& answers) noexcept {
  if (std::isnan(value)) return answers.nan;
  if (std::isinf(value)) return answers.infinite;
  if (value == settings.system_missing) return answers.missing;
  return Status::ok;
}

inline constexpr SpecialStatuses kBinarySpecials = {Status::binary_nan, Status::binary_infinite,
                                                    Status::binary_missing};
inline constexpr SpecialStatuses kPackedSpecials = {Status::packed_nan, Status::packed_infinite,
                                                    Status::packed_missing};

// Fills the field with the bytes of a whole number from 0 up, the least significant first, and
// returns what did not fit.
inline double put_bytes(Field out, double number) noexcept {
  for (std::int64_t column = 0; column < out.width(); ++column) {
    const double rest = std::trunc(number * 0.00390625);  // / 256
    out.put(column, static_cast<char>(static_cast<int>(number - 256 * rest)));
    number = rest;
  }
  return number;
}

// The next two digits of a number below 10 as a packed byte; number moves on by two places.
inline int take_digits(double& number) noexcept {
  const auto take = [&number] {
    const int digit = static_cast<int>(number);  // [0, 9]
    number = (number - digit) * 10;
    return digit;
  };
  const int first = take();
  return 16 * first + take();
}

}  // namespace iocv
