/* Helpers for the bytes of text fields: move, fill, compare, classify, and keep characters whole.
 *
 * A field is named by a base, a 1-based position and a length, in bytes; a length below 1 is an
 * empty field. Names that end in n take the base as plain bytes, names that end in c as a text with
 * a hidden length, one for each such base; both do exactly the same. A character is one of the
 * current code page, see <iocv/platform.h>; the byte 0 is none.
 *
 * Nothing here fails or allocates, and any number of threads may call at once. */
#ifndef IOCV_FIELDS_H
#define IOCV_FIELDS_H

#include <iocv/base.h>

IOCV_BEGIN_C

/* Copy *length bytes from the source to the destination; the two may overlap. A length below 1
 * copies nothing.
 * Example: "abcdef" from 2 to "......" at 4, length 3 -> "...bcd". */
IOCV_API void chmvnn_(const char* source, const int64_t* source_position, char* destination,
                      const int64_t* destination_position, const int64_t* length);
IOCV_API void chmvcn_(const char* source, const int64_t* source_position, char* destination,
                      const int64_t* destination_position, const int64_t* length,
                      int64_t source_length);
IOCV_API void chmvnc_(const char* source, const int64_t* source_position, char* destination,
                      const int64_t* destination_position, const int64_t* length,
                      int64_t destination_length);
IOCV_API void chmvcc_(const char* source, const int64_t* source_position, char* destination,
                      const int64_t* destination_position, const int64_t* length,
                      int64_t source_length, int64_t destination_length);

/* Fill the field with one character, by its code 0..127; any other code fills with "?".
 * Example: position 2, length 3, code 42 over "abcdef" -> "a***ef". */
IOCV_API void chnfln_(char* base, const int64_t* position, const int64_t* length,
                      const int64_t* code);
IOCV_API void chnflc_(char* base, const int64_t* position, const int64_t* length,
                      const int64_t* code, int64_t base_length);

/* Fill the field with blanks. */
IOCV_API void chblkn_(char* base, const int64_t* position, const int64_t* length);
IOCV_API void chblkc_(char* base, const int64_t* position, const int64_t* length,
                      int64_t base_length);

/* Store one byte, by its code 0..255; any other code stores "?".
 * Example: position 1, code 300 over "ab" -> "?b". */
IOCV_API void chnstn_(char* base, const int64_t* position, const int64_t* code);
IOCV_API void chnstc_(char* base, const int64_t* position, const int64_t* code,
                      int64_t base_length);

/* The byte at *position as a number 0..255. */
IOCV_API int64_t icnumn_(const char* base, const int64_t* position);
IOCV_API int64_t icnumc_(const char* base, const int64_t* position, int64_t base_length);

/* Move *count units of storage, of 8 bytes or (rmove_) of 4; the two areas may overlap. A count
 * below 1 moves nothing. */
IOCV_API void imove_(const void* source, void* destination, const int64_t* count);
IOCV_API void simove_(const void* source, void* destination, const int64_t* count);
IOCV_API void lrmove_(const void* source, void* destination, const int64_t* count);
IOCV_API void obmove_(const void* source, void* destination, const int64_t* count);
IOCV_API void rmove_(const void* source, void* destination, const int64_t* count);

/* Zero *count units of storage, of 8 bytes or (rzero_) of 4. */
IOCV_API void izero_(void* base, const int64_t* count);
IOCV_API void sizero_(void* base, const int64_t* count);
IOCV_API void lrzero_(void* base, const int64_t* count);
IOCV_API void obzero_(void* base, const int64_t* count);
IOCV_API void rzero_(void* base, const int64_t* count);

/* Do nothing; hosts call them. */
IOCV_API void bkcent_(void);
IOCV_API void bktran_(void);

/* Lower and upper case of the field, in place; a character whose other case has another number of
 * bytes stays.
 * Example: upper case of "a1" C3 A9 in UTF-8 -> "A1" C3 89. */
IOCV_API void chlwrn_(char* base, const int64_t* position, const int64_t* length);
IOCV_API void chlwrc_(char* base, const int64_t* position, const int64_t* length,
                      int64_t base_length);
