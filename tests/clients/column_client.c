/* A C program that converts columns, as strangers do. */
#include <iocv/column.h>

#include <stdio.h>
#include <string.h>

enum { kA = 1, kAhex = 2, kF = 5, kDate = 20, kCca = 33 };

static int failures = 0;

static void check(const char* name, int ok) {
  if (ok) return;
  fprintf(stderr, "FAILED: %s\n", name);
  ++failures;
}

/* A column inside records of eleven bytes. */
static void numbers(void) {
  char records[] = "A  12.5 ...B   x   ...C    -3 ...";
  double values[3] = {0};
  int32_t statuses[3] = {-1, -1, -1};
  size_t first = 99;

  check("iocv_read_column",
        iocv_read_column(records + 1, 11, 3, kF, 7, 0, NULL, values, statuses, &first) == 1);
  check("the first that failed", first == 1);
  check("statuses", statuses[0] == 0 && statuses[1] == 1102 && statuses[2] == 0);
  check("values", values[0] == 12.5 && values[2] == -3);

  values[1] = 1234567;
  check("iocv_write_column",
        iocv_write_column(values, 3, kF, 7, 1, NULL, records + 1, 11, NULL, NULL) == 0);
  check("written column", strcmp(records, "A   12.5...B1234567...C   -3.0...") == 0);

  check("no such type",
        iocv_write_column(values, 3, 41, 7, 1, NULL, records + 1, 11, statuses, &first) == 3);
  check("no such type, statuses", statuses[2] == 1105 && first == 0);
}

static void strings(void) {
  char fields[] = "abc-def-";
  char values[16];
  check("iocv_read_string_column",
        iocv_read_string_column(fields, 4, 2, kA, 3, NULL, values, 8, NULL, NULL) == 0);
  check("string values", memcmp(values, "abc     def     ", 16) == 0);
  check("iocv_write_string_column",
        iocv_write_string_column(values, 8, 2, kAhex, 3, NULL, fields, 4, NULL, NULL) == 0);
  check("string fields", strcmp(fields, "616-646-") == 0);
}

static void settings(void) {
  const double missing = -1;
  double value = 0;
  char field[] = "            ";
  size_t first = 0;
  iocv_settings* own = iocv_settings_new();
  check("iocv_settings_new", own != NULL);
  if (!own) return;

  iocv_settings_set_system_missing(own, missing);
  iocv_settings_set_system_missing_char(own, '#');
  check("missing", iocv_write_column(&missing, 1, kF, 4, 0, own, field, 4, NULL, &first) == 0);
  check("missing, field", memcmp(field, "   #", 4) == 0 && first == 1);
  check("missing, read", iocv_read_column("x", 1, 1, kF, 1, 0, own, &value, NULL, NULL) == 1);
  check("missing, value", value == missing);

  iocv_settings_set_blank_value(own, 7);
  iocv_read_column("  ", 2, 1, kF, 2, 0, own, &value, NULL, NULL);
  check("blank value", value == 7);

  iocv_settings_set_decimal(own, ',');
  iocv_settings_set_leading_zero(own, 1);
  value = 0.5;
  iocv_write_column(&value, 1, kF, 4, 1, own, field, 4, NULL, NULL);
  check("decimal and leading zero", memcmp(field, " 0,5", 4) == 0);

  iocv_settings_set_century_begin(own, 1850);
  iocv_read_column("01-JAN-50", 9, 1, kDate, 9, 0, own, &value, NULL, NULL);
  check("century", value == 8432553600.0);

  iocv_settings_set_elapsed_decimal(own, ',');
  iocv_read_column("12.5", 4, 1, 85, 4, 0, own, &value, NULL, NULL);
  check("elapsed decimal", value == 725);

  iocv_settings_set_decimal(own, '.');
  iocv_settings_set_small(own, 1);
  value = 0.5;
  iocv_write_column(&value, 1, 40, 12, 2, own, field, 12, NULL, NULL);
  check("small", memcmp(field, "5.0E-001    ", 12) == 0);

  check("currency", iocv_settings_set_currency(own, 0, "-,$,,CR") == 1);
  value = -1234.5;
  iocv_write_column(&value, 1, kCca, 12, 2, own, field, 12, NULL, NULL);
  check("currency, field", memcmp(field, "-$1,234.50CR", 12) == 0);
  check("bad currencies", iocv_settings_set_currency(own, 5, "x") == 0 &&
                              iocv_settings_set_currency(own, -1, "x") == 0 &&
                              iocv_settings_set_currency(own, 1, NULL) == 0);
  iocv_settings_free(own);
}

int main(void) {
  numbers();
  strings();
  settings();
  return failures == 0 ? 0 : 1;
}
