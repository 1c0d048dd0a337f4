/* Decimal digits: rounding with a tolerance, powers of ten, and the writers on which every numeric
 * format builds. Logical results are -1 for true and 0 for false; positions and columns count from
 * 1; integers and lengths of texts as told in <iocv/base.h>. */
#ifndef IOCV_DIGITS_H
#define IOCV_DIGITS_H

#include <iocv/base.h>

IOCV_BEGIN_C

/* 10 to the *n: a table entry for 0..32, beyond it by repeated squaring, 1 / 10^-*n below 0;
 * infinity above 308, 0 below -308.
 * Example: -3 -> 1.0 / 1000. */
IOCV_API double lpwr10_(const int64_t* n);

/* *x times 10 to the *n; for *n above 150 step by step, so that the power need not exist.
 * Example: 5e-324, 338 -> 4.940656458412464e14. */
IOCV_API double lscl10_(const double* x, const int64_t* n);

/* The exponent of the leading decimal digit; 0 for zero, subnormals, negative values, infinities
 * and not-a-number. Just below a power of ten it may be that power's.
 * Example: 999.9999 -> 2. */
IOCV_API int64_t ilog10_(const double* x);

/* True when at most *ulps representable doubles lie between *a and *b; +0 and -0 are one.
 * Example: 0.0, -0.0, 0 -> true. */
IOCV_API int64_t qlralmostequal_(const double* a, const double* b, const int64_t* ulps);

/* A whole number, halves away from zero; so is a fraction up to 4096 representable doubles below a
 * half. fuzzyround_ compares the fraction with 0.5, fuzzyrelround_ the value with the half above,
 * so that its tolerance grows with the value. Never -0.
 * Example: fuzzyrelround_ of 267.49999999999997 -> 268, of 267.4999 -> 267. */
IOCV_API double fuzzyround_(const double* x);
IOCV_API double fuzzyrelround_(const double* x);

/* The whole part; a fraction up to 4096 representable doubles below 1 carries. fuzzyreltruncate_
 * compares the value with the next whole number instead of the fraction with 1. Never -0.
 * Example: fuzzytruncate_ of 2.9999999999999996 -> 3, of 2.9 -> 2. */
IOCV_API double fuzzytruncate_(const double* x);
IOCV_API double fuzzyreltruncate_(const double* x);

/* True when fuzzytruncate_ of *x is at most 4096 representable doubles away from *x.
 * Example: 2.9999999999999996 -> true. */
IOCV_API int64_t fuzzyinteger_(const double* x);

/* Stores 4096 times the machine epsilon: 2 to the -40th. */
IOCV_API void fuzzytol_(double* tolerance);

/* True for a whole number from -16777215 to 16777215.
 * Example: 16777216 -> false. */
IOCV_API int64_t qrint_(const float* x);

/* True for a whole number from -2147483647 to 2147483647.
 * Example: 2147483648 -> false. */
IOCV_API int64_t qdint_(const double* x);

/* How many decimals, 0..15, show what *x has to show: it is multiplied by 10 until the fraction
 * left lies within a tolerance that starts at fuzzytol_'s and grows by 10 with it.
 * Example: 1.25 -> 2; 1.0 / 3 -> 12. */
IOCV_API int64_t leastsigdig_(const double* x);

/* Writes a number right-aligned into the *width columns from *start of text, with as many of the
 * *decimals as fit; a magnitude above 0 and below *small, and one whose whole digits do not fit,
 * with a three-digit exponent; asterisks when that does not fit either. System-missing: its
 * character in the decimal character's column; infinities and not-a-number: in the last column. A
 * width below 1 writes nothing.
 * Example: 1234.5678, start 1, width 6, decimals 2, small 0 -> "1234.6". */
IOCV_API void encdcc_(const double* value, char* text, const int64_t* start, const int64_t* width,
                      const int64_t* decimals, const double* small, int64_t text_length);

/* Writes the digits of a scaled number, rounded by adding a half, right-aligned into the *width
 * columns from *start, with the decimal character at column *pointcol (none when that lies behind
 * the field) and "-" before a value below zero. Stores in *count how many columns were used; the
 * others stay. What would begin left of the field fills it with asterisks, *count is the width.
 * Example: 5, start 1, width 4, pointcol 2 over "    " -> " .05", 3. */
IOCV_API void encntc_(const double* value, char* text, const int64_t* start, const int64_t* width,
                      const int64_t* pointcol, int64_t* count, int64_t text_length);

/* Prepares the digits of |*value| * 10^*decimals: *magnitude holds the *ndigits leading ones before
 * its decimal point, *nzeros zeros follow them.
 * Example: 1e20, decimals 0 -> 1e15, 16, 5. */
IOCV_API void encwid_(const double* value, const int64_t* decimals, double* magnitude,
                      int64_t* ndigits, int64_t* nzeros);

/* Writes an integer right-aligned into the *width columns from *start. Status -1 when it does not
 * fit (asterisks) or the width is below 1 (nothing is written).
 * Example: -5, start 1, width 4 -> "  -5", status 0. */
IOCV_API void encdic_(const int64_t* n, char* text, const int64_t* start, const int64_t* width,
                      int64_t* status, int64_t text_length);

/* Writes 0..99 as two digits at *column and the next one; any other number is "**", status -1.
 * Example: 5, column 1 -> "05", status 0. */
IOCV_API void enc2ic_(const int64_t* n, char* text, const int64_t* column, int64_t* status,
                      int64_t text_length);

/* Blank the *width columns from *start and put the system-missing character into the last one: how
 * an infinity and how not-a-number is shown. The value itself is not looked at.
 * Example: start 1, width 4 -> "   .". */
IOCV_API void oboinf_(const double* value, char* text, const int64_t* start, const int64_t* width,
                      int64_t text_length);
IOCV_API void obonac_(const double* value, char* text, const int64_t* start, const int64_t* width,
                      int64_t text_length);

IOCV_END_C

#endif
