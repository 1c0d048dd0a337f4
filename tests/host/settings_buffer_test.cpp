// The buffer of a settings record, in every version and both byte orders.
#include <iocv/platform.h>

#include "host/backend_settings_support.h"
#include "support/guarded.h"

namespace test {
namespace {

TEST(SettingsBuffer, OfADefaultRecord) {
  BackendSettings record;
  record.setTimet(0x1122334455667788);
  record.setEpochBeginYear(1957);  // 07A5
  const std::string buffer = bytes_of_hex(
      "0100 06000000"                                  // mark, version
      "00000000 00000000"                              // procedure names
      "02000000 656E"                                  // en
      "0C000000 77696E646F77732D31323532"              // windows-1252
      "12000000 656E5F55532E77696E646F77732D31323532"  // en_US.windows-1252
      "00 00 01 00"                                    // unicode alone is on
      "A5070000 2E 2C"                                 // year, point, separator
      "2D431CEBE2361A3F 01"                            // 0.0001, fast tables
      "00000000 00000000 00000000"                     // dataset, file, summary
      "8877665544332211"                               // time stamp
      "00000000"                                       // no currencies
      "2E 00 80841E0000000000 00");                    // 2000000
  EXPECT_EQ(shown(record.getSettings()), shown(buffer));
}

TEST(SettingsBuffer, IsThatOfTheIndependentWriter) {
  BackendSettings record;
  std::string buffer = buffer_of({"6", 6}, "little");
  record.setSettings(buffer);
  EXPECT_EQ(record.getSettings(), buffer);
}

TEST(SettingsBuffer, OfEveryVersionIsReadInBothByteOrders) {
  for (const Version& version : kVersions) {
    for (const char* order : {"little", "big"}) {
      const std::string buffer = buffer_of(version, order);
      EXPECT_EQ(read_buffer(buffer), expected(version, buffer.size()))
          << version.name << " " << order;
    }
  }
}

TEST(SettingsBuffer, OfAnOldVersionLeavesWhatItDoesNotCarry) {
  Fields two = kNew;
  two.small = kOld.small;
  two.fast_tables = kOld.fast_tables;
  two.dataset_name = kOld.dataset_name;
  two.dataset_file_name = kOld.dataset_file_name;
  two.table_summary = kOld.table_summary;
  two.time_stamp = kOld.time_stamp;
  two.custom_currencies = {"old 9", "old 9b", kStored[0], kStored[1], kStored[2]};
  two.max_cells = 2000000;
  two.sigless = kOld.sigless;
  EXPECT_EQ(read_buffer(buffer_of({"2", 2}, "big")), two);

  const Fields four = read_buffer(buffer_of({"4", 4}, "little"));
  EXPECT_EQ(four.max_cells, 2000000);
  EXPECT_EQ(four.sigless, kOld.sigless);
  EXPECT_EQ(four.time_stamp, kNew.time_stamp);
  const Fields seven = read_buffer(buffer_of({"7", 7}, "little"));
  EXPECT_EQ(seven.max_cells, 2000000);
  EXPECT_EQ(seven.sigless, kOld.sigless);
}

TEST(SettingsBuffer, ReadBackAppendsTheCurrencies) {
  BackendSettings source;
  set_fields(source, kOld);
  std::string buffer = source.getSettings();
  BackendSettings target;
  target.setSettings(buffer);
  EXPECT_EQ(fields_of(target), kOld);
  target.setSettings(buffer);
  EXPECT_EQ(target.getCustomCurrencies(), (Strings{"old 9", "old 9b", "old 9", "old 9b"}));
}

TEST(SettingsBuffer, WithUtf8CurrenciesDiffersOnlyInThem) {
  BackendSettings record;
  set_fields(record, kOld);
  record.setLocale("caf\xE9");
  record.setCustomCurrencies({"-,$,,CR", "", ",,\x80,", "\xE9"});
  Fields utf8 = fields_of(record);
  const auto read_back = [&] {
    BackendSettings target;
    std::string buffer = record.getSettingsWithU8CCs();
    target.setSettings(buffer);
    return fields_of(target);
  };
  const std::string kept = VELTMBgetCodePage();
  ASSERT_TRUE(VELTMBsetCodePage("windows-1252"));
  utf8.custom_currencies = {"-,$,,CR", "", ",,\xE2\x82\xAC,", "\xC3\xA9"};
  EXPECT_EQ(read_back(), utf8);
  ASSERT_TRUE(VELTMBsetCodePage("UTF-8"));
  utf8.custom_currencies = {"-,$,,CR", "", ",,\xEF\xBF\xBD,", "\xEF\xBF\xBD"};
  EXPECT_EQ(read_back(), utf8);
  ASSERT_TRUE(VELTMBsetCodePage(kept.c_str()));

  record.setCustomCurrencies({"-,$,,CR", ""});
  EXPECT_EQ(record.getSettingsWithU8CCs(), record.getSettings());
}

TEST(SettingsBuffer, KeepsANoBreakSpaceAsSeparator) {
  EXPECT_EQ(read_buffer(buffer_of({"6", 6}, "little")).separator, '\xA0');
}

TEST(SettingsBuffer, SwapsForAnyMarkButOne) {
  for (const char* mark : {"0100", "0001", "0000", "FFFF", "0200", "0101"}) {
    const bool little = std::string_view(mark) == "0100";
    std::string buffer = buffer_of({"6", 6}, little ? "little" : "big");
    buffer.replace(0, 2, bytes_of_hex(mark));
    EXPECT_EQ(read_buffer(buffer), expected({"6", 6}, buffer.size())) << mark;
  }
}

TEST(SettingsBuffer, IsReadUpToTheFirstItemThatIsNotWhollyThere) {
  for (const Version& version : kVersions) {
    for (const char* order : {"little", "big"}) {
      const std::string buffer = buffer_of(version, order);
      for (std::size_t length = 0; length <= buffer.size(); ++length) {
        EXPECT_EQ(read_buffer(buffer.substr(0, length)), expected(version, length))
            << version.name << " " << order << " " << length;
      }
    }
  }
  const BackendSettings fresh;
  const Fields four = read_buffer(fresh.getSettings().substr(0, 36));
  Fields expected_four = kOld;
  expected_four.procedure_name = "";
  expected_four.translated_procedure_name = "";
  expected_four.output_language = "en";
  expected_four.code_page = "windows-1252";
  EXPECT_EQ(four, expected_four);
}

TEST(SettingsBuffer, WithAnyByteChangedIsReadWithoutHarm) {
  for (const Version& version : kVersions) {
    for (const char* order : {"little", "big"}) {
      std::string buffer = buffer_of(version, order);
      BackendSettings record;
      for (char& byte : buffer) {
        const char kept = byte;
        for (int change = 1; change < 256; ++change) {
          byte = static_cast<char>(kept ^ change);
          record.setCustomCurrencies({});
          record.setSettings(buffer);
          ASSERT_LE(record.getCustomCurrencies().size(), buffer.size());
        }
        byte = kept;
      }
    }
  }
}

TEST(SettingsBuffer, WithALyingLengthStopsThere) {
  constexpr std::size_t kLocale = 2 + 4 + 13 + 20 + 6 + 9;  // offset of the fifth string's length
  for (const char* length : {"FFFFFFFF", "00000080", "FFFFFF7F", "80000000", "FEFFFFFF"}) {
    std::string buffer = buffer_of({"6", 6}, "little");
    buffer.replace(kLocale, 4, bytes_of_hex(length));
    EXPECT_EQ(read_buffer(buffer), expected({"6", 6}, kLocale)) << length;
  }
}

TEST(SettingsBuffer, WithALyingCountOfCurrenciesReadsThoseThatAreThere) {
  const std::string head = buffer_of({"1", 1}, "little").substr(0, 79);
  const auto with = [&](const char* tail) { return read_buffer(head + bytes_of_hex(tail)); };
  const Fields before = expected({"1", 1}, 79);
  for (const char* none : {"00000000", "FFFFFFFF", "00000080"}) {
    Fields end = before;
    end.system_missing_char = '#';
    end.bootstrapped = true;
    end.max_cells = 2000000;
    EXPECT_EQ(with((std::string(none) + "23 07").c_str()), end) << none;
  }
  EXPECT_EQ(with("FFFFFF7F"), before);
  Fields one = before;
  one.custom_currencies.push_back("A");
  EXPECT_EQ(with("FFFFFF7F 01000000 41"), one);
  EXPECT_EQ(with("FFFFFF7F 01000000 41 05000000 41"), one);
}

}  // namespace
}  // namespace test
