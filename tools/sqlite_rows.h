// Rows in a SQLite database.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "files.h"
#include "layout.h"
#include "rows.h"

struct sqlite3;
struct sqlite3_stmt;

namespace iocv::tool {

// Packs rows for SqliteFile::write, so that any thread can make them.
class SqliteRows final : public Rows {
 public:
  explicit SqliteRows(std::string& out) : out_(out) {}

  void number(double value) override;
  void text(std::string_view value) override;
  void moment(std::string_view value) override { text(value); }
  void missing() override;
  void end_row() override {}

 private:
  std::string& out_;
};

// A new database with the table `records`, a column a field: REAL for numbers, TEXT for strings and
// all that is shown as text. Missing values are NULL, not-a-number is the text "nan". It takes its
// place when it is committed, and the same rows always make the same bytes.
class SqliteFile {
 public:
  SqliteFile(const std::string& path, const std::vector<LayoutField>& fields);
  ~SqliteFile();
  SqliteFile(const SqliteFile&) = delete;
  SqliteFile& operator=(const SqliteFile&) = delete;

  // Inserts packed rows in one transaction.
  void write(std::string_view rows);
  void commit();

 private:
  void check(int code);
  void run(const std::string& sql);
  void create_table(const std::vector<LayoutField>& fields);
  void close();
  void settle_header();

  OutputFile file_;
  sqlite3* database_ = nullptr;
  sqlite3_stmt* insert_ = nullptr;
  std::size_t columns_;
};

}  // namespace iocv::tool
