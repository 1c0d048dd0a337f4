// The command line: picks the command, and turns failures into sentences and exit codes.
#include <clocale>
#include <csignal>
#include <sstream>

#include "arguments.h"
#include "options.h"

namespace {

using namespace iocv::tool;

void complain(const char* text) { std::fprintf(stderr, "iocv: %s\n", text); }

// Help and version are no errors, but the parser reports them as such.
Exit end_of_parsing(const CLI::App& tool, const CLI::ParseError& error) {
  std::ostringstream text;
  if (tool.exit(error, text, text) == 0) {
    print(text.str());
    return Exit::clean;
  }
  const auto used = tool.get_subcommands();
  complain(error.what());
  std::fprintf(stderr, "'iocv %s--help' tells more\n",
               used.empty() ? "" : (used.front()->get_name() + " ").c_str());
  return Exit::usage;
}

Exit run(int argc, const char* const* argv) {
  CLI::App tool("iocv converts between stored values and fixed-width text fields.", "iocv");
  tool.set_version_flag("--version", "iocv " IOCV_VERSION, "Print the version");
  tool.require_subcommand(1);
  tool.footer("Exit codes: 0 clean, 1 done with failures, 2 usage error, 3 file trouble.");
  const Command commands[] = {add_write(tool), add_read(tool), add_formats(tool), add_decode(tool)};
  std::vector<std::string> arguments = marked_arguments(argc, argv);
  std::reverse(arguments.begin(), arguments.end());  // the parser takes them from the back
  try {
    tool.parse(std::move(arguments));
  } catch (const CLI::ParseError& error) {
    return end_of_parsing(tool, error);
  }
  for (const Command& command : commands) {
    if (command.app->parsed()) return command.run();
  }
  return Exit::usage;
}

}  // namespace

int main(int argc, char** argv) {
  // Loading the library takes the environment's numeric locale; the tool's numbers have a point.
  std::setlocale(LC_NUMERIC, "C");
  // A reader that went away is trouble with a file like any other, told by write.
  std::signal(SIGPIPE, SIG_IGN);
  try {
    return static_cast<int>(run(argc, argv));
  } catch (const UsageError& error) {
    complain(error.what());
    return static_cast<int>(Exit::usage);
  } catch (const std::exception& error) {  // trouble with files, or memory that the system refuses
    complain(error.what());
    return static_cast<int>(Exit::file);
  }
}
