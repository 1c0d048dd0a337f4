/* Numbers as bytes: the binary integers IB and PIB, packed decimal P and PK, floating point RB, and
 * PIBHEX and RBHEX, which show bytes as hexadecimal text; as the dispatchers call them.
 *
 * The field is *width bytes. A width below 1 reads as the system-missing number and writes nothing,
 * with status 0. In IB, PIB, P and PK the *decimals last digits stand behind an implied decimal
 * point: input divides by 10 to the *decimals, output multiplies by it before it rounds to a whole
 * number, halves away from zero. The other formats ignore *decimals. IB, PIB and RB store the least
 * significant byte first, on every machine. */
#ifndef IOCV_BINARY_FORMATS_H
#define IOCV_BINARY_FORMATS_H

#include <iocv/base.h>

IOCV_BEGIN_C

/* IB input: a signed integer in two's complement. Never fails.
 * Example: FF FF -> -1; 05, decimals -2 -> 500. */
IOCV_API void obiib_(const char* text, const int64_t* width, const int64_t* decimals, OBS* value,
                     int64_t* status, int64_t text_length);

/* IB output. Zero bytes and a status for what cannot be stored: 1125 a value that does not fit,
 * 1121 the system-missing number, 1149 an infinity, 1154 not-a-number.
 * Example: -2.5, width 2 -> FD FF, status 0. */
IOCV_API void oboib_(const OBS* value, const int64_t* width, const int64_t* decimals, char* text,
                     int64_t* status, int64_t text_length);

/* PIB input: an unsigned integer; decimals below 0 are ignored. Never fails.
 * Example: 00 01 -> 256. */
IOCV_API void obipib_(const char* text, const int64_t* width, const int64_t* decimals, OBS* value,
                      int64_t* status, int64_t text_length);

/* PIB output; statuses as for IB, and 1120 for a value below 0 (-0 is not).
 * Example: 256, width 1 -> 00, 1125. */
IOCV_API void obopib_(const OBS* value, const int64_t* width, const int64_t* decimals, char* text,
                      int64_t* status, int64_t text_length);

/* P input: two digits a byte, the sign in the last half-byte: B and D negative, A, C, E and F
 * positive. A digit there counts as one digit more of a positive number, which is kept with status
 * 1106. Any other half-byte above 9: 1103 and the system-missing number.
 * Example: 12 3D -> -123; 12 34 -> 1234, 1106. */
IOCV_API void obip_(const char* text, const int64_t* width, const int64_t* decimals, OBS* value,
                    int64_t* status, int64_t text_length);

/* P output, sign F, or D for a value below 0 (-0 is not). Zero bytes and a last byte 0F for what
 * cannot be stored: 1123 too many digits, 1124 the system-missing number, 1156 an infinity, 1155
 * not-a-number.
 * Example: -123, width 2 -> 12 3D, status 0; 1000, width 2 -> 00 0F, 1123. */
IOCV_API void obop_(const OBS* value, const int64_t* width, const int64_t* decimals, char* text,
                    int64_t* status, int64_t text_length);

/* PK input: two digits a byte, no sign. A half-byte above 9: 1103 and the system-missing number.
 * Example: 12 34, decimals 2 -> 12.34. */
IOCV_API void obipk_(const char* text, const int64_t* width, const int64_t* decimals, OBS* value,
                     int64_t* status, int64_t text_length);

/* PK output; zero bytes with the statuses of P, and with 1122 for a value below 0.
 * Example: 5, width 2 -> 00 05, status 0. */
IOCV_API void obopk_(const OBS* value, const int64_t* width, const int64_t* decimals, char* text,
                     int64_t* status, int64_t text_length);

/* RB input: the most significant bytes of a double (5 to 8 bytes; of a wider field the first 8) or
 * of a single (1 to 4). Not-a-number reads as system-missing, infinities pass. Never fails.
 * Example: 80 3F -> 1. */
IOCV_API void obirb_(const char* text, const int64_t* width, const int64_t* decimals, OBS* value,
                     int64_t* status, int64_t text_length);

/* RB output: the same bytes; a double wider than 8 has its zero bytes in front, a value too large
 * for a single becomes an infinity. The system-missing number is question marks (3F) and a last
 * byte 7F. Never fails.
 * Example: 1, width 2 -> 80 3F. */
IOCV_API void oborb_(const OBS* value, const int64_t* width, const int64_t* decimals, char* text,
                     int64_t* status, int64_t text_length);

/* RBHEX input: digits of either case. A width of 1 reads as system-missing, blanks alone as the
 * blank value. An odd last character is ignored, and of more than 16 the last 16 count. A character
 * that is no digit among those: 1101 and the system-missing number.
 * Example: "3F8" -> 0.5. */
IOCV_API void obirbh_(const char* text, const int64_t* width, const int64_t* decimals, OBS* value,
                      int64_t* status, int64_t text_length);

/* RBHEX output: two digits a byte of RB; an odd last column up to 15 is blank, columns from 17 on
 * are "0". Infinities, not-a-number and system-missing show as in qobosp_, in the last column.
 * Never fails.
 * Example: 1, width 8 -> "3F800000". */
IOCV_API void oborbh_(const OBS* value, const int64_t* width, const int64_t* decimals, char* text,
                      int64_t* status, int64_t text_length);

/* PIBHEX input: digits of either case in every column; blanks alone read as the blank value, any
 * other character is 1101 and the system-missing number. More digits than a double holds give an
 * infinity.
 * Example: "ff" -> 255. */
IOCV_API void obipih_(const char* text, const int64_t* width, const int64_t* decimals, OBS* value,
                      int64_t* status, int64_t text_length);

/* PIBHEX output with leading zeros; special values as in qobosp_, in the last column. A value below
 * 0 (-0 is not): asterisks and 1134; one that does not fit: asterisks and status 0.
 * Example: 255, width 4 -> "00FF". */
IOCV_API void obopih_(const OBS* value, const int64_t* width, const int64_t* decimals, char* text,
                      int64_t* status, int64_t text_length);

/* Bytes from pairs of hexadecimal digits of either case in the first *width characters; an odd last
 * one is ignored. The first character that is no digit ends it with 1101; bytes made before stay.
 * Example: "4A4" -> 4A; "4A4G" -> 4A, 1101. */
IOCV_API void obihex_(const char* text, const int64_t* width, char* bytes, int64_t* status,
                      int64_t text_length, int64_t bytes_length);

/* The first *width / 2 bytes as pairs of upper-case digits; an odd last character of the text stays
 * as it was.
 * Example: 4A BC, width 4 -> "4ABC". */
IOCV_API void obohex_(const char* bytes, const int64_t* width, char* text, int64_t text_length,
                      int64_t bytes_length);

IOCV_END_C

#endif
