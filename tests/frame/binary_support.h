// What the tests of the binary formats share: the two doors of each format, in guarded fields.
#pragma once

#include <iocv/iocv.h>

#include "support/conversions.h"
#include "support/guarded.h"
#include "support/records_guard.h"
#include "support/values.h"

namespace test {

using ReadRoutine = decltype(&obiib_);
using WriteRoutine = decltype(&oboib_);

struct Format {
  const char* name;
  std::int32_t code;
  ReadRoutine read;
  WriteRoutine write;
};

constexpr Format IB = {"IB", 6, obiib_, oboib_};
constexpr Format PIBHEX = {"PIBHEX", 7, obipih_, obopih_};
constexpr Format P = {"P", 8, obip_, obop_};
constexpr Format PIB = {"PIB", 9, obipib_, obopib_};
constexpr Format PK = {"PK", 10, obipk_, obopk_};
constexpr Format RB = {"RB", 11, obirb_, oborb_};
constexpr Format RBHEX = {"RBHEX", 12, obirbh_, oborbh_};

// The bytes that "0A ff" names.
inline std::string bytes(std::string_view hexadecimal) {
  std::string result;
  for (std::size_t i = 0; i + 1 < hexadecimal.size(); i += 3) {
    result += static_cast<char>(std::stoi(std::string(hexadecimal.substr(i, 2)), nullptr, 16));
  }
  return result;
}

// Through the flat routine, without a guarded field: for walks over many values.
inline Reading read_plain(const Format& format, std::string_view field, std::int64_t decimals) {
  const auto width = static_cast<std::int64_t>(field.size());
  OBS obs = {.number = 12345};
  std::int64_t status = 99;
  format.read(field.data(), &width, &decimals, &obs, &status, width);
  return {obs.number, status};
}

// Through both doors, flush with an unmapped page at either end.
inline Reading read(const Format& format, std::string_view field, std::int64_t decimals) {
  const Reading expected = read_plain(format, field, decimals);
  const auto width = static_cast<std::int64_t>(field.size());
  for (const Edge edge : {Edge::end, Edge::begin}) {
    const Guarded guarded(field, edge);
    EXPECT_EQ(read_plain(format, {guarded.data(), field.size()}, decimals), expected);
    OBS obs = {.number = 12345};
    std::int64_t status = 99;
    obicv_(guarded.data(), &format.code, &width, &decimals, &obs, &status, width);
    EXPECT_EQ((Reading{obs.number, status}), expected);
  }
  return expected;
}

// Writes over sentinels.
inline std::int64_t write_over(const Format& format, char* field, std::int64_t width, double value,
                               std::int64_t decimals) {
  const OBS obs = {.number = value};
  std::int64_t status = 99;
  format.write(&obs, &width, &decimals, field, &status, width);
  return status;
}

inline Writing write_plain(const Format& format, double value, std::int64_t width,
                           std::int64_t decimals) {
  std::string field(static_cast<std::size_t>(width), Guarded::kSentinel);
  const std::int64_t status = write_over(format, field.data(), width, value, decimals);
  return {field, status};
}

inline Writing write(const Format& format, double value, std::int64_t width,
                     std::int64_t decimals) {
  const Writing expected = write_plain(format, value, width, decimals);
  for (const Edge edge : {Edge::end, Edge::begin}) {
    const Guarded flat(static_cast<std::size_t>(width), edge);
    const Guarded dispatched(static_cast<std::size_t>(width), edge);
    const std::int64_t status = write_over(format, flat.data(), width, value, decimals);
    EXPECT_EQ((Writing{flat.text(), status}), expected);
    const OBS obs = {.number = value};
    std::int64_t second = 99;
    obocv_(&obs, &format.code, &width, &decimals, dispatched.data(), &second, width);
    EXPECT_EQ((Writing{dispatched.text(), second}), expected);
    EXPECT_TRUE(flat.intact() && dispatched.intact());
  }
  return expected;
}

inline Reading value(double number) { return {number, 0}; }

struct ReadCase {
  const char* field;  // as "0A FF"
  std::int64_t decimals;
  Reading expected;
};

inline void expect_readings(const Format& format, const std::vector<ReadCase>& cases) {
  for (const ReadCase& c : cases) {
    EXPECT_EQ(read(format, bytes(c.field), c.decimals), c.expected)
        << format.name << " of " << c.field << ", decimals " << c.decimals;
  }
}

struct WriteCase {
  double value;
  std::int64_t width;
  std::int64_t decimals;
  const char* field;  // as "0A FF"
  std::int64_t status;
};

inline void expect_writings(const Format& format, const std::vector<WriteCase>& cases) {
  for (const WriteCase& c : cases) {
    EXPECT_EQ(write(format, c.value, c.width, c.decimals), (Writing{bytes(c.field), c.status}))
        << format.name << c.width << "." << c.decimals << " of " << described(c.value);
  }
}

// Fields of characters, which no number of decimals changes.
struct TextCase {
  const char* text;
  Reading expected;
};

inline void expect_texts(const Format& format, const std::vector<TextCase>& cases) {
  for (const TextCase& c : cases) {
    for (const std::int64_t decimals : {std::int64_t{0}, std::int64_t{3}, INT64_MIN}) {
      EXPECT_EQ(read(format, c.text, decimals), c.expected) << format.name << " |" << c.text << "|";
    }
  }
}

struct ShownCase {
  double value;
  std::int64_t width;
  const char* text;
  std::int64_t status = 0;
};

inline void expect_shown(const Format& format, const std::vector<ShownCase>& cases) {
  for (const ShownCase& c : cases) {
    for (const std::int64_t decimals : {std::int64_t{0}, std::int64_t{3}, INT64_MAX}) {
      EXPECT_EQ(write(format, c.value, c.width, decimals), (Writing{c.text, c.status}))
          << format.name << c.width << " of " << described(c.value);
    }
  }
}

constexpr std::int64_t kSweepDecimals[] = {
    -5, -4, -3, -2, -1, 0,  1,  2,  3,  4,  5,   6,   7,    8,         9,        10,
    11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 308, 400, -400, INT64_MIN, INT64_MAX};

// Calls check(writing, value, decimals) for every special value, width and number of decimals, each
// written at either edge of an unmapped page.
template <class Check>
void sweep(const Format& format, const std::vector<std::int64_t>& widths, Check check) {
  for (const std::int64_t width : widths) {
    const Guarded at_end(static_cast<std::size_t>(width), Edge::end);
    const Guarded at_begin(static_cast<std::size_t>(width), Edge::begin);
    for (const std::int64_t decimals : kSweepDecimals) {
      for (const double value : special_values()) {
        std::memset(at_end.data(), Guarded::kSentinel, at_end.size());
        std::memset(at_begin.data(), Guarded::kSentinel, at_begin.size());
        const std::int64_t status = write_over(format, at_end.data(), width, value, decimals);
        const std::int64_t again = write_over(format, at_begin.data(), width, value, decimals);
        ASSERT_EQ(status, again);
        ASSERT_EQ(std::memcmp(at_end.data(), at_begin.data(), at_end.size()), 0);
        check(Writing{at_end.text(), status}, value, decimals);
        if (testing::Test::HasFailure()) {
          FAIL() << format.name << width << "." << decimals << " of " << described(value);
        }
      }
    }
    ASSERT_TRUE(at_end.intact() && at_begin.intact());
  }
}

inline std::vector<std::int64_t> widths_to(std::int64_t last,
                                           std::initializer_list<std::int64_t> more = {}) {
  std::vector<std::int64_t> widths;
  for (std::int64_t width = 0; width <= last; ++width) widths.push_back(width);
  widths.insert(widths.end(), more);
  return widths;
}

}  // namespace test
