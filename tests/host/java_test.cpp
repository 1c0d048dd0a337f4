// Texts that a real Java machine formats. In a build without Java the same calls give blanks.
#include <cfenv>
#include <cstdlib>
#include <thread>

#include "host/float_env_preserver.h"
#include "host/java_support.h"
#include "support/values.h"

// What the sanitizers must leave to a Java machine: the faults that it makes on purpose, its
// memory, in which not even a program that does nothing but start one can be searched for leaks,
// and the synchronisation of its own threads, which was not compiled for the thread sanitizer to
// see.
extern "C" IOCV_API const char* __asan_default_options();
extern "C" IOCV_API const char* __tsan_default_suppressions();
extern "C" const char* __asan_default_options() { return "handle_segv=0:detect_leaks=0"; }
extern "C" const char* __tsan_default_suppressions() {
  return "race:libjvm.so\nmutex:libjvm.so\nsignal:libjvm.so\nthread:libjvm.so\n";
}

namespace test {
namespace {

TEST(JavaYearFirst, HasAPatternForEachWidth) {
  struct Case {
    std::int64_t width;
    std::int64_t decimals;
    const char* field;
  };
  constexpr Case kCases[] = {
      {7, 0, "*******"},
      {8, 0, "20000101"},
      {9, 0, "20000101 "},
      {10, 0, "2000-01-01"},
      {11, 0, "2000-01-01 "},
      {12, 0, "2000-01-01  "},
      {13, 0, "2000-01-01 12"},
      {14, 0, "2000-01-01 12 "},
      {15, 0, "2000-01-01 12  "},
      {16, 0, "2000-01-01 12:30"},
      {17, 0, "2000-01-01 12:30 "},
      {18, 0, "2000-01-01 12:30  "},
      {19, 0, "2000-01-01 12:30:15"},
      {20, 0, " 2000-01-01 12:30:15"},
      {21, 0, "  2000-01-01 12:30:15"},
      {22, 0, "   2000-01-01 12:30:15"},
      {23, 0, "    2000-01-01 12:30:15"},
      {24, 0, "     2000-01-01 12:30:15"},
      {16, 2, "2000-01-01 12:30"},
      {18, 2, "2000-01-01 12:30  "},
      {19, 2, "2000-01-01 12:30:15"},
      {20, 2, " 2000-01-01 12:30:15"},
      {21, 2, "2000-01-01 12:30:15.2"},
      {22, 2, "2000-01-01 12:30:15.25"},
      {23, 2, " 2000-01-01 12:30:15.25"},
      {24, 2, "  2000-01-01 12:30:15.25"},
      {24, 3, " 2000-01-01 12:30:15.250"},
      {24, 9, "2000-01-01 12:30:15.2500"},
      {40, 40, "    2000-01-01 12:30:15.2500000000000000"},
      {24, -1, "     2000-01-01 12:30:15"},
  };
  for (const Case& c : kCases) {
    const std::string expected = c.width < 8 ? c.field : field_of_java(c.field);
    EXPECT_EQ(year_first(kNewYear, c.width, c.decimals), expected) << c.width << "." << c.decimals;
  }
}

TEST(JavaYearFirst, CutsSecondsAndRoundsTheirDecimals) {
  EXPECT_EQ(year_first(13166064000 + 59.999, 22, 2), field_of_java("2000-01-01 00:00:59.00"));
  EXPECT_EQ(year_first(13166064000 - 0.5, 19, 0), field_of_java("1999-12-31 23:59:59"));
}

TEST(JavaYearFirst, GoesFromTheFirstDateToTheLastThatFits) {
  struct Case {
    double value;
    std::int64_t width;
    const char* field;
  };
  constexpr double kYear10000 = 265621680000.0;  // 1 January 10000
  constexpr Case kCases[] = {
      {86399, 10, "         ."},
      {86400, 10, "1582-10-15"},
      {86400, 8, "15821015"},
      {951782400 + 12219379200.0, 10, "2000-02-29"},
      {kYear10000 - 1, 19, "9999-12-31 23:59:59"},
      // Java puts a sign before years of five digits, so that the text outgrows its pattern.
      {kYear10000, 10, "**********"},
      {kYear10000, 24, "   +10000-01-01 00:00:00"},
      {1e300, 10, "          "},
      {kInfinity, 10, "          "},
      {kInfinity, 24, "                        "},
      {kNan, 10, "          "},
      {kNan, 24, "                        "},
  };
  for (const Case& c : kCases) {
    const std::string expected = c.value < 86400 ? c.field : field_of_java(c.field);
    EXPECT_EQ(year_first(c.value, c.width, 0), expected) << described(c.value);
  }
}

TEST(JavaYearFirst, AgreesWithTheCalendarOfTheOtherFormats) {
  SCOPED_TRACE(seed_text());
  std::mt19937_64 random = random_source();
  for (int i = 0; i < 2000; ++i) {
    const auto whole = static_cast<double>(86400 + random() % (265621680000 - 86400));
    std::int64_t year = 0, month = 0, day = 0, hour = 0, minute = 0;
    double seconds = 0;
    obdtexp_(&whole, &year, &month, &day, &hour, &minute, &seconds);
    char expected[64];
    std::snprintf(expected, sizeof expected, "%04d-%02d-%02d %02d:%02d:%02d", int(year), int(month),
                  int(day), int(hour), int(minute), int(seconds));
    ASSERT_EQ(year_first(whole, 19, 0), field_of_java(expected)) << whole;
  }
}

TEST(Formatter, TakesPatternsOfTheJavaLibrary) {
  struct Case {
    double value;
    const char* pattern;
    const char* text;
  };
  constexpr Case kDates[] = {
      {kNewYear, "yyyy-MM-dd'T'HH:mm:ss.SSS", "2000-01-01T12:30:15.250"},
      {kNewYear, "d MMMM yyyy, EEEE", "1 January 2000, Saturday"},
      {kNewYear, "hh:mm a", "12:30 PM"},
      {kNewYear, "yyyy.25", "2000.25"},  // points and digits are themselves
      {-0.5, "yyyy-MM-dd HH:mm:ss.SSSSSSSSS", "1582-10-13 23:59:59.500000000"},
      {kNewYear, "yyyy'\xE5\xB9\xB4'", "2000\xE5\xB9\xB4"},
      {kNewYear, "yyyy'\xF0\x9F\x95\x92'", "2000\xF0\x9F\x95\x92"},
      {kNewYear, "yyyy'\xFF'", "2000\xEF\xBF\xBD"},
      {kNewYear, "", ""},
  };
  for (const Case& c : kDates) EXPECT_EQ(date(c.value, c.pattern), of_java(c.text)) << c.pattern;
  constexpr Case kDecimals[] = {
      {1234.5, "#,##0.00", "1,234.50"},
      {-1234.5, "#,##0.00", "-1,234.50"},
      {0.125, "0.00", "0.12"},
      {0.375, "0.00", "0.38"},
      {0.5, "#%", "50%"},
      {12345, "0.##E0", "1.23E4"},
  };
  for (const Case& c : kDecimals) {
    EXPECT_EQ(decimal(c.value, c.pattern), of_java(c.text)) << c.pattern;
  }
}

TEST(Formatter, AnswersNothingAfterAnExceptionAndGoesOn) {
  EXPECT_EQ(date(kNewYear, "b"), "");
  EXPECT_EQ(date(kNewYear, "yyyy'"), "");
  EXPECT_EQ(date(kNewYear, "VV"), "");  // asks for a time zone
  EXPECT_EQ(date(std::numeric_limits<double>::quiet_NaN(), "yyyy"), "");
  EXPECT_EQ(decimal(1, "0.0.0"), "");
  customFormatter formatter;
  for (int i = 0; i < 100; ++i) {
    EXPECT_EQ(formatter.convertDate(kNewYear, "}"), "");
    EXPECT_EQ(formatter.convertDate(kNewYear, "yyyy"), of_java("2000"));
    EXPECT_EQ(formatter.convertDecimal(2.5, "0.0"), of_java("2.5"));
  }
}

TEST(Formatter, LeavesTheFloatingPointEnvironmentAsItWas) {
  constexpr double kTenth = kNewYear - 0.15;
  for (const int mode : {FE_TONEAREST, FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
    const iocv::FloatEnvPreserver preserver;
    std::fesetround(mode);
    std::feclearexcept(FE_ALL_EXCEPT);
    std::feraiseexcept(FE_OVERFLOW);
    customFormatter formatter;
    const std::string text = formatter.convertDate(kNewYear, "yyyy-MM-dd HH:mm:ss.SSS");
    const std::string number = formatter.convertDecimal(0.1, "0.00000000000000000000");
    // The nanoseconds of a tenth are inexact.
    const std::string tenth = formatter.convertDate(kTenth, "ss");
    const int mode_after = std::fegetround();
    const int raised_after = std::fetestexcept(FE_ALL_EXCEPT);
    const std::string field = year_first(kNewYear, 22, 2);
    const int mode_after_hook = std::fegetround();
    std::fesetround(FE_TONEAREST);
    EXPECT_EQ(mode_after, mode);
    EXPECT_EQ(raised_after, FE_OVERFLOW);
    EXPECT_EQ(mode_after_hook, mode);
    EXPECT_EQ(text, of_java("2000-01-01 12:30:15.250"));
    EXPECT_EQ(number, of_java("0.10000000000000000000"));
    EXPECT_EQ(tenth, of_java("15"));
    EXPECT_EQ(field, field_of_java("2000-01-01 12:30:15.25"));
  }
}

TEST(FloatEnvPreserver, RestoresRoundingAndFlags) {
  std::feclearexcept(FE_ALL_EXCEPT);
  {
    const iocv::FloatEnvPreserver preserver;
    std::fesetround(FE_UPWARD);
    std::feraiseexcept(FE_DIVBYZERO);
  }
  EXPECT_EQ(std::fegetround(), FE_TONEAREST);
  EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), 0);
}

TEST(Formatter, ServesAHundredThreadsAtOnce) {
  constexpr int kThreads = 100;
  std::vector<std::string> wrong(kThreads);
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([i, &wrong] {
      for (int year = 2000 + i; year < 2020 + i; ++year) {
        const double value = 86400.0 * (VeltDay(i % 28 + 1, i % 12 + 1, year));
        char expected[64];
        std::snprintf(expected, sizeof expected, "%04d%02d%02d", year, i % 12 + 1, i % 28 + 1);
        const std::string text = date(value, "yyyyMMdd");
        if (text != of_java(expected)) wrong[static_cast<std::size_t>(i)] = text + "/" + expected;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (const std::string& text : wrong) EXPECT_EQ(text, "");
}

// There weeks begin on Saturday and digits are others; here Saturday is the seventh day.
[[noreturn]] void write_in_another_country() {
  setenv("JAVA_TOOL_OPTIONS",
         "-Duser.language=ar -Duser.country=EG -Duser.extensions=u-nu-arab "
         "-Duser.timezone=Pacific/Apia -Dfile.encoding=ISO-8859-1",
         1);
  const bool same = date(kNewYear, "d MMMM yyyy HH:mm e") == of_java("1 January 2000 12:30 7") &&
                    decimal(1234.5, "#,##0.00") == of_java("1,234.50") &&
                    year_first(kNewYear, 22, 2) == field_of_java("2000-01-01 12:30:15.25");
  std::_Exit(same ? 0 : 1);
}

TEST(FormatterDeathTest, WritesTheSameTextsInEveryCountryAndZone) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(write_in_another_country(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace test
