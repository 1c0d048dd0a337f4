// The decimal and grouping characters, from the numeric locale of the process.
#include <iocv/settings.h>

#include <clocale>
#include <cstring>

namespace {

// The code of a text's first byte, 0..255.
std::int64_t first_code(const char* text) {
  const auto byte = static_cast<unsigned char>(*text);
  return byte;
}

}  // namespace

extern "C" void getlcs_(std::int64_t* decimal, std::int64_t* thousands) {
  *decimal = '.';
  const char* name = std::setlocale(LC_NUMERIC, nullptr);
  if (name && std::strcmp(name, "C") == 0) name = std::setlocale(LC_NUMERIC, "");
  const std::lconv* locale = std::localeconv();
  if (!name || !locale) return;
  *decimal = first_code(locale->decimal_point);
  *thousands = first_code(locale->thousands_sep);
}

extern "C" void setiocvlocale_() {
  getlcs_(&cmnloc_.decimal, &cmnloc_.locale_thousands);
  const bool dot = cmnloc_.decimal == '.';
  if (!dot) cmnloc_.decimal = ',';
  cmnloc_.grouping = dot ? ',' : '.';
  cmnloc_.list_separator = dot ? ',' : ';';
}
