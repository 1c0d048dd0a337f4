// Values into the fields of records.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "code_page_writer.h"
#include "columns.h"
#include "input_rows.h"

namespace iocv::tool {

// Why a value is not in its field.
struct Refusal {
  std::optional<std::int64_t> status;  // of the conversion; none when there was none
  std::string message;
};

// Writes under the library's settings, which must be those of the layout.
class Encoder {
 public:
  explicit Encoder(const Layout& layout);

  const std::vector<Column>& columns() const noexcept { return columns_; }

  // Begins a blank record.
  void begin();

  // Writes a value into its field. Numbers are rounded as their format does; a value that would
  // lose anything else is refused, and its field is as it was before. A missing one is blank
  // under every format of text and the missing number under RB8; other bytes have none.
  std::optional<Refusal> put(std::size_t column, const Given& given);

  // Writes the missing value, or where the format has none leaves the field's bytes blank.
  void put_missing(std::size_t column);

  // The record with its line's end.
  std::string_view record() const noexcept { return record_; }

 private:
  std::optional<Refusal> put_string(const Column& column, const Given& given);
  std::optional<Refusal> put_number(const Column& column, const Given& given);
  std::optional<Refusal> take_number(const Column& column, const Given& given, double& value);
  std::optional<Refusal> take_field_text(const Column& column, const std::string& text,
                                         double& value);
  std::optional<Refusal> put_missing_number(const Column& column, double value);
  std::optional<Refusal> check_kept(const Column& column, double value);
  std::optional<Refusal> check_decimals(const Column& column, double value);
  std::optional<Refusal> place(const Column& column);

  std::vector<Column> columns_;
  CodePageWriter code_page_;
  bool overlapping_;
  bool lines_;
  std::string blank_;  // a record of blanks with its line's end
  std::string record_;
  std::string written_;  // marks the bytes of fields, where they overlap
  std::string field_;    // at work
  std::string text_;     // in the code page
};

// The bytes that a record takes up: its fixed length, or that of the longest line.
std::size_t record_bytes(const Layout& layout);

}  // namespace iocv::tool
