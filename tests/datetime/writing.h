// Fields written by the date and time writers through their doors, between guards.
#pragma once

#include <date/date.h>
#include <gtest/gtest.h>
#include <iocv/iocv.h>

#include "datetime/calendar.h"
#include "support/guarded.h"
#include "support/values.h"

namespace test {

using Format = VELT_Format;

// The stored value of a date, by an independent calendar.
constexpr double on(int year, unsigned month, unsigned day, double seconds = 0) {
  constexpr date::sys_days origin = date::year{1582} / 10 / 14;
  const date::sys_days days = date::year{year} / date::month{month} / date::day{day};
  return static_cast<double>((days - origin).count()) * 86400 + seconds;
}

// Fields show a point unless a test says otherwise, whatever locale the program runs in.
class PointEnvironment : public testing::Environment {
  void SetUp() override { iocvsetdecchardot_(); }
};
inline testing::Environment* const kPoint = testing::AddGlobalTestEnvironment(new PointEnvironment);

enum class Door { dispatcher, flat };

inline void write_flat(int type, const double& value, const std::int64_t& width,
                       const std::int64_t& decimals, char* text, std::int64_t& status) {
  const std::int32_t code = type;
  switch (type) {
    case Format::DATE: return oboida_(&value, &width, &decimals, text, &status, width);
    case Format::ADATE:
    case Format::EDATE:
    case Format::SDATE: return oboada_(&value, &width, &decimals, text, &code, &status, width);
    case Format::JDATE: return obojda_(&value, &width, &decimals, text, &status, width);
    case Format::MOYR:
    case Format::QYR: return oboqmo_(&value, &width, &decimals, text, &status, &code, width);
    case Format::WKYR: return obowyr_(&value, &width, &decimals, text, &status, width);
    case Format::WKDAY:
    case Format::MONTH: return obowmo_(&value, &width, &decimals, text, &status, &code, width);
    case Format::TIME:
    case Format::DTIME: return obotim_(&value, &width, &decimals, text, &status, &code, width);
    case Format::DATETIME: return obodt_(&value, &width, &decimals, text, &status, width);
    default: FAIL() << "no flat writer for type " << type;
  }
}

// A field of one width that many values are written to.
class WrittenField {
 public:
  explicit WrittenField(std::int64_t width, Edge edge = Edge::end)
      : width_(width), buffer_(static_cast<std::size_t>(std::max<std::int64_t>(width, 0)), edge) {}

  std::int64_t write(int type, std::int64_t decimals, double value,
                     Door door = Door::dispatcher) const {
    // Every column has to be written, so none may show what it held before.
    std::memset(buffer_.data(), kBefore, buffer_.size());
    std::int64_t status = -7;
    const OBS stored = {.number = value};
    const std::int32_t code = type;
    if (door == Door::dispatcher) {
      obocv_(&stored, &code, &width_, &decimals, buffer_.data(), &status, width_);
    } else {
      write_flat(type, value, width_, decimals, buffer_.data(), status);
    }
    return status;
  }

  [[nodiscard]] std::string_view text() const { return {buffer_.data(), buffer_.size()}; }
  [[nodiscard]] bool intact() const { return buffer_.intact(); }

  static constexpr char kBefore = '\x01';

 private:
  std::int64_t width_;
  Guarded buffer_;
};

struct WritingCase {
  int type;
  std::int64_t width;
  std::int64_t decimals;
  double value;
  const char* field;
  std::int64_t status = 0;
};

// The case through every door, at both edges of a page.
inline void expect_written(const WritingCase& c) {
  for (const Door door : {Door::dispatcher, Door::flat}) {
    for (const Edge edge : {Edge::end, Edge::begin}) {
      const WrittenField field(c.width, edge);
      const std::int64_t status = field.write(c.type, c.decimals, c.value, door);
      EXPECT_TRUE(field.text() == c.field && status == c.status && field.intact())
          << "type " << c.type << " width " << c.width << " decimals " << c.decimals << " of "
          << c.value << ": |" << shown(field.text()) << "| " << status << ", not |"
          << shown(c.field) << "| " << c.status;
    }
  }
}

inline void expect_written(const std::vector<WritingCase>& cases) {
  for (const WritingCase& c : cases) expect_written(c);
}

}  // namespace test
