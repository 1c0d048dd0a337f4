// ISO 8601 text of stored values. The fields are those that the formats DATETIME, ADATE and TIME
// show, so that all texts of a value agree. Each function answers in out, which it replaces.
#ifndef IOCV_ISO_TEXT_H
#define IOCV_ISO_TEXT_H

#include <iocv/base.h>

#include <string>

// In all of them dropWholeFraction stands for decimals 0 when the value is a whole number.

// A stored date as yyyy-mm-ddThh:mm:ss, with a blank for the T unless useT, and for decimals above
// 0 a point and so many digits (19 at most). Returns DATETIME's status and is empty on failure:
// 1140 below 86400. A value without a date of four-digit year (the system-missing number, 1e300)
// is empty with status 0. Negative decimals narrow the field, its last parts are missing.
// Example: 13166109015.5, 1, false, true -> "2000-01-01T12:30:15.5", 0.
IOCV_API int ToISODateTime(std::string& out, double value, int decimals, bool dropWholeFraction,
                           bool useT);

// Seconds below 86400 as hh:mm:ss, with a fraction as above; returns 0. A value of 86400 or more,
// or not-a-number, ends the process by assertion, in every build type. Negative values are cut at
// the places of positive ones.
// Example: 3725.5, 1, false -> "01:02:05.5", 0.
IOCV_API int ToISOTime(std::string& out, double value, int decimals, bool dropWholeFraction);

// A duration as PdDThHmMsS, a minus sign first, days only when there are some; returns 0. Decimals
// count the significant digits of the seconds, as printf's %g does: 0 acts as 1, a negative number
// as 6. The system-missing constant and values that are not finite are empty.
// Example: 90065.37, 2, false -> "P1DT1H1M5.4S", 0.
IOCV_API int ToISODuration(std::string& out, double value, int decimals, bool dropWholeFraction);

#endif
