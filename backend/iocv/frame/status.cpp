#include "frame/status.h"

extern "C" const char* iocv_status_text(std::int64_t status) {
  switch (status) {
    case 0: return "success";
#define IOCV_STATUS_CASE(number, name, sentence) \
  case number: return sentence;
      IOCV_STATUS_TABLE(IOCV_STATUS_CASE)
#undef IOCV_STATUS_CASE
    default: return "unknown status";
  }
}
