// A settings record as a value, and the stored buffers that it is read from. The buffers under
// tests/vectors/settings come from scripts/make_settings_vectors.py, which shares nothing with the
// library.
#pragma once

#include <gtest/gtest.h>
#include <iocv/host.h>

#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "host/backend_settings_data.h"

namespace test {

using Strings = std::vector<std::string>;

// Every field of a record, comparable.
struct Fields {
  std::string procedure_name, translated_procedure_name, output_language, code_page, locale;
  std::string dataset_name, dataset_file_name, table_summary;
  Strings custom_currencies;
  int epoch_begin_year;
  long long time_stamp;
  bool digit_grouping, leading_zero, unicode, pooling, bootstrapped, fast_tables;
  char system_missing_char, decimal_point, separator;
  double small;
  long long max_cells;
  bool sigless;

  bool operator==(const Fields&) const = default;
};

inline Fields fields_of(const BackendSettings& s) {
  return {s.getProcedureName(),
          s.getTranslatedProcedureName(),
          s.getOutputLanguage(),
          s.getCodePage(),
          s.getLocale(),
          s.getDatasetName(),
          s.getDatasetFileName(),
          s.getTableSummary(),
          s.getCustomCurrencies(),
          s.getEpochBeginYear(),
          s.getTimeT(),
          s.getDigitGrouping(),
          s.getLeadingZero(),
          s.getUnicode(),
          s.getPooling(),
          s.getBootstrapped(),
          s.getFastTables(),
          s.getSystemMissingChar(),
          s.getDecimalPoint(),
          s.getSeparator(),
          s.getSmall(),
          s.getMaxCells(),
          s.getSigless()};
}

inline void set_fields(BackendSettings& s, const Fields& f) {
  s.setProcedureName(f.procedure_name, f.translated_procedure_name);
  s.setOutputLanguage(f.output_language);
  s.setCodePage(f.code_page);
  s.setLocale(f.locale);
  s.setDatasetName(f.dataset_name);
  s.setDatasetFileName(f.dataset_file_name);
  s.setTableSummary(f.table_summary);
  s.setCustomCurrencies(f.custom_currencies);
  s.setEpochBeginYear(f.epoch_begin_year);
  s.setTimet(f.time_stamp);
  s.setDigitGrouping(f.digit_grouping);
  s.setLeadingZero(f.leading_zero);
  s.setUnicode(f.unicode);
  s.setPooling(f.pooling);
  s.setBootstrapped(f.bootstrapped);
  s.setFastTables(f.fast_tables);
  s.setSystemMissingChar(f.system_missing_char);
  s.setDecimalPoint(f.decimal_point);
  s.setSeparator(f.separator);
  s.setSmall(f.small);
  s.setMaxCells(f.max_cells);
  s.setSigless(f.sigless);
}

// A record that differs in every field from the defaults and from the stored buffers.
inline const Fields kOld = {.procedure_name = "old 1",
                            .translated_procedure_name = "old 2",
                            .output_language = "old 3",
                            .code_page = "old 4",
                            .locale = "old 5",
                            .dataset_name = "old 6",
                            .dataset_file_name = "old 7",
                            .table_summary = "old 8",
                            .custom_currencies = {"old 9", "old 9b"},
                            .epoch_begin_year = 1800,
                            .time_stamp = -11,
                            .digit_grouping = false,
                            .leading_zero = false,
                            .unicode = true,
                            .pooling = false,
                            .bootstrapped = false,
                            .fast_tables = true,
                            .system_missing_char = 'o',
                            .decimal_point = 'l',
                            .separator = 'd',
                            .small = -0.5,
                            .max_cells = 22,
                            .sigless = false};

// What the stored buffers hold.
inline const std::string kStored[] = {"-,$,,CR", "", ",,\x80,"};
inline const Fields kNew = {.procedure_name = "CROSSTABS",
                            .translated_procedure_name = "Kreuztabellen \xC3\xBC",
                            .output_language = "de",
                            .code_page = "UTF-8",
                            .locale = "de_DE.UTF-8",
                            .dataset_name = "DataSet1",
                            .dataset_file_name = std::string("/data/a\0b.dat", 13),
                            .table_summary = "three rows",
                            .custom_currencies = {kStored[0], kStored[1], kStored[2]},
                            .epoch_begin_year = 1931,
                            .time_stamp = 0x0102030405060708,
                            .digit_grouping = true,
                            .leading_zero = true,
                            .unicode = false,
                            .pooling = true,
                            .bootstrapped = true,
                            .fast_tables = false,
                            .system_missing_char = '*',
                            .decimal_point = ',',
                            .separator = '\xA0',
                            .small = 0.015625,
                            .max_cells = 0x1112131415161718,
                            .sigless = true};

// What reading one item does to a record; the n-th currency is appended.
inline void receive_item(const std::string& item, std::size_t currency, int version, Fields& f) {
  const auto copy = [&](auto Fields::*field) { return [&f, field] { f.*field = kNew.*field; }; };
  const std::map<std::string, std::function<void()>> effects = {
      {"mark", [] {}},
      {"version", [] {}},
      {"procedure_name", copy(&Fields::procedure_name)},
      {"translated_procedure_name", copy(&Fields::translated_procedure_name)},
      {"output_language", copy(&Fields::output_language)},
      {"code_page", copy(&Fields::code_page)},
      {"locale", copy(&Fields::locale)},
      {"digit_grouping", copy(&Fields::digit_grouping)},
      {"leading_zero", copy(&Fields::leading_zero)},
      {"unicode", copy(&Fields::unicode)},
      {"pooling", copy(&Fields::pooling)},
      {"epoch_begin_year", copy(&Fields::epoch_begin_year)},
      {"decimal_point", copy(&Fields::decimal_point)},
      {"separator", copy(&Fields::separator)},
      {"small", copy(&Fields::small)},
      {"fast_tables", copy(&Fields::fast_tables)},
      {"dataset_name", copy(&Fields::dataset_name)},
      {"dataset_file_name", copy(&Fields::dataset_file_name)},
      {"table_summary", copy(&Fields::table_summary)},
      {"time_stamp", copy(&Fields::time_stamp)},
      {"currency_count", [] {}},
      {"currency", [&] { f.custom_currencies.push_back(kStored[currency]); }},
      {"system_missing_char", copy(&Fields::system_missing_char)},
      {"bootstrapped",
       [&] {
         f.bootstrapped = kNew.bootstrapped;
         f.max_cells = 2000000;
       }},
      {"max_cells", copy(&Fields::max_cells)},
      {"sigless", copy(&Fields::sigless)},
  };
  const bool beyond = version > 6 && (item == "max_cells" || item == "sigless" || item == "future");
  if (!beyond) effects.at(item)();
}

struct Version {
  const char* name;
  int number;
};
constexpr Version kVersions[] = {
    {"negative", -1}, {"zero", 0}, {"1", 1}, {"2", 2}, {"3", 3},
    {"4", 4},         {"5", 5},    {"6", 6}, {"7", 7}, {"largest", 2147483647}};

inline std::string file(const std::string& name) {
  std::ifstream in(std::string(IOCV_VECTORS "/settings/") + name, std::ios::binary);
  EXPECT_TRUE(in) << name;
  return {std::istreambuf_iterator<char>(in), {}};
}

inline std::string buffer_of(const Version& version, const char* order) {
  return file(std::string(version.name) + "_" + order + ".bin");
}

// The record that is left when only the first bytes of a version's buffer are there.
inline Fields expected(const Version& version, std::size_t length) {
  std::ifstream in(std::string(IOCV_VECTORS "/settings/") + version.name + ".items");
  Fields fields = kOld;
  std::size_t end = 0;
  std::size_t currency = 0;
  for (std::string item; in >> end >> item && end <= length;) {
    receive_item(item, currency, version.number, fields);
    if (item == "currency") ++currency;
  }
  return fields;
}

// Every read starts from a record with old values.
inline Fields read_buffer(std::string buffer) {
  BackendSettings record;
  set_fields(record, kOld);
  record.setSettings(buffer);
  return fields_of(record);
}

inline std::string bytes_of_hex(std::string_view hex) {
  std::string bytes;
  int half = -1;
  for (const char c : hex) {
    if (c == ' ') continue;
    const int digit = c <= '9' ? c - '0' : c - 'A' + 10;
    if (half >= 0) bytes += static_cast<char>(half * 16 + digit);
    half = half >= 0 ? -1 : digit;
  }
  return bytes;
}

}  // namespace test
