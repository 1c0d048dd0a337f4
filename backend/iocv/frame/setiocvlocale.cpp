// The decimal and grouping characters, from the numeric locale of the process.
#include <iocv/settings.h>

#include <clocale>
#include <cstring>

namespace {

constexpr std::int64_t kDot = '.';
constexpr std::int64_t kComma = ',';
constexpr std::int64_t kSemicolon = ';';

}  // namespace

extern "C" void getlcs_(std::int64_t* decimal, std::int64_t* thousands) {
  *decimal = kDot;
  const char* name = std::setlocale(LC_NUMERIC, nullptr);
  if (name && std::strcmp(name, "C") == 0) name = std::setlocale(LC_NUMERIC, "");
  const std::lconv* locale = std::localeconv();
  if (!name || !locale) return;
  *decimal = static_cast<unsigned char>(*locale->decimal_point);
  *thousands = static_cast<unsigned char>(*locale->thousands_sep);
}

extern "C" void setiocvlocale_() {
  getlcs_(&cmnloc_.decimal, &cmnloc_.locale_thousands);
  const bool dot = cmnloc_.decimal == kDot;
  if (!dot) cmnloc_.decimal = kComma;
  cmnloc_.grouping = dot ? kComma : kDot;
  cmnloc_.list_separator = dot ? kComma : kSemicolon;
}
