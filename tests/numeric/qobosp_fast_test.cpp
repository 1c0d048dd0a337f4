// The fast path of special values beside the plain paths.
#include "numeric/qobosp_fast.h"

#include "fast_paths.h"
#include "frame/attempts.h"
#include "numeric/obocom.h"
#include "numeric/oboe.h"
#include "numeric/obof.h"
#include "numeric/obopct.h"
#include "numeric/oboz.h"

namespace {

using iocv::FormatCode;
using iocv::MissingPlace;
using iocv::SpecialWriter;
using test::kInfinity;
using test::kMissing;
using test::kNan;

template <MissingPlace kPlace, class Plain>
void compare(const Plain& plain) {
  iocv::Settings settings;
  settings.system_missing_char = '#';
  std::size_t answered = 0;
  for (const double missing : {kMissing, 0.0, -999.0, 1e300, kInfinity, kNan}) {
    settings.system_missing = missing;
    for (const double value :
         {kMissing, 0.0, -0.0, -999.0, 1e300, 12.5, kInfinity, -kInfinity, kNan}) {
      for (std::int64_t width = -1; width <= 18; ++width) {
        for (std::int64_t decimals = -1; decimals <= 18; ++decimals) {
          char fast[32];
          char expected[32];
          std::memset(fast, 'x', sizeof fast);
          std::memset(expected, 'x', sizeof expected);
          if (!iocv::written_by<SpecialWriter<kPlace>>({fast + 8, width}, value, decimals,
                                                       settings))
            continue;
          ++answered;
          EXPECT_TRUE(value == missing || !std::isfinite(value));
          EXPECT_EQ(plain(iocv::Field(expected + 8, width), value, decimals, settings),
                    iocv::Status::ok);
          ASSERT_EQ(std::string_view(fast, 32), std::string_view(expected, 32))
              << test::described(value) << ", missing " << test::described(missing) << ", " << width
              << '.' << decimals;
        }
      }
    }
  }
  // 22 of the pairs above are special and look the same to all; E needs room for its decimals.
  const std::size_t shapes = kPlace == MissingPlace::mantissa ? 42 : 16 * 7;
  EXPECT_EQ(answered, iocv::kHasFastPaths ? 22 * shapes : 0);
}

TEST(FastSpecials, AreWrittenAsByThePlainPaths) {
  compare<MissingPlace::decimal_character>(iocv::write_f_plain);
  compare<MissingPlace::decimal_character>(iocv::write_currency_plain<FormatCode::comma>);
  compare<MissingPlace::decimal_character>(iocv::write_currency_plain<FormatCode::dollar>);
  compare<MissingPlace::decimal_character>(iocv::write_currency_plain<FormatCode::dot>);
  compare<MissingPlace::before_percent>(iocv::write_percent_plain);
  compare<MissingPlace::mantissa>(iocv::write_e_plain);
  compare<MissingPlace::last_column>(iocv::write_z_plain);
}

}  // namespace
