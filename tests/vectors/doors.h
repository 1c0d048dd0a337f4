// Every door that a conversion may enter by, with the rows that it serves.
#pragma once

#include <iocv/column.h>
#include <iocv/iocv.h>

#include <cstdint>
#include <limits>

#include "rows.h"

namespace vectors {

struct ReadDoor {
  const char* name;
  bool (*serves)(const Row& row);
  void (*read)(const Row& row, const char* text, OBS* value, std::int64_t* status);
};

struct WriteDoor {
  const char* name;
  bool (*serves)(const Row& row);
  void (*write)(const Row& row, const OBS* value, char* field, std::int64_t* status);
};

inline constexpr std::int64_t kFirst = 1;    // where a field begins in its base
inline constexpr std::int64_t kCap = 32767;  // the widest field behind the capped doors

inline bool always(const Row&) { return true; }

inline bool has_int_decimals(const Row& row) {
  return row.decimals <= std::numeric_limits<int>::max() &&
         row.decimals >= std::numeric_limits<int>::min();
}

inline bool is_capped(const Row& row) { return row.width <= kCap; }

inline iocv::column::Format format_of(const Row& row) {
  return {row.type, row.width, row.decimals};
}

inline std::size_t stride_of(const Row& row) { return static_cast<std::size_t>(row.width); }

inline constexpr ReadDoor kReadDoors[] = {
    {"IocvConvertInput", has_int_decimals,
     [](const Row& row, const char* text, OBS* value, std::int64_t* status) {
       *status = IocvConvertInput(text, static_cast<unsigned>(row.width), row.type,
                                  static_cast<int>(row.decimals), value);
     }},
    {"obicvn_", always,
     [](const Row& row, const char* text, OBS* value, std::int64_t* status) {
       obicvn_(text, &kFirst, &row.type, &row.width, &row.decimals, value, status);
     }},
    // The reader of code 85 needs the zero byte that the capped doors put behind the text.
    {"obicv_", [](const Row& row) { return is_capped(row) && row.type != 85; },
     [](const Row& row, const char* text, OBS* value, std::int64_t* status) {
       obicv_(text, &row.type, &row.width, &row.decimals, value, status, row.width);
     }},
    // Columns read the custom currencies as F.
    {"column::read",
     [](const Row& row) { return is_capped(row) && (row.type < 33 || row.type > 37); },
     [](const Row& row, const char* text, OBS* value, std::int64_t* status) {
       const auto settings = iocv::column::Settings::current();
       const auto format = format_of(row);
       std::int32_t answer = 0;
       if (row.is_string()) {
         iocv::column::read_strings(text, stride_of(row), 1, format, settings, value->bytes,
                                    iocv::column::string_value_size(format), &answer);
       } else {
         iocv::column::read(text, stride_of(row), 1, format, settings, &value->number, &answer);
       }
       *status = answer;
     }},
};

inline constexpr WriteDoor kWriteDoors[] = {
    {"IocvConvertOutput", has_int_decimals,
     [](const Row& row, const OBS* value, char* field, std::int64_t* status) {
       *status = IocvConvertOutput(value, row.type, static_cast<int>(row.decimals), field,
                                   static_cast<unsigned>(row.width));
     }},
    {"obocvn_", always,
     [](const Row& row, const OBS* value, char* field, std::int64_t* status) {
       obocvn_(value, &row.type, &row.width, &row.decimals, field, &kFirst, status);
     }},
    {"obocv_", is_capped,
     [](const Row& row, const OBS* value, char* field, std::int64_t* status) {
       obocv_(value, &row.type, &row.width, &row.decimals, field, status, row.width);
     }},
    // Columns leave code 86 to the doors that know the Java machine.
    {"column::write", [](const Row& row) { return is_capped(row) && row.type != 86; },
     [](const Row& row, const OBS* value, char* field, std::int64_t* status) {
       const auto settings = iocv::column::Settings::current();
       const auto format = format_of(row);
       std::int32_t answer = 0;
       if (row.is_string()) {
         iocv::column::write_strings(value->bytes, iocv::column::string_value_size(format), 1,
                                     format, settings, field, stride_of(row), &answer);
       } else {
         iocv::column::write(&value->number, 1, format, settings, field, stride_of(row), &answer);
       }
       *status = answer;
     }},
};

}  // namespace vectors
