// Makes every kind of call on a thousand records each, under callgrind, which collects inside the
// entry points and is told here where a row ends: bench/count runs it and takes the figures apart.
//
// The rows: write/FORMAT and read/FORMAT through the dispatcher, convert_* through IocvConvert,
// column_* a field of a column.
#include <iocv/column.h>
#include <iocv/iocv.h>
#include <valgrind/callgrind.h>

#include <string>
#include <vector>

#include "records.h"

namespace {

using bench::Row;

constexpr std::size_t kCalls = 1000;

constexpr Row kMoreWritten[] = {
    {"F5.0", VELT_Format::F, 5},
    {"F16.6", VELT_Format::F, 16, 6},
    {"DOLLAR12.2", VELT_Format::DOLLAR, 12, 2},
    {"DOT12.2", VELT_Format::DOT, 12, 2},
    {"PCT8.2", VELT_Format::PCT, 8, 2},
    {"EDATE10", VELT_Format::EDATE, 10},
};

void end_row(const std::string& name) {
  CALLGRIND_DUMP_STATS_AT(name.c_str());
  CALLGRIND_ZERO_STATS;
}

template <class Writer>
void write_all(const std::string& name, const Row& row, const std::vector<double>& values,
               Writer* writer) {
  char field[64];
  std::int64_t status = 0;
  for (const double number : values) {
    const OBS value = {.number = number};
    writer(&value, &row.type, &row.width, &row.decimals, field, &status, row.width);
  }
  end_row(name);
}

template <class Reader>
void read_all(const std::string& name, const Row& row, const std::string& fields, Reader* reader) {
  const auto width = static_cast<std::size_t>(row.width);
  OBS value = {};
  std::int64_t status = 0;
  for (std::size_t at = 0; at < fields.size(); at += width) {
    reader(&fields[at], &row.type, &row.width, &row.decimals, &value, &status, row.width);
  }
  end_row(name);
}

void convert_out(const OBS* value, const std::int32_t* type, const std::int64_t* width,
                 const std::int64_t* decimals, char* text, std::int64_t*, std::int64_t) {
  IocvConvertOutput(value, *type, static_cast<int>(*decimals), text, static_cast<unsigned>(*width));
}

void convert_in(const char* text, const std::int32_t* type, const std::int64_t* width,
                const std::int64_t* decimals, OBS* value, std::int64_t*, std::int64_t) {
  IocvConvertInput(text, static_cast<unsigned>(*width), *type, static_cast<int>(*decimals), value);
}

void count_writers(const Row& row) {
  const std::string format(row.name);
  std::vector<double> values = bench::make_values(row, kCalls);
  write_all("write/" + format, row, values, obocv_);
  write_all("convert_write/" + format, row, values, convert_out);
  std::string fields(kCalls * static_cast<std::size_t>(row.width), ' ');
  iocv::column::write(values.data(), kCalls, {row.type, row.width, row.decimals}, {}, fields.data(),
                      static_cast<std::size_t>(row.width));
  end_row("column_write/" + format);
}

void count_readers(const Row& row) {
  const std::string format(row.name);
  std::vector<double> values = bench::make_values(row, kCalls);
  std::string fields = bench::make_fields(row, values);
  CALLGRIND_ZERO_STATS;
  read_all("read/" + format, row, fields, obicv_);
  read_all("convert_read/" + format, row, fields, convert_in);
  iocv::column::read(fields.data(), static_cast<std::size_t>(row.width), kCalls,
                     {row.type, row.width, row.decimals}, {}, values.data());
  end_row("column_read/" + format);
}

}  // namespace

int main() {
  for (const Row& row : bench::kWritten) count_writers(row);
  for (const Row& row : kMoreWritten) {
    write_all("write/" + std::string(row.name), row, bench::make_values(row, kCalls), obocv_);
  }
  for (const Row& row : bench::kRead) count_readers(row);
}
