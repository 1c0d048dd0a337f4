// Calls one conversion many times: instructions ROW CALLS. Without arguments it names the rows.
// bench/count counts their instructions.
#include <iocv/iocv.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "records.h"

namespace {

constexpr std::size_t kRecords = 1000;

struct WriteRow {
  std::string_view name;
  std::int32_t type;
  std::int64_t width;
  std::int64_t decimals;
  bool through_door;  // IocvConvertOutput instead of the dispatcher
};

constexpr WriteRow kWriteRows[] = {
    {"write_F8_2", VELT_Format::F, 8, 2, false},
    {"write_F12_4", VELT_Format::F, 12, 4, false},
    {"write_F5_0", VELT_Format::F, 5, 0, false},
    {"write_F16_6", VELT_Format::F, 16, 6, false},
    {"write_E12_3", VELT_Format::E, 12, 3, false},
    {"write_COMMA12_2", VELT_Format::COMMA, 12, 2, false},
    {"write_DOLLAR12_2", VELT_Format::DOLLAR, 12, 2, false},
    {"write_DOT12_2", VELT_Format::DOT, 12, 2, false},
    {"write_PCT8_2", VELT_Format::PCT, 8, 2, false},
    {"write_P8_2", VELT_Format::P, 8, 2, false},
    {"write_Z8_2", VELT_Format::Z, 8, 2, false},
    {"write_IB4", VELT_Format::IB, 4, 0, false},
    {"write_PIB8", VELT_Format::PIB, 8, 0, false},
    {"convert_write_F8_2", VELT_Format::F, 8, 2, true},
};

void write_all(const WriteRow& row, std::size_t calls) {
  const std::vector<double> values =
      bench::output_values(kRecords, row.type, row.width, row.decimals);
  char field[64];
  std::int64_t status = 0;
  std::size_t i = 0;
  for (; calls != 0; --calls) {
    const OBS value = {.number = values[i]};
    if (row.through_door) {
      IocvConvertOutput(&value, row.type, static_cast<int>(row.decimals), field,
                        static_cast<unsigned>(row.width));
    } else {
      obocv_(&value, &row.type, &row.width, &row.decimals, field, &status, row.width);
    }
    if (++i == kRecords) i = 0;
  }
}

struct ReadRow {
  std::string_view name;
  std::int32_t type;
  std::int64_t width;
  std::int64_t decimals;
  bool through_door;  // IocvConvertInput instead of the dispatcher
};

constexpr ReadRow kReadRows[] = {
    {"read_F8_2", VELT_Format::F, 8, 2, false},
    {"read_F12_4", VELT_Format::F, 12, 4, false},
    {"read_F8_0", VELT_Format::F, 8, 0, false},
    {"read_E12_3", VELT_Format::E, 12, 3, false},
    {"read_COMMA12_2", VELT_Format::COMMA, 12, 2, false},
    {"read_P8_2", VELT_Format::P, 8, 2, false},
    {"read_Z8_2", VELT_Format::Z, 8, 2, false},
    {"read_IB4", VELT_Format::IB, 4, 0, false},
    {"read_PIB8", VELT_Format::PIB, 8, 0, false},
    {"convert_read_F8_2", VELT_Format::F, 8, 2, true},
};

void read_all(const ReadRow& row, std::size_t calls) {
  const bench::Fields fields = bench::written_fields(kRecords, row.type, row.width, row.decimals);
  OBS value = {};
  std::int64_t status = 0;
  std::size_t i = 0;
  for (; calls != 0; --calls) {
    if (row.through_door) {
      IocvConvertInput(fields.field(i), static_cast<unsigned>(row.width), row.type,
                       static_cast<int>(row.decimals), &value);
    } else {
      obicv_(fields.field(i), &row.type, &row.width, &row.decimals, &value, &status, row.width);
    }
    if (++i == kRecords) i = 0;
  }
}

}  // namespace

int main(int count, char** arguments) {
  for (const WriteRow& row : kWriteRows) {
    if (count != 3) {
      std::printf("%s\n", row.name.data());
    } else if (row.name == arguments[1]) {
      write_all(row, std::strtoull(arguments[2], nullptr, 10));
      return 0;
    }
  }
  for (const ReadRow& row : kReadRows) {
    if (count != 3) {
      std::printf("%s\n", row.name.data());
    } else if (row.name == arguments[1]) {
      read_all(row, std::strtoull(arguments[2], nullptr, 10));
      return 0;
    }
  }
  return count == 3 ? 1 : 0;
}
