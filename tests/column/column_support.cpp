#include "column/column_support.h"

#include <iocv/iocv.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

#include "support/values.h"

namespace test {
namespace {

constexpr std::int64_t kNoConverter = 1105;

template <class List>
const auto& any_of(const List& list, std::mt19937_64& random) {
  return list[random() % std::size(list)];
}

bool is_date_or_time(int type) {
  return (type >= VELT_Format::DATE && type <= VELT_Format::WKYR) || type == VELT_Format::EDATE ||
         type == VELT_Format::SDATE || type == 85 || type == 86;
}

std::string letters(std::size_t size, std::string_view alphabet, std::mt19937_64& random) {
  std::string text(size, ' ');
  for (char& byte : text) byte = any_of(alphabet, random);
  return text;
}

std::string bytes(std::size_t size, std::mt19937_64& random) {
  std::string text(size, ' ');
  for (char& byte : text) byte = static_cast<char>(random());
  return text;
}

}  // namespace

const std::vector<int>& all_types() {
  static const std::vector<int> types = [] {
    std::vector<int> list;
    for (int type = 0; type <= 46; ++type) list.push_back(type);
    for (const int type : {84, 85, 86, 87, 255, 256 + 5, -1, std::numeric_limits<int>::min(),
                           std::numeric_limits<int>::max()}) {
      list.push_back(type);
    }
    return list;
  }();
  return types;
}

double sample_value(int type, std::mt19937_64& random) {
  switch (random() % 8) {
    case 0: return any_of(special_values(), random);
    case 1: return any_double(random);
    case 2: return kMissing;
    case 3: return static_cast<double>(random() % 400);
    default: break;
  }
  if (!is_date_or_time(type)) return ordinary_double(random);
  const double day = static_cast<double>(random() % 3'100'000);
  const double second = static_cast<double>(random() % 86'400'000) / 1000;
  return random() % 4 == 0 ? second : 86400 * day + second;
}

std::string sample_field(const Format& format, std::mt19937_64& random) {
  static constexpr std::string_view kTexts[] = {
      "1-JAN-2000",
      "31/12/99",
      "12/31/1999",
      "1999.12.31",
      "01012000",
      "4 Q 2001",
      "JAN 2000",
      "2 WK 2001",
      "2000-060",
      "MONDAY",
      "XII",
      "1:30",
      "1:30:15.25",
      "5 12:30",
      "1-JAN-2000 12:30:15",
      "-123.5",
      "$1,234.50",
      "1.234,50",
      "12.5%",
      "1E5",
      "0012L",
      "4A6B",
      "2000-01-01 12:30:15",
      "T1230",
      "  02:05",
      "4G",
      ".",
      "000123",
      "1.5 x",
      "-0",
      "\xC3\xA9\xC3",
      "29-FEB-01",
      "12345678901234567",
      "1e400",
      "- 5",
  };
  const auto width = static_cast<std::size_t>(std::max<std::int64_t>(format.width, 0));
  switch (random() % 8) {
    case 0: return std::string(width, ' ');
    case 1: return bytes(width, random);
    case 2: return letters(width, "0123456789", random);
    case 3: return letters(width, "0123456789 .,-+:/$%EJQWKabF", random);
    case 4:
    case 5: {
      std::string text(any_of(kTexts, random));
      if (random() % 2 == 0 && text.size() < width) text.insert(0, width - text.size(), ' ');
      text.resize(width, ' ');
      return text;
    }
    default: break;
  }
  if (is_string(format.type)) return letters(width, "0123456789ABCDEFabcdef", random);
  return write_alone(sample_value(format.type, random), format, std::string(width, ' ')).field;
}

std::string sample_string(std::size_t size, std::mt19937_64& random) {
  switch (random() % 4) {
    case 0: return bytes(size, random);
    case 1: return std::string(size, ' ');
    default: return letters(size, "abcXYZ 0123456789\xC3\xA9", random);
  }
}

Written write_alone(double value, const Format& format, const std::string& before) {
  if (format.type == 86 && value != kMissing) return {before, kNoConverter};
  const OBS stored = {.number = value};
  Written written = {before, -1};
  obocv_(&stored, &format.type, &format.width, &format.decimals, written.field.data(),
         &written.status, format.width);
  return written;
}

Written write_alone(const std::string& value, const Format& format, const std::string& before) {
  std::vector<OBS> stored(value.size() / sizeof(OBS) + 1);
  std::memcpy(stored.data(), value.data(), value.size());
  Written written = {before, -1};
  obocv_(stored.data(), &format.type, &format.width, &format.decimals, written.field.data(),
         &written.status, format.width);
  return written;
}

ReadNumber read_alone(const std::string& field, const Format& format, double before) {
  const bool currency = format.type >= VELT_Format::CCA && format.type <= VELT_Format::CCE;
  const std::int32_t type = currency ? int{VELT_Format::F} : format.type;
  OBS value = {.number = before};
  std::int64_t status = -1;
  obicv_(field.data(), &type, &format.width, &format.decimals, &value, &status, format.width);
  return {value.number, status};
}

ReadString read_alone(const std::string& field, const Format& format, const std::string& before) {
  std::vector<OBS> value(before.size() / sizeof(OBS) + 1);
  std::memcpy(value.data(), before.data(), before.size());
  ReadString read = {before, -1};
  obicv_(field.data(), &format.type, &format.width, &format.decimals, value.data(), &read.status,
         format.width);
  std::memcpy(read.bytes.data(), value.data(), before.size());
  return read;
}

void change_process_settings() {
  constexpr double kSmall = 0.01;
  const std::int32_t missing_character = 1;
  const std::int32_t century = 3;
  const std::array<std::int32_t, 2> mode_and_begin = {1, 1950};
  iocvset_(&missing_character, "#");
  iocvset_(&century, mode_and_begin.data());
  iocvsetdeccharcomma_();
  iocvsetsmall_(&kSmall);
  cmnglb_.system_missing = -99;
  cmnglb_.blank_value = 7;
  cmnsys_.leading_zero = 1;
  CSetCustomCurrency(0, "-,$,,CR");
  CSetCustomCurrency(1, "(.EUR .:.)");
  CSetCustomCurrency(2, ",,%,");
  CSetCustomCurrency(3, "-.'.EUR..");
  CSetCustomCurrency(4, "a,b,c,d");
}

}  // namespace test
