#include "run_options.h"

#include <charconv>
#include <thread>

#include "failure.h"
#include "files.h"

namespace iocv::tool {
namespace {

constexpr std::size_t kMostThreads = 256;
constexpr std::size_t kLargestBlock = std::size_t{1} << 30;
constexpr std::int64_t kRecordsForPercent = 1000;

template <class T>
std::optional<T> whole_text(std::string_view text) {
  T value{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || !(value >= 0))
    return std::nullopt;
  return value;
}

}  // namespace

std::size_t RunOptions::workers() const noexcept {
  if (threads != 0) return threads;
  return std::max(1U, std::thread::hardware_concurrency());
}

void add_run_options(CLI::App& command, RunOptions& options) {
  command.add_option("--threads", options.threads, "how many threads convert (the cores)")
      ->type_name("N")
      ->check(CLI::Range(std::size_t{1}, kMostThreads));
  command
      .add_option("--block", options.block,
                  "about how many bytes of the file a thread takes at a time (262144)")
      ->type_name("BYTES")
      ->check(CLI::Range(std::size_t{1}, kLargestBlock));
  command
      .add_option("--progress", options.progress,
                  "seconds between two lines of progress where no terminal is (10)")
      ->type_name("SECONDS")
      ->check(CLI::NonNegativeNumber);
  command.add_flag("--quiet", options.quiet, "print neither progress nor the number of rejects");
}

Framing framing_of(const Layout& layout) { return {.length = layout.record, .crlf = layout.crlf}; }

RejectLimit RejectLimit::parse(const std::string& text) {
  RejectLimit limit;
  limit.text_ = text;
  if (text.empty()) return limit;
  if (text.back() == '%') {
    limit.percent_ = whole_text<double>(std::string_view(text).substr(0, text.size() - 1));
    if (limit.percent_ && *limit.percent_ <= 100) return limit;
  } else {
    limit.count_ = whole_text<std::int64_t>(text);
    if (limit.count_) return limit;
  }
  throw UsageError("'" + text + "' is neither a number of records nor a percentage of them");
}

bool RejectLimit::is_passed(std::int64_t rejected, std::int64_t records,
                            bool at_end) const noexcept {
  if (count_) return rejected > *count_;
  if (!percent_ || rejected == 0 || (!at_end && records < kRecordsForPercent)) return false;
  return static_cast<double>(rejected) * 100 > *percent_ * static_cast<double>(records);
}

std::string counted(std::int64_t count, std::string_view what) {
  return std::to_string(count) + " " + std::string(what) + (count == 1 ? "" : "s");
}

void refuse_same(std::string_view what, const std::string& path, const std::string& other) {
  if (path.empty() || other.empty() || path == "-" || other == "-") return;
  if (is_same_file(path, other)) {
    throw UsageError("the " + std::string(what) + " '" + path + "' would be written over '" +
                     other + "'");
  }
}

}  // namespace iocv::tool
