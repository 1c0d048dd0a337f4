// What several tests of the tool's parts need: a file of given bytes, and random numbers.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <string_view>

namespace test {

// A file of the given bytes that goes away with its object.
class Sample {
 public:
  explicit Sample(std::string_view bytes = {}) {
    std::string name = (std::filesystem::temp_directory_path() / "iocv-sample-XXXXXX").string();
    const int file = ::mkstemp(name.data());
    path_ = name;
    EXPECT_EQ(::write(file, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    ::close(file);
  }
  ~Sample() { ::unlink(path_.c_str()); }
  Sample(const Sample&) = delete;
  Sample& operator=(const Sample&) = delete;

  const std::string& path() const { return path_; }

  std::string content() const {
    std::string bytes(std::filesystem::file_size(path_), '\0');
    std::FILE* const file = std::fopen(path_.c_str(), "rb");
    EXPECT_EQ(std::fread(bytes.data(), 1, bytes.size(), file), bytes.size());
    std::fclose(file);
    return bytes;
  }

 private:
  std::string path_;
};

// The number that repeats a random test: IOCV_TEST_SEED, or a new one each time.
inline std::uint64_t random_seed() {
  const char* const given = std::getenv("IOCV_TEST_SEED");
  return given ? std::strtoull(given, nullptr, 10) : std::random_device()();
}

}  // namespace test
