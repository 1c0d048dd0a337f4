// The settings record and its buffer. The buffers under tests/vectors/settings come from
// scripts/make_settings_vectors.py, which shares nothing with the library.
#include <iocv/host.h>
#include <iocv/platform.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <type_traits>

#include "host/backend_settings_data.h"
#include "support/guarded.h"

namespace {

static_assert(!std::is_copy_constructible_v<BackendSettings>);
static_assert(std::has_virtual_destructor_v<BackendSettings>);

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

Fields fields_of(const BackendSettings& s) {
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

void set(BackendSettings& s, const Fields& f) {
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
const Fields kOld = {.procedure_name = "old 1",
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
const std::string kStored[] = {"-,$,,CR", "", ",,\x80,"};
const Fields kNew = {.procedure_name = "CROSSTABS",
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
void receive_item(const std::string& item, std::size_t currency, int version, Fields& f) {
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

std::string file(const std::string& name) {
  std::ifstream in(std::string(IOCV_VECTORS "/settings/") + name, std::ios::binary);
  EXPECT_TRUE(in) << name;
  return {std::istreambuf_iterator<char>(in), {}};
}

std::string buffer_of(const Version& version, const char* order) {
  return file(std::string(version.name) + "_" + order + ".bin");
}

// The record that is left when only the first bytes of a version's buffer are there.
Fields expected(const Version& version, std::size_t length) {
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
Fields read(std::string buffer) {
  BackendSettings record;
  set(record, kOld);
  record.setSettings(buffer);
  return fields_of(record);
}

std::string bytes_of_hex(std::string_view hex) {
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
  setenv("TZ", "XXX-14", 1);
  tzset();
  EXPECT_EQ(BackendSettings::Data(1767225599).epoch_begin_year, 1957);
  unsetenv("TZ");
  tzset();
}

TEST(SettingsRecord, StoresWhatIsSet) {
  BackendSettings record;
  set(record, kOld);
  EXPECT_EQ(fields_of(record), kOld);
  set(record, kNew);
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
  set(original, kOld);
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
  EXPECT_EQ(test::shown(record.getSettings()), test::shown(buffer));
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
      EXPECT_EQ(read(buffer), expected(version, buffer.size())) << version.name << " " << order;
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
  EXPECT_EQ(read(buffer_of({"2", 2}, "big")), two);

  const Fields four = read(buffer_of({"4", 4}, "little"));
  EXPECT_EQ(four.max_cells, 2000000);
  EXPECT_EQ(four.sigless, kOld.sigless);
  EXPECT_EQ(four.time_stamp, kNew.time_stamp);
  const Fields seven = read(buffer_of({"7", 7}, "little"));
  EXPECT_EQ(seven.max_cells, 2000000);
  EXPECT_EQ(seven.sigless, kOld.sigless);
}

TEST(SettingsBuffer, ReadBackAppendsTheCurrencies) {
  BackendSettings source;
  set(source, kOld);
  std::string buffer = source.getSettings();
  BackendSettings target;
  target.setSettings(buffer);
  EXPECT_EQ(fields_of(target), kOld);
  target.setSettings(buffer);
  EXPECT_EQ(target.getCustomCurrencies(), (Strings{"old 9", "old 9b", "old 9", "old 9b"}));
}

TEST(SettingsBuffer, WithUtf8CurrenciesDiffersOnlyInThem) {
  BackendSettings record;
  set(record, kOld);
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
  EXPECT_EQ(read(buffer_of({"6", 6}, "little")).separator, '\xA0');
}

TEST(SettingsBuffer, SwapsForAnyMarkButOne) {
  for (const char* mark : {"0100", "0001", "0000", "FFFF", "0200", "0101"}) {
    const bool little = std::string_view(mark) == "0100";
    std::string buffer = buffer_of({"6", 6}, little ? "little" : "big");
    buffer.replace(0, 2, bytes_of_hex(mark));
    EXPECT_EQ(read(buffer), expected({"6", 6}, buffer.size())) << mark;
  }
}

TEST(SettingsBuffer, IsReadUpToTheFirstItemThatIsNotWhollyThere) {
  for (const Version& version : kVersions) {
    for (const char* order : {"little", "big"}) {
      const std::string buffer = buffer_of(version, order);
      for (std::size_t length = 0; length <= buffer.size(); ++length) {
        EXPECT_EQ(read(buffer.substr(0, length)), expected(version, length))
            << version.name << " " << order << " " << length;
      }
    }
  }
  const BackendSettings fresh;
  const Fields four = read(fresh.getSettings().substr(0, 36));
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
    EXPECT_EQ(read(buffer), expected({"6", 6}, kLocale)) << length;
  }
}

TEST(SettingsBuffer, WithALyingCountOfCurrenciesReadsThoseThatAreThere) {
  const std::string head = buffer_of({"1", 1}, "little").substr(0, 79);
  const auto with = [&](const char* tail) { return read(head + bytes_of_hex(tail)); };
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

TEST(SettingsSerializer, WritesEachItemBehindTheMark) {
  BackendSettings::Serializer out;
  EXPECT_EQ(out.GetString(), bytes_of_hex("0100"));
  out.Send(static_cast<short>(-2));
  out.Send(0x01020304);
  out.Send(0x0102030405060708LL);
  out.Send(1.0);
  out.Send(true);
  out.Send(false);
  out.Send('\xA0');
  out.Send(std::string("a\0b", 3));
  out.Send(std::string());
  EXPECT_EQ(out.GetString(), bytes_of_hex("0100 FEFF 04030201 0807060504030201 000000000000F03F"
                                          "01 00 A0 03000000 610062 00000000"));
}

struct Items {
  short small = 0;
  int number = 0;
  long long large = 0;
  double real = 0;
  bool on = false;
  bool off = true;
  char byte = 0;
  std::string text = "before";

  bool operator==(const Items&) const = default;
};

// How many of the items were there.
int receive(BackendSettings::Deserializer& in, Items& items) {
  const bool received[] = {in.Receive(items.small), in.Receive(items.number),
                           in.Receive(items.large), in.Receive(items.real),
                           in.Receive(items.on),    in.Receive(items.off),
                           in.Receive(items.byte),  in.Receive(items.text)};
  return static_cast<int>(std::count(std::begin(received), std::end(received), true));
}

TEST(SettingsDeserializer, ReadsEachItemInBothByteOrders) {
  const Items kItems = {-2, 0x01020304, 0x0102030405060708, 1.0, true, false, '\xA0', "a"};
  const char* const kBuffers[] = {
      "0100 FEFF 04030201 0807060504030201 000000000000F03F 80 00 A0 01000000 61",
      "0001 FFFE 01020304 0102030405060708 3FF0000000000000 01 00 A0 00000001 61",
  };
  for (const char* hex : kBuffers) {
    const std::string buffer = bytes_of_hex(hex);
    const test::Guarded guarded(buffer);
    Items items;
    BackendSettings::Deserializer trusting(guarded.data());
    EXPECT_EQ(receive(trusting, items), 8);
    EXPECT_EQ(items, kItems);
    items = {};
    BackendSettings::Deserializer bounded(guarded.data(), guarded.size());
    EXPECT_EQ(receive(bounded, items), 8);
    EXPECT_EQ(items, kItems);
    char more = 'x';
    EXPECT_FALSE(bounded.Receive(more));
    EXPECT_EQ(more, 'x');
  }
}

TEST(SettingsDeserializer, NeverReadsBeyondTheLengthAndStopsForGood) {
  const std::string buffer =
      bytes_of_hex("0100 FEFF 04030201 0807060504030201 000000000000F03F 80 00 A0 01000000 61");
  constexpr std::size_t kEnds[] = {4, 8, 16, 24, 25, 26, 27, 32};
  for (std::size_t length = 0; length <= buffer.size(); ++length) {
    const test::Guarded guarded(std::string_view(buffer).substr(0, length));
    BackendSettings::Deserializer in(guarded.data(), length);
    Items items;
    const auto there = std::count_if(std::begin(kEnds), std::end(kEnds),
                                     [&](std::size_t end) { return end <= length; });
    EXPECT_EQ(receive(in, items), there) << length;
    EXPECT_EQ(items.text, there == 8 ? "a" : "before");
  }
  const std::string negative = bytes_of_hex("0100 FFFFFFFF 41");
  BackendSettings::Deserializer trusting(negative.data());
  std::string text = "before";
  EXPECT_FALSE(trusting.Receive(text));
  EXPECT_EQ(text, "before");
  char byte = 'x';
  EXPECT_FALSE(trusting.Receive(byte));
}

TEST(SettingsSwapBytes, ReversesItemsOfTwoFourAndEightBytes) {
  short two = 0x0102;
  BackendSettings::SwapBytes(two);
  EXPECT_EQ(two, 0x0201);
  int four = 0x01020304;
  BackendSettings::SwapBytes(four);
  EXPECT_EQ(four, 0x04030201);
  long long eight = 0x0102030405060708;
  BackendSettings::SwapBytes(eight);
  EXPECT_EQ(eight, 0x0807060504030201);
  double real = 1.0;
  BackendSettings::SwapBytes(real);
  BackendSettings::SwapBytes(real);
  EXPECT_EQ(real, 1.0);
}

}  // namespace
