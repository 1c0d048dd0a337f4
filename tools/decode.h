// Records to rows under a layout.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "csv.h"
#include "framing.h"
#include "layout.h"
#include "typed_value.h"

namespace iocv::tool {

// Rejects as lines of JSON, and how many they are.
struct RejectLines {
  std::string text;
  std::int64_t count = 0;
};

// The library's settings must be those of the layout while a decoder works.
class Decoder {
 public:
  explicit Decoder(const Layout& layout);

  void header(CsvRows& rows) const;

  // Appends the record's row, and a reject for each field that fails or whose value is kept with a
  // warning. A failed field is empty in its row. A last record that is too short for the layout's
  // record length is one reject and no row.
  void decode(const Record& record, CsvRows& rows, RejectLines& rejects);

 private:
  struct Column {
    std::string name;
    std::string format_text;
    VELT_Format format;
    Show show;
    std::size_t from;  // first byte in the record
    std::size_t width;
    std::size_t string_bytes;  // that a string's field stands for
  };
  struct Cell {  // a field of a record on its way into the row
    const Record& record;
    const Column& column;
    std::string_view bytes;
    RejectLines& rejects;
  };

  static Column column_of(const LayoutField& field);
  std::string_view field_of(const Record& record, const Column& column);
  void decode_field(const Cell& cell, CsvRows& rows);
  void show_text(const Cell& cell, std::string_view text, CsvRows& rows);
  void show_iso(const Cell& cell, CsvRows& rows);
  static void reject(const Cell& cell, std::optional<std::int64_t> status,
                     std::string_view message);
  void reject_short_record(const Record& record, RejectLines& rejects) const;

  std::vector<Column> columns_;
  std::size_t record_length_;
  ShortLines short_lines_;
  StoredValue value_;    // of the field at work
  std::string padded_;   // a field that its line does not reach or fill
  std::string scratch_;  // a value's text
};

}  // namespace iocv::tool
