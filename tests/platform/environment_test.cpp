// The code page that a process begins with.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>

namespace {

struct Pipe {
  FILE* stream;
  explicit Pipe(const std::string& command) : stream(popen(command.c_str(), "r")) {}
  ~Pipe() {
    if (stream) pclose(stream);
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;
};

// What the probe prints when these variables alone speak of a locale. The C library keeps what it
// makes of LOCPATH, which would count as a leak.
std::string begun_with(const std::string& variables) {
  const std::string clean =
      "env -u LC_ALL -u LC_CTYPE -u LANG -u LANGUAGE ASAN_OPTIONS=detect_leaks=0 ";
  const Pipe pipe(clean + variables + " " CODE_PAGE_PROBE);
  char line[256] = "";
  if (!pipe.stream || !std::fgets(line, sizeof line, pipe.stream)) return "no answer";
  return line;
}

TEST(Environment, Utf8WhereNoLocaleIsNamed) {
  for (const char* variables : {"", "LC_ALL=C", "LC_ALL=POSIX", "LANG=C", "LC_ALL=no_SUCH.locale",
                                "LANG=no_SUCH.ISO-8859-1", "LC_ALL=C.UTF-8"}) {
    EXPECT_EQ(begun_with(variables), "UTF-8, locale C\n") << variables;
  }
}

// The process's own locale stays "C" all the while.
TEST(Environment, TheCharacterLocaleNamesTheCodePage) {
  const std::filesystem::path folder =
      std::filesystem::path(testing::TempDir()) / ("iocv_locales_" + std::to_string(getpid()));
  std::filesystem::create_directories(folder);
  const std::string make = "localedef --no-archive -i de_DE -f ISO-8859-1 " +
                           (folder / "de_DE.ISO-8859-1").string() + " >/dev/null 2>&1";
  ASSERT_EQ(std::system(make.c_str()), 0) << "scripts/setup installs the package locales";
  const std::string path = "LOCPATH=" + folder.string() + " ";
  struct Case {
    const char* variables;
    const char* code_page;
  };
  constexpr Case kCases[] = {
      {"LANG=de_DE.ISO-8859-1", "ISO-8859-1"},
      {"LC_CTYPE=de_DE.ISO-8859-1", "ISO-8859-1"},
      {"LC_ALL=de_DE.ISO-8859-1", "ISO-8859-1"},
      {"LC_CTYPE=de_DE.ISO-8859-1 LANG=C", "ISO-8859-1"},
      {"LC_CTYPE=C LANG=de_DE.ISO-8859-1", "UTF-8"},
      {"LC_ALL=C LC_CTYPE=de_DE.ISO-8859-1", "UTF-8"},
      {"LC_NUMERIC=de_DE.ISO-8859-1", "UTF-8"},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(begun_with(path + c.variables), std::string(c.code_page) + ", locale C\n")
        << c.variables;
  }
  std::filesystem::remove_all(folder);
}

}  // namespace
