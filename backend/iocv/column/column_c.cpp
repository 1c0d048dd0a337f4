// The columns of C.
#include <iocv/column.h>

#include <new>

using iocv::column::Format;
using iocv::column::Result;
using iocv::column::Settings;

struct iocv_settings {
  Settings value;
};

namespace {

Settings value_of(const iocv_settings* settings) { return settings ? settings->value : Settings(); }

std::int64_t answer(const Result& result, std::size_t* first_failed) {
  if (first_failed) *first_failed = result.first_failed;
  return static_cast<std::int64_t>(result.failed);
}

}  // namespace

extern "C" {

iocv_settings* iocv_settings_new() try {
  return new iocv_settings{Settings::current()};
} catch (const std::bad_alloc&) {
  return nullptr;
}

void iocv_settings_free(iocv_settings* settings) { delete settings; }

void iocv_settings_set_system_missing(iocv_settings* settings, double number) {
  settings->value.system_missing = number;
}

void iocv_settings_set_blank_value(iocv_settings* settings, double number) {
  settings->value.blank_value = number;
}

void iocv_settings_set_small(iocv_settings* settings, double threshold) {
  settings->value.small = threshold;
}

void iocv_settings_set_century_begin(iocv_settings* settings, std::int64_t year) {
  settings->value.century_begin = year;
}

void iocv_settings_set_system_missing_char(iocv_settings* settings, char character) {
  settings->value.system_missing_char = character;
}

void iocv_settings_set_decimal(iocv_settings* settings, char decimal) {
  settings->value.decimal = decimal;
}

void iocv_settings_set_elapsed_decimal(iocv_settings* settings, char decimal) {
  settings->value.elapsed_decimal = decimal;
}

void iocv_settings_set_leading_zero(iocv_settings* settings, int shown) {
  settings->value.leading_zero = shown != 0;
}

int iocv_settings_set_currency(iocv_settings* settings, int index, const char* pattern) try {
  return pattern && settings->value.currencies.set(index, pattern) ? 1 : 0;
} catch (const std::bad_alloc&) {
  return 0;
}

std::int64_t iocv_read_column(const char* fields, std::size_t stride, std::size_t count, int type,
                              std::int64_t width, std::int64_t decimals,
                              const iocv_settings* settings, double* values, std::int32_t* statuses,
                              std::size_t* first_failed) {
  const Format format(type, width, decimals);
  return answer(
      iocv::column::read(fields, stride, count, format, value_of(settings), values, statuses),
      first_failed);
}

std::int64_t iocv_read_string_column(const char* fields, std::size_t stride, std::size_t count,
                                     int type, std::int64_t width, const iocv_settings* settings,
                                     char* values, std::size_t value_stride, std::int32_t* statuses,
                                     std::size_t* first_failed) {
  const Format format(type, width);
  return answer(iocv::column::read_strings(fields, stride, count, format, value_of(settings),
                                           values, value_stride, statuses),
                first_failed);
}

std::int64_t iocv_write_column(const double* values, std::size_t count, int type,
                               std::int64_t width, std::int64_t decimals,
                               const iocv_settings* settings, char* fields, std::size_t stride,
                               std::int32_t* statuses, std::size_t* first_failed) {
  const Format format(type, width, decimals);
  return answer(
      iocv::column::write(values, count, format, value_of(settings), fields, stride, statuses),
      first_failed);
}

std::int64_t iocv_write_string_column(const char* values, std::size_t value_stride,
                                      std::size_t count, int type, std::int64_t width,
                                      const iocv_settings* settings, char* fields,
                                      std::size_t stride, std::int32_t* statuses,
                                      std::size_t* first_failed) {
  const Format format(type, width);
  return answer(iocv::column::write_strings(values, value_stride, count, format, value_of(settings),
                                            fields, stride, statuses),
                first_failed);
}

}  // extern "C"
