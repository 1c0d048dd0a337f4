// The rejects file: what could not be read, a JSON object a line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

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
