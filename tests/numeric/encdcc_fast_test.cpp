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
                    tried<Reach::eight_columns, Reach::nine_digits, Reach::twelve_digits>,
                    iocv::write_f_plain);
}

// Without the form for nine digits, so that the one for twelve writes short numbers, too.
TEST(FastF, TheFormForTwelveDigitsWritesShortNumbers) {
  test::expect_same(300'000, iocv::kHasFastPaths ? 0.1 : 0, 16, 6, tried<Reach::twelve_digits>,
                    iocv::write_f_plain);
}

TEST(FastF, WritesWhatThePlainPathWrites) { compare(1'000'000); }
TEST(LongFastF, WritesWhatThePlainPathWrites) { compare(25'000'000); }

}  // namespace
