// Setters and getters of the settings records.
#include <iocv/currencies.h>
#include <iocv/settings.h>

#include <array>
#include <cstring>
#include <string>

#include "frame/record_pointers.h"

constinit iocv::RecordPointers iocv::record_pointers = {
    &cmnglb_, &cmaglb_, &cmnsys_, &cmasys_, &cmnmch_, &cmamch_, &cmnloc_, &cmndtm_, &cmadtm_};

using iocv::record_pointers;

namespace {

enum Option : std::int32_t { kMissingCharacter = 1, kCurrency = 2, kCentury = 3 };
enum Answer : std::int64_t { kSet = 0, kUnknownOption = 1, kBadIndex = 2 };

// Data is the currency's number as 32 bits, then its pattern, terminated.
std::int64_t set_currency(const void* data) {
  std::int32_t number;
  std::memcpy(&number, data, sizeof number);
  if (number < 1 || number > currencyFormat::getMaxCustomCurrencies()) return kBadIndex;
  std::string pattern = static_cast<const char*>(data) + sizeof number;
  return IocvSetCCFormat(number - 1, pattern.data());
}

std::int64_t set_century(const void* data) {
  std::array<std::int32_t, 2> mode_and_begin;
  std::memcpy(mode_and_begin.data(), data, sizeof mode_and_begin);
  record_pointers.date->century_mode = mode_and_begin[0];
  record_pointers.date->century_begin = mode_and_begin[1];
  return kSet;
}

// The constants in the order of mchcon_'s codes, from 1.
constexpr std::array kConstants = {
    &IocvMachineRecord::largest_finite,  &IocvMachineRecord::square_root,
    &IocvMachineRecord::cube_root,       &IocvMachineRecord::fourth_root,
    &IocvMachineRecord::epsilon,         &IocvMachineRecord::lowest_finite,
    &IocvMachineRecord::smallest_normal, &IocvMachineRecord::largest_exponent_argument,
    &IocvMachineRecord::largest_output,  &IocvMachineRecord::two_to_52,
};

}  // namespace

extern "C" {

void iocvsetdecchardot_() { cmnloc_.decimal = '.'; }
void iocvsetdeccharcomma_() { cmnloc_.decimal = ','; }
void iocvsetsmall_(const double* threshold) { cmnobog_.small = *threshold; }

std::int64_t iocvgetdecchar_() { return record_pointers.locale->decimal; }
std::int64_t global_decchr_() { return cmnloc_.decimal; }
double global_sysmis_() { return cmnglb_.system_missing; }
double global_blnkas_() { return cmnglb_.blank_value; }

double mchcon_(const std::int64_t* code) {
  if (*code < 1 || *code > static_cast<std::int64_t>(kConstants.size())) {
    return cmnglb_.system_missing;
  }
  return cmnmch_.*kConstants[static_cast<std::size_t>(*code - 1)];
}

std::int64_t iocvset_(const std::int32_t* option, const void* data) {
  switch (*option) {
    case kMissingCharacter:
      record_pointers.system_text->system_missing = *static_cast<const char*>(data);
      return kSet;
    case kCurrency: return set_currency(data);
    case kCentury: return set_century(data);
    default: return kUnknownOption;
  }
}

void seecmn_(IocvGeneralRecord* general, IocvGeneralText* general_text, IocvSystemRecord* system,
             IocvSystemText* system_text, IocvMachineRecord* machine, IocvMachineText* machine_text,
             IocvLocaleRecord* locale, IocvDateRecord* date, IocvDateText* date_text) {
  record_pointers = {general,      general_text, system, system_text, machine,
                     machine_text, locale,       date,   date_text};
}

}  // extern "C"
