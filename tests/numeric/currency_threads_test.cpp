// Custom currencies and threads: who may run at once.
#include <iocv/iocv.h>

#include <atomic>
#include <functional>
#include <thread>

#include "support/guarded.h"

namespace {

constexpr int kCurrencies = 5;
constexpr int kSlots = 5;

// Restores the five empty patterns and the empty slots.
class CurrencyThreads : public testing::Test {
 protected:
  ~CurrencyThreads() override {
    for (int i = 0; i < kCurrencies; ++i) currencyFormat::Set(i, "");
    for (int slot = 0; slot < kSlots; ++slot) currencyFormat::Save(slot);
  }
};

// Runs work(0), work(1), ... on a thread each.
void at_once(std::size_t count, const std::function<void(std::size_t)>& work) {
  std::vector<std::thread> threads;
  for (std::size_t t = 0; t < count; ++t) threads.emplace_back(work, t);
  for (std::thread& thread : threads) thread.join();
}

// Every way to set a pattern; the index runs from 0.
using Setter = void (*)(int index, std::string pattern);
constexpr Setter kSetters[] = {
    [](int index, std::string pattern) { currencyFormat::Set(index, pattern); },
    [](int index, std::string pattern) { CSetCustomCurrency(index, pattern.c_str()); },
    [](int index, std::string pattern) { IocvSetCCFormat(index, pattern.data()); },
    [](int index, std::string pattern) {
      const std::int64_t n = index + 1;
      setcustomcurrency_(&n, pattern.data(), static_cast<std::int64_t>(pattern.size()));
    },
    [](int index, std::string pattern) {
      const std::int32_t option = 2;
      const std::int32_t n = index + 1;
      std::string data(reinterpret_cast<const char*>(&n), sizeof n);
      data.append(pattern.c_str(), pattern.size() + 1);
      iocvset_(&option, data.data());
    },
};

// Short and long texts, so that a torn one would show and would free what another reads.
const std::string kPatterns[] = {"-,$ beyond sixteen bytes,,CR", "a.b.c.d", ",,,",
                                 "x,y,z,and a long negative suffix behind all"};

void set_all(std::size_t round) {
  for (int i = 0; i < kCurrencies; ++i) {
    const auto index = round + static_cast<std::size_t>(i);
    kSetters[index % std::size(kSetters)](i, kPatterns[round % std::size(kPatterns)]);
  }
}

void expect_whole_patterns() {
  for (int i = 0; i < kCurrencies; ++i) {
    const std::string found = currencyFormat::Get(i);
    EXPECT_NE(std::find(std::begin(kPatterns), std::end(kPatterns), found), std::end(kPatterns))
        << found;
  }
}

TEST_F(CurrencyThreads, MaySetSaveAndRestoreAtOnceThroughEveryDoor) {
  set_all(0);
  for (int slot = 0; slot < kSlots; ++slot) currencyFormat::Save(slot);
  at_once(4, [](std::size_t thread) {
    for (std::size_t round = 0; round < 1500; ++round) {
      set_all(round + thread);
      currencyFormat::Save(static_cast<int>(thread));
      const auto slot = static_cast<std::int64_t>((thread + 1) % kSlots);
      restorecustomcurrency_(&slot);
    }
  });
  expect_whole_patterns();
  for (int slot = 0; slot < kSlots; ++slot) {
    currencyFormat::Restore(slot);
    expect_whole_patterns();
  }
}

TEST_F(CurrencyThreads, SaveAndRestoreMoveAllFiveTogether) {
  for (int slot = 0; slot < 2; ++slot) {
    for (int i = 0; i < kCurrencies; ++i) currencyFormat::Set(i, kPatterns[slot]);
    currencyFormat::Save(slot);
  }
  for (int attempt = 0; attempt < 200; ++attempt) {
    at_once(3, [](std::size_t thread) {
      if (thread == 0) {
        for (int round = 0; round < 20; ++round) currencyFormat::Restore(round % 2);
      } else {
        currencyFormat::Save(1 + static_cast<int>(thread));
      }
    });
    for (int slot = 2; slot < 4; ++slot) {
      currencyFormat::Restore(slot);
      for (int i = 1; i < kCurrencies; ++i) {
        ASSERT_EQ(currencyFormat::Get(i), currencyFormat::Get(0));
      }
    }
  }
}

bool is_custom_currency(int code) { return code >= VELT_Format::CCA && code <= VELT_Format::CCE; }

constexpr double kValues[] = {1234.5, -0.001, 0, 13166064000.0, 45015.25, 1e300};

// The fields and the values read back under every format but CCA..CCE, and what those read.
std::string conversions_without_currencies() {
  std::string results;
  for (const iocv::FormatInfo& row : iocv::format_table()) {
    const VELT_Format format(static_cast<VELT_Format::FormatType>(row.code), 16, 2);
    for (const double value : kValues) {
      const OBS stored[2] = {{.number = value}, {.number = value}};
      std::string field = "          1234.5";
      int status = 0;
      if (!is_custom_currency(row.code)) status = ToString(stored, format, field.data());
      OBS read[2] = {};
      const int read_status = FromString(field.data(), format, read);
      results += field + std::to_string(status) + " " + std::to_string(read_status);
      results.append(read[0].bytes, sizeof read[0].bytes);
    }
  }
  return results;
}

TEST_F(CurrencyThreads, OtherConversionsRunWhileCurrenciesChange) {
  const std::string alone = conversions_without_currencies();
  constexpr std::size_t kChangers = 2;
  std::atomic<std::size_t> changing = kChangers;
  std::atomic<int> passes = 0;
  at_once(kChangers + 2, [&](std::size_t thread) {
    if (thread < kChangers) {
      for (std::size_t round = 0; round < 5000; ++round) {
        set_all(round + thread);
        currencyFormat::Save(static_cast<int>(thread));
        currencyFormat::Restore(static_cast<int>(thread));
      }
      --changing;
      return;
    }
    do {
      if (conversions_without_currencies() != alone) ADD_FAILURE() << "a field differs";
      ++passes;
    } while (changing > 0);
  });
  EXPECT_GE(passes, 2);
  EXPECT_EQ(conversions_without_currencies(), alone);
}

// What currencies show and tell, one after the other.
std::string all_of_the_currencies() {
  std::string results;
  for (int i = 0; i < kCurrencies; ++i) {
    const VELT_Format format(static_cast<VELT_Format::FormatType>(VELT_Format::CCA + i), 40, 2);
    for (const double value : kValues) {
      const OBS stored = {.number = value};
      results += ToString(&stored, format) + "|";
    }
    const std::int64_t n = i + 1;
    std::int64_t lengths[4];
    getcustomcurrencylengths_(&n, &lengths[0], &lengths[1], &lengths[2], &lengths[3]);
    for (const std::int64_t length : lengths) results += std::to_string(length) + " ";
    char buffer[256];
    std::int64_t count = 0;
    getcustomcurrencyescaped_(&n, buffer, &count, sizeof buffer);
    results.append(buffer, static_cast<std::size_t>(count));
    results += currencyFormat::Get(i) + currencyFormat::GetCCX(i).getSuffix() + "\n";
  }
  return results;
}

TEST_F(CurrencyThreads, ManyMayShowCurrenciesWhileNobodyChangesThem) {
  set_all(0);
  const std::string alone = all_of_the_currencies();
  EXPECT_NE(alone.find("$ beyond sixteen bytes1,234.50|"), alone.npos);
  at_once(4, [&](std::size_t) {
    for (int pass = 0; pass < 200; ++pass) {
      if (all_of_the_currencies() != alone) ADD_FAILURE() << "a field or a getter differs";
    }
  });
}

}  // namespace
