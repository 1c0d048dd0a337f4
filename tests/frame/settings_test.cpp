// The settings records, their load-time values, setters and getters; classes of floating patterns.
#include <iocv/iocv.h>

#include <bit>
#include <clocale>
#include <cstdlib>

#include "support/records_guard.h"

namespace {

using test::RecordsGuard;

std::uint64_t bits(double x) { return std::bit_cast<std::uint64_t>(x); }

template <std::size_t size>
std::string text(const char (&bytes)[size]) {
  return {bytes, size};
}

std::string padded(std::string_view value, std::size_t size) {
  std::string text(size, ' ');
  value.copy(text.data(), size);
  return text;
}

TEST(LoadTimeValues, General) {
  EXPECT_EQ(cmnglb_.reserved, 0);
  EXPECT_EQ(bits(cmnglb_.system_missing), 0xFFEFFFFFFFFFFFFF);
  EXPECT_EQ(bits(cmnglb_.blank_value), 0xFFEFFFFFFFFFFFFF);
  EXPECT_EQ(cmnglb_.limit, 0x7FFFFFFFFFFFFFFF);
  const std::int64_t values[] = {53, 80, 42};
  EXPECT_TRUE(std::equal(values, values + 3, cmnglb_.host_values));
  EXPECT_EQ(cmnglb_.host_flags[0], 1);
  EXPECT_EQ(cmnglb_.host_flags[1], -1);
  for (const std::int64_t zero : cmnglb_.host_zeros) EXPECT_EQ(zero, 0);
  EXPECT_EQ(text(cmaglb_.title), padded("iocv, input/output conversion library", 256));
  EXPECT_EQ(text(cmaglb_.blanks), padded("", 256));
  EXPECT_EQ(bits(global_sysmis_()), 0xFFEFFFFFFFFFFFFF);
  EXPECT_EQ(bits(global_blnkas_()), 0xFFEFFFFFFFFFFFFF);
}

TEST(LoadTimeValues, System) {
  EXPECT_EQ(cmnsys_.leading_zero, 0);
  const std::int64_t values[] = {100, 10, 40, 5, 8, 2, 1};
  EXPECT_TRUE(std::equal(values, values + 7, cmnsys_.host_values));
  const std::int64_t run[] = {-3, -4, -3, -3, -1, -1, -1, -1, -1};
  EXPECT_TRUE(std::equal(run, run + 9, cmnsys_.host_run));
  for (const std::int64_t value : cmnsys_.host_negatives) EXPECT_EQ(value, -1);
  for (const std::int64_t zero : cmnsys_.host_zeros) EXPECT_EQ(zero, 0);
  EXPECT_EQ(cmasys_.system_missing, '.');
  EXPECT_EQ(text(cmasys_.dot), padded(".", 255));
  EXPECT_EQ(text(cmasys_.blanks[0]), padded("", 255));
  EXPECT_EQ(text(cmasys_.blanks[1]), padded("", 255));
}

TEST(LoadTimeValues, MachineConstants) {
  struct Case {
    std::int64_t code;
    double IocvMachineRecord::*field;
    std::uint64_t bits;
    double value;
  };
  constexpr std::int64_t kNoCode = 0;
  constexpr Case kCases[] = {
      {6, &IocvMachineRecord::lowest_finite, 0xFFEFFFFFFFFFFFFF, -1.7976931348623157e+308},
      {7, &IocvMachineRecord::smallest_normal, 0x0010000000000000, 2.2250738585072014e-308},
      {1, &IocvMachineRecord::largest_finite, 0x7FEFFFFFFFFFFFFF, 1.7976931348623157e+308},
      {5, &IocvMachineRecord::epsilon, 0x3CB0000000000000, 2.220446049250313e-16},
      {8, &IocvMachineRecord::largest_exponent_argument, 0x40862E3D70A3D70A, 709.78},
      {10, &IocvMachineRecord::two_to_52, 0x4330000000000000, 4503599627370496.0},
      {9, &IocvMachineRecord::largest_output, 0x7FEFFFFFFFFFFFFF, 1.7976931348623157e+308},
      {kNoCode, &IocvMachineRecord::largest_finite_again, 0x7FEFFFFFFFFFFFFF,
       1.7976931348623157e+308},
      {kNoCode, &IocvMachineRecord::blanks, 0x2020202020202020, 6.0134700169990685e-154},
      {kNoCode, &IocvMachineRecord::above_lowest, 0xFFEFFFFFFFFFFFFE, -1.7976931348623155e+308},
      {kNoCode, &IocvMachineRecord::lowest_single, 0xC7EFFFFFC0000000, -3.4028232635611926e+38},
      {kNoCode, &IocvMachineRecord::highest_single, 0x47EFFFFFE0000000, 3.4028234663852886e+38},
      {kNoCode, &IocvMachineRecord::largest_int32, 0x41DFFFFFFFC00000, 2147483647.0},
      {2, &IocvMachineRecord::square_root, 0x5FE6A09E667F3BCC, 9.480751908109176e+153},
      {3, &IocvMachineRecord::cube_root, 0x553FFFFFFFFFFFFF, 4.479489484355608e+102},
      {4, &IocvMachineRecord::fourth_root, 0x4FEAE89F995AD3AD, 9.73691527543974e+76},
  };
  std::size_t position = 0;
  for (const Case& c : kCases) {
    EXPECT_EQ(bits(cmnmch_.*c.field), c.bits) << position;
    EXPECT_DOUBLE_EQ(cmnmch_.*c.field, c.value) << position;
    double at_position = 0;
    std::memcpy(&at_position, reinterpret_cast<const char*>(&cmnmch_) + 8 * position++, 8);
    EXPECT_EQ(bits(at_position), c.bits);
    if (c.code == kNoCode) continue;
    EXPECT_EQ(bits(mchcon_(&c.code)), c.bits) << c.code;
  }
  for (const std::int64_t code : {std::int64_t{0}, std::int64_t{11}, std::int64_t{-1}, INT64_MIN}) {
    EXPECT_EQ(bits(mchcon_(&code)), 0xFFEFFFFFFFFFFFFF) << code;
  }
  EXPECT_EQ(text(cmamch_.zeros), std::string(8, '\0'));
  EXPECT_EQ(text(cmamch_.marks), "????????");
}

TEST(LoadTimeValues, CenturyAndSmall) {
  EXPECT_EQ(cmndtm_.century_begin, 1900);
  EXPECT_EQ(cmndtm_.century_mode, 1);
  EXPECT_EQ(cmnobog_.small, 0.0001);
}

TEST(Initialisation, RunsOnce) {
  const RecordsGuard guard;
  cmndtm_.century_begin = 1950;
  cmnobog_.small = 5;
  iocvinit_();
  EXPECT_EQ(cmndtm_.century_begin, 1950);
  EXPECT_EQ(cmnobog_.small, 5);
}

// Runs the test body under an environment locale and restores the process's own afterwards.
class LocaleGuard {
 public:
  explicit LocaleGuard(const char* name) {
    setenv("LC_ALL", name, 1);
    std::setlocale(LC_NUMERIC, "C");
  }
  ~LocaleGuard() {
    if (had_value_) {
      setenv("LC_ALL", old_value_.c_str(), 1);
    } else {
      unsetenv("LC_ALL");
    }
    std::setlocale(LC_NUMERIC, old_locale_.c_str());
  }
  LocaleGuard(const LocaleGuard&) = delete;
  LocaleGuard& operator=(const LocaleGuard&) = delete;

