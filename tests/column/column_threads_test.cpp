// Columns on many threads at once, with settings that change elsewhere.
#include <iocv/iocv.h>

#include <atomic>
#include <thread>

#include "column/column_support.h"
#include "support/records_guard.h"
#include "support/values.h"

namespace {

using test::Format;
using test::Settings;

constexpr std::size_t kCount = 40;
constexpr std::size_t kThreads = 8;
constexpr std::int64_t kWidth = 16;

// The fields and values of every type, the same for every thread.
struct Samples {
  std::string fields;
  std::vector<double> values;
  std::string strings;
};

Samples samples_of(int type) {
  std::mt19937_64 random = test::random_source();
  const Format format(type, kWidth, 2);
  Samples samples;
  for (std::size_t i = 0; i < kCount; ++i) {
    samples.fields += test::sample_field(format, random);
    samples.values.push_back(test::sample_value(type, random));
    samples.strings += test::sample_string(kWidth, random);
  }
  return samples;
}

// All that comes of the samples of all types.
std::string converted(const std::vector<Samples>& all, const Settings& settings) {
  std::string result;
  std::vector<std::int32_t> statuses(kCount);
  const auto keep = [&result](const auto& list) {
    result.append(reinterpret_cast<const char*>(list.data()), list.size() * sizeof list[0]);
  };
  for (std::size_t i = 0; i < all.size(); ++i) {
    const Format format(test::all_types()[i], kWidth, 2);
    std::vector<double> values(kCount, 7.0);
    std::string strings(kCount * kWidth, '?');
    std::string fields(kCount * kWidth, '~');
    iocv::column::read(all[i].fields.data(), kWidth, kCount, format, settings, values.data(),
                       statuses.data());
    keep(values);
    keep(statuses);
    iocv::column::write(all[i].values.data(), kCount, format, settings, fields.data(), kWidth,
                        statuses.data());
    keep(fields);
    keep(statuses);
    iocv::column::read_strings(all[i].fields.data(), kWidth, kCount, format, settings,
                               strings.data(), kWidth, statuses.data());
    keep(strings);
    iocv::column::write_strings(all[i].strings.data(), kWidth, kCount, format, settings,
                                fields.data(), kWidth, statuses.data());
    keep(fields);
  }
  return result;
}

class ColumnThreads : public testing::Test {
 protected:
  ColumnThreads() {
    for (const int type : test::all_types()) samples_.push_back(samples_of(type));
  }
  ~ColumnThreads() override { currencyFormat::Restore(kSlot); }

  // What the threads make of the samples, thread i under settings[i % size].
  std::vector<std::string> all_at_once(const std::vector<Settings>& settings) const {
    std::vector<std::string> results(kThreads);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < kThreads; ++i) {
      threads.emplace_back([this, &results, &settings, i] {
        for (int pass = 0; pass < 3; ++pass) {
          results[i] = converted(samples_, settings[i % settings.size()]);
        }
      });
    }
    for (std::thread& thread : threads) thread.join();
    return results;
  }

  std::vector<Samples> samples_;

 private:
  static constexpr int kSlot = 4;
  [[maybe_unused]] const bool saved_ = currencyFormat::Save(kSlot);
  test::RecordsGuard records_;
};

// Two settings that share nothing.
std::vector<Settings> two_settings() {
  Settings other = {.system_missing_char = '#', .decimal = ',', .leading_zero = true};
  other.currencies.set(0, "-,$,,CR");
  return {Settings(), other};
}

TEST_F(ColumnThreads, EightConvertWhatOneConverts) {
  const std::vector<Settings> settings = two_settings();
  const std::string first = converted(samples_, settings[0]);
  const std::string second = converted(samples_, settings[1]);
  EXPECT_NE(first, second);
  const std::vector<std::string> results = all_at_once(settings);
  for (std::size_t i = 0; i < kThreads; ++i) {
    EXPECT_TRUE(results[i] == (i % 2 == 0 ? first : second)) << i;
  }
}

TEST_F(ColumnThreads, DoNotMindSettingsThatChangeElsewhere) {
  const std::vector<Settings> settings = two_settings();
  const std::string first = converted(samples_, settings[0]);
  const std::string second = converted(samples_, settings[1]);
  std::atomic<bool> done = false;
  std::thread changes([&done] {
    while (!done) {
      test::change_process_settings();
      const double date = 86400;
      obdtex_(&date);
      iocvsetdecchardot_();
      cmnglb_.system_missing = -1;
      cmasys_.system_missing = '?';
      for (int index = 0; index < 5; ++index) CSetCustomCurrency(index, "x,yy,zzz,");
    }
  });
  const std::vector<std::string> results = all_at_once(settings);
  done = true;
  changes.join();
  for (std::size_t i = 0; i < kThreads; ++i) {
    EXPECT_TRUE(results[i] == (i % 2 == 0 ? first : second)) << i;
  }
}

}  // namespace
