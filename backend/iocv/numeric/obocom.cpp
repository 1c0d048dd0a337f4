// COMMA, DOLLAR, DOT and the five custom currencies.
#include "numeric/obocom.h"

#include <iocv/number_formats.h>

#include <optional>

#include "frame/attempts.h"
#include "frame/leaf.h"
#include "numeric/custom_currency.h"
#include "numeric/obocc.h"
#include "numeric/obocom_fast.h"
#include "numeric/qobosp_fast.h"

namespace iocv {
namespace {

// The decimal character of these formats is their own, not that of the settings.
constexpr Marks kPointMarks = {.grouping = ',', .decimal = '.'};
constexpr Marks kCommaMarks = {.grouping = '.', .decimal = ','};

constexpr Decoration kComma = {.marks = kPointMarks, .negative_prefix = "-"};
constexpr Decoration kDot = {.marks = kCommaMarks, .negative_prefix = "-"};
constexpr Decoration kDollar = {.marks = kPointMarks, .negative_prefix = "-", .prefix = "$"};

Decoration decoration_of(const customCurrency& currency) {
  return {.marks = currency.getDecimal() == "." ? kPointMarks : kCommaMarks,
          .negative_prefix = currency.getNegativePrefix(),
          .prefix = currency.getPrefix(),
          .suffix = currency.getSuffix(),
          .negative_suffix = currency.getNegativeSuffix()};
}

std::optional<Decoration> decoration_of(FormatCode code, const Currencies& currencies) {
  switch (code) {
    case FormatCode::comma: return kComma;
    case FormatCode::dot: return kDot;
    case FormatCode::dollar: return kDollar;
    case FormatCode::cca: return decoration_of(currencies[0]);
    case FormatCode::ccb: return decoration_of(currencies[1]);
    case FormatCode::ccc: return decoration_of(currencies[2]);
    case FormatCode::ccd: return decoration_of(currencies[3]);
    case FormatCode::cce: return decoration_of(currencies[4]);
    default: return std::nullopt;
  }
}

}  // namespace

Status write_currency(Field out, double value, std::int64_t decimals, FormatCode code,
                      const Settings& settings) noexcept {
  const auto written = [&]<GroupedStyle kStyle>() {
    return written_by<GroupedWriter<kStyle, Reach::nine_digits>,
                      GroupedWriter<kStyle, Reach::sixteen_digits>,
                      SpecialWriter<MissingPlace::decimal_character>>(out, value, decimals,
                                                                      settings);
  };
  if (code == FormatCode::comma && written.template operator()<kCommaStyle>()) return Status::ok;
  if (code == FormatCode::dot && written.template operator()<kDotStyle>()) return Status::ok;
  if (code == FormatCode::dollar && written.template operator()<kDollarStyle>()) return Status::ok;
  return write_currency_plain(out, value, decimals, code, settings);
}

Status write_currency_plain(Field out, double value, std::int64_t decimals, FormatCode code,
                            const Settings& settings) noexcept {
  const std::optional<Decoration> decoration = decoration_of(code, *settings.currencies);
  if (!decoration) return Status::ok;
  return write_decorated(out, value, decimals, *decoration, settings);
}

}  // namespace iocv

extern "C" void obocom_(const double* value, const std::int64_t* width,
                        const std::int64_t* decimals, char* text, std::int64_t* status,
                        const std::int32_t* type, std::int64_t) {
  iocv::store(status, iocv::write_currency({text, *width}, *value, *decimals,
                                           static_cast<iocv::FormatCode>(*type),
                                           iocv::Settings::current()));
}
