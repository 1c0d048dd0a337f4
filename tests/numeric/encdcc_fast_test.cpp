// The fast path of F beside its plain path.
#include "numeric/encdcc_fast.h"

#include "fast_paths.h"
#include "numeric/obof.h"

namespace {

void compare(std::size_t values) {
  test::expect_same(
      values, iocv::kHasFastPaths ? 0.3 : 0, 16, 6,
      [](auto... arguments) { return iocv::write_number_fast(arguments...); }, iocv::write_f_plain);
}

TEST(FastF, WritesWhatThePlainPathWrites) { compare(1'000'000); }
TEST(LongFastF, WritesWhatThePlainPathWrites) { compare(25'000'000); }

}  // namespace
