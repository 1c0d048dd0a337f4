/* Setters and getters of the process-wide settings, and the classes of floating-point patterns.
 * Change settings only while no conversion runs; reading them is always safe. */
#ifndef IOCV_SETTINGS_H
#define IOCV_SETTINGS_H

#include <iocv/records.h>

IOCV_BEGIN_C

/* Fills the records with their initial values; the library calls it once when it is loaded, and
 * every later call returns at once, so nothing is ever reset. */
IOCV_API void iocvinit_(void);

/* Reads the numeric locale again (see getlcs_) and sets the locale record from it: a decimal point
 * other than "." counts as ",". Grouping is the other of the two, the list separator "," or ";".
 * Example: under de_DE the record becomes 44, 46, 59, 46. */
IOCV_API void setiocvlocale_(void);

/* Set the decimal character to "." or ","; the other three locale fields stay. */
IOCV_API void iocvsetdecchardot_(void);
IOCV_API void iocvsetdeccharcomma_(void);

/* Sets the magnitude below which the general numeric format (code 40) writes an exponent.
 * Example: *threshold = 0.001. */
IOCV_API void iocvsetsmall_(const double* threshold);

/* The decimal character's code: 46 or 44. */
IOCV_API int64_t iocvgetdecchar_(void);
IOCV_API int64_t global_decchr_(void);

/* The system-missing number and the value that a blank numeric field reads as; both are
 * -1.7976931348623157e+308 after loading. */
IOCV_API double global_sysmis_(void);
IOCV_API double global_blnkas_(void);

/* A machine constant by code 1..10: 1 largest finite, 2 square root, 3 cube root and 4 fourth root
 * of two to the 1023rd, 5 epsilon, 6 lowest finite, 7 smallest normal, 8 largest exponent argument,
 * 9 upper bound of finite output, 10 two to the 52nd. Any other code: the system-missing number.
 * Example: 10 -> 4503599627370496. */
IOCV_API double mchcon_(const int64_t* code);

/* Stores the codes of the numeric locale's decimal point and thousands separator (first bytes,
 * unsigned). When the process runs in the "C" numeric locale, it is switched to the environment's
 * first; printf follows it then. Without a locale only *decimal is stored, as 46.
 * Example: under de_DE 44 and 46. */
IOCV_API void getlcs_(int64_t* decimal, int64_t* thousands);

/* Sets one group of settings and returns 0, or 1 for an unknown option.
 *  option 1: data is one byte, the system-missing character;
 *  option 2: data is an int32_t 1..5 (CCA..CCE) and then a zero-terminated currency pattern;
 *            returns 2, changing nothing, when the index lies outside 1..5;
 *  option 3: data is two int32_t: the century mode and the century window's first year.
 * Example: option 3 with {1, 1950} -> 0; the year 49 then means 2049. */
IOCV_API int64_t iocvset_(const int32_t* option, const void* data);

/* Names the records that iocvset_, iocvgetdecchar_, the extension hook and the reader of times
 * without delimiters use from now on, in the order general, general text, system, system text,
 * machine, machine text, locale, date, date text. Loading names the library's own. */
IOCV_API void seecmn_(IocvGeneralRecord* general, IocvGeneralText* general_text,
                      IocvSystemRecord* system, IocvSystemText* system_text,
                      IocvMachineRecord* machine, IocvMachineText* machine_text,
                      IocvLocaleRecord* locale, IocvDateRecord* date, IocvDateText* date_text);

/* The class of a bit pattern: 0 finite (subnormals and +0 too), 1 negative zero, 2 +infinity,
 * 3 -infinity, 4 positive not-a-number, 5 negative not-a-number other than 6, 6 the negative quiet
 * not-a-number without payload (FFF8000000000000, FFC00000).
 * Example: -0.0 -> 1. */
IOCV_API int64_t ftyplr_(const double* x);
IOCV_API int64_t ftypsr_(const float* x);

/* True (-1) when the class is 4, 5 or 6; infinities are not bad.
 * Example: -infinity -> 0. */
IOCV_API int64_t qbadl_(const double* x);
IOCV_API int64_t qbads_(const float* x);

IOCV_END_C

#endif
