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

/* COMMA, DOLLAR, DOT and custom currency output (*type 3, 4, 32, 33..37; any other writes nothing):
 * right-aligned, whole digits in groups of three, the decimal character of the format. What does
 * not fit gives up its groups, its decimals, turns to an exponent, gives up prefix and suffix, then
 * turns to asterisks. System-missing: its character where the decimal character would stand.
 * Example: -1234.5, DOLLAR, width 10, decimals 2 -> "-$1,234.50". */
IOCV_API void obocom_(const double* value, const int64_t* width, const int64_t* decimals,
                      char* text, int64_t* status, const int32_t* type, int64_t text_length);

/* obocom_ with any decoration: pair holds the grouping and the decimal character; pattern holds
 * four texts, each with one byte behind it: negative prefix, prefix, suffix, negative suffix, whose
 * lengths are lengths[0..3]; no text goes beyond pattern_length.
 * Example: 1234.5, width 12, decimals 2, ",.", {1, 1, 1, 0}, "-,$,!,," -> "  $1,234.50!". */
IOCV_API void obocc_(const double* value, const int64_t* width, const int64_t* decimals,
                     const char* pair, const int64_t* lengths, const char* pattern, char* text,
                     int64_t* status, int64_t pair_length, int64_t pattern_length,
                     int64_t text_length);

/* The digits of obocc_ alone: fills the field with the magnitude of *value. *overflow is false (0),
 * or true (-1) when no digits can be shown: asterisks, or nothing in a width below 1.
 * Example: -1234.5, width 9, decimals 2, ".," -> " 1.234,50", false. */
IOCV_API void obocd_(const double* value, const int64_t* width, const int64_t* decimals,
                     const char* pair, char* text, int64_t* overflow, int64_t pair_length,
                     int64_t text_length);

/* PCT output: as F in one column less, with "%" behind; as F in the whole width where only that
 * shows a number. System-missing: its character in the decimal character's column.
 * Example: 12.34, width 6, decimals 1 -> " 12.3%". */
IOCV_API void obopct_(const double* value, const int64_t* width, const int64_t* decimals,
                      char* text, int64_t* status, int64_t text_length);

/* N output: the digits with zeros to the left in all columns. A value below zero, not rounded: the
 * system-missing character in the last column, status 1128. System-missing: the same, status 0.
 * Example: 1.5, width 6, decimals 2 -> "001.50". */
IOCV_API void obon_(const double* value, const int64_t* width, const int64_t* decimals, char* text,
                    int64_t* status, int64_t text_length);

/* Z output: the digits with zeros to the left in all columns and no decimal character, the decimals
 * implied; the last digit of a value below zero that does not show as zero is one of "}JKLMNOPQR".
 * System-missing: its character in the last column.
 * Example: -123, width 5, decimals 0 -> "0012L". */
IOCV_API void oboz_(const double* value, const int64_t* width, const int64_t* decimals, char* text,
                    int64_t* status, int64_t text_length);

/* Z input: digits, at most one ".", and a last character out of 0-9, "{", A-I (positive) and "}",
 * J-R (negative); a "." may close the field instead. Without a "." the *decimals last digits are
 * decimals. Blanks around are ignored; a blank field is the blank value, a width below 1
 * system-missing. Failures leave system-missing: 1102 for another byte or a lone ".", 1109 for the
 * last character, 1133 for a number beyond the range.
 * Example: "0012L", decimals 0 -> -123, status 0. */
IOCV_API void obiz_(const char* text, const int64_t* width, const int64_t* decimals, double* value,
                    int64_t* status, int64_t text_length);

IOCV_END_C

#endif
