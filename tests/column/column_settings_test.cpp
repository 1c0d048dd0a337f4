// Settings of a column: by argument, and by a handle.
#include <iocv/iocv.h>

#include "column/column_support.h"
#include "support/records_guard.h"

namespace {

using iocv::column::read;
using iocv::column::write;
using test::Format;
using test::Settings;

constexpr double kMissing = -std::numeric_limits<double>::max();
constexpr int kF = VELT_Format::F;

Settings with_currency(int index, const char* pattern) {
  Settings settings;
  settings.currencies.set(index, pattern);
  return settings;
}

TEST(ColumnSettings, AreThoseOfTheArgument) {
  const Settings currency = with_currency(0, "-,$,,CR");
  const struct {
    Settings settings;
    Format format;
    double value;
    std::string_view text;
  } written[] = {
      {{.system_missing_char = '#'}, {kF, 4}, kMissing, "   #"},
      {{.system_missing = -9}, {kF, 4}, -9, "   ."},
      {{.decimal = ','}, {kF, 5, 1}, 12.5, " 12,5"},
      {{.leading_zero = true}, {kF, 5, 1}, 0.5, "  0.5"},
      {{}, {kF, 5, 1}, 0.5, "   .5"},
      {{.century_begin = 1950}, {VELT_Format::DATE, 9}, 13166064000, "01-JAN-00"},
      {{}, {VELT_Format::DATE, 9}, 13166064000, "*********"},
      {{.small = 1}, {40, 12, 2}, 0.5, "5.0E-001    "},
      {currency, {VELT_Format::CCA, 12, 2}, -1234.5, "-$1,234.50CR"},
  };
  for (const auto& row : written) {
    std::string field(row.text.size(), '~');
    write(&row.value, 1, row.format, row.settings, field.data(), field.size());
    EXPECT_EQ(field, row.text);
  }
  const struct {
    Settings settings;
    Format format;
    std::string_view text;
    double value;
  } reads[] = {
      {{.system_missing = -9}, {kF, 3}, "x  ", -9},
      {{.blank_value = 3}, {kF, 3}, "   ", 3},
      {{}, {kF, 3}, "   ", kMissing},
      {{.decimal = ','}, {kF, 4}, "12,5", 12.5},
      {{.century_begin = 1850}, {VELT_Format::DATE, 8}, "1.1.1950", 11588227200.0},
      {{.century_begin = 1850}, {VELT_Format::DATE, 6}, "1.1.50", 8432553600.0},
      {{.elapsed_decimal = '.'}, {85, 4}, "12.5", 12.5},
      {{.elapsed_decimal = ','}, {85, 4}, "12.5", 725},
  };
  for (const auto& row : reads) {
    double value = 0;
    read(row.text.data(), row.text.size(), 1, row.format, row.settings, &value);
    EXPECT_EQ(value, row.value) << row.text;
  }
}

TEST(ColumnSettings, BeginWithTheLibrarysInitialOnes) {
  const Settings settings;
  EXPECT_EQ(settings.system_missing, kMissing);
  EXPECT_EQ(settings.blank_value, kMissing);
  EXPECT_EQ(settings.small, 0.0001);
  EXPECT_EQ(settings.century_begin, 1900);
  EXPECT_EQ(settings.system_missing_char, '.');
  EXPECT_EQ(settings.decimal, '.');
  EXPECT_EQ(settings.elapsed_decimal, '.');
  EXPECT_FALSE(settings.leading_zero);
  for (int index = 0; index < 5; ++index) EXPECT_EQ(settings.currencies[index].Get(), "");
}

TEST(ColumnSettings, KeepTheProcessesWhenTheseChange) {
  constexpr int kSlot = 4;
  const test::RecordsGuard guard;
  currencyFormat::Save(kSlot);
  test::change_process_settings();
  const Settings settings = Settings::current();
  currencyFormat::Set(0, "other");
  cmnglb_ = {};
  cmndtm_.century_begin = 1;
  cmasys_.system_missing = '?';
  cmnloc_.decimal = '.';
  cmnobog_.small = 0;
  cmnsys_.leading_zero = 0;
  currencyFormat::Restore(kSlot);

  EXPECT_EQ(settings.system_missing, -99);
  EXPECT_EQ(settings.blank_value, 7);
  EXPECT_EQ(settings.small, 0.01);
  EXPECT_EQ(settings.century_begin, 1950);
  EXPECT_EQ(settings.system_missing_char, '#');
  EXPECT_EQ(settings.decimal, ',');
  EXPECT_TRUE(settings.leading_zero);
  EXPECT_EQ(settings.currencies[0].Get(), "-,$,,CR");
  EXPECT_EQ(settings.currencies[4].Get(), "a,b,c,d");
  const double value = -1234.5;
  std::string field(12, '~');
  write(&value, 1, {VELT_Format::CCA, 12, 2}, settings, field.data(), 12);
  EXPECT_EQ(field, "-$1,234.50CR");
}

TEST(ColumnSettings, ShareCurrenciesUntilOneIsSet) {
  iocv::column::CustomCurrencies first;
  EXPECT_TRUE(first.set(1, "a,b,c,d"));
  iocv::column::CustomCurrencies second = first;
  EXPECT_EQ(&first[1], &second[1]);
  EXPECT_TRUE(second.set(1, "-,$,,CR"));
  EXPECT_TRUE(second.set(4, ",,%,"));
  EXPECT_EQ(first[1].Get(), "a,b,c,d");
  EXPECT_EQ(first[4].Get(), "");
  EXPECT_EQ(second[1].Get(), "-,$,,CR");
  for (const int bad : {-1, 5, std::numeric_limits<int>::min()}) {
    EXPECT_FALSE(second.set(bad, "x")) << bad;
    EXPECT_EQ(second[bad].Get(), "") << bad;
  }
  // What was moved from is still a value.
  const iocv::column::CustomCurrencies third = std::move(second);
  EXPECT_EQ(second[1].Get(), third[1].Get());  // NOLINT(bugprone-use-after-move)
}

TEST(ColumnSettings, OfAHandleAreThoseOfTheProcess) {
  constexpr int kSlot = 4;
  const test::RecordsGuard guard;
  currencyFormat::Save(kSlot);
  test::change_process_settings();
  iocv_settings* const settings = iocv_settings_new();
  currencyFormat::Restore(kSlot);
  const double values[] = {-1234.5, -99};
  std::string fields(24, '~');
  std::size_t first_failed = 0;
  EXPECT_EQ(iocv_write_column(values, 2, VELT_Format::CCA, 12, 2, settings, fields.data(), 12,
                              nullptr, &first_failed),
            0);
  EXPECT_EQ(fields, "-$1,234.50CR       #    ");
  EXPECT_EQ(first_failed, 2U);
  iocv_settings_free(settings);
  iocv_settings_free(nullptr);
}

}  // namespace
