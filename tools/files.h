// Files by path, read and written in large pieces. All trouble with them is a FileError.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace iocv::tool {

// An open file that closes itself.
class Descriptor {
 public:
  explicit Descriptor(int number = -1) noexcept : number_(number) {}
  Descriptor(Descriptor&& other) noexcept;
  Descriptor& operator=(Descriptor&& other) noexcept;
  ~Descriptor() { close(); }

  int number() const noexcept { return number_; }
  bool is_open() const noexcept { return number_ >= 0; }
  // False, with errno set, when the system reports a write that failed late.
  bool close() noexcept;

 private:
  int number_;
};

class InputFile {
 public:
  // Opens the file; "-" is standard input.
  explicit InputFile(const std::string& path);

  // Fills the buffer; fewer bytes than it holds only at the end of the file.
  std::size_t read(std::span<char> buffer);

 private:
  std::string name_;
  Descriptor file_;
};

// The whole file.
std::string read_file(const std::string& path);

// A file that is there whole or not at all: it is written under a temporary name beside the path,
// and takes the path's place, with the permissions of the file that stood there, when it is
// committed. What is no regular file (a device, a pipe) is written where it is.
class OutputFile {
 public:
  explicit OutputFile(const std::string& path);
  static OutputFile standard_output();
  OutputFile(OutputFile&& other) noexcept;
  OutputFile& operator=(OutputFile&&) = delete;
  ~OutputFile();  // removes what was not committed

  void write(std::string_view bytes);
  void commit();

 private:
  OutputFile(std::string name, Descriptor file) : name_(std::move(name)), file_(std::move(file)) {}

  std::string name_;       // as the user wrote it
  std::string target_;     // where it will stand, links followed
  std::string temporary_;  // empty when it is written in place
  Descriptor file_;
};

// Removes the file if there is one.
void remove_file(const std::string& path);

// Whether both paths name one regular file, existing or not; devices and pipes are never the same.
bool is_same_file(const std::string& a, const std::string& b);

}  // namespace iocv::tool
