// How far a long run has come, on standard error.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace iocv::tool {

// On a terminal one line that changes and goes away at the end; elsewhere a line every ten seconds.
class Progress {
 public:
  // The size is that of the input, if it is known. A quiet one prints nothing; `seconds` is the
  // time between two lines where no terminal is.
  Progress(std::optional<std::int64_t> size, bool quiet, double seconds);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // What was done in all.
  void show(std::int64_t records, std::int64_t bytes, std::int64_t rejects);

 private:
  using Clock = std::chrono::steady_clock;

  std::optional<std::int64_t> size_;
  bool quiet_;
  bool terminal_;
  std::chrono::duration<double> between_;
  Clock::time_point start_ = Clock::now();
  Clock::time_point last_ = start_;
  bool line_ = false;  // stands on the terminal
};

// "1,234,567 records, 85.3 MB/s, 1:05 left, 3 rejects" after the given seconds; without "left" when
// the size is unknown.
std::string progress_text(std::int64_t records, std::int64_t bytes, std::int64_t rejects,
                          std::optional<std::int64_t> size, double seconds);

}  // namespace iocv::tool
