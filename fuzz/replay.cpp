// Runs a target over stored inputs where there is no libFuzzer. Usage: replay_TARGET FILE|FOLDER...
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "harness.h"

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> files_of(int argc, char** argv) {
  std::vector<fs::path> files;
  for (int i = 1; i < argc; ++i) {
    if (!fs::is_directory(argv[i])) {
      files.emplace_back(argv[i]);
      continue;
    }
    for (const fs::directory_entry& entry : fs::directory_iterator(argv[i])) {
      files.push_back(entry.path());
    }
  }
  return files;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<fs::path> files = files_of(argc, argv);
  for (const fs::path& file : files) {
    std::ifstream in(file, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(in), {}};
    if (!in.is_open()) return std::fprintf(stderr, "cannot open %s\n", file.c_str()), 1;
    std::printf("%s\n", file.c_str());
    std::fflush(stdout);  // the last name is that of the input that failed
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  }
  std::printf("%zu inputs\n", files.size());
  return files.empty() ? 1 : 0;
}
