// Rows of comma-separated values for many records at once: the same bytes as those of CsvRows.
//
// A record is ordinary, and its row written here without a call for each value, when
//  - it is whole, holds all fields of the layout, and each of them was read with status 0;
//  - its strings, and fields shown as text, are ASCII without commas, quotes, CR, LF or zero bytes:
//    they stand in any code page and in a CSV as they are, but for the blanks at their end;
//  - its dates and times have a form in ISO 8601 of at most kCommonRoom bytes.
// All other records, and layouts with AHEX fields or rows of more than kLongestRow bytes, are left
// to the calls. Numbers and moments come from the functions that the calls use, too.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "columns.h"
#include "csv.h"
#include "value_text.h"

namespace iocv::tool {

class CsvRunRows final : public CsvRows {
 public:
  // The library's settings must be those of the layout.
  CsvRunRows(const Layout& layout, std::string& out);

  std::size_t take_ordinary(const RecordRun& run, std::size_t first) override;

 private:
  enum class Look { number, moment, text, string };
  struct Cell {
    Look look;
    IsoForm form;
    std::size_t from;
    std::size_t width;
  };

  char* put_row(char* at, const RecordRun& run, std::size_t index);
  char* put_cell(char* at, const Cell& cell, std::string_view record, double value);
  char* put_moment(char* at, double value, IsoForm form);

  std::string& out_;
  std::vector<Cell> cells_;
  std::size_t record_bytes_ = 0;  // of an ordinary record, at least
  std::size_t row_room_ = 0;      // 0 when no record is ordinary
  std::uint64_t missing_;         // the bits of the system-missing number
  std::vector<char> rows_;        // not yet appended
  std::string scratch_;
};

}  // namespace iocv::tool
