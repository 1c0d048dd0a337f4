#include "files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <optional>
#include <utility>

#include "failure.h"

namespace iocv::tool {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kAllPermissions = 07777;
constexpr mode_t kNewFile = 0666;

std::optional<struct stat> status_of(const std::string& path) {
  struct stat status = {};
  if (::stat(path.c_str(), &status) != 0) return std::nullopt;
  return status;
}

// Where a file of that path will stand: behind symbolic links, so that they stay.
std::string followed(const std::string& path) {
  std::error_code error;
  const fs::path whole = fs::absolute(path, error);
  if (error) return path;
  const fs::path real = fs::weakly_canonical(whole, error);
  return error ? path : real.string();
}

}  // namespace

Descriptor::Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
  if (this != &other) {
    close();
    number_ = std::exchange(other.number_, -1);
  }
  return *this;
}

bool Descriptor::close() noexcept {
  const int number = std::exchange(number_, -1);
  return number < 0 || ::close(number) == 0;
}

InputFile::InputFile(const std::string& path)
    : name_(path),
      file_(path == "-" ? ::dup(STDIN_FILENO) : ::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
  if (!file_.is_open()) throw FileError("open", name_, errno);
}

std::size_t InputFile::read(std::span<char> buffer) {
  std::size_t filled = 0;
  while (filled < buffer.size()) {
    const ssize_t got = ::read(file_.number(), buffer.data() + filled, buffer.size() - filled);
    if (got == 0) break;
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) throw FileError("read", name_, errno);
    filled += static_cast<std::size_t>(got);
  }
  return filled;
}

std::string read_file(const std::string& path) {
  constexpr std::size_t kPiece = 1 << 16;
  InputFile file(path);
  std::string text;
  for (std::size_t got = kPiece; got == kPiece;) {
    const std::size_t size = text.size();
    text.resize(size + kPiece);
    got = file.read({text.data() + size, kPiece});
    text.resize(size + got);
  }
  return text;
}

OutputFile::OutputFile(const std::string& path) : name_(path), target_(followed(path)) {
  const std::optional<struct stat> old = status_of(target_);
  if (old && !S_ISREG(old->st_mode)) {
    file_ = Descriptor(::open(target_.c_str(), O_WRONLY | O_CLOEXEC));
    if (!file_.is_open()) throw FileError("open", name_, errno);
    return;
  }
  temporary_ = target_ + "." + std::to_string(::getpid()) + ".tmp";
  file_ = Descriptor(::open(temporary_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFile));
  if (!file_.is_open()) {
    temporary_.clear();
    throw FileError("create", name_, errno);
  }
  if (old) static_cast<void>(::fchmod(file_.number(), old->st_mode & kAllPermissions));
}

OutputFile OutputFile::standard_output() {
  Descriptor file(::dup(STDOUT_FILENO));
  if (!file.is_open()) throw FileError("open", "standard output", errno);
  return {"standard output", std::move(file)};
}

OutputFile::OutputFile(OutputFile&& other) noexcept
    : name_(std::move(other.name_)),
      target_(std::move(other.target_)),
      temporary_(std::exchange(other.temporary_, {})),
      file_(std::move(other.file_)) {}

OutputFile::~OutputFile() {
  if (!temporary_.empty()) ::unlink(temporary_.c_str());
}

void OutputFile::write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t put = ::write(file_.number(), bytes.data(), bytes.size());
    if (put < 0 && errno == EINTR) continue;
    if (put < 0) throw FileError("write", name_, errno);
    bytes.remove_prefix(static_cast<std::size_t>(put));
  }
}

void OutputFile::commit() {
  if (!file_.close()) throw FileError("write", name_, errno);
  if (temporary_.empty()) return;
  if (::rename(temporary_.c_str(), target_.c_str()) != 0) throw FileError("write", name_, errno);
  temporary_.clear();
}

void remove_file(const std::string& path) {
  const std::optional<struct stat> old = status_of(path);
  if (!old || !S_ISREG(old->st_mode)) return;
  if (::unlink(path.c_str()) != 0 && errno != ENOENT) throw FileError("remove", path, errno);
}

bool is_same_file(const std::string& a, const std::string& b) {
  const std::optional<struct stat> status = status_of(a);
  if (status && !S_ISREG(status->st_mode)) return false;
  std::error_code error;
  if (fs::equivalent(a, b, error) && !error) return true;
  return followed(a) == followed(b);
}

}  // namespace iocv::tool
