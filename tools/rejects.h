// The rejects file: what could not be read, a JSON object a line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files.h"

namespace iocv::tool {

// A field that could not be read, or a whole record: that has neither field nor format.
struct Reject {
  std::int64_t record;  // from 1
  std::int64_t offset;  // of the field in the file, from 0
  std::optional<std::string_view> field;
  std::optional<std::string_view> format;
  std::string_view raw;                // the bytes of the field that are there
  std::optional<std::int64_t> status;  // none when the conversion was never tried
  std::string_view message;
};

// Appends the reject as {"record": ..., "offset": ..., "field": ..., "format": ..., "raw_hex": ...,
// "status": ..., "message": ...} and a line feed.
void append_reject(std::string& lines, const Reject& reject);

// A record with rejects, and where what precedes and follows it lies in the texts that its block
// becomes: rows, or of rows records.
struct RejectedRecord {
  std::size_t index;           // in its block
  std::size_t output_before;   // bytes of output before the record's own
  std::size_t rejects_end;     // bytes of rejects up to its last one
  std::int64_t rejects_count;  // rejects up to its last one
};

// Rejects as lines of JSON, and the records that they belong to.
struct RejectLines {
  std::string text;
  std::int64_t count = 0;
  std::vector<RejectedRecord> records;

  void clear();
};

// Created by the first reject; without one, the file of an earlier run is removed.
class RejectsFile {
 public:
  explicit RejectsFile(std::string path) : path_(std::move(path)) {}

  const std::string& path() const noexcept { return path_; }
  void write(std::string_view lines);
  void commit();

 private:
  std::string path_;
  std::optional<OutputFile> file_;
};

}  // namespace iocv::tool
