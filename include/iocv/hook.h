/* The extension hook: where the dispatchers send every format type that they do not know. It
 * converts code 85, elapsed minutes and seconds, and writes code 86, date and time with the year
 * first; all else is the business of the extension that a host registers, see <iocv/extension.h>.
 */
#ifndef IOCV_HOOK_H
#define IOCV_HOOK_H

#include <iocv/base.h>

IOCV_BEGIN_C

/* Text to value. Code 85: the first *width bytes at text, or those before a zero byte, without
 * their leading blanks; *decimals is not used; 0, or 1169, 1179, 1189 with the system-missing
 * number. Any other code: what the extension's converter answers, or 1105 with the value untouched
 * when there is none. The result is the status.
 * Example: "  02:05", code 85, width 7 -> 125, 0. */
IOCV_API int64_t obicvext_(const char* text, const int64_t* code, const int64_t* width,
                           const int64_t* decimals, OBS* value, int64_t text_length);

/* Value to text. The system-missing number, whatever the code, is its character *decimals columns
 * left of the last one. Code 85: minutes, a colon, seconds and as many decimals as fit, or
 * asterisks; fields narrower than 5 keep their bytes. Code 86, through a Java machine: blanks
 * without one, "." for a value before 15 October 1582, asterisks when narrower than 8. The status
 * of all these is 0; of any other code it is the converter's, or 1105 with the field untouched.
 * Example: 125.5, code 85, width 10, decimals 2 -> "  02:05.50", 0. */
IOCV_API int64_t obocvext_(const OBS* value, const int64_t* code, const int64_t* width,
                           const int64_t* decimals, char* text, int64_t text_length);

IOCV_END_C

#endif
