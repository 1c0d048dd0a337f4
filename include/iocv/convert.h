/* The entry points: text to value and value to text under any format. They count on the
 * floating-point environment that every program starts with (rounding to nearest, subnormal numbers
 * kept) and leave it as they find it. In another one digits may change, never a byte outside the
 * field. */
#ifndef IOCV_CONVERT_H
#define IOCV_CONVERT_H

#include <iocv/status.h>

#ifdef __cplusplus
#include <iocv/format.h>

#include <string>
#endif

IOCV_BEGIN_C

/* Text to value: reads the *width bytes at text under format type *type with *decimals implied
 * decimals into value, and stores the status. A and AHEX store *width bytes from value on, rounded
 * up to whole units. A failure leaves the system-missing number, except where the reader keeps a
 * value (1106, 1158, 1117) or knows no such type (1105: value untouched).
 * Example: "   1.5", type 5, width 6, decimals 0 -> 1.5, status 0. */
IOCV_API void obicv_(const char* text, const int32_t* type, const int64_t* width,
                     const int64_t* decimals, OBS* value, int64_t* status, int64_t text_length);

/* Value to text: writes exactly *width bytes at text and stores the status. What cannot be shown
 * becomes asterisks with status 0; a status other than 0 has its own field, see each format. An
 * unknown type leaves the field untouched and stores 1105.
 * Example: 1234.5, type 5, width 8, decimals 2 -> " 1234.50", status 0. */
IOCV_API void obocv_(const OBS* value, const int32_t* type, const int64_t* width,
                     const int64_t* decimals, char* text, int64_t* status, int64_t text_length);

/* obicv_ for the field of *width bytes at the 1-based byte *position of base, of which at most the
 * first 32767 bytes are read, through a work buffer. */
IOCV_API void obicvn_(const char* base, const int64_t* position, const int32_t* type,
                      const int64_t* width, const int64_t* decimals, OBS* value, int64_t* status);

/* obocv_ into the field of *width bytes at the 1-based byte *position of base, through a work
 * buffer of 32767 bytes. The bytes of a wider field are blank from byte 32768 of base, not of the
 * field, for *width - 32767 bytes. */
IOCV_API void obocvn_(const OBS* value, const int32_t* type, const int64_t* width,
                      const int64_t* decimals, char* base, const int64_t* position,
                      int64_t* status);

/* obicvn_ and obocvn_ with arguments by value; they return the status. When nothing is read, the
 * caller's value stays. A field wider than 32767 bytes whose address is not a multiple of 8 has its
 * blank run (address mod 8) bytes further left, over its last converted bytes.
 * Example: IocvConvertInput("  12", 4, 5, 0, &value) -> 12, 0. */
IOCV_API int IocvConvertInput(const char* text, unsigned width, int type, int decimals, OBS* value);
IOCV_API int IocvConvertOutput(const OBS* value, int type, int decimals, char* text,
                               unsigned width);

/* The special values, as every writer shows them: true (-1) when the field of *width bytes is
 * written: the system-missing character at the 1-based *position (the nearest column when outside)
 * for the system-missing number, in the last column for infinities and not-a-number; blanks
 * elsewhere. A width below 1 is true, too, with nothing written. False (0) for any other value.
 * Example: system-missing, width 8, position 6 -> "     .  ", true. */
IOCV_API int64_t qobosp_(const double* value, char* text, const int64_t* width,
                         const int64_t* position, int64_t text_length);

IOCV_END_C

#ifdef __cplusplus

// The same storage seen as a stored value; nothing is converted.
IOCV_API OBS& AsOBS(double& number);

// Equality of bits: equal not-a-number patterns are equal, +0 and -0 are not.
IOCV_API bool ObsEqual(const OBS& a, const OBS& b);
IOCV_API bool operator==(const OBS& value, double number);
IOCV_API bool operator==(double number, const OBS& value);

// The constant system-missing pattern FFEFFFFFFFFFFFFF, whatever the settings say.
IOCV_API OBS VELT_SystemMissing();

// Writes exactly format.Width() bytes to text and returns the status.
IOCV_API int ToString(const OBS* value, const VELT_Format& format, char* text);

// The field without blanks and tabs at its ends; the status is dropped.
// Example: 12 under F8.2 -> "12.00".
IOCV_API std::string ToString(const OBS* value, const VELT_Format& format);

// Reads format.Width() bytes, terminators included, into value and returns the status. The custom
// currencies read as F.
// Example: "1-JAN-2000 " under DATE11 -> 13166064000, 0.
IOCV_API int FromString(const char* text, const VELT_Format& format, OBS* value);

#endif

#endif
