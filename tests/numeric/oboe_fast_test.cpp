// The fast path of E beside its plain path.
#include "numeric/oboe_fast.h"

#include "fast_paths.h"
#include "frame/attempts.h"
#include "numeric/oboe.h"

namespace {

void compare(std::size_t values) {
  test::expect_same(values, iocv::kHasFastPaths ? 0.1 : 0, 16, 6,
                    iocv::written_by<iocv::ExponentialWriter>, iocv::write_e_plain);
}

TEST(FastE, WritesWhatThePlainPathWrites) { compare(1'000'000); }
TEST(LongFastE, WritesWhatThePlainPathWrites) { compare(40'000'000); }

}  // namespace
