// Dates converted on many threads at once.
#include <thread>

#include "datetime/writing.h"
#include "support/records_guard.h"

namespace {

using test::Format;
using test::WrittenField;

constexpr int kTypes[] = {Format::DATE,  Format::TIME,  Format::DATETIME, Format::ADATE,
                          Format::JDATE, Format::DTIME, Format::WKDAY,    Format::MONTH,
                          Format::MOYR,  Format::QYR,   Format::WKYR,     Format::EDATE,
                          Format::SDATE};

// All fields of one pass over values and types, one after the other.
std::string all_fields(int first) {
  std::string fields;
  const WrittenField field(23);
  for (int i = 0; i < 400; ++i) {
    const double value = 86400.0 * (1 + (first + i) % 400 * 7681) + 3723.25 * (first + i);
    for (const int type : kTypes) {
      field.write(type, 2, value);
      fields += field.text();
    }
  }
  return fields;
}

TEST(DateThreads, EightAtOnceWriteWhatOneWrites) {
  const test::RecordsGuard guard;
  constexpr int kThreads = 8;
  std::vector<std::string> alone;
  for (int i = 0; i < kThreads; ++i) alone.push_back(all_fields(i * 50));
  std::vector<std::string> together(kThreads);
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&together, i] {
      for (int pass = 0; pass < 5; ++pass) {
        together[static_cast<std::size_t>(i)] = all_fields(i * 50);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(alone, together);
}

TEST(DateThreads, LeaveSomeThreadsFieldsInTheRecords) {
  const test::RecordsGuard guard;
  // One date for each thread, so that every field of the record must be one of theirs.
  std::vector<std::thread> threads;
  for (int year = 2001; year <= 2008; ++year) {
    threads.emplace_back([year] {
      const double value = test::on(year, 3, 4, 5 * 3600 + 6 * 60 + 7);
      const WrittenField field(11);
      for (int i = 0; i < 200; ++i) field.write(Format::DATE, 0, value, test::Door::flat);
      obdtex_(&value);
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_TRUE(cmndtm_.year >= 2001 && cmndtm_.year <= 2008) << cmndtm_.year;
  EXPECT_EQ(cmndtm_.month, 3);
  EXPECT_EQ(cmndtm_.day, 4);
  EXPECT_EQ(cmndtm_.hour, 5);
  EXPECT_EQ(cmndtm_.minute, 6);
  EXPECT_EQ(cmndtm_.seconds, 7);
  EXPECT_EQ(std::string(cmadtm_.month, 3), "MAR");
}

}  // namespace
