// Fast paths of writers beside their plain paths, over values of which more than half lie within a
// few thousand units in the last place of a boundary of rounding, of length or of the fast path.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include "frame/field.h"
#include "frame/settings.h"
#include "frame/status.h"
#include "support/guarded.h"
#include "support/values.h"

namespace test {

// x moved by some units in the last place, and of either sign.
inline double near(std::mt19937_64& random, double x) {
  static constexpr std::uint64_t kSpans[] = {1, 3, 20, 9000};
  const std::uint64_t span = kSpans[random() % 4];
  const std::uint64_t moved = std::bit_cast<std::uint64_t>(x) + random() % (2 * span + 1) - span;
  return std::bit_cast<double>(random() % 3 == 0 ? moved | std::uint64_t{1} << 63 : moved);
}

inline double random_power(std::mt19937_64& random, int least, int most) {
  const auto span = static_cast<std::uint64_t>(most - least + 1);
  return std::pow(10.0, least + static_cast<int>(random() % span));
}

// A value to be written with so many decimals.
inline double writer_value(std::mt19937_64& random, std::int64_t decimals) {
  const double scale = std::pow(10.0, static_cast<double>(decimals));
  const auto whole = [&] {
    return static_cast<double>(random() % static_cast<std::uint64_t>(random_power(random, 0, 15)));
  };
  switch (random() % 11) {
    case 10: {  // where digits are taken off in nines, and where every fraction rounds up
      const double high = std::floor(whole() / 1e8);
      const double unit = random() % 2 == 0 ? 1e9 : 0x1p29;
      return near(random, (high * unit - static_cast<double>(random() % 3) / 2) / scale);
    }
    case 0: return near(random, (whole() + 0.5) / scale);
    case 1: return near(random, whole() / scale);
    case 2: return near(random, random_power(random, -8, 16));
    case 3: return near(random, (random_power(random, 0, 16) - 0.5) / scale);
    case 4: return near(random, std::ldexp(1.0, static_cast<int>(random() % 60)) / scale);
    case 5:
      return random() % 2 == 0 ? any_double(random) : near(random, random_power(random, -300, 300));
    case 6: return special_values()[random() % special_values().size()];
    case 7:
      return near(random, random_power(random, -6, 14)) *
             std::ldexp(static_cast<double>(random()), -64);
    case 8: {  // a mantissa of 1 + decimals digits and, mostly, a half
      const double mantissa = scale * (1 + 9 * std::ldexp(static_cast<double>(random()), -64));
      const double half = random() % 3 == 0 ? 0 : 0.5;
      return near(random, (std::floor(mantissa) + half) * random_power(random, -32, 26));
    }
    default: return ordinary_double(random);
  }
}

inline iocv::Settings writer_settings(std::mt19937_64& random, double value) {
  iocv::Settings settings;
  settings.decimal = random() % 2 == 0 ? '.' : ',';
  settings.leading_zero = random() % 2 == 0;
  settings.system_missing_char = random() % 2 == 0 ? '.' : '#';
  switch (random() % 8) {
    case 0: settings.system_missing = 0; break;
    case 1: settings.system_missing = value; break;
    case 2: settings.system_missing = -value; break;
    case 3: settings.system_missing = -999; break;
    default: break;
  }
  return settings;
}

struct Shape {
  std::int64_t width;
  std::int64_t decimals;
};

// Mostly shapes of the fast paths, some around and far beyond them.
inline Shape writer_shape(std::mt19937_64& random, std::int64_t most_width,
                          std::int64_t most_decimals) {
  static constexpr std::int64_t kFar[] = {
      std::numeric_limits<std::int64_t>::min(), -1, 0, 17, 18, 19, 20, 7, 8, 9, 12, 300};
  const auto up_to = [&](std::int64_t most) {
    return static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(most + 1));
  };
  Shape shape = {1 + up_to(most_width - 1), up_to(most_decimals)};
  if (random() % 16 == 0) shape.width = std::min<std::int64_t>(kFar[random() % 11], 40);
  if (random() % 16 == 0) shape.decimals = kFar[random() % 12];
  return shape;
}

// Fast is (field, value, decimals, settings) -> whether it has written, Plain the same -> status.
// Counts values until so many have been compared; at least the given share must be the fast path's.
template <class Fast, class Plain>
void expect_same(std::size_t values, double least_share, std::int64_t most_width,
                 std::int64_t most_decimals, const Fast& fast, const Plain& plain) {
  SCOPED_TRACE(seed_text());
  std::mt19937_64 random = random_source();
  constexpr std::size_t kEdge = 24;
  char expected[2 * kEdge + 40];
  char actual[sizeof expected];
  char untouched[sizeof expected];
  std::memset(untouched, 'x', sizeof untouched);
  std::size_t answered = 0;
  for (std::size_t i = 0; i < values; ++i) {
    const auto [width, decimals] = writer_shape(random, most_width, most_decimals);
    const double value = writer_value(random, std::clamp<std::int64_t>(decimals, 0, 12));
    const iocv::Settings settings = writer_settings(random, value);
    std::memcpy(expected, untouched, sizeof expected);
    std::memcpy(actual, untouched, sizeof actual);
    const bool done = fast(iocv::Field(actual + kEdge, width), value, decimals, settings);
    iocv::Status status = iocv::Status::ok;
    if (done) {
      ++answered;
      status = plain(iocv::Field(expected + kEdge, width), value, decimals, settings);
    }
    if (std::memcmp(actual, expected, sizeof actual) != 0 || status != iocv::Status::ok) {
      FAIL() << described(value) << ", width " << width << ", decimals " << decimals
             << ", leading zero " << settings.leading_zero << ", status "
             << static_cast<std::int64_t>(status) << "\nfast  " << shown({actual, sizeof actual})
             << "\nplain " << shown({expected, sizeof expected});
    }
  }
  EXPECT_GE(static_cast<double>(answered), least_share * static_cast<double>(values));
  testing::Test::RecordProperty("answered", std::to_string(answered));
}

}  // namespace test
