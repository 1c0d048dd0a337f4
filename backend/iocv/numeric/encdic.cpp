// Integers in fields.
#include "numeric/encdic.h"

#include <iocv/digits.h>

namespace iocv {

bool write_integer(Field out, std::int64_t n) noexcept {
  if (out.empty()) return false;
  // The magnitude of the lowest number exists only without sign.
  std::uint64_t rest = n < 0 ? 0 - static_cast<std::uint64_t>(n) : static_cast<std::uint64_t>(n);
  const std::int64_t first = n < 0 ? 1 : 0;  // the sign has the column before
  std::int64_t column = out.width() - 1;
  do {
    if (column < first) {
      out.overflow();
      return false;
    }
    out.put(column--, static_cast<char>('0' + rest % 10));
    rest /= 10;
  } while (rest != 0);
  if (n < 0) out.put(column--, '-');
  out.part(0, column + 1).blank();
  return true;
}

bool write_two_digits(Field out, std::int64_t column, std::int64_t n) noexcept {
  const bool fits = 0 <= n && n <= 99;
  out.put(column, fits ? static_cast<char>('0' + n / 10) : '*');
  out.put(column + 1, fits ? static_cast<char>('0' + n % 10) : '*');
  return fits;
}

}  // namespace iocv

extern "C" {

void encdic_(const std::int64_t* n, char* text, const std::int64_t* start,
             const std::int64_t* width, std::int64_t* status, std::int64_t) {
  *status = iocv::write_integer({text + *start - 1, *width}, *n) ? 0 : -1;
}

void enc2ic_(const std::int64_t* n, char* text, const std::int64_t* column, std::int64_t* status,
             std::int64_t) {
  *status = iocv::write_two_digits({text + *column - 1, 2}, 0, *n) ? 0 : -1;
}

}  // extern "C"
