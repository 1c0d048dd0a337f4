/* A C program that calls every shape of routine of the flat interface and checks the bytes. */
#include <iocv/iocv.h>

#include <stdio.h>
#include <string.h>

static int failures = 0;

static void check(const char* name, int ok) {
  if (ok) return;
  fprintf(stderr, "FAILED: %s\n", name);
  ++failures;
}

static void dispatchers(void) {
  const int32_t f = 5;
  const int64_t width = 8, decimals = 2, position = 3;
  int64_t status = -1;
  OBS value = {.number = 1234.5};
  char field[] = "##########";

  obocv_(&value, &f, &width, &decimals, field, &status, sizeof field - 1);
  check("obocv_ F8.2", status == 0 && memcmp(field, " 1234.50##", 10) == 0);
  value.number = 0;
  obicv_(field, &f, &width, &decimals, &value, &status, sizeof field - 1);
  check("obicv_ F8.2", status == 0 && value.number == 1234.5);

  memcpy(field, "##########", 10);
  obocvn_(&value, &f, &width, &decimals, field, &position, &status);
  check("obocvn_ F8.2", status == 0 && memcmp(field, "## 1234.50", 10) == 0);
  value.number = 0;
  obicvn_(field, &position, &f, &width, &decimals, &value, &status);
  check("obicvn_ F8.2", status == 0 && value.number == 1234.5);

  check("IocvConvertInput", IocvConvertInput("  -12.5 ", 8, 5, 0, &value) == 0);
  check("IocvConvertInput value", value.number == -12.5);
  check("IocvConvertOutput", IocvConvertOutput(&value, 5, 1, field, 6) == 0);
  check("IocvConvertOutput bytes", memcmp(field, " -12.5", 6) == 0);
  check("unknown type", IocvConvertOutput(&value, 41, 1, field, 6) == 1105);
  check("status text",
        strcmp(iocv_status_text(1105), "no converter exists for this format type") == 0);
}

static void special_values(void) {
  const double missing = global_sysmis_();
  const int64_t width = 8, position = 6;
  char field[8];
  check("qobosp_", qobosp_(&missing, field, &width, &position, sizeof field) == -1);
  check("qobosp_ bytes", memcmp(field, "     .  ", 8) == 0);
}

static void settings(void) {
  const int64_t two_to_52 = 10;
  const int32_t century = 3;
  const int32_t mode_and_begin[] = {1, 1950};
  check("mchcon_", mchcon_(&two_to_52) == 4503599627370496.0);
  check("iocvset_", iocvset_(&century, mode_and_begin) == 0 && cmndtm_.century_begin == 1950);
  cmndtm_.century_begin = 1900;
  iocvsetdecchardot_();
  check("iocvgetdecchar_", iocvgetdecchar_() == '.' && cmnloc_.decimal == '.');
}

static void helpers(void) {
  const int64_t first = 1, third = 3, three = 3, code = '*';
  char text[] = "abcdef";
  chnfln_(text, &third, &three, &code);
  check("chnfln_", strcmp(text, "ab***f") == 0);
  chmvcc_("xyz", &first, text, &first, &three, 3, 6);
  check("chmvcc_", strcmp(text, "xyz**f") == 0);
  check("icnumn_", icnumn_(text, &third) == 'z');
  check("qblnkc_", qblnkc_("   ", &first, &three, 3) == -1);
  check("iwdndx_", iwdndx_("FEB", "JANFEBMAR", &three, &three, &three, 3, 9) == 2);
}

static void strings(void) {
  const int64_t width = 4, decimals = 0;
  int64_t status = -1;
  OBS value;
  char field[4];
  obiah_("4a6B", &width, &decimals, &value, &status, 4);
  check("obiah_", status == 0 && memcmp(value.bytes, "Jk      ", 8) == 0);
  oboa_(&value, &width, &decimals, field, &status, 4);
  check("oboa_", status == 0 && memcmp(field, "Jk  ", 4) == 0);
}

int main(void) {
  settings();
  dispatchers();
  special_values();
  helpers();
  strings();
  if (failures == 0) puts("client.c: all checks passed");
  return failures != 0;
}
