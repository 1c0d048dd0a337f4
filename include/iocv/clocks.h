/* The current date and time, elapsed and processor time. Times before the second day of the system
 * clock's epoch count as 2 January 1970 00:00 UTC, except in timset_ and timtot_. Every routine may
 * be called from any number of threads. */
#ifndef IOCV_CLOCKS_H
#define IOCV_CLOCKS_H

#include <iocv/base.h>

IOCV_BEGIN_C

/* Writes the local date and time, without terminators, and returns 8. The zone is the one in force
 * at the call.
 * Example: 5 November 2026, 09:07:03 -> "05 Nov 26", "09:07:03", 8. */
IOCV_API int CClockC(char date[9], char time[8]);

/* CClockC for texts of any length: at most 9 and 8 bytes are written, never more than the length.
 */
IOCV_API int64_t cclock_(char* date, char* time, int64_t date_length, int64_t time_length);

/* The local date as day of the month, month 1..12, year modulo 100, and the local time as hours,
 * minutes, seconds.
 * Example: 5 November 2026, 09:07:03 -> {5, 11, 26}, {9, 7, 3}. */
IOCV_API void bclock_(int64_t date[3], int64_t time[3]);

/* The local date and time as a stored date: a whole number of seconds. The distance from the system
 * clock is taken once, when the library is loaded, so a change of zone or to daylight-saving time
 * does not show.
 * Example: 1 January 2000, 12:00 in a process that began in winter -> 13166107200. */
IOCV_API double sclock_(void);

/* Starts the measurement of elapsed time; without it timtot_ counts from the clock's epoch. */
IOCV_API void timset_(void);

/* Milliseconds: the process's processor time, user plus system, and the elapsed time since timset_
 * in whole seconds. A negative number becomes 0. */
IOCV_API void timtot_(int64_t* cpu, int64_t* elapsed);

IOCV_END_C

#endif
