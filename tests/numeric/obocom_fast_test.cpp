// The fast path of COMMA, DOT and DOLLAR beside their plain path.
#include "numeric/obocom_fast.h"

#include "fast_paths.h"
#include "frame/attempts.h"
#include "numeric/obocom.h"

namespace {

template <iocv::FormatCode kCode, iocv::GroupedStyle kStyle>
void compare(std::size_t values) {
  test::expect_same(values, iocv::kHasFastPaths ? 0.2 : 0, 16, 6,
                    iocv::written_by<iocv::GroupedWriter<kStyle, iocv::Reach::nine_digits>,
                                     iocv::GroupedWriter<kStyle, iocv::Reach::sixteen_digits>>,
                    iocv::write_currency_plain<kCode>);
}

constexpr auto compare_comma = compare<iocv::FormatCode::comma, iocv::kCommaStyle>;
constexpr auto compare_dot = compare<iocv::FormatCode::dot, iocv::kDotStyle>;
constexpr auto compare_dollar = compare<iocv::FormatCode::dollar, iocv::kDollarStyle>;

TEST(FastComma, WritesWhatThePlainPathWrites) { compare_comma(1'000'000); }
TEST(FastDot, WritesWhatThePlainPathWrites) { compare_dot(300'000); }
TEST(FastDollar, WritesWhatThePlainPathWrites) { compare_dollar(1'000'000); }
TEST(LongFastComma, WritesWhatThePlainPathWrites) { compare_comma(25'000'000); }
TEST(LongFastDot, WritesWhatThePlainPathWrites) { compare_dot(20'000'000); }
TEST(LongFastDollar, WritesWhatThePlainPathWrites) { compare_dollar(25'000'000); }

}  // namespace
