#include "settings.h"

#include <iocv/currencies.h>
#include <iocv/platform.h>
#include <iocv/settings.h>

namespace iocv::tool {
namespace {

constexpr std::int64_t kFirstCentury = 1;
constexpr std::int64_t kLastCentury = 9999;
constexpr std::int32_t kDefaultCentury = 1900;
constexpr const char* kDefaultCodePage = "UTF-8";

// The options of iocvset_.
constexpr std::int32_t kMissingOption = 1;
constexpr std::int32_t kCenturyOption = 3;

bool knows_code_page(const std::string& name) {
  const std::string current = VELTMBgetCodePage();
  const bool known = VELTMBsetCodePage(name.c_str());
  VELTMBsetCodePage(current.c_str());
  return known;
}

template <class T>
void overlay(std::optional<T>& setting, const std::optional<T>& over) {
  if (over) setting = over;
}

}  // namespace

std::string set_century(Settings& settings, std::int64_t year) {
  if (year < kFirstCentury || year > kLastCentury) {
    return "the century must begin with a year from " + std::to_string(kFirstCentury) + " to " +
           std::to_string(kLastCentury);
  }
  settings.century = year;
  return {};
}

std::string set_decimal(Settings& settings, std::string_view text) {
  if (text != "." && text != ",") return "the decimal character must be \".\" or \",\"";
  settings.decimal = text[0];
  return {};
}

std::string set_missing(Settings& settings, std::string_view text) {
  if (text.size() != 1 || text[0] < ' ' || text[0] > '~') {
    return "the system-missing character must be one printable ASCII character";
  }
  settings.missing = text[0];
  return {};
}

std::string set_code_page(Settings& settings, std::string_view text) {
  std::string name(text);
  if (name.find('\0') != name.npos || !knows_code_page(name)) {
    return "unknown code page \"" + name + "\", or not a superset of ASCII";
  }
  settings.code_page = std::move(name);
  return {};
}

std::string set_currency(Settings& settings, std::size_t index, std::string_view pattern) {
  if (pattern.find('\0') != pattern.npos) return "a currency pattern cannot hold a zero byte";
  settings.currencies[index] = pattern;
  return {};
}

Settings overlaid(const Settings& under, const Settings& over) {
  Settings settings = under;
  overlay(settings.century, over.century);
  overlay(settings.decimal, over.decimal);
  overlay(settings.leading_zero, over.leading_zero);
  overlay(settings.missing, over.missing);
  overlay(settings.code_page, over.code_page);
  for (std::size_t i = 0; i < settings.currencies.size(); ++i) {
    overlay(settings.currencies[i], over.currencies[i]);
  }
  return settings;
}

void apply(const Settings& settings) {
  const std::int32_t century[] = {
      1, static_cast<std::int32_t>(settings.century.value_or(kDefaultCentury))};
  iocvset_(&kCenturyOption, century);
  const char missing = settings.missing.value_or('.');
  iocvset_(&kMissingOption, &missing);
  if (settings.decimal == ',') {
    iocvsetdeccharcomma_();
  } else {
    iocvsetdecchardot_();
  }
  cmnsys_.leading_zero = settings.leading_zero.value_or(false) ? 1 : 0;
  VELTMBsetCodePage(settings.code_page.value_or(kDefaultCodePage).c_str());
  for (std::size_t i = 0; i < settings.currencies.size(); ++i) {
    std::string pattern = settings.currencies[i].value_or("");
    IocvSetCCFormat(static_cast<int>(i), pattern.data());
  }
}

}  // namespace iocv::tool
