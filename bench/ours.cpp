// The library's doors, and the floor: a call that does nothing, and a copy of the field.
#include <iocv/column.h>
#include <iocv/iocv.h>

#include <cstring>

#include "empty_call.h"
#include "harness.h"

namespace bench {
namespace {

using Writer = decltype(obocv_);
using Reader = decltype(obicv_);
using Output = decltype(IocvConvertOutput);
using Input = decltype(IocvConvertInput);

// All doors are called by their address, as a host does that looks them up.

void time_call(const Row& row, std::string_view subject, Writer* writer) {
  time_writer(row, subject, [=](const double* values, char* fields, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
      const OBS value = {.number = values[i]};
      std::int64_t status = 0;
      writer(&value, &row.type, &row.width, &row.decimals, fields, &status, row.width);
      benchmark::DoNotOptimize(status);
      fields += row.width;
    }
  });
}

void time_call(const Row& row, std::string_view subject, Reader* reader) {
  time_reader(row, subject, [=](const char* fields, double* values, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
      OBS value = {};
      std::int64_t status = 0;
      reader(fields, &row.type, &row.width, &row.decimals, &value, &status, row.width);
      benchmark::DoNotOptimize(status);
      values[i] = value.number;
      fields += row.width;
    }
  });
}

void time_call(const Row& row, std::string_view subject, Output* convert) {
  const auto width = static_cast<unsigned>(row.width);
  const auto decimals = static_cast<int>(row.decimals);
  time_writer(row, subject,
              [=, type = row.type](const double* values, char* fields, std::size_t count) {
                for (std::size_t i = 0; i < count; ++i) {
                  const OBS value = {.number = values[i]};
                  benchmark::DoNotOptimize(convert(&value, type, decimals, fields, width));
                  fields += width;
                }
              });
}

void time_call(const Row& row, std::string_view subject, Input* convert) {
  const auto width = static_cast<unsigned>(row.width);
  const auto decimals = static_cast<int>(row.decimals);
  time_reader(row, subject,
              [=, type = row.type](const char* fields, double* values, std::size_t count) {
                for (std::size_t i = 0; i < count; ++i) {
                  OBS value = {};
                  benchmark::DoNotOptimize(convert(fields, width, type, decimals, &value));
                  values[i] = value.number;
                  fields += width;
                }
              });
}

}  // namespace

void add_ours() {
  static const iocv::column::Settings settings;
  for (const Row& row : kWritten) {
    const iocv::column::Format format(row.type, row.width, row.decimals);
    time_call(row, "obocv_", obocv_);
    time_call(row, "IocvConvertOutput", IocvConvertOutput);
    time_writer(row, "column", [=](const double* values, char* fields, std::size_t count) {
      iocv::column::write(values, count, format, settings, fields,
                          static_cast<std::size_t>(format.width));
    });
  }
  for (const Row& row : kRead) {
    const iocv::column::Format format(row.type, row.width, row.decimals);
    time_call(row, "obicv_", obicv_);
    time_call(row, "IocvConvertInput", IocvConvertInput);
    time_reader(row, "column", [=](const char* fields, double* values, std::size_t count) {
      iocv::column::read(fields, static_cast<std::size_t>(format.width), count, format, settings,
                         values);
    });
  }
}

void add_floor() {
  time_call(kF8_2, "empty call", empty_write_call);
  time_call(kF8_2, "empty call", empty_read_call);
  for (const Row& row : kWritten) {
    const auto width = static_cast<std::size_t>(row.width);
    // From the column that is read; a copy's time does not depend on the bytes.
    const char* source = fields_of(row).data();
    time_writer(row, "memcpy", [=](const double* values, char* fields, std::size_t count) {
      const char* from = source + static_cast<std::size_t>(values - values_of(row).data()) * width;
      for (std::size_t i = 0; i < count; ++i) {
        std::memcpy(fields + i * width, from + i * width, width);
      }
    });
  }
  for (const Row& row : kRead) {
    const auto width = static_cast<std::size_t>(row.width);
    time_reader(row, "memcpy", [=](const char* fields, double*, std::size_t count) {
      for (std::size_t i = 0; i < count; ++i) {
        char copy[64];
        std::memcpy(copy, fields + i * width, width);
        benchmark::DoNotOptimize(copy);
      }
    });
  }
}

}  // namespace bench
