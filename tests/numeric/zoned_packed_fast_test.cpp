// The fast paths of PCT, Z, P, IB and PIB beside their plain paths.
#include "fast_paths.h"
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

using iocv::Field;
using iocv::GivenSettings;
using iocv::Reach;
using iocv::Settings;

// A fast path in the form that the comparison calls.
template <auto... kFast>
bool tried(Field out, double value, std::int64_t decimals, const Settings& settings) {
  return (kFast(out.data(), out.width(), value, decimals, GivenSettings{settings}) || ...);
}

double share(double least) { return iocv::kHasFastPaths ? least : 0; }

void compare_percent(std::size_t values) {
  test::expect_same(values, share(0.3), 17, 6,
                    tried<iocv::write_percent_fast<Reach::nine_digits, GivenSettings>,
                          iocv::write_percent_fast<Reach::sixteen_digits, GivenSettings>>,
                    iocv::write_percent_plain);
}

void compare_zoned(std::size_t values) {
  test::expect_same(values, share(0.3), 16, 6,
                    tried<iocv::write_zoned_fast<Reach::eight_columns, GivenSettings>,
                          iocv::write_zoned_fast<Reach::twelve_digits, GivenSettings>>,
                    iocv::write_z_plain);
}

void compare_packed(std::size_t values) {
  test::expect_same(values, share(0.1), 16, 6, tried<iocv::write_packed_fast<GivenSettings>>,
                    iocv::write_p_plain);
}

void compare_signed(std::size_t values) {
  test::expect_same(values, share(0.2), 8, 6, tried<iocv::write_binary_fast<true, GivenSettings>>,
                    iocv::write_ib_plain);
}

void compare_unsigned(std::size_t values) {
  test::expect_same(values, share(0.1), 8, 6, tried<iocv::write_binary_fast<false, GivenSettings>>,
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
