// Records to rows under a layout.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "columns.h"
#include "rejects.h"
#include "rows.h"

namespace iocv::tool {

// Decodes blocks; each thread has one of its own. The library's settings must be those of the
// layout.
class Decoder {
 public:
  explicit Decoder(const Layout& layout);

  // Appends the rows of the block's records, and a reject for each field that fails or whose value
  // is kept with a warning. A failed field is missing from its row. A last record that is too short
  // for the layout's record length is one reject and no row. `out` is what the rows append to.
  void decode(const Block& block, Rows& rows, const std::string& out, RejectLines& rejects) {
    decode_some(block, 0, block.count(), rows, out, rejects);
  }
  void decode_some(const Block& block, std::size_t first, std::size_t count, Rows& rows,
                   const std::string& out, RejectLines& rejects);

 private:
  struct Cell {  // a field of a record on its way into the row
    const Record& record;
    const Column& column;
    RejectLines& rejects;
  };

  void decode_record(const Record& record, std::size_t index, Rows& rows, RejectLines& rejects);
  void decode_number(const Cell& cell, double value, int status, Rows& rows);
  void decode_string(const Cell& cell, Rows& rows);
  void show_text(const Cell& cell, std::string_view text, Rows& rows);
  void show_iso(const Cell& cell, double value, Rows& rows);
  static void reject(const Cell& cell, std::optional<std::int64_t> status,
                     std::string_view message);
  static void reject_absent(const Cell& cell);
  void reject_short_record(const Record& record, RejectLines& rejects) const;

  FieldReader fields_;
  std::size_t record_length_;
  std::string scratch_;  // a value's text
};

}  // namespace iocv::tool
