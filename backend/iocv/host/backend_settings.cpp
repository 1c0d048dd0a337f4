// The settings record, and the layout of its buffer: written in one function, read in one other.
#include <iocv/backend_settings.h>
#include <iocv/platform.h>

#include "host/backend_settings_data.h"

namespace {

using Data = BackendSettings::Data;

constexpr unsigned char kNoBreakSpace = 0xA0;

// The history of the buffer: which version brought which fields.
enum Version : int {
  kWithSmall = 3,    // and fast tables
  kWithDataset = 4,  // and the time stamp
  kWithMaxCells = 5,
  kWithSigless = 6,
  kCurrent = kWithSigless,
};

// The window ends thirty years after the present year.
int century_begin(std::time_t now) {
  constexpr int kYearsBefore = 69;
  std::tm local = {};
  localtime_r(&now, &local);
  return 1900 + local.tm_year - kYearsBefore;
}

std::string write(const Data& data, const std::vector<std::string>& currencies) {
  BackendSettings::Serializer out;
  out.Send(static_cast<int>(kCurrent));
  out.Send(data.procedure_name);
  out.Send(data.translated_procedure_name);
  out.Send(data.output_language);
  out.Send(data.code_page);
  out.Send(data.locale);
  out.Send(data.digit_grouping);
  out.Send(data.leading_zero);
  out.Send(data.unicode);
  out.Send(data.pooling);
  out.Send(data.epoch_begin_year);
  out.Send(data.decimal_point);
  out.Send(data.separator);
  out.Send(data.small);
  out.Send(data.fast_tables);
  out.Send(data.dataset_name);
  out.Send(data.dataset_file_name);
  out.Send(data.table_summary);
  out.Send(data.time_stamp);
  out.Send(static_cast<int>(currencies.size()));
  for (const std::string& currency : currencies) out.Send(currency);
  out.Send(data.system_missing_char);
  out.Send(data.bootstrapped);
  out.Send(data.max_cells);
  out.Send(data.sigless);
  return out.GetString();
}

// The count is only believed as far as there are strings.
void append_currencies(BackendSettings::Deserializer& in, std::vector<std::string>& currencies) {
  int count = 0;
  in.Receive(count);
  std::string currency;
  for (int i = 0; i < count && in.Receive(currency); ++i) currencies.push_back(currency);
}

// Mirrors write. After the first item that is not wholly there in receives nothing more.
void read(BackendSettings::Deserializer& in, Data& data) {
  int version = 0;
  in.Receive(version);
  in.Receive(data.procedure_name);
  in.Receive(data.translated_procedure_name);
  in.Receive(data.output_language);
  in.Receive(data.code_page);
  in.Receive(data.locale);
  in.Receive(data.digit_grouping);
  in.Receive(data.leading_zero);
  in.Receive(data.unicode);
  in.Receive(data.pooling);
  in.Receive(data.epoch_begin_year);
  in.Receive(data.decimal_point);
  in.Receive(data.separator);
  if (version >= kWithSmall) {
    in.Receive(data.small);
    in.Receive(data.fast_tables);
  }
  if (version >= kWithDataset) {
    in.Receive(data.dataset_name);
    in.Receive(data.dataset_file_name);
    in.Receive(data.table_summary);
    in.Receive(data.time_stamp);
  }
  append_currencies(in, data.custom_currencies);
  in.Receive(data.system_missing_char);
  if (!in.Receive(data.bootstrapped)) return;
  data.max_cells = Data::kMaxCells;
  // What a newer writer put behind the fields that all versions share is not ours to guess.
  if (version > kCurrent) return;
  if (version >= kWithMaxCells) in.Receive(data.max_cells);
  if (version >= kWithSigless) in.Receive(data.sigless);
}

}  // namespace

BackendSettings::Data::Data() : Data(std::time(nullptr)) {}

BackendSettings::Data::Data(std::time_t now)
    : epoch_begin_year(century_begin(now)), time_stamp(now) {}

BackendSettings::BackendSettings() : data_(std::make_unique<Data>()) {}
BackendSettings::~BackendSettings() = default;

BackendSettings& BackendSettings::operator=(const BackendSettings& other) {
  *data_ = *other.data_;
  return *this;
}

std::string BackendSettings::getSettings() const { return write(*data_, data_->custom_currencies); }

