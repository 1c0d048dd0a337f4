#include "sqlite_rows.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <utility>

#include "failure.h"

namespace iocv::tool {
namespace {

// A packed value is its kind, and then a double, or the bytes of a text behind their number.
enum class Kind : char { missing, number, text };

template <class T>
void append_bytes(std::string& out, T value) {
  out.append(reinterpret_cast<const char*>(&value), sizeof value);
}

template <class T>
T take_bytes(const char*& at) {
  T value;
  std::memcpy(&value, at, sizeof value);
  at += sizeof value;
  return value;
}

std::string quoted(const std::string& name) {
  std::string text = "\"";
  for (const char c : name) text.append(c == '"' ? 2 : 1, c);
  return text + '"';
}

}  // namespace

void SqliteRows::number(double value) {
  if (std::isnan(value)) return text("nan");  // the database would take it as NULL
  append_bytes(out_, Kind::number);
  append_bytes(out_, value);
}

void SqliteRows::text(std::string_view value) {
  append_bytes(out_, Kind::text);
  append_bytes(out_, static_cast<std::uint32_t>(value.size()));
  out_ += value;
}

void SqliteRows::missing() { append_bytes(out_, Kind::missing); }

SqliteFile::SqliteFile(const std::string& path, const std::vector<LayoutField>& fields)
    : file_(path), columns_(fields.size()) {
  if (file_.temporary().empty()) {
    throw UsageError("a database must be a file of its own, '" + path + "' is none");
  }
  try {
    // Another process's temporary file cannot be in its place, so the database needs no journal.
    check(sqlite3_open_v2(file_.temporary().c_str(), &database_, SQLITE_OPEN_READWRITE, nullptr));
    run("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA locking_mode = EXCLUSIVE");
    create_table(fields);
  } catch (...) {
    close();
    throw;
  }
}

SqliteFile::~SqliteFile() { close(); }

void SqliteFile::close() {
  sqlite3_finalize(std::exchange(insert_, nullptr));
  sqlite3_close(std::exchange(database_, nullptr));
}

void SqliteFile::check(int code) {
  if (code == SQLITE_OK || code == SQLITE_DONE) return;
  const int error = database_ ? sqlite3_system_errno(database_) : 0;
  if (code == SQLITE_FULL) throw FileError("write", file_.name(), ENOSPC);
  if (error != 0) throw FileError("write", file_.name(), error);
  throw FileError("write", file_.name(), database_ ? sqlite3_errmsg(database_) : "out of memory");
}

void SqliteFile::run(const std::string& sql) {
  check(sqlite3_exec(database_, sql.c_str(), nullptr, nullptr, nullptr));
}

void SqliteFile::create_table(const std::vector<LayoutField>& fields) {
  const int most = sqlite3_limit(database_, SQLITE_LIMIT_COLUMN, -1);
  if (std::ssize(fields) > most) {
    throw UsageError("a table of the database has at most " + std::to_string(most) +
                     " columns, the layout " + std::to_string(fields.size()));
  }
  std::string columns;
  std::string marks;
  for (const LayoutField& field : fields) {
    columns.append(columns.empty() ? "" : ", ").append(quoted(field.name));
    columns += field.show == Show::number ? " REAL" : " TEXT";
    marks += marks.empty() ? "?" : ", ?";
  }
  const std::string create = "CREATE TABLE records (" + columns + ")";
  if (sqlite3_exec(database_, create.c_str(), nullptr, nullptr, nullptr) == SQLITE_ERROR) {
    throw UsageError(std::string("the layout makes no table: ") + sqlite3_errmsg(database_));
  }
  const std::string insert = "INSERT INTO records VALUES (" + marks + ")";
  check(sqlite3_prepare_v2(database_, insert.c_str(), -1, &insert_, nullptr));
}

void SqliteFile::write(std::string_view rows) {
  if (rows.empty()) return;
  run("BEGIN");
  const char* at = rows.data();
  const char* const end = at + rows.size();
  while (at < end) {
    for (int column = 1; column <= static_cast<int>(columns_); ++column) {
      switch (take_bytes<Kind>(at)) {
        case Kind::missing: check(sqlite3_bind_null(insert_, column)); break;
        case Kind::number:
          check(sqlite3_bind_double(insert_, column, take_bytes<double>(at)));
          break;
        case Kind::text: {
          const auto size = static_cast<int>(take_bytes<std::uint32_t>(at));
          check(sqlite3_bind_text(insert_, column, at, size, SQLITE_STATIC));
          at += size;
          break;
        }
      }
    }
    check(sqlite3_step(insert_));
    check(sqlite3_reset(insert_));
  }
  run("COMMIT");
}

// The header of a database counts its transactions, twice; the same rows shall make the same file
// whatever their number.
void SqliteFile::settle_header() {
  constexpr off_t kCounters[] = {24, 92};
  constexpr unsigned char kOne[] = {0, 0, 0, 1};
  Descriptor file(::open(file_.temporary().c_str(), O_WRONLY | O_CLOEXEC));
  for (const off_t counter : kCounters) {
    if (::pwrite(file.number(), kOne, sizeof kOne, counter) != sizeof kOne) {
      throw FileError("write", file_.name(), errno);
    }
  }
  if (!file.close()) throw FileError("write", file_.name(), errno);
}

void SqliteFile::commit() {
  close();
  settle_header();
  file_.commit();
}

}  // namespace iocv::tool