 private:
  bool had_value_ = std::getenv("LC_ALL") != nullptr;
  std::string old_value_ = had_value_ ? std::getenv("LC_ALL") : "";
  std::string old_locale_ = std::setlocale(LC_NUMERIC, nullptr);
};

TEST(Locale, TakesTheEnvironmentsNumericLocale) {
  struct Case {
    const char* name;
    std::int64_t decimal, grouping, list, thousands;
  };
  // scripts/setup makes the named locales.
  constexpr Case kCases[] = {
      {"C", '.', ',', ',', 0},
      {"de_DE.UTF-8", ',', '.', ';', '.'},
      {"en_US.UTF-8", '.', ',', ',', ','},
      {"fr_FR.UTF-8", ',', '.', ';', 0xE2},  // a narrow no-break space: its first byte, unsigned
  };
  for (const Case& c : kCases) {
    const RecordsGuard records;
    const LocaleGuard locale(c.name);
    cmnloc_.locale_thousands = 77;
    setiocvlocale_();
    EXPECT_EQ(cmnloc_.decimal, c.decimal) << c.name;
    EXPECT_EQ(cmnloc_.grouping, c.grouping) << c.name;
    EXPECT_EQ(cmnloc_.list_separator, c.list) << c.name;
    EXPECT_EQ(cmnloc_.locale_thousands, c.thousands) << c.name;
    EXPECT_EQ(iocvgetdecchar_(), c.decimal);
    EXPECT_EQ(global_decchr_(), c.decimal);
  }
}

TEST(Locale, WithoutALocaleOnlyTheDecimalIsStored) {
  const LocaleGuard locale("no_SUCH.locale");
  std::int64_t decimal = 1;
  std::int64_t thousands = 77;
  getlcs_(&decimal, &thousands);
  EXPECT_EQ(decimal, '.');
  EXPECT_EQ(thousands, 77);
}

TEST(Locale, AProcessThatChoseALocaleKeepsIt) {
  const LocaleGuard locale("en_US.UTF-8");
  ASSERT_NE(std::setlocale(LC_NUMERIC, "de_DE.UTF-8"), nullptr);
  std::int64_t decimal = 0;
  std::int64_t thousands = 0;
  getlcs_(&decimal, &thousands);
  EXPECT_EQ(decimal, ',');
  EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "de_DE.UTF-8");
}

