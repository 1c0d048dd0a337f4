// The fast paths of PCT, Z, P, IB and PIB beside their plain paths.
#include "fast_paths.h"
#include "frame/attempts.h"
#include "frame/obiib.h"
#include "frame/obip.h"
#include "frame/obipib.h"
#include "frame/oboib_fast.h"
#include "frame/obop_fast.h"
#include "numeric/obopct.h"
#include "numeric/obopct_fast.h"
#include "numeric/oboz.h"
#include "numeric/oboz_fast.h"

namespace {

using iocv::Reach;
using iocv::written_by;

double share(double least) { return iocv::kHasFastPaths ? least : 0; }

void compare_percent(std::size_t values) {
  test::expect_same(
      values, share(0.3), 17, 6,
      written_by<iocv::PercentWriter<Reach::nine_digits>, iocv::PercentWriter<Reach::eleven_digits>,
                 iocv::PercentWriter<Reach::sixteen_digits>>,
      iocv::write_percent_plain);
}

void compare_zoned(std::size_t values) {
  test::expect_same(
      values, share(0.3), 16, 6,
      written_by<iocv::ZonedWriter<Reach::nine_digits>, iocv::ZonedWriter<Reach::sixteen_digits>>,
      iocv::write_z_plain);
}

void compare_packed(std::size_t values) {
  test::expect_same(values, share(0.1), 16, 6, written_by<iocv::PackedWriter>, iocv::write_p_plain);
}

void compare_signed(std::size_t values) {
  test::expect_same(values, share(0.2), 8, 6, written_by<iocv::BinaryWriter<true>>,
                    iocv::write_ib_plain);
}

void compare_unsigned(std::size_t values) {
  test::expect_same(values, share(0.1), 8, 6, written_by<iocv::BinaryWriter<false>>,
                    iocv::write_pib_plain);
}

constexpr std::size_t kSome = 1'000'000;
constexpr std::size_t kMany = 25'000'000;

TEST(FastPercent, WritesWhatThePlainPathWrites) { compare_percent(kSome); }
TEST(FastZ, WritesWhatThePlainPathWrites) { compare_zoned(kSome); }
TEST(FastP, WritesWhatThePlainPathWrites) { compare_packed(kSome); }
TEST(FastIB, WritesWhatThePlainPathWrites) { compare_signed(kSome); }
TEST(FastPIB, WritesWhatThePlainPathWrites) { compare_unsigned(kSome); }
TEST(LongFastPercent, WritesWhatThePlainPathWrites) { compare_percent(kMany); }
TEST(LongFastZ, WritesWhatThePlainPathWrites) { compare_zoned(kMany); }
TEST(LongFastP, WritesWhatThePlainPathWrites) { compare_packed(kMany); }
TEST(LongFastIB, WritesWhatThePlainPathWrites) { compare_signed(kMany); }
TEST(LongFastPIB, WritesWhatThePlainPathWrites) { compare_unsigned(kMany); }

}  // namespace
