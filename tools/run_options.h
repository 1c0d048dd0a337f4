// What the commands that read whole files have in common.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "framing.h"
#include "layout.h"
#include "options.h"

namespace iocv::tool {

struct RunOptions {
  std::size_t threads = 0;  // 0: as many as there are cores
  std::size_t block = RecordReader::kBlock;
  bool quiet = false;
  double progress = 10;

  std::size_t workers() const noexcept;
};

// Adds --threads, --block, --progress and --quiet.
void add_run_options(CLI::App& command, RunOptions& options);

Framing framing_of(const Layout& layout);

// How many rejected records a run bears: any number, at most N, or at most P of a hundred.
class RejectLimit {
 public:
  // "N" or "P%"; throws UsageError for any other text.
  static RejectLimit parse(const std::string& text);

  // Whether so many rejected records up to and with that one are too many. A percentage counts from
  // the thousandth record on and, with `at_end`, at the end.
  bool is_passed(std::int64_t rejected, std::int64_t records, bool at_end = false) const noexcept;

  // "more than 5 rejected records", "more than 0.5% rejected records".
  std::string sentence() const { return "more than " + text_ + " rejected records"; }

 private:
  std::string text_;
  std::optional<std::int64_t> count_;
  std::optional<double> percent_;
};

// "1 reject", "2 rejects".
std::string counted(std::int64_t count, std::string_view what);

// Refuses to write one file over another that is read or written, too: "the output 'a' would be
// written over 'b'". Standard streams, devices and pipes are never the same.
void refuse_same(std::string_view what, const std::string& path, const std::string& other);

}  // namespace iocv::tool
