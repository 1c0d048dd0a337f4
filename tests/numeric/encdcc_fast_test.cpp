// The fast path of F beside its plain path.
#include "numeric/encdcc_fast.h"

#include "fast_paths.h"
#include "frame/attempts.h"
#include "numeric/obof.h"

namespace {

using Nine = iocv::FixedWriter<iocv::Reach::nine_digits>;
using Eleven = iocv::FixedWriter<iocv::Reach::eleven_digits>;
using Sixteen = iocv::FixedWriter<iocv::Reach::sixteen_digits>;

void compare(std::size_t values) {
  test::expect_same(values, iocv::kHasFastPaths ? 0.3 : 0, 16, 6,
                    iocv::written_by<Nine, Eleven, Sixteen>, iocv::write_f_plain);
}

// Alone, so that it writes short numbers, too.
TEST(FastF, TheFormForSixteenDigitsWritesShortNumbers) {
  test::expect_same(300'000, iocv::kHasFastPaths ? 0.1 : 0, 16, 6, iocv::written_by<Sixteen>,
                    iocv::write_f_plain);
}

template <class Attempt>
void expect_digits(std::int64_t number, std::size_t width) {
  char expected[16];
  std::int64_t rest = number;
  for (std::size_t i = width; i-- > 0; rest /= 10) {
    expected[i] = rest == 0 && i + 1 != width ? ' ' : static_cast<char>('0' + rest % 10);
  }
  char field[16];
  ASSERT_EQ(iocv::written_by<Attempt>({field, static_cast<std::int64_t>(width)},
                                      static_cast<double>(number), 0, iocv::Settings()),
            iocv::kHasFastPaths);
  if (iocv::kHasFastPaths) {
    ASSERT_EQ(std::string_view(field, width), std::string_view(expected, width));
  }
}

// Digits come from the quotients by 1000 and 1000000, which change at multiples of 1000 only.
TEST(FastF, NineDigitsAreRightAroundEveryThousand) {
  for (std::int64_t number = 0; number < 1'000'000'000; number += number % 1000 == 0 ? 999 : 1) {
    expect_digits<Nine>(number, 9);
  }
}

// Of more digits the quotient by 1000000 is another product; what it and its rest are made of are
// numbers of up to six digits.
TEST(FastF, ElevenDigitsAreRightAroundEveryMillion) {
  constexpr std::int64_t kMillion = 1'000'000;
  for (std::int64_t number = 0; number < 100'000 * kMillion;
       number += number % kMillion == 0 ? kMillion - 1 : 1) {
    expect_digits<Eleven>(number, 11);
  }
  for (std::int64_t rest = 0; rest < kMillion; ++rest) {
    expect_digits<Eleven>((rest % 100'000) * kMillion + rest, 11);
  }
}

template <class Attempt>
void expect_answer(double value, std::int64_t width, std::int64_t decimals, bool answer) {
  char field[16];
  EXPECT_EQ(iocv::written_by<Attempt>({field, width}, value, decimals, iocv::Settings()),
            answer && iocv::kHasFastPaths)
      << test::described(value) << ' ' << width << '.' << decimals;
}

TEST(FastF, AnswersWhereItSaysItDoes) {
  expect_answer<Nine>(999999999, 10, 0, true);
  expect_answer<Nine>(1e9, 10, 0, false);
  expect_answer<Nine>(1, 11, 0, false);
  expect_answer<Nine>(99999.9999, 10, 4, true);
  expect_answer<Nine>(99999.99996, 10, 4, false);
  expect_answer<Nine>(-999.99, 7, 2, true);
  expect_answer<Nine>(-999.99, 6, 2, false);
  expect_answer<Nine>(-.25, 3, 2, false);
  expect_answer<Nine>(.25, 3, 2, true);
  expect_answer<Nine>(test::kMissing, 8, 2, false);
  expect_answer<Nine>(test::kNan, 8, 2, false);
  expect_answer<Nine>(test::kInfinity, 8, 2, false);
  expect_answer<Nine>(1, 17, 0, false);
  expect_answer<Nine>(1, 8, 7, false);
  expect_answer<Eleven>(1, 10, 0, false);
  expect_answer<Eleven>(1, 11, 0, true);
  expect_answer<Eleven>(99999999999., 12, 0, true);
  expect_answer<Eleven>(1e11, 12, 0, false);
  expect_answer<Eleven>(9999999.9999, 12, 4, true);
  expect_answer<Eleven>(9999999.99996, 12, 4, false);
  expect_answer<Eleven>(-999999.9999, 12, 4, true);
  expect_answer<Eleven>(-1000000, 12, 4, false);
  expect_answer<Eleven>(1, 13, 0, false);
  expect_answer<Sixteen>(0x1p53 - 1, 16, 0, true);
  expect_answer<Sixteen>(0x1p53, 16, 0, false);
  expect_answer<Sixteen>(999999999.999999, 16, 6, true);
  expect_answer<Sixteen>(999999999.9999995, 16, 6, false);
  expect_answer<Sixteen>(9999999999999.99, 16, 2, true);
  expect_answer<Sixteen>(-9999999999999.99, 16, 2, false);
}

TEST(FastF, WritesWhatThePlainPathWrites) { compare(1'000'000); }
TEST(LongFastF, WritesWhatThePlainPathWrites) { compare(25'000'000); }

}  // namespace
