// What a column brings along: settings by argument and a format.
#include "column/column_settings.h"

#include <algorithm>
#include <clocale>

#include "frame/constants.h"
#include "frame/format_code.h"
#include "numeric/custom_currency.h"

namespace iocv::column {

// The empty patterns live as long as the library, so nobody needs to count who uses them.
CustomCurrencies::CustomCurrencies() noexcept
    : all_(std::shared_ptr<const Currencies>(), &default_currencies) {}

CustomCurrencies CustomCurrencies::current() {
  CustomCurrencies copy;
  copy.all_ = std::make_shared<const Currencies>(process_currencies);
  return copy;
}

bool CustomCurrencies::set(int index, const std::string& pattern) {
  if (index < 0 || index >= Currencies::kCount) return false;
  const auto changed = std::make_shared<Currencies>(*all_);
  (*changed)[index].Set(pattern);
  all_ = changed;
  return true;
}

const customCurrency& CustomCurrencies::operator[](int index) const noexcept {
  return (*all_)[index >= 0 && index < Currencies::kCount ? index : 0];
}

const Currencies& all_of(const CustomCurrencies& currencies) noexcept { return *currencies.all_; }

Settings Settings::current() {
  const iocv::Settings now = iocv::Settings::current();
  return {.system_missing = now.system_missing,
          .blank_value = now.blank_value,
          .small = now.small,
          .century_begin = now.century_begin,
          .system_missing_char = now.system_missing_char,
          .decimal = now.decimal,
          .elapsed_decimal = *std::localeconv()->decimal_point,
          .leading_zero = now.leading_zero,
          .currencies = CustomCurrencies::current()};
}

iocv::Settings core_settings(const Settings& settings, const Format& format) noexcept {
  const bool elapsed = static_cast<FormatCode>(format.type) == FormatCode::elapsed;
  return {.system_missing = settings.system_missing,
          .blank_value = settings.blank_value,
          .small = settings.small,
          .century_begin = settings.century_begin,
          .currencies = &all_of(settings.currencies),
          .system_missing_char = settings.system_missing_char,
          .decimal = elapsed ? settings.elapsed_decimal : settings.decimal,
          .leading_zero = settings.leading_zero};
}

std::size_t used_width(const Format& format) noexcept {
  return static_cast<std::size_t>(std::clamp<std::int64_t>(format.width, 0, kWidestField));
}

std::size_t string_value_size(const Format& format) noexcept {
  const std::size_t width = used_width(format);
  const std::size_t bytes = format.type == VELT_Format::AHEX ? (width + 1) / 2 : width;
  return (bytes + sizeof(OBS) - 1) / sizeof(OBS) * sizeof(OBS);
}

}  // namespace iocv::column
