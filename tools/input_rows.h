// Rows of values read from CSV or JSON Lines: cut out of the file one after the other, and parsed
// on any number of threads.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "files.h"
#include "layout.h"

namespace iocv::tool {

// A value as its row gives it.
struct Given {
  enum class Kind { missing, number, text };
  Kind kind = Kind::missing;
  double number = 0;
  std::string text;  // UTF-8
};

struct Row {
  std::int64_t number;    // from 1, names not counted
  std::int64_t offset;    // of its first byte in the file, from 0
  std::string_view text;  // as it stands in the file, with the line's end
};

// Some whole rows of a file.
class RowBlock {
 public:
  // Forgets its rows; what is added next lies at that offset in the file, the first row of it has
  // that number.
  void begin(std::int64_t number, std::int64_t offset);
  void add(std::string_view row);
  void add_other(std::size_t bytes) { size_ += bytes; }  // that are no row

  std::size_t count() const noexcept { return rows_.size(); }
  std::int64_t first_number() const noexcept { return number_; }
  std::size_t size() const noexcept { return size_; }  // bytes of the file
  Row row(std::size_t index) const noexcept;

 private:
  struct Place {
    std::size_t from, length;  // in text_
    std::size_t offset;        // in the block
  };

  std::string text_;
  std::vector<Place> rows_;
  std::int64_t number_ = 1;
  std::int64_t offset_ = 0;
  std::size_t size_ = 0;
};

// The lines of a file, each with its line feed.
class Lines {
 public:
  explicit Lines(InputFile& file) : file_(file), buffer_(1 << 16) {}

  // Appends the next line; false at the end of the file.
  bool append_to(std::string& text);
  std::int64_t position() const noexcept { return position_; }

  // Throws FileError for a row that is longer than anybody's.
  void check_length(std::size_t row) const;

 private:
  InputFile& file_;
  std::vector<char> buffer_;
  std::string_view rest_;
  std::int64_t position_ = 0;
};

enum class RowForm { csv, jsonl };

// Cuts rows out of a file, in blocks of about the given number of bytes. CSV begins with a line of
// names, and a row of it ends with the first line in which all quotes are closed. A row of JSON
// Lines is a line; blank ones are none.
class RowReader {
 public:
  using BlockType = RowBlock;

  RowReader(InputFile& file, RowForm form, std::size_t block);

  // The line of names as it stands in the file; empty where there is none.
  const std::string& head() const noexcept { return head_; }

  // False at the end of the file.
  bool next(RowBlock& block);

 private:
  bool take_row();

  Lines lines_;
  RowForm form_;
  std::size_t block_;
  std::string head_;
  std::string row_;          // at work
  std::int64_t number_ = 1;  // of the next row
};

// Takes rows apart; each thread has one of its own.
class RowParser {
 public:
  virtual ~RowParser() = default;

  // The values of a row in the order of the layout's fields. Returns why it is no row, or nothing
  // when it is one.
  virtual std::string parse(std::string_view row, std::vector<Given>& values) = 0;
};

// CSV under a line of names, each field's once and in any order; throws UsageError for another.
// Lines end in LF or CR LF, quotes as RFC 4180 has them; an empty value is missing.
std::unique_ptr<RowParser> csv_parser(std::string_view head, const Layout& layout);

// JSON Lines: an object a line, its keys the fields' names; null and absent ones are missing.
std::unique_ptr<RowParser> json_parser(const Layout& layout);

}  // namespace iocv::tool