TEST(Setters, DecimalCharacterAlone) {
  const RecordsGuard guard;
  const IocvLocaleRecord before = cmnloc_;
  iocvsetdeccharcomma_();
  EXPECT_EQ(iocvgetdecchar_(), ',');
  EXPECT_EQ(cmnloc_.grouping, before.grouping);
  EXPECT_EQ(cmnloc_.list_separator, before.list_separator);
  iocvsetdecchardot_();
  EXPECT_EQ(iocvgetdecchar_(), '.');
}

TEST(Setters, SmallThreshold) {
  const RecordsGuard guard;
  const double threshold = 0.5;
  iocvsetsmall_(&threshold);
  EXPECT_EQ(cmnobog_.small, 0.5);
}

std::int64_t set(std::int32_t option, const void* data) { return iocvset_(&option, data); }

TEST(Setters, IocvsetSetsTheMissingCharacterAndTheCentury) {
  const RecordsGuard guard;
  EXPECT_EQ(set(1, "#rest"), 0);
  EXPECT_EQ(cmasys_.system_missing, '#');
  const std::int32_t mode_and_begin[] = {7, 1950};
  EXPECT_EQ(set(3, mode_and_begin), 0);
  EXPECT_EQ(cmndtm_.century_begin, 1950);
  EXPECT_EQ(cmndtm_.century_mode, 7);
}

TEST(Setters, IocvsetReportsUnknownOptions) {
  const RecordsGuard guard;
  const std::int32_t data[] = {7, 7};
  for (const std::int32_t option : {0, 4, 7, -1}) EXPECT_EQ(set(option, data), 1) << option;
  EXPECT_EQ(cmndtm_.century_begin, 1900);
  EXPECT_EQ(cmasys_.system_missing, '.');
}