IOCV_API void chuprn_(char* base, const int64_t* position, const int64_t* length);
IOCV_API void chuprc_(char* base, const int64_t* position, const int64_t* length,
                      int64_t base_length);

/* The number of bytes of whole valid characters that the field begins with; 0 when it is empty.
 * Example: 61 C3 A9 C3 in UTF-8 -> 3; "ab" 00 "c" -> 2. */
IOCV_API int64_t chtrnn_(const char* base, const int64_t* position, const int64_t* length);
IOCV_API int64_t chtrnc_(const char* base, const int64_t* position, const int64_t* length,
                         int64_t base_length);

/* Copies the whole valid characters among the first *length bytes of the source, blanks the rest of
 * *length bytes of the destination, and returns how many bytes it copied.
 * Example: 61 C3 A9, length 2 in UTF-8 -> "a ", 1. */
IOCV_API int64_t chtruncn_(const char* source, char* destination, const int64_t* length);

/* Bytes of the character that the field begins with; -1 when it begins with none or is cut inside
 * it, 0 when it is empty.
 * Example: C3 A9 in UTF-8, length 2 -> 2, length 1 -> -1. */
IOCV_API int64_t icnbtn_(const char* base, const int64_t* position, const int64_t* length);
IOCV_API int64_t icnbtc_(const char* base, const int64_t* position, const int64_t* length,
                         int64_t base_length);

/* The 1-based offset, from *position, of the first character that is the one byte *byte; the inner
 * bytes of longer characters never match. 0 when there is none before the end or before bytes that
 * are no character, and for a byte above 127.
 * Example: "A" in C3 A9 41 in UTF-8 -> 3. */
IOCV_API int64_t icndxn_(const char* base, const int64_t* position, const int64_t* length,
                         const char* byte);
IOCV_API int64_t icndxc_(const char* base, const int64_t* position, const int64_t* length,
                         const char* byte, int64_t base_length);

/* The class 1..35 of a byte by its code; 4, the class of control bytes, outside 0..255.
 * Example: 65 -> 2 (upper-case letters), 48 -> 3 (digits), 32 -> 1 (the blank). */
IOCV_API int64_t ictyp8_(const int64_t* code);

/* The class of the character at *position in a field that ends at *last_position: that of its byte
 * when it has one, 11 when it has more, 4 when there is none or the position is outside.
 * Example: C3 A9 in UTF-8 -> 11. */
IOCV_API int64_t ictypc_(const char* base, const int64_t* position, const int64_t* last_position,
                         int64_t base_length);

/* True when the field holds a byte that starts no valid character; every such byte is overwritten
 * with *replacement, unless that is 0.
 * Example: "a" 00 "b", replacement "?" -> "a?b", true. */
IOCV_API int64_t qinvmn_(char* base, const int64_t* position, const int64_t* length,
                         const char* replacement);
IOCV_API int64_t qinvmc_(char* base, const int64_t* position, const int64_t* length,
                         const char* replacement, int64_t base_length);

/* True when the field holds nothing but blanks, and when it is empty. */
IOCV_API int64_t qblnkc_(const char* base, const int64_t* position, const int64_t* length,
                         int64_t base_length);

/* True when the two fields of *length bytes are equal, and when they are empty. */
IOCV_API int64_t qcmpcc_(const char* first, const int64_t* first_position, const char* second,
                         const int64_t* second_position, const int64_t* length,
                         int64_t first_length, int64_t second_length);

/* The number 1..*count of the first entry of a table that equals the word, or 0: entries of
 * *entry_length bytes begin at bytes 1, 1 + *stride, 1 + 2 x *stride and so on. Text equals longer
 * text whose further bytes are blanks.
 * Example: "FEB   " in "JANFEBMAR", entries of 3, stride 3, count 3 -> 2. */
IOCV_API int64_t iwdndx_(const char* word, const char* table, const int64_t* entry_length,
                         const int64_t* stride, const int64_t* count, int64_t word_length,
                         int64_t table_length);

IOCV_END_C

#endif