std::string BackendSettings::getSettingsWithU8CCs() const {
  std::vector<std::string> currencies = data_->custom_currencies;
  for (std::string& currency : currencies) VELTMBGenericToU8(currency, currency);
  return write(*data_, currencies);
}

void BackendSettings::setSettings(std::string& buffer) {
  Deserializer in(buffer.data(), buffer.size());
  read(in, *data_);
}

// A virtual table and the fields' address: what a host's subclass builds on.
static_assert(sizeof(BackendSettings) == 2 * sizeof(void*));

// Getters and setters, one line a field.
const std::string& BackendSettings::getProcedureName() const { return data_->procedure_name; }
const std::string& BackendSettings::getTranslatedProcedureName() const {
  return data_->translated_procedure_name;
}
const std::string& BackendSettings::getOutputLanguage() const { return data_->output_language; }
const std::string& BackendSettings::getCodePage() const { return data_->code_page; }
const std::string& BackendSettings::getLocale() const { return data_->locale; }
const std::string& BackendSettings::getDatasetName() const { return data_->dataset_name; }
const std::string& BackendSettings::getDatasetFileName() const { return data_->dataset_file_name; }
const std::string& BackendSettings::getTableSummary() const { return data_->table_summary; }
const std::vector<std::string>& BackendSettings::getCustomCurrencies() const {
  return data_->custom_currencies;
}
bool BackendSettings::getDigitGrouping() const { return data_->digit_grouping; }
bool BackendSettings::getLeadingZero() const { return data_->leading_zero; }
bool BackendSettings::getUnicode() const { return data_->unicode; }
bool BackendSettings::getPooling() const { return data_->pooling; }
bool BackendSettings::getBootstrapped() const { return data_->bootstrapped; }
bool BackendSettings::getFastTables() const { return data_->fast_tables; }
bool BackendSettings::getSigless() const { return data_->sigless; }
char BackendSettings::getSystemMissingChar() const { return data_->system_missing_char; }
char BackendSettings::getDecimalPoint() const { return data_->decimal_point; }
char BackendSettings::getSeparator() const { return data_->separator; }
int BackendSettings::getEpochBeginYear() const { return data_->epoch_begin_year; }
long long BackendSettings::getTimeT() const { return data_->time_stamp; }
double BackendSettings::getSmall() const { return data_->small; }
long long BackendSettings::getMaxCells() const { return data_->max_cells; }

void BackendSettings::setProcedureName(const std::string& name,
                                       const std::string& translated_name) {
  data_->procedure_name = name;
  data_->translated_procedure_name = translated_name;
}
void BackendSettings::setOutputLanguage(const std::string& language) {
  data_->output_language = language;
}
void BackendSettings::setCodePage(const std::string& code_page) { data_->code_page = code_page; }
void BackendSettings::setLocale(const std::string& locale) { data_->locale = locale; }
void BackendSettings::setDatasetName(const std::string& name) { data_->dataset_name = name; }
void BackendSettings::setDatasetFileName(const std::string& name) {
  data_->dataset_file_name = name;
}
void BackendSettings::setTableSummary(const std::string& summary) {
  data_->table_summary = summary;
}
void BackendSettings::setCustomCurrencies(const std::vector<std::string>& patterns) {
  data_->custom_currencies = patterns;
}
void BackendSettings::setDigitGrouping(bool on) { data_->digit_grouping = on; }
void BackendSettings::setLeadingZero(bool on) { data_->leading_zero = on; }
void BackendSettings::setUnicode(bool on) { data_->unicode = on; }
void BackendSettings::setPooling(bool on) { data_->pooling = on; }
void BackendSettings::setBootstrapped(bool on) { data_->bootstrapped = on; }
void BackendSettings::setFastTables(bool on) { data_->fast_tables = on; }
void BackendSettings::setSigless(bool on) { data_->sigless = on; }
void BackendSettings::setSystemMissingChar(char c) { data_->system_missing_char = c; }
void BackendSettings::setDecimalPoint(char c) { data_->decimal_point = c; }
void BackendSettings::setSeparator(char c) {
  data_->separator = static_cast<unsigned char>(c) == kNoBreakSpace ? ' ' : c;
}
void BackendSettings::setEpochBeginYear(int year) { data_->epoch_begin_year = year; }
void BackendSettings::setTimet(long long seconds) { data_->time_stamp = seconds; }
void BackendSettings::setSmall(double threshold) { data_->small = threshold; }
void BackendSettings::setMaxCells(long long cells) { data_->max_cells = cells; }
