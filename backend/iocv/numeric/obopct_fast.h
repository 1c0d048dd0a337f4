// The fast path of PCT: the number of one column less by its fast path, and the percent sign. What
// that writes never begins with an asterisk, so the plain path adds the sign, too.
#pragma once

#include "numeric/encdcc_fast.h"

namespace iocv {

// False, with the field as it was, when the number is not an ordinary one or beyond the
// reach.
template <Reach kReach, class Source>
[[gnu::always_inline]] inline bool write_percent_fast(char* field, std::int64_t width, double value,
                                                      std::int64_t decimals,
                                                      Source settings) noexcept {
  if (width < 2 || !write_number_fast<kReach>(field, width - 1, value, decimals, settings)) {
    return false;
  }
  field[width - 1] = '%';
  return true;
}

}  // namespace iocv
