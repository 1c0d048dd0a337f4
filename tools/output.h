// Where decoded rows go: a file of some form.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "layout.h"
#include "rows.h"

namespace iocv::tool {

enum class OutputForm { csv, jsonl, sqlite };

// The form that a file's name ends in: .csv, .jsonl, .ndjson, .sqlite, .sqlite3, .db; else CSV.
OutputForm form_of_name(std::string_view path);

// The form of a name: csv, jsonl or sqlite; throws UsageError for any other.
OutputForm form_named(std::string_view name);

// Takes the bytes that rows of its own append, in order, from one thread at a time.
class Output {
 public:
  virtual ~Output() = default;

  // Rows whose bytes `write` takes; each thread has its own.
  virtual std::unique_ptr<Rows> rows(std::string& out) = 0;
  virtual void write(std::string_view rows) = 0;
  virtual void commit() = 0;
};

// "-" is standard output, which cannot be a database. The layout must live as long as the output.
std::unique_ptr<Output> open_output(const std::string& path, OutputForm form, const Layout& layout);

}  // namespace iocv::tool
