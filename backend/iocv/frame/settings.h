// What conversions consult, as a value: a conversion never reads a global.
#pragma once

#include <iocv/records.h>

#include <cstdint>

#include "frame/constants.h"

namespace iocv {

struct Currencies;                           // numeric/custom_currency.h
extern Currencies process_currencies;        // as the host has set them
extern const Currencies default_currencies;  // five empty patterns

struct Settings {
  double system_missing = kSystemMissing;
  double blank_value = kSystemMissing;
  double small = 0.0001;              // the general format's threshold
  std::int64_t century_begin = 1900;  // first year of the hundred that two digits name
  const Currencies* currencies = &default_currencies;
  char system_missing_char = '.';
  char decimal = '.';  // '.' or ','
  bool leading_zero = false;

  // The process's settings.
  static Settings current() noexcept {
    return {.system_missing = cmnglb_.system_missing,
            .blank_value = cmnglb_.blank_value,
            .small = cmnobog_.small,
            .century_begin = cmndtm_.century_begin,
            .currencies = &process_currencies,
            .system_missing_char = cmasys_.system_missing,
            .decimal = static_cast<char>(cmnloc_.decimal),
            .leading_zero = cmnsys_.leading_zero > 0};
  }
};

// Two sources of settings for code that is compiled for both: the process's, of which only what is
// asked for is read, and given ones.
struct CurrentSettings {
  Settings operator()() const noexcept { return Settings::current(); }
  operator Settings() const noexcept { return Settings::current(); }
};
class GivenSettings {
 public:
  GivenSettings() = default;
  GivenSettings(const Settings& settings) noexcept : settings_(&settings) {}

  const Settings& operator()() const noexcept { return *settings_; }
  operator const Settings&() const noexcept { return *settings_; }

 private:
  const Settings* settings_ = nullptr;
};

}  // namespace iocv
