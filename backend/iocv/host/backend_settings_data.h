// The fields of the settings record.
#pragma once

#include <iocv/backend_settings.h>

#include <ctime>

struct IOCV_API BackendSettings::Data {
  static constexpr long long kMaxCells = 2000000;

  Data();
  explicit Data(std::time_t now);  // the defaults as they are at that time

  std::string procedure_name;
  std::string translated_procedure_name;
  std::string output_language = "en";
  std::string code_page = "windows-1252";
  std::string locale = "en_US.windows-1252";
  std::string dataset_name;
  std::string dataset_file_name;
  std::string table_summary;
  std::vector<std::string> custom_currencies;
  int epoch_begin_year;
  long long time_stamp;
  bool digit_grouping = false;
  bool leading_zero = false;
  bool unicode = true;
  bool pooling = false;
  bool bootstrapped = false;
  bool fast_tables = true;
  char system_missing_char = '.';
  char decimal_point = '.';
  char separator = ',';
  double small = 0.0001;
  long long max_cells = kMaxCells;
  bool sigless = false;
};
