// The fast path of F beside its plain path.
#include "numeric/encdcc_fast.h"

#include "fast_paths.h"
#include "numeric/obof.h"

namespace {

using iocv::Reach;

template <Reach... kReaches>
bool tried(iocv::Field out, double value, std::int64_t decimals, const iocv::Settings& settings) {
  return (iocv::write_number_fast<kReaches>(out.data(), out.width(), value, decimals,
                                            iocv::GivenSettings{settings}) ||
          ...);
}

void compare(std::size_t values) {
  test::expect_same(values, iocv::kHasFastPaths ? 0.3 : 0, 16, 6,
                    tried<Reach::nine_digits, Reach::sixteen_digits>, iocv::write_f_plain);
}

// Without the form for nine digits, so that the one for sixteen writes short numbers, too.
TEST(FastF, TheFormForSixteenDigitsWritesShortNumbers) {
  test::expect_same(300'000, iocv::kHasFastPaths ? 0.1 : 0, 16, 6, tried<Reach::sixteen_digits>,
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
    ASSERT_EQ(tried<Reach::nine_digits>({field, 9}, static_cast<double>(number), 0, settings),
              iocv::kHasFastPaths);
    if (iocv::kHasFastPaths) {
      ASSERT_EQ(std::string_view(field, 9), std::string_view(expected, 9));
    }
  }
}

template <Reach kReach>
void expect_answer(double value, std::int64_t width, std::int64_t decimals, bool answer) {
  char field[16];
  EXPECT_EQ(tried<kReach>({field, width}, value, decimals, iocv::Settings()),
            answer && iocv::kHasFastPaths)
      << test::described(value) << ' ' << width << '.' << decimals;
}

TEST(FastF, AnswersWhereItSaysItDoes) {
  constexpr Reach kNine = Reach::nine_digits;
  constexpr Reach kSixteen = Reach::sixteen_digits;
  expect_answer<kNine>(999999999, 16, 0, true);
  expect_answer<kNine>(1e9, 16, 0, false);
  expect_answer<kNine>(99999.9999, 12, 4, true);
  expect_answer<kNine>(99999.99996, 12, 4, false);
  expect_answer<kNine>(-999.99, 7, 2, true);
  expect_answer<kNine>(-999.99, 6, 2, false);
  expect_answer<kNine>(-.25, 3, 2, false);
  expect_answer<kNine>(.25, 3, 2, true);
  expect_answer<kNine>(test::kMissing, 8, 2, false);
  expect_answer<kNine>(test::kNan, 8, 2, false);
  expect_answer<kNine>(test::kInfinity, 8, 2, false);
  expect_answer<kNine>(1, 17, 0, false);
  expect_answer<kNine>(1, 8, 7, false);
  expect_answer<kSixteen>(0x1p53 - 1, 16, 0, true);
  expect_answer<kSixteen>(0x1p53, 16, 0, false);
  expect_answer<kSixteen>(999999999.999999, 16, 6, true);
  expect_answer<kSixteen>(999999999.9999995, 16, 6, false);
  expect_answer<kSixteen>(9999999999999.99, 16, 2, true);
  expect_answer<kSixteen>(-9999999999999.99, 16, 2, false);
}

TEST(FastF, WritesWhatThePlainPathWrites) { compare(1'000'000); }
TEST(LongFastF, WritesWhatThePlainPathWrites) { compare(25'000'000); }

}  // namespace