TEST(Setters, SeecmnNamesTheRecordsOfTheObjectLayer) {
  IocvSystemText system_text = {};
  IocvLocaleRecord locale = {
      .decimal = 99, .grouping = 0, .list_separator = 0, .locale_thousands = 0};
  IocvDateRecord date = {};
  seecmn_(&cmnglb_, &cmaglb_, &cmnsys_, &system_text, &cmnmch_, &cmamch_, &locale, &date, &cmadtm_);
  const std::int32_t mode_and_begin[] = {1, 1970};
  EXPECT_EQ(iocvgetdecchar_(), 99);
  EXPECT_EQ(global_decchr_(), cmnloc_.decimal);
  EXPECT_EQ(set(1, "%"), 0);
  EXPECT_EQ(set(3, mode_and_begin), 0);
  EXPECT_EQ(system_text.system_missing, '%');
  EXPECT_EQ(date.century_begin, 1970);
  EXPECT_EQ(cmasys_.system_missing, '.');
  EXPECT_EQ(cmndtm_.century_begin, 1900);
  seecmn_(&cmnglb_, &cmaglb_, &cmnsys_, &cmasys_, &cmnmch_, &cmamch_, &cmnloc_, &cmndtm_, &cmadtm_);
}

TEST(FloatClass, IsDecidedFromTheBits) {
  struct Case {
    std::uint64_t bits;
    std::int64_t type;
  };
  constexpr Case kDoubles[] = {
      {0x0000000000000000, 0}, {0x0000000000000001, 0}, {0x8000000000000001, 0},
      {0x3FF0000000000000, 0}, {0xFFEFFFFFFFFFFFFF, 0}, {0x8000000000000000, 1},
      {0x7FF0000000000000, 2}, {0xFFF0000000000000, 3}, {0x7FF8000000000000, 4},
      {0x7FF0000000000001, 4}, {0x7FFFFFFFFFFFFFFF, 4}, {0xFFF8000000000001, 5},
      {0xFFF4000000000000, 5}, {0xFFFFFFFFFFFFFFFF, 5}, {0xFFF0000000000001, 5},
      {0xFFF9000000000000, 5}, {0xFFF8000000000000, 6},
  };
  for (const Case& c : kDoubles) {
    const double x = std::bit_cast<double>(c.bits);
    EXPECT_EQ(ftyplr_(&x), c.type) << std::hex << c.bits;
    EXPECT_EQ(qbadl_(&x), c.type >= 4 ? -1 : 0) << std::hex << c.bits;
  }
  constexpr Case kFloats[] = {
      {0x00000000, 0}, {0x00000001, 0}, {0x3F800000, 0}, {0xFF7FFFFF, 0}, {0x80000000, 1},
      {0x7F800000, 2}, {0xFF800000, 3}, {0x7FC00000, 4}, {0x7F800001, 4}, {0xFFC00001, 5},
      {0xFFA00000, 5}, {0xFFC10000, 5}, {0xFFC00000, 6},
  };
  for (const Case& c : kFloats) {
    const float x = std::bit_cast<float>(static_cast<std::uint32_t>(c.bits));
    EXPECT_EQ(ftypsr_(&x), c.type) << std::hex << c.bits;
    EXPECT_EQ(qbads_(&x), c.type >= 4 ? -1 : 0) << std::hex << c.bits;
  }
}

TEST(StoredValue, IsComparedByBits) {
  double number = 1.5;
  OBS& same_storage = AsOBS(number);
  EXPECT_EQ(static_cast<void*>(&same_storage), static_cast<void*>(&number));
  const OBS zero = {.number = 0.0};
  const OBS nan = {.number = std::nan("")};
  EXPECT_FALSE(zero == -0.0);
  EXPECT_TRUE(zero == 0.0);
  EXPECT_TRUE(0.0 == zero);
  EXPECT_FALSE(-0.0 == zero);
  EXPECT_TRUE(nan == nan.number);
  EXPECT_TRUE(ObsEqual(nan, nan));
  EXPECT_TRUE(VELT_SystemMissing() == -1.7976931348623157e+308);
}

TEST(StoredValue, SystemMissingIsAConstant) {
  const RecordsGuard guard;
  cmnglb_.system_missing = 0;
  EXPECT_EQ(VELT_SystemMissing().bits, 0xFFEFFFFFFFFFFFFF);
  EXPECT_EQ(global_sysmis_(), 0);
}

}  // namespace
