/* The string formats A and AHEX, as the dispatchers call them; decimals are ignored. Unlike a
 * number the value may lie at any address. */
#ifndef IOCV_STRING_FORMATS_H
#define IOCV_STRING_FORMATS_H

#include <iocv/base.h>

IOCV_BEGIN_C

/* A input: copies *width bytes into the value, blanks its last 8-byte unit to the end, and puts "!"
 * over each zero byte and each byte that starts no valid character (status 1158, the value is
 * kept). A width below 1 leaves the value untouched.
 * Example: 61 62 00, width 3 -> "ab!     ", 1158. */
IOCV_API void obia_(const char* text, const int64_t* width, const int64_t* decimals, OBS* value,
                    int64_t* status, int64_t text_length);

/* A output: the value's first *width bytes up to the first invalid or incomplete character, then
 * blanks; never fails.
 * Example: 61 C3, width 2 in UTF-8 -> "a ". */
IOCV_API void oboa_(const OBS* value, const int64_t* width, const int64_t* decimals, char* text,
                    int64_t* status, int64_t text_length);

/* AHEX input: each pair of hexadecimal digits is one byte of the value, whose last 8-byte unit is
 * blank behind them; an odd last character is ignored, a width below 2 leaves the value untouched.
 * A character that is no hexadecimal digit blanks the first *width / 2 bytes: 1117.
 * Example: "4a6B" -> 4A 6B. */
IOCV_API void obiah_(const char* text, const int64_t* width, const int64_t* decimals, OBS* value,
                     int64_t* status, int64_t text_length);

/* AHEX output: two upper-case hexadecimal digits a byte, high half first; an odd width drops the
 * last low half. Never fails.
 * Example: AB CD EF, width 5 -> "ABCDE". */
IOCV_API void oboah_(const OBS* value, const int64_t* width, const int64_t* decimals, char* text,
                     int64_t* status, int64_t text_length);

IOCV_END_C

#endif
