/* Dates, times and periods from text, as the input dispatcher calls them, and the scanner and the
 * readers of texts without delimiters under them.
 *
 * Shared by all format readers here: text is the field of *width bytes and nothing beyond it is
 * read; *value becomes the stored value, or the system-missing number after a failure; *status is 0
 * or the failure; *position is left behind the last byte that was read (1-based), which counts only
 * when a value was read. A blank or empty field is the system-missing number with status 0. The
 * calendar is Gregorian; a stored date is seconds since midnight at the start of 14 October 1582.
 */
#ifndef IOCV_DATE_INPUT_H
#define IOCV_DATE_INPUT_H

#include <iocv/base.h>

IOCV_BEGIN_C

/* The scanner: the token of text at the 1-based *position, which moves behind it, up to *last.
 * *type: 1 word, 2 number, 3 decimal mark, 4 ":", 5 date separator ("-", "/", and "," or "." when
 * it is not the decimal mark), 6 blanks (also an empty field), 7 any other character and the end.
 * token receives its text, blank-padded, at most 80 bytes; *value the digits of a number, else 0;
 * *length its bytes: 0 for blanks, 1 for the end and for a delimiter, whose blanks belong to it.
 * Example: " - 5", position 1, last 4 -> token "-", type 5, length 1, position 4. */
IOCV_API void obdtps_(const char* text, int64_t* position, const int64_t* last, char* token,
                      double* value, int64_t* type, int64_t* length, int64_t text_length,
                      int64_t token_length);

/* DATE, EDATE and every other type (day, month, year), ADATE 23 (month, day, year), SDATE 39 and 86
 * (year, month, day); a date without delimiters is read by obidatenodlmt_. Only blanks may follow
 * unless *allow_trailing is true. Months are 1..12, I..XII or English names, two-digit years lie in
 * the century window. Status 1137, ADATE 1136, EDATE 1151, SDATE and 86 1152; without delimiters
 * 1196 (DATE and others), 1195, 1194, 1193, DATETIME 1197, 86 1190, or 608 from the calendar.
 * Example: "1-JAN-2000", width 10, type 20 -> 13166064000, status 0, position 11. */
IOCV_API void obidat_(const char* text, const int64_t* width, const int64_t* allow_trailing,
                      double* value, const int32_t* type, int64_t* status, int64_t* position,
                      int64_t text_length);

/* A date without delimiters at the 1-based *position of text(1..*width), in the order of obidat_;
 * its day and month may run on into the next month. True (-1) when the text is such a date: then
 * status is 0, a failure as for obidat_ or 608, and on 0 and 608 *position moves by *consumed.
 * False (0): status 0, the system-missing number, *consumed 0. A date of six digits has a
 * four-digit year unless it ends the field. Text may follow a delimiter (in 86 at once).
 * Example: "01012000", position 1, width 8, type 20 -> true, 13166064000, consumed 8. */
IOCV_API int64_t obidatenodlmt_(const char* text, int64_t* position, const int64_t* width,
                                const int32_t* type, double* value, int64_t* consumed,
                                int64_t* status);

/* A time without delimiters, hhmm, hhmmss or hhmmss.ff, hours 0..23, at the 1-based *position of
 * text(1..*width), behind one blank or T; the decimal character is that of the locale record.
 * True (-1) when the text is a run of at least four characters without blank or colon: then status
 * is 0, with *position moved by *consumed, or 1192. False (0): status 0, the system-missing number,
 * *consumed 0.
 * Example: "123015.25", position 1, width 9 -> true, 45015.25, consumed 9. */
IOCV_API int64_t obitimenodlmt_(const char* text, int64_t* position, const int64_t* width,
                                double* value, int64_t* consumed, int64_t* status);

/* TIME, in seconds: hours and minutes, with seconds and a fraction if wanted, behind a sign or a T;
 * a time without delimiters is read by obitimenodlmt_ (1192). When *unbounded is true the whole
 * field is read and hours have no limit; otherwise reading begins at *position and hours are 0..23.
 * Status 1146.
 * Example: "-1:30", width 5, unbounded -> -5400, status 0. */
IOCV_API void obitim_(const char* text, const int64_t* width, const int64_t* unbounded,
                      double* value, int64_t* status, int64_t* position, int64_t text_length);

/* DTIME, in seconds: a signed number of days, alone or with a time of day behind blanks or ":".
 * Status 1138.
 * Example: "5 12:30", width 7 -> 477000, status 0. */
IOCV_API void obidtm_(const char* text, const int64_t* width, double* value, int64_t* status,
                      int64_t* position, int64_t text_length);

/* DATETIME and, for type 86, the year-first date-time: a date and a time of day, both needed.
 * Status 1139, type 86 1190.
 * Example: "1-JAN-2000 12:30", width 16, type 22 -> 13166109000, status 0. */
IOCV_API void obidtt_(const char* text, const int64_t* width, const int32_t* type, double* value,
                      int64_t* status, int64_t* position, int64_t text_length);

/* JDATE: year and day of the year, yyyyddd, yyddd, yyyy-ddd or yy-ddd; day 366 of any year counts,
 * day 0 in the first two forms. Status 1142.
 * Example: "2001366", width 7 -> 13229222400, 1 January 2002. */
IOCV_API void obijdt_(const char* text, const int64_t* width, double* value, int64_t* status,
                      int64_t* position, int64_t text_length);

/* WKDAY: 1 (Sunday)..7 from a name of at most 9 bytes, of which two letters count. Status 1147.
 * Example: "Tuesday", width 7 -> 3. */
IOCV_API void obiwkd_(const char* text, const int64_t* width, double* value, int64_t* status,
                      int64_t* position, int64_t text_length);

/* MONTH: 1..12 from a number, or from an English name or Roman numeral of at most 9 bytes, of which
 * three letters or four characters count. Status 1143.
 * Example: "September", width 9 -> 9. */
IOCV_API void obimon_(const char* text, const int64_t* width, double* value, int64_t* status,
                      int64_t* position, int64_t text_length);

/* MOYR: the first day of a month, written as for MONTH, and a year behind blanks or a separator.
 * Status 1144.
 * Example: "JAN 2000", width 8 -> 13166064000. */
IOCV_API void obimoy_(const char* text, const int64_t* width, double* value, int64_t* status,
                      int64_t* position, int64_t text_length);

/* QYR: the first day of a quarter 1..4, "Q" before or behind it, and a year; blanks between them or
 * none. Status 1145.
 * Example: "4 Q 2000", width 8 -> 13189737600. */
IOCV_API void obiqyr_(const char* text, const int64_t* width, double* value, int64_t* status,
                      int64_t* position, int64_t text_length);

/* WKYR: the first day of a week 1..53, "WK" and a year; blanks between them or none. Week 1 begins
 * on 1 January. Status 1148.
 * Example: "53 WK 2001", width 10 -> 13229136000, 31 December 2001. */
IOCV_API void obiwky_(const char* text, const int64_t* width, double* value, int64_t* status,
                      int64_t* position, int64_t text_length);

IOCV_END_C

#endif
