// The fast path of F beside its plain path.
#include "numeric/encdcc_fast.h"

#include "fast_paths.h"
#include "frame/attempts.h"
#include "numeric/obof.h"

namespace {

using Nine = iocv::FixedWriter<iocv::Reach::nine_digits>;
using Sixteen = iocv::FixedWriter<iocv::Reach::sixteen_digits>;

void compare(std::size_t values) {
  test::expect_same(values, iocv::kHasFastPaths ? 0.3 : 0, 16, 6, iocv::written_by<Nine, Sixteen>,
                    iocv::write_f_plain);
}

// Without the form for nine digits, so that the one for sixteen writes short numbers, too.
TEST(FastF, TheFormForSixteenDigitsWritesShortNumbers) {
  test::expect_same(300'000, iocv::kHasFastPaths ? 0.1 : 0, 16, 6, iocv::written_by<Sixteen>,
                    iocv::write_f_plain);
}

// Digits come from the quotients by 1000 and 1000000, which change at multiples of 1000 only.
TEST(FastF, NineDigitsAreRightAroundEveryThousand) {
  const iocv::Settings settings;
  for (std::int64_t number = 0; number < 1'000'000'000; number += number % 1000 == 0 ? 999 : 1) {
    char expected[9];
    std::int64_t rest = number;
    for (std::size_t i = 9; i-- > 0; rest /= 10) {
      expected[i] = rest == 0 && i != 8 ? ' ' : static_cast<char>('0' + rest % 10);
    }
    char field[9];
    ASSERT_EQ(iocv::written_by<Nine>({field, 9}, static_cast<double>(number), 0, settings),
              iocv::kHasFastPaths);
    if (iocv::kHasFastPaths) {
      ASSERT_EQ(std::string_view(field, 9), std::string_view(expected, 9));
    }
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
  expect_answer<Nine>(999999999, 12, 0, true);
  expect_answer<Nine>(1e9, 12, 0, false);
  expect_answer<Nine>(1, 13, 0, false);
  expect_answer<Nine>(99999.9999, 12, 4, true);
  expect_answer<Nine>(99999.99996, 12, 4, false);
  expect_answer<Nine>(-999.99, 7, 2, true);
  expect_answer<Nine>(-999.99, 6, 2, false);
  expect_answer<Nine>(-.25, 3, 2, false);
  expect_answer<Nine>(.25, 3, 2, true);
  expect_answer<Nine>(test::kMissing, 8, 2, false);
  expect_answer<Nine>(test::kNan, 8, 2, false);
  expect_answer<Nine>(test::kInfinity, 8, 2, false);
  expect_answer<Nine>(1, 17, 0, false);
  expect_answer<Nine>(1, 8, 7, false);
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
