// Records decoded, encoded again and compared.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "cell_rows.h"
#include "decode.h"
#include "encode.h"

namespace iocv::tool {

struct Differences {
  std::int64_t records = 0;   // that do not come back, those that do not decode included
  std::int64_t rejected = 0;  // that do not decode
  std::string first;          // what the first one is about

  // Adds those of records that follow.
  void add(const Differences& later);
};

// Compares blocks; each thread has one of its own.
class Verifier {
 public:
  // With `gaps` the bytes of no field count, too.
  Verifier(const Layout& layout, bool gaps);

  // Compares the records of a block afresh.
  void verify(const Block& block);

  const Differences& found() const noexcept { return found_; }

 private:
  void note(const Record& record, std::size_t from, const std::string& sentence);
  void note_reject(const Record& record, std::size_t from);
  void compare(const Record& record, std::span<const Given> values);
  void compare_gaps(const Record& record, std::string_view again);

  bool gaps_;
  bool lines_;
  Decoder decoder_;
  Encoder encoder_;
  CellRows rows_;
  RejectLines rejects_;
  Differences found_;
};

}  // namespace iocv::tool
