// Calendar arithmetic.
#include "datetime/calendar.h"

#include <iocv/iocv.h>

namespace {

TEST(DayNumber, KnownDays) {
  struct Case {
    double year;
    double month;
    double day;
    double number;
  };
  constexpr Case kCases[] = {
      {1582, 10, 15, 1},
      {1900, 1, 1, 115861},
      {2000, 2, 29, 152444},
      {2024, 1, 1, 161151},
  };
  for (const Case& c : kCases) {
    const iocv::Read<double> read = iocv::day_number(c.year, c.month, c.day, iocv::Settings{});
    EXPECT_EQ(read.value, c.number);
    EXPECT_EQ(read.status, iocv::Status::ok);
  }
}

}  // namespace
