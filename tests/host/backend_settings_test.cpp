// The settings record.
#include <cstdlib>
#include <ctime>
#include <memory>
#include <type_traits>

#include "host/backend_settings_support.h"

namespace test {
namespace {

static_assert(!std::is_copy_constructible_v<BackendSettings>);
static_assert(std::has_virtual_destructor_v<BackendSettings>);

TEST(SettingsRecord, BeginsWithTheDefaults) {
  const std::time_t before = std::time(nullptr);
  const BackendSettings record;
  const std::time_t after = std::time(nullptr);
  EXPECT_LE(before, record.getTimeT());
  EXPECT_LE(record.getTimeT(), after);
  const std::time_t taken = record.getTimeT();
  Fields defaults = {.procedure_name = "",
                     .translated_procedure_name = "",
                     .output_language = "en",
                     .code_page = "windows-1252",
                     .locale = "en_US.windows-1252",
                     .dataset_name = "",
                     .dataset_file_name = "",
                     .table_summary = "",
                     .custom_currencies = {},
                     .epoch_begin_year = std::localtime(&taken)->tm_year + 1831,
                     .time_stamp = taken,
                     .digit_grouping = false,
                     .leading_zero = false,
                     .unicode = true,
                     .pooling = false,
                     .bootstrapped = false,
                     .fast_tables = true,
                     .system_missing_char = '.',
                     .decimal_point = '.',
                     .separator = ',',
                     .small = 0.0001,
                     .max_cells = 2000000,
                     .sigless = false};
  EXPECT_EQ(fields_of(record), defaults);
}

TEST(SettingsRecord, TakesTheTimeAsItIsAndTheLocalYear) {
  setenv("TZ", "UTC", 1);
  tzset();
  const BackendSettings::Data at_zero(0);
  EXPECT_EQ(at_zero.time_stamp, 0);
  EXPECT_EQ(at_zero.epoch_begin_year, 1901);
  EXPECT_EQ(BackendSettings::Data(-1).epoch_begin_year, 1900);
  EXPECT_EQ(BackendSettings::Data(1767225600).epoch_begin_year, 1957);  // 1 January 2026
  EXPECT_EQ(BackendSettings::Data(1767225599).epoch_begin_year, 1956);
  setenv("TZ", "TST-14", 1);
  tzset();
  EXPECT_EQ(BackendSettings::Data(1767225599).epoch_begin_year, 1957);
  unsetenv("TZ");
  tzset();
}

TEST(SettingsRecord, StoresWhatIsSet) {
  BackendSettings record;
  set_fields(record, kOld);
  EXPECT_EQ(fields_of(record), kOld);
  set_fields(record, kNew);
  Fields changed = kNew;
  changed.separator = ' ';
  EXPECT_EQ(fields_of(record), changed);
}

TEST(SettingsRecord, TurnsOnlyTheNoBreakSpaceOfTheSeparatorIntoABlank) {
  BackendSettings record;
  for (int c = 0; c < 256; ++c) {
    const char byte = static_cast<char>(c);
    record.setSeparator(byte);
    EXPECT_EQ(record.getSeparator(), c == 0xA0 ? ' ' : byte) << c;
    record.setDecimalPoint(byte);
    EXPECT_EQ(record.getDecimalPoint(), byte) << c;
    record.setSystemMissingChar(byte);
    EXPECT_EQ(record.getSystemMissingChar(), byte) << c;
  }
}

TEST(SettingsRecord, IsCopiedByAssignmentFieldByField) {
  BackendSettings original;
  set_fields(original, kOld);
  BackendSettings copy;
  EXPECT_EQ(&(copy = original), &copy);
  EXPECT_EQ(fields_of(copy), kOld);
  original.setCustomCurrencies({});
  original.setLocale("other");
  EXPECT_EQ(fields_of(copy), kOld);
  BackendSettings& self = copy;
  copy = self;
  EXPECT_EQ(fields_of(copy), kOld);
}

TEST(SettingsRecord, MayBeDestroyedThroughItsBase) {
  struct Derived : BackendSettings {
    explicit Derived(int& count) : count_(count) {}
    ~Derived() override { ++count_; }
    int& count_;
  };
  int destroyed = 0;
  std::unique_ptr<BackendSettings> base = std::make_unique<Derived>(destroyed);
  base.reset();
  EXPECT_EQ(destroyed, 1);
}

}  // namespace
}  // namespace test
