/* The numeric text formats but for the reading of numbers, as the dispatchers call them. A writer
 * fills exactly *width bytes of text and stores status 0 unless told otherwise; a number that
 * cannot be shown is asterisks. Infinities and not-a-number are the system-missing character in the
 * last column. Negative decimals count as 0. A width below 1 writes nothing. */
#ifndef IOCV_NUMBER_FORMATS_H
#define IOCV_NUMBER_FORMATS_H

#include <iocv/base.h>

IOCV_BEGIN_C

/* F output: right-aligned with *decimals digits after the decimal character. What does not fit
 * gives up its decimals, then turns to an exponent ("1E+007"), then to asterisks. System-missing:
 * its character in the decimal character's column.
 * Example: 3.14159, width 8, decimals 2 -> "    3.14". */
IOCV_API void obof_(const double* value, const int64_t* width, const int64_t* decimals, char* text,
                    int64_t* status, int64_t text_length);

/* E output: one digit, the decimal character, *decimals digits (15 at most) and a three-digit
 * exponent, right-aligned; no decimal is given up. System-missing: its character in the decimal
 * character's column; it needs the column of a minus sign, as -infinity does.
 * Example: 1234.5, width 10, decimals 3 -> "1.235E+003". */
IOCV_API void oboe_(const double* value, const int64_t* width, const int64_t* decimals, char* text,
                    int64_t* status, int64_t text_length);

/* Output under code 40: as F, but a magnitude below the threshold that iocvsetsmall_ sets is
 * written with an exponent, into the first 6 + *decimals columns, 7 + *decimals below zero, with
 * blanks behind. System-missing: its character at column *width - *decimals.
 * Example: 0.00001234, width 12, decimals 2 -> "1.2E-005    ". */
IOCV_API void obog_(const double* value, const int64_t* width, const int64_t* decimals, char* text,
                    int64_t* status, int64_t text_length);

IOCV_END_C

#endif
