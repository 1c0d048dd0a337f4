#include "progress.h"

#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "value_text.h"

namespace iocv::tool {
namespace {

constexpr double kTerminalSeconds = 0.2;

std::string grouped(std::int64_t count) {
  std::string text = std::to_string(count);
  for (auto at = std::ssize(text) - 3; at > 0; at -= 3)
    text.insert(static_cast<std::size_t>(at), ",");
  return text;
}

// 1:05, 2:00:00
std::string clock(std::int64_t seconds) {
  std::string text;
  append_iso(text, static_cast<double>(seconds), IsoForm::time);
  return seconds < 3600 ? text.substr(text.size() - 5) : text;
}

}  // namespace

std::string progress_text(std::int64_t records, std::int64_t bytes, std::int64_t rejects,
                          std::optional<std::int64_t> size, double seconds) {
  const double speed = static_cast<double>(bytes) / std::max(seconds, 1e-9);
  std::string text = grouped(records) + (records == 1 ? " record, " : " records, ");
  append_number(text, std::round(speed / 1e5) / 10);
  text += " MB/s, ";
  if (size && bytes > 0) {
    const double left = static_cast<double>(std::max<std::int64_t>(*size - bytes, 0)) / speed;
    text += clock(static_cast<std::int64_t>(std::min(std::ceil(left), 1e9))) + " left, ";
  }
  return text + grouped(rejects) + (rejects == 1 ? " reject" : " rejects");
}

Progress::Progress(std::optional<std::int64_t> size, bool quiet, double seconds)
    : size_(size),
      quiet_(quiet),
      terminal_(::isatty(STDERR_FILENO) == 1),
      between_(terminal_ ? kTerminalSeconds : seconds) {}

Progress::~Progress() {
  if (line_) std::fputs("\r\033[K", stderr);
}

void Progress::show(std::int64_t records, std::int64_t bytes, std::int64_t rejects) {
  if (quiet_) return;
  const Clock::time_point now = Clock::now();
  if (now - last_ < between_) return;
  last_ = now;
  const std::chrono::duration<double> run = now - start_;
  const std::string text = progress_text(records, bytes, rejects, size_, run.count());
  std::fprintf(stderr, terminal_ ? "\riocv: %s\033[K" : "iocv: %s\n", text.c_str());
  line_ = terminal_;
}

}  // namespace iocv::tool
