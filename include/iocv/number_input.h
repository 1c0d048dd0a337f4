/* Numbers from text: the free formats F, E, COMMA, DOLLAR, DOT and PCT, and N.
 *
 * A number is an optional sign, digits with at most one decimal character, and an optional exponent
 * ("1.5E3", "1.5d-3", "1.5-3", one blank allowed on either side of the exponent's sign). The
 * decimal character is the settings' for F, E and PCT, "," for DOT and "." for every other type.
 * COMMA, DOLLAR and DOT ignore grouping characters (the other of "." and ",") between and after
 * integer digits; DOLLAR allows "$" before the digits, PCT one "%" right behind them.
 *
 * Nine digits at a time are folded into a double, and one power of ten is applied at the end, so a
 * long text may miss the nearest double by a few units of the last place, and always by the same.
 *
 * Statuses of the free formats, each of which leaves the system-missing number:
 *  1102 a byte that may not stand where it stands, an exponent above 999 or without digits;
 *  1111 no digits at all;
 *  1114 a byte other than a blank behind a trailing blank or percent sign;
 *  1133 the magnitude lies beyond the range of a double. */
#ifndef IOCV_NUMBER_INPUT_H
#define IOCV_NUMBER_INPUT_H

#include <iocv/base.h>

IOCV_BEGIN_C

/* Reads the *length bytes at text under format type *type (3, 4, 5, 17, 31, 32; any other reads
 * like F with "."). Blanks at either end are ignored; a field of blanks, or of no byte, gives the
 * blank value. A text without decimal character and exponent is divided by 10 to the *decimals. A
 * single byte that is no digit, with *decimals 0, is 1111 for the decimal character and else 1102.
 * Example: " -1,234.5 ", type 3 -> -1234.5, status 0; "123", 2 decimals, type 5 -> 1.23. */
IOCV_API void obif_(const char* text, const int64_t* length, const int64_t* decimals, double* value,
                    int64_t* status, const int32_t* type);

/* The scanner behind obif_, for a text without blanks at its ends.
 * Example: "-", type 5 -> system-missing, 1111 (obif_: 1102). */
IOCV_API void fancy_f(const char* text, const int32_t* type, const int64_t* length,
                      const int64_t* decimals, double* value, int64_t* status);

/* N input: every one of the *width bytes must be a digit, else the system-missing number and 1102
 * (" 12" too). Blanks alone give the blank value, a width below 1 the system-missing number. The
 * whole number, 1133 when it is beyond the range of a double, is divided by 10 to the *decimals
 * when they are above 0.
 * Example: "0123", decimals 2 -> 1.23, status 0. */
IOCV_API void obin_(const char* text, const int64_t* width, const int64_t* decimals, double* value,
                    int64_t* status, int64_t text_length);

IOCV_END_C

#endif
