// Files cut into records.
#pragma once

#include <cstdint>
#include <span>
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

// Reads a file in blocks and cuts them into records. Memory does not grow with the file or its
// records: a line longer than a block is delivered as its first block of bytes.
class RecordReader {
 public:
  static constexpr std::size_t kBlock = 1 << 20;

  RecordReader(InputFile& file, Framing framing, std::size_t block = kBlock);

  // The next records; empty at the end of the file. They and their bytes stay until the next call.
  // A file that does not end with a whole record ends with a record of the bytes that are left.
  std::span<const Record> next();

 private:
  void cut_records();
  void cut_lines();
  void fill();
  void deliver(std::size_t length);
  void skip(std::size_t length);
  bool skip_rest_of_line();

  InputFile& file_;
  Framing framing_;
  std::vector<char> buffer_;
  std::string_view rest_;  // of the buffer, not yet cut
  bool at_end_ = false;    // of the file
  bool inside_ = false;    // a line whose first block was delivered
  std::int64_t number_ = 0;
  std::int64_t offset_ = 0;  // of rest_
  std::vector<Record> records_;
};

}  // namespace iocv::tool
