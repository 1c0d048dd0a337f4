// The statuses as the core names them; the numbers and sentences are the public table's.
#pragma once

#include <iocv/status.h>

#include <cstdint>

namespace iocv {

enum class Status : std::int64_t {
  ok = 0,
#define IOCV_STATUS_NAME(number, name, sentence) name = number,
  IOCV_STATUS_TABLE(IOCV_STATUS_NAME)
#undef IOCV_STATUS_NAME
};

// What a reader answers: on failure value is what the caller is left with.
template <class T>
struct Read {
  T value;
  Status status;
};

}  // namespace iocv
