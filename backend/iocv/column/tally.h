// The statuses of a column.
#pragma once

#include <iocv/column.h>

#include "frame/status.h"

namespace iocv::column {

// Stores the status of one field after the other, where they are wanted, and counts failures.
class Tally {
 public:
  Tally(std::int32_t* statuses, std::size_t count) noexcept
      : statuses_(statuses), result_{.failed = 0, .first_failed = count} {}

  void add(std::size_t index, Status status) noexcept {
    if (statuses_) statuses_[index] = static_cast<std::int32_t>(status);
    if (status == Status::ok) return;
    if (result_.failed++ == 0) result_.first_failed = index;
  }

  [[nodiscard]] Result result() const noexcept { return result_; }

 private:
  std::int32_t* statuses_;
  Result result_;
};

// Nobody converts these fields.
inline Result refuse_all(std::size_t count, std::int32_t* statuses) noexcept {
  Tally tally(statuses, count);
  for (std::size_t i = 0; i < count; ++i) tally.add(i, Status::no_converter);
  return tally.result();
}

}  // namespace iocv::column
