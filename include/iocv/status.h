/* Every status that a conversion can answer: number, name and sentence stand here and nowhere else.
 * Numbers never move; 0 is success. */
#ifndef IOCV_STATUS_H
#define IOCV_STATUS_H

#include <iocv/base.h>

/* clang-format off */
#define IOCV_STATUS_TABLE(row) \
  row( 608, calendar_date,       "the date does not exist or lies before 15 October 1582") \
  row(1101, hex_digit,           "a character is not a hexadecimal digit") \
  row(1102, number_character,    "a character is not allowed at its place in a number") \
  row(1103, packed_digit,        "a half-byte above 9 stands where a packed digit belongs") \
  row(1105, no_converter,        "no converter exists for this format type") \
  row(1106, packed_sign,         "a digit stands where the sign of a packed number belongs; the value was kept") \
  row(1109, zone_character,      "the last character is not a zoned digit") \
  row(1111, no_digits,           "the number has no digits") \
  row(1114, text_after_number,   "text follows the blank or percent sign after the number") \
  row(1115, field_too_wide,      "the input field is wider than 32767 bytes") \
  row(1117, ahex_digit,          "a character is not a hexadecimal digit; the string was blanked") \
  row(1120, pib_negative,        "a negative value cannot be written as PIB") \
  row(1121, binary_missing,      "the system-missing value cannot be written as IB or PIB") \
  row(1122, pk_negative,         "a negative value cannot be written as PK") \
  row(1123, packed_overflow,     "the value has too many digits for the P or PK width") \
  row(1124, packed_missing,      "the system-missing value cannot be written as P or PK") \
  row(1125, binary_overflow,     "the value does not fit the IB or PIB width") \
  row(1128, n_negative,          "a negative value cannot be written as N") \
  row(1133, number_range,        "the number lies beyond the range of a double") \
  row(1134, pibhex_negative,     "a negative value cannot be written as PIBHEX") \
  row(1136, adate_text,          "the text is not a date in the order month, day, year") \
  row(1137, date_text,           "the text is not a date in the order day, month, year") \
  row(1138, dtime_text,          "the text is not a number of days with an optional time") \
  row(1139, datetime_text,       "the text is not a date followed by a time") \
  row(1140, date_too_early,      "the value lies before 15 October 1582 or is negative") \
  row(1141, name_number,         "the value names neither a date nor a weekday or month") \
  row(1142, jdate_text,          "the text is not a year and a day of the year") \
  row(1143, month_text,          "the text is not a month") \
  row(1144, moyr_text,           "the text is not a month and a year") \
  row(1145, qyr_text,            "the text is not a quarter and a year") \
  row(1146, time_text,           "the text is not a time") \
  row(1147, wkday_text,          "the text is not a day of the week") \
  row(1148, wkyr_text,           "the text is not a week and a year") \
  row(1149, binary_infinite,     "an infinite value cannot be written as IB or PIB") \
  row(1151, edate_text,          "the text is not a European date in the order day, month, year") \
  row(1152, sdate_text,          "the text is not a date in the order year, month, day") \
  row(1154, binary_nan,          "not-a-number cannot be written as IB or PIB") \
  row(1155, packed_nan,          "not-a-number cannot be written as P or PK") \
  row(1156, packed_infinite,     "an infinite value cannot be written as P or PK") \
  row(1158, string_bytes,        "a zero byte or invalid character was replaced by an exclamation mark") \
  row(1169, elapsed_too_short,   "the text is too short for minutes and seconds") \
  row(1179, elapsed_digits,      "minutes and seconds without a separator need four digits") \
  row(1189, elapsed_fraction,    "the fraction of the seconds holds a character that is not a digit") \
  row(1190, year_first_text,     "the text is not a date and time in the order year, month, day") \
  row(1192, time_digits,         "the run of digits is not a time") \
  row(1193, sdate_digits,        "the run of digits is not a date in the order year, month, day") \
  row(1194, edate_digits,        "the run of digits is not a European date in the order day, month, year") \
  row(1195, adate_digits,        "the run of digits is not a date in the order month, day, year") \
  row(1196, date_digits,         "the run of digits is not a date in the order day, month, year") \
  row(1197, datetime_digits,     "the run of digits is not the date of a date and time")
/* clang-format on */

IOCV_BEGIN_C

/* The sentence for a status: "success" for 0, "unknown status" for a number outside the table.
 * Never null; the text lives as long as the process.
 * Example: 1105 -> "no converter exists for this format type". */
IOCV_API const char* iocv_status_text(int64_t status);

IOCV_END_C

#endif
