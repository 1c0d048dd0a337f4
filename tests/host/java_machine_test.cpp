// The Java machine of a process: which one it is, what it leaves alone, and how it is talked to.
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

#include "host/java_support.h"

namespace test {
namespace {

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
      EXPECT_EQ(length, c.length) << shown(c.in);
      length = -1;
      EXPECT_EQ(shown(java.FromJString(text, &length)), shown(c.out));
      EXPECT_EQ(length, c.length) << shown(c.in);
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
}  // namespace test
