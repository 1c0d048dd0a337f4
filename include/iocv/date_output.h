/* Dates, times and durations as text, as the dispatchers call them.
 *
 * Every field is written in all its *width bytes. The system-missing number shows as the
 * system-missing character, infinities and not-a-number as that character in the last column.
 * What does not fit is a field of asterisks with status 0. A value that the format has no text for
 * is blanks with the decimal character in the last column and a status other than 0. The writers
 * of dates (all but obotim_) leave the fields of their date in cmndtm_ and cmadtm_ as obdtex_ does;
 * nothing reads them back, and any number of threads may convert at once. */
#ifndef IOCV_DATE_OUTPUT_H
#define IOCV_DATE_OUTPUT_H

#include <iocv/base.h>

IOCV_BEGIN_C

/* DATE: dd-MMM-yyyy from width 11 on, dd-MMM-yy in 9 and 10, left-aligned. Two digits show only a
 * year of the century window; a year above 9999 does not fit. Decimals are ignored. The
 * system-missing character stands in the last column. Status 1140 below 86400.
 * Example: 13166064000, width 11 -> "01-JAN-2000", status 0; width 9 -> "*********", status 0. */
IOCV_API void oboida_(const double* value, const int64_t* width, const int64_t* decimals,
                      char* text, int64_t* status, int64_t text_length);

/* ADATE (type 23) mm/dd/yyyy, EDATE (38) dd.mm.yyyy, SDATE (39) yyyy/mm/dd, any other type
 * dd/mm/yyyy, from width 10 on; with two-digit years in 8 and 9; else as oboida_.
 * Example: 31 December 2000 (13197600000), type 23, width 10 -> "12/31/2000", status 0. */
IOCV_API void oboada_(const double* value, const int64_t* width, const int64_t* decimals,
                      char* text, const int32_t* type, int64_t* status, int64_t text_length);

/* JDATE: year and day of the year, yyyyddd from width 7 on, yyddd in 5 and 6; else as oboida_.
 * Example: 31 December 2000, width 7 -> "2000366", status 0. */
IOCV_API void obojda_(const double* value, const int64_t* width, const int64_t* decimals,
                      char* text, int64_t* status, int64_t text_length);

/* QYR (type 29) q Q yyyy, any other type MOYR, MMM yyyy, from width 8 on; with two-digit years in 6
 * and 7; else as oboida_.
 * Example: 15 August 2001 (13217212800), width 8 -> type 29 "3 Q 2001", type 28 "AUG 2001". */
IOCV_API void oboqmo_(const double* value, const int64_t* width, const int64_t* decimals,
                      char* text, int64_t* status, const int32_t* type, int64_t text_length);

/* WKYR: ww WK yyyy from width 10 on, ww WK yy in 8 and 9; week 1 begins on 1 January, week 53 is
 * the year's last one or two days; else as oboida_. Example: 8 January 2001 (13198291200), width 10
 * -> " 2 WK 2001", status 0. */
IOCV_API void obowyr_(const double* value, const int64_t* width, const int64_t* decimals,
                      char* text, int64_t* status, int64_t text_length);

/* WKDAY (type 26), any other type MONTH: the upper-case name cut or padded to the width, of a date
 * of any year or, below 86400, of the value as a number (1 Sunday, 1 January). Status 1140 below 0,
 * 1141 for a number that names nothing. MONTH of 1e17 and more is asterisks.
 * Example: 3, type 26, width 9 -> "TUESDAY  ", status 0; 8 -> "        .", status 1141. */
IOCV_API void obowmo_(const double* value, const int64_t* width, const int64_t* decimals,
                      char* text, int64_t* status, const int32_t* type, int64_t text_length);

/* DTIME (type 25) d hh:mm:ss.f, any other type TIME, h:mm:ss.f, right-aligned, of any sign; days of
 * 0 are blank. Seconds and then *decimals digits show where they fit; seconds are cut, the fraction
 * is rounded but never into the seconds. DTIME too narrow for hours and minutes shows rounded days.
 * Magnitudes of 1e17 and more are asterisks. The system-missing character stands in the column of
 * the decimal character.
 * Example: 3723.5, type 21, width 10, decimals 1 -> " 1:02:03.5", status 0. */
IOCV_API void obotim_(const double* value, const int64_t* width, const int64_t* decimals,
                      char* text, int64_t* status, const int32_t* type, int64_t text_length);

/* DATETIME: dd-MMM-yyyy from width 12 on, " hh" from 14, ":mm" from 17, ":ss" from 20 and with
 * decimals a fraction from 22; below 12 as oboida_. A year above 9999 is four asterisks, 1e17 and
 * more a field of them. Fraction and system-missing character as in obotim_. Status 1140 below
 * 86400.
 * Example: 13166107200, width 20 -> "01-JAN-2000 12:00:00", status 0. */
IOCV_API void obodt_(const double* value, const int64_t* width, const int64_t* decimals, char* text,
                     int64_t* status, int64_t text_length);

IOCV_END_C

#endif
