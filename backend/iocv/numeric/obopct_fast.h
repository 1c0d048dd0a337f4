// The fast path of PCT: the number of one column less by its fast path, and the percent sign. What
// that writes never begins with an asterisk, so the plain path adds the sign, too.
#pragma once

#include "numeric/encdcc_fast.h"

namespace iocv {

// Writes numbers of one format under the settings at its making, a column of them as well as one.
template <Reach kReach>
class PercentWriter {
 public:
  // False when it writes nothing of such a format.
  template <class Source>
  [[gnu::always_inline]] static bool make(std::int64_t width, std::int64_t decimals,
                                          Source settings, PercentWriter& writer) noexcept {
    if (width <= 1) return false;
    writer.sign_column_ = width - 1;
    return FixedWriter<kReach>::make(width - 1, decimals, settings, writer.write_number_);
  }

  // False, with the field as it was, when the number is not an ordinary one or beyond the reach.
  [[gnu::always_inline]] bool operator()(char* field, double value) const noexcept {
    if (!write_number_(field, value)) return false;
    field[sign_column_] = '%';
    return true;
  }

 private:
  FixedWriter<kReach> write_number_;
  std::int64_t sign_column_;
};

}  // namespace iocv
