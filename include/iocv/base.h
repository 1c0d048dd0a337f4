/* What every header of the flat interface builds on: linkage, visibility and the stored value.
 *
 * Calling convention of every routine whose name ends in an underscore, which is what a Fortran
 * compiler emits for CHARACTER, INTEGER(8) and REAL(8) arguments:
 *  - every argument goes by address, integers as int64_t (a format type code as int32_t);
 *  - a text field is bytes without terminator; its length is a hidden int64_t, by value, after all
 *    other arguments, one for each text, in the order of the texts;
 *  - positions are 1-based; logical results are -1 for true and 0 for false;
 *  - a status is 0 for success; see <iocv/status.h> for the failures.
 */
#ifndef IOCV_BASE_H
#define IOCV_BASE_H

#include <stdint.h>

#ifdef __cplusplus
#include <cstdint>
#endif

#define IOCV_API __attribute__((visibility("default")))

#ifdef __cplusplus
#define IOCV_BEGIN_C extern "C" {
#define IOCV_END_C }
#else
#define IOCV_BEGIN_C
#define IOCV_END_C
#endif

/* One stored value: a native IEEE double for numbers and dates, or eight blank-padded string bytes.
 * A string wider than eight bytes occupies consecutive units. */
typedef union OBS {
  double number;
  char bytes[8];
  uint64_t bits;
} OBS;

#endif
