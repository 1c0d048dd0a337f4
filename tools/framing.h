// Files cut into records, block by block.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "files.h"

namespace iocv::tool {

struct Record {
  std::int64_t number;     // from 1
  std::int64_t offset;     // of its first byte in the file, from 0
  std::string_view bytes;  // without the line's end
};

struct Framing {
  std::int64_t length = 0;  // of each record; 0 for lines that end in LF
  bool crlf = false;        // a CR before the LF belongs to the line's end
};

// A run of whole records. It owns their bytes, and keeps its memory when it is filled again.
class Block {
 public:
  std::size_t count() const noexcept { return count_; }
  std::int64_t first_number() const noexcept { return number_; }
  std::size_t size() const noexcept { return bytes_.size(); }

  // The record of an index below count().
  Record record(std::size_t index) const noexcept;

  // The record as it stands in the file, with the line's end.
  std::string_view whole(std::size_t index) const noexcept;

  // Bytes in front of the first record: the rest of a line that was too long for the block before.
  std::string_view rest_of_line() const noexcept { return bytes_.substr(0, rest_); }

  // The distance between the records when all have one length, else 0.
  std::size_t stride() const noexcept { return length_; }
  // How many records are not cut off by the end of the file.
  std::size_t whole_records() const noexcept;

 private:
  friend class RecordReader;
  struct Line {
    std::size_t from, to, end;  // `to` before and `end` behind the line's end
  };

  std::vector<char> storage_;
  std::string_view bytes_;   // of the file, in storage_
  std::int64_t number_ = 1;  // of the first record
  std::int64_t offset_ = 0;  // of bytes_
  std::size_t count_ = 0;
  std::size_t rest_ = 0;
  std::size_t length_ = 0;
  std::vector<Line> lines_;
};

// Reads a file in blocks of about the given number of bytes. Memory does not grow with the file or
// its lines: of a line longer than both longest_line and the block only the beginning is a
// record.
class RecordReader {
 public:
  using BlockType = Block;
  static constexpr std::size_t kBlock = 1 << 18;
  static constexpr std::size_t kLongestLine = 1 << 20;

  RecordReader(InputFile& file, Framing framing, std::size_t block = kBlock,
               std::size_t longest_line = kLongestLine);

  // Skips whole records of a fixed length.
  void skip_records(std::int64_t count);

  // Fills the block with the next records; false at the end of the file. Only a block that holds
  // nothing but a part of an overlong line has no records. A file that does not end with a whole
  // record ends with a record of the bytes that are left.
  bool next(Block& block);

 private:
  std::size_t fill(Block& block, std::size_t from, std::size_t to);
  void take_records(Block& block);
  void take_lines(Block& block);
  void cut_lines(Block& block, std::size_t end);

  InputFile& file_;
  Framing framing_;
  std::size_t block_;
  std::size_t longest_line_;
  bool at_end_ = false;      // of the file
  bool inside_ = false;      // a line whose beginning was delivered
  std::string carried_;      // the beginning of a line that the last block did not end
  std::int64_t number_ = 1;  // of the next record
  std::int64_t offset_ = 0;  // of the next block
};

}  // namespace iocv::tool
