// Texts that a real Java machine formats. In a build without Java the same calls give blanks.
#include <iocv/host.h>
#include <iocv/iocv.h>
#include <iocv/platform_java.h>
#if IOCV_JAVA
#include <dlfcn.h>
#include <jni.h>
#endif

#include <cfenv>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "host/float_env_preserver.h"
#include "support/guarded.h"
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

namespace {

constexpr bool kJava = IOCV_JAVA;

// 12:30:15.25 on 1 January 2000.
constexpr double kNewYear = 13166064000.0 + 45015.25;

// What Java writes, or in a build without it nothing.
std::string of_java(const std::string& text) { return kJava ? text : std::string(); }

std::string field_of_java(const std::string& field) {
  return kJava ? field : std::string(field.size(), ' ');
}

std::string year_first(double value, std::int64_t width, std::int64_t decimals) {
  const test::Guarded field(static_cast<std::size_t>(width));
  const OBS obs = {.number = value};
  const std::int64_t code = 86;
  EXPECT_EQ(obocvext_(&obs, &code, &width, &decimals, field.data(), width), 0);
  EXPECT_TRUE(field.intact());
  return field.text();
}

std::string date(double value, const char* pattern) {
  return customFormatter().convertDate(value, pattern);
}

std::string decimal(double value, const char* pattern) {
  return customFormatter().convertDecimal(value, pattern);
}

TEST(JavaMachine, RunsWhereTheLibraryWasBuiltWithJava) {
  if (!kJava) std::cout << "built without Java: every text must be blank\n";
  customFormatter formatter;
  const CriticalSection::Lock lock(VeltJVM::CritSect());
  VeltJVM* const machine = VeltJVM::GetInstance();
  ASSERT_EQ(machine != nullptr, kJava);
  if (machine) {
    EXPECT_TRUE(machine->IsStarted());
  }
}

TEST(YearFirst, HasAPatternForEachWidth) {
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

TEST(YearFirst, CutsSecondsAndRoundsTheirDecimals) {
  EXPECT_EQ(year_first(13166064000 + 59.999, 22, 2), field_of_java("2000-01-01 00:00:59.00"));
  EXPECT_EQ(year_first(13166064000 - 0.5, 19, 0), field_of_java("1999-12-31 23:59:59"));
}

TEST(YearFirst, GoesFromTheFirstDateToTheLastThatFits) {
  struct Case {
    double value;
    std::int64_t width;
    const char* field;
  };
  constexpr double kYear10000 = 265621680000.0;  // 1 January 10000
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
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
    EXPECT_EQ(year_first(c.value, c.width, 0), expected) << test::described(c.value);
  }
}

TEST(YearFirst, AgreesWithTheCalendarOfTheOtherFormats) {
  SCOPED_TRACE(test::seed_text());
  std::mt19937_64 random = test::random_source();
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

// Ends with 0 when starting a machine, which computes on this thread, left no trace.
[[noreturn]] void start_with_flags() {
  std::fesetround(FE_DOWNWARD);
  std::feclearexcept(FE_ALL_EXCEPT);
  std::feraiseexcept(FE_OVERFLOW);
  const std::string text = date(kNewYear, "yyyy");
  const bool kept =
      std::fetestexcept(FE_ALL_EXCEPT) == FE_OVERFLOW && std::fegetround() == FE_DOWNWARD;
  std::_Exit(kept && text == of_java("2000") ? 0 : 1);
}

TEST(JavaMachineDeathTest, LeavesTheFloatingPointEnvironmentWhenItStarts) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(start_with_flags(), testing::ExitedWithCode(0), "");
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

// Ends with 0 when the handlers that a host has set are there after a machine was started.
[[noreturn]] void start_with_handlers() {
  const auto ours = [](int) {};
  constexpr int kSignals[] = {SIGHUP, SIGINT, SIGTERM, SIGQUIT};
  for (const int signal : kSignals) std::signal(signal, ours);
  bool kept = date(kNewYear, "yyyy") == of_java("2000");
  for (const int signal : kSignals) {
    struct sigaction action = {};
    sigaction(signal, nullptr, &action);
    kept = kept && action.sa_handler == +ours;
  }
  std::_Exit(kept ? 0 : 1);
}

TEST(JavaMachineDeathTest, LeavesTheSignalsOfTheHostAlone) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(start_with_handlers(), testing::ExitedWithCode(0), "");
}

// The directories of machines in the usual place.
std::vector<std::string> installed_homes() {
  std::vector<std::string> homes;
  std::error_code none;
  for (const auto& entry : std::filesystem::directory_iterator("/usr/lib/jvm", none)) {
    if (std::filesystem::exists(entry.path() / "lib/server/libjvm.so")) {
      homes.push_back(entry.path());
    }
  }
  if (homes.empty()) std::cout << "no Java machine under /usr/lib/jvm to test with\n";
  return homes;
}

// Ends with 0 when a year-first field comes out as expected under another JAVA_HOME.
[[noreturn]] void write_under(const std::string& home, const std::string& expected) {
  setenv("JAVA_HOME", home.c_str(), 1);
  const std::string field = year_first(kNewYear, 10, 0);
  const bool as_expected =
      field == expected && date(kNewYear, "yyyy") == (expected[0] == ' ' ? "" : "2000");
  std::_Exit(as_expected ? 0 : 1);
}

// Each in a process of its own, for a process has one machine at most.
TEST(JavaHomeDeathTest, DecidesAloneWhereItIsSet) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  for (const char* nowhere : {"/nonexistent", "/", "relative"}) {
    EXPECT_EXIT(write_under(nowhere, "          "), testing::ExitedWithCode(0), "") << nowhere;
  }
  for (const std::string& home : installed_homes()) {
    EXPECT_EXIT(write_under(home, field_of_java("2000-01-01")), testing::ExitedWithCode(0), "")
        << home;
  }
  unsetenv("JAVA_HOME");
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

TEST(JavaException, CarriesItsThreeTexts) {
  const JNIException exception("what happened", "setClass", "no/such/Class");
  const JNIException copy = exception;
  EXPECT_STREQ(copy.getMessage(), "what happened");
  EXPECT_STREQ(copy.getOperation(), "setClass");
  EXPECT_STREQ(copy.getSubject(), "no/such/Class");
  static_assert(!std::is_polymorphic_v<JNIException>);
}

#if IOCV_JAVA

// Calls what needs an attached thread and the lock.
template <class Action>
void with_java(Action action) {
  const CriticalSection::Lock lock(VeltJVM::CritSect());
  VeltJVM* const machine = VeltJVM::GetInstance();
  machine->StartJVM();
  JNIEnv* env = nullptr;
  machine->AttachCurrentThread(&env);
  ASSERT_NE(env, nullptr);
  action(env);
}

template <class Action>
std::string message_of(Action action) {
  try {
    action();
  } catch (const JNIException& exception) {
    return std::string(exception.getMessage()) + " | " + exception.getOperation() + " | " +
           exception.getSubject();
  }
  return "none";
}

TEST(JavaAccessor, ThrowsWhatJavaThrew) {
  with_java([](JNIEnv* env) {
    JNIAccessor java(env);
    EXPECT_EQ(message_of([&] { java.setStaticMethod("valueOf", "()V"); }),
              "no class | setStaticMethod | valueOf");
    EXPECT_EQ(message_of([&] { java.setClass("no/such/Class"); }),
              "java.lang.NoClassDefFoundError: no/such/Class | setClass | no/such/Class");
    EXPECT_FALSE(env->ExceptionCheck());
    java.setClass("java/lang/Integer");
    EXPECT_EQ(message_of([&] { java.setStaticMethod("nothing", "()V"); }),
              "java.lang.NoSuchMethodError: nothing | setStaticMethod | nothing");
    const jclass integer = java.setClass("java/lang/Integer");
    const jmethodID value_of =
        java.setStaticMethod("valueOf", "(Ljava/lang/String;)Ljava/lang/Integer;");
    const jobject none =
        env->CallStaticObjectMethod(integer, value_of, java.ToJString("x", nullptr));
    EXPECT_EQ(message_of([&] { java.FromJString(none, nullptr); }),
              "java.lang.NumberFormatException: For input string: \"x\" | FromJString | ");
    EXPECT_FALSE(env->ExceptionCheck());
  });
  with_java([](JNIEnv* env) {
    {
      JNIAccessor java(env);
      env->FindClass("no/such/Class");
      EXPECT_TRUE(env->ExceptionCheck());
    }
    EXPECT_FALSE(env->ExceptionCheck());
  });
}

TEST(JavaAccessor, CarriesTextBothWays) {
  with_java([](JNIEnv* env) {
    JNIAccessor java(env);
    struct Case {
      const char* in;
      const char* out;
      int length;
    };
    constexpr Case kCases[] = {
        {"", "", 0},
        {"abc", "abc", 3},
        {"\xC3\xA9\xE2\x82\xAC", "\xC3\xA9\xE2\x82\xAC", 2},
        {"\xF0\x9F\x95\x92!", "\xF0\x9F\x95\x92!", 3},
        {"a\xFF\x62", "a\xEF\xBF\xBD\x62", 3},
        {"\xED\xA0\x80", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD", 3},  // a surrogate's code
        {"\xC3", "\xEF\xBF\xBD", 1},
        {"\xF4\x8F\xBF\xBF", "\xF4\x8F\xBF\xBF", 2},
    };
    for (const Case& c : kCases) {
      int length = -1;
      const jstring text = java.ToJString(c.in, &length);
      EXPECT_EQ(length, c.length) << test::shown(c.in);
      length = -1;
      EXPECT_EQ(test::shown(java.FromJString(text, &length)), test::shown(c.out));
      EXPECT_EQ(length, c.length) << test::shown(c.in);
    }
    int length = -1;
    EXPECT_EQ(java.FromJString(nullptr, &length), "");
    EXPECT_EQ(length, 0);
    const jchar alone[] = {0xD83D, 'x', 0xDD52, 0xD83D};
    EXPECT_EQ(java.FromJString(env->NewString(alone, 4), nullptr),
              "\xEF\xBF\xBDx\xEF\xBF\xBD\xEF\xBF\xBD");
  });
}

// The jar beside the platform library, as a class path.
std::string own_class_path() {
  Dl_info info = {};
  dladdr(reinterpret_cast<void*>(&VeltJVM::GetInstance), &info);
  return std::filesystem::absolute(info.dli_fname).replace_filename("iocv.jar").string();
}

// Starts a machine as a host would that runs Java itself, and converts.
[[noreturn]] void write_in_machine_of(const std::string& home, const std::string& class_path,
                                      const char* expected) {
  void* const library = dlopen((home + "/lib/server/libjvm.so").c_str(), RTLD_NOW);
  if (!library) std::_Exit(2);
  const auto create =
      reinterpret_cast<decltype(&JNI_CreateJavaVM)>(dlsym(library, "JNI_CreateJavaVM"));
  std::string text = "-Djava.class.path=" + class_path;
  JavaVMOption option = {text.data(), nullptr};
  JavaVMInitArgs arguments = {JNI_VERSION_1_8, 1, &option, JNI_FALSE};
  JavaVM* machine = nullptr;
  void* env = nullptr;
  if (create(&machine, &env, &arguments) != JNI_OK) std::_Exit(3);
  std::string elsewhere;
  std::thread([&] { elsewhere = date(kNewYear, "yyyy"); }).join();
  const bool as_expected = date(kNewYear, "yyyy") == expected && elsewhere == expected;
  std::_Exit(as_expected ? 0 : 1);
}

TEST(JavaMachineDeathTest, IsTheOneThatTheProcessRunsAlready) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  for (const std::string& home : installed_homes()) {
    EXPECT_EXIT(write_in_machine_of(home, own_class_path(), "2000"), testing::ExitedWithCode(0), "")
        << home;
    EXPECT_EXIT(write_in_machine_of(home, "/nonexistent", ""), testing::ExitedWithCode(0), "")
        << home;
  }
}

int attached_threads(JNIEnv* env) {
  JNIAccessor java(env);
  const jclass thread = java.setClass("java/lang/Thread");
  return env->CallStaticIntMethod(thread, java.setStaticMethod("activeCount", "()I"));
}

TEST(JavaMachine, LetsGoOfThreadsThatEnd) {
  int before = 0;
  with_java([&](JNIEnv* env) { before = attached_threads(env); });
  for (int i = 0; i < 20; ++i) {
    std::thread([] { EXPECT_EQ(date(kNewYear, "yyyy"), "2000"); }).join();
  }
  with_java([&](JNIEnv* env) { EXPECT_EQ(attached_threads(env), before); });
}

TEST(JavaMachine, AttachesThreadsAsDaemons) {
  std::thread([] {
    with_java([](JNIEnv* env) {
      JNIAccessor java(env);
      const jclass thread = java.setClass("java/lang/Thread");
      const jmethodID current = java.setStaticMethod("currentThread", "()Ljava/lang/Thread;");
      const jobject self = env->CallStaticObjectMethod(thread, current);
      EXPECT_TRUE(env->CallBooleanMethod(self, env->GetMethodID(thread, "isDaemon", "()Z")));
    });
  }).join();
}

// Threads do not detach between calls, so references that a call left behind would pile up until
// the heap of 64 megabytes was full of their texts.
TEST(JavaAccessor, LeavesNoReferencesBehind) {
  const std::string text(100000, 'x');
  with_java([&](JNIEnv* env) {
    for (int i = 0; i < 800; ++i) {
      JNIAccessor java(env);
      ASSERT_EQ(message_of([&] { java.ToJString(text.c_str(), nullptr); }), "none") << i;
    }
  });
}

#endif

}  // namespace
