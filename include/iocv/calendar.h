/* Calendar arithmetic. A stored date is a count of seconds since midnight at the start of
 * 14 October 1582 (proleptic Gregorian calendar): 15 October 1582, day 1, is 86400 and the first
 * date. A time or duration is a plain count of seconds. */
#ifndef IOCV_CALENDAR_H
#define IOCV_CALENDAR_H

#include <iocv/base.h>

IOCV_BEGIN_C

/* The day number of a date; times 86400 it is the stored date. The year is 0..99 (placed in the
 * century window) or 1582..5867441, the month 1..13 (13: January of the next year), the day 0..31
 * (0: the day before the first; past the month's end it runs on), all whole numbers. Status 608 and
 * the system-missing number for anything else and for days before 15 October 1582. When an argument
 * is the system-missing number, so is the result, with status 0.
 * Example: 2001, 2, 31 -> 152812 (3 March 2001), status 0. */
IOCV_API double yrmoda_(const double* year, const double* month, const double* day,
                        int64_t* status);

/* Takes a stored date apart: month 1..12, day 1..31, hour 0..23, minute 0..59, seconds [0, 60) with
 * the fraction. Of the system-missing number only *seconds is set, to it. Values that are no dates
 * (below 86400, not finite, huge) give fields without meaning.
 * Example: 13166116215.5 -> 2000, 1, 1, 14, 30, 15.5. */
IOCV_API void obdtexp_(const double* value, int64_t* year, int64_t* month, int64_t* day,
                       int64_t* hour, int64_t* minute, double* seconds);

/* obdtexp_ into the first six fields of cmndtm_, and the month's three letters into cmadtm_. All
 * stores are relaxed atomic ones, so that concurrent calls race harmlessly: the last one wins,
 * field by field. Every date writer leaves its value's fields there in the same way.
 * Example: 13166064000 -> cmndtm_ begins 0, 2000, 1, 1, 0, 0 and cmadtm_ is "JAN". */
IOCV_API void obdtex_(const double* value);

/* The two halves of obdtexp_. They know no system-missing number.
 * Example: 86400 -> 1582, 10, 15; 3661.25 -> hour 1, minute 1, seconds 1.25. */
IOCV_API void obdtxdate_(const double* value, int64_t* year, int64_t* month, int64_t* day);
IOCV_API void obdtxtime_(const double* value, int64_t* hour, int64_t* minute, double* seconds);

/* Month and day of a day of the year, from 1. Past the end of the year the months run on from 13;
 * nothing is checked.
 * Example: 2000, 60 -> 2, 29. */
IOCV_API void obcldr_(const int64_t* year, const int64_t* day_of_year, int64_t* month,
                      int64_t* day);

/* A year up to 99 placed in the century window, the hundred years from cmndtm_'s begin year on; any
 * other year unchanged.
 * Example: with begin year 1950: 49 -> 2049, 50 -> 1950. */
IOCV_API int64_t year4_(const int64_t* year);

/* True (-1) when the year lies in the century window, so that two digits name it.
 * Example: with begin year 1900: 1999 -> -1, 2000 -> 0. */
IOCV_API int64_t q2digy_(const int64_t* year);

IOCV_END_C

#ifdef __cplusplus

// The day number of a date with month 1..12; nothing is checked.
// Example: 1 January 1970 -> 141428.
IOCV_API int VeltDay(int day, int month, int year);

#endif

#endif
