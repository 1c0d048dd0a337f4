// The output dispatcher: which writer serves which format type.
#include <iocv/convert.h>
#include <iocv/hook.h>

#include <array>

#include "datetime/obodt.h"
#include "datetime/oboida.h"
#include "datetime/obotim.h"
#include "frame/leaf.h"
#include "frame/obia.h"
#include "frame/obiah.h"
#include "frame/obiib.h"
#include "frame/obiib_fast.h"
#include "frame/obip.h"
#include "frame/obip_fast.h"
#include "frame/obipib.h"
#include "frame/obipih.h"
#include "frame/obipk.h"
#include "frame/obirb.h"
#include "frame/obirbh.h"
#include "numeric/encdcc_fast.h"
#include "numeric/obocom.h"
#include "numeric/obocom_fast.h"
#include "numeric/oboe.h"
#include "numeric/oboe_fast.h"
#include "numeric/obof.h"
#include "numeric/obog.h"
#include "numeric/obon.h"
#include "numeric/obopct.h"
#include "numeric/obopct_fast.h"
#include "numeric/oboz.h"
#include "numeric/oboz_fast.h"

namespace iocv {
namespace {

constexpr WriteLeaf* write_f_leaf = write_fast_leaf<
    write_number_fast<Reach::eight_columns, CurrentSettings>,
    write_fast_values<write_number_fast<Reach::nine_digits, CurrentSettings>,
                      write_fast_values<write_number_fast<Reach::twelve_digits, CurrentSettings>,
                                        write_values<write_f_plain>>>>;

constexpr WriteLeaf* write_percent_leaf =
    write_fast_leaf<write_percent_fast<Reach::eight_columns, CurrentSettings>,
                    write_fast_values<write_percent_fast<Reach::twelve_digits, CurrentSettings>,
                                      write_values<write_percent_plain>>>;

constexpr WriteLeaf* write_e_leaf =
    write_fast_leaf<write_exponential_fast<CurrentSettings>, write_values<write_e_plain>>;

template <FormatCode kCode, GroupedStyle kStyle>
constexpr WriteLeaf* write_grouped_leaf = write_fast_leaf<
    write_grouped_fast<kStyle, Reach::nine_digits, CurrentSettings>,
    write_fast_values<write_grouped_fast<kStyle, Reach::twelve_digits, CurrentSettings>,
                      write_values<write_currency_plain<kCode>>>>;

constexpr WriteLeaf* write_z_leaf =
    write_fast_leaf<write_zoned_fast<Reach::eight_columns, CurrentSettings>,
                    write_fast_values<write_zoned_fast<Reach::twelve_digits, CurrentSettings>,
                                      write_values<write_z_plain>>>;

constexpr WriteLeaf* write_p_leaf =
    write_fast_leaf<write_packed_fast<CurrentSettings>, write_values<write_p_plain>>;
constexpr WriteLeaf* write_ib_leaf =
    write_fast_leaf<write_binary_fast<true, CurrentSettings>, write_values<write_ib_plain>>;
constexpr WriteLeaf* write_pib_leaf =
    write_fast_leaf<write_binary_fast<false, CurrentSettings>, write_values<write_pib_plain>>;

struct Row {
  FormatCode code;
  WriteLeaf* leaf;
};

constexpr Row kRows[] = {
    {FormatCode::a, write_string_leaf<write_a>},
    {FormatCode::ahex, write_string_leaf<write_ahex>},
    {FormatCode::comma, write_grouped_leaf<FormatCode::comma, kCommaStyle>},
    {FormatCode::dollar, write_grouped_leaf<FormatCode::dollar, kDollarStyle>},
    {FormatCode::f, write_f_leaf},
    {FormatCode::ib, write_ib_leaf},
    {FormatCode::pibhex, write_leaf<write_pibhex>},
    {FormatCode::p, write_p_leaf},
    {FormatCode::pib, write_pib_leaf},
    {FormatCode::pk, write_leaf<write_pk>},
    {FormatCode::rb, write_leaf<write_rb>},
    {FormatCode::rbhex, write_leaf<write_rbhex>},
    {FormatCode::z, write_z_leaf},
    {FormatCode::n, write_leaf<write_n>},
    {FormatCode::e, write_e_leaf},
    {FormatCode::date, write_date_leaf<write_date>},
    {FormatCode::time, write_leaf<write_time>},
    {FormatCode::datetime, write_date_leaf<write_date_time>},
    {FormatCode::adate, write_date_leaf<write_numeric_date>},
    {FormatCode::jdate, write_date_leaf<write_day_of_year>},
    {FormatCode::dtime, write_leaf<write_time>},
    {FormatCode::wkday, write_date_leaf<write_name>},
    {FormatCode::month, write_date_leaf<write_name>},
    {FormatCode::moyr, write_date_leaf<write_month_or_quarter>},
    {FormatCode::qyr, write_date_leaf<write_month_or_quarter>},
    {FormatCode::wkyr, write_date_leaf<write_week>},
    {FormatCode::pct, write_percent_leaf},
    {FormatCode::dot, write_grouped_leaf<FormatCode::dot, kDotStyle>},
    {FormatCode::cca, write_leaf<write_currency>},
    {FormatCode::ccb, write_leaf<write_currency>},
    {FormatCode::ccc, write_leaf<write_currency>},
    {FormatCode::ccd, write_leaf<write_currency>},
    {FormatCode::cce, write_leaf<write_currency>},
    {FormatCode::edate, write_date_leaf<write_numeric_date>},
    {FormatCode::sdate, write_date_leaf<write_numeric_date>},
    {FormatCode::general, write_leaf<write_general>},
};

static_assert([] {
  const Row* before = nullptr;
  for (const Row& row : kRows) {
    if (!row.leaf || (before && before->code >= row.code)) return false;
    before = &row;
  }
  return true;
}());

}  // namespace

constexpr std::array<WriteLeaf*, kFormatCodes> writers = [] {
  std::array<WriteLeaf*, kFormatCodes> table = {};
  for (const Row& row : kRows) table[static_cast<std::size_t>(row.code)] = row.leaf;
  return table;
}();

}  // namespace iocv

namespace {

// Apart, so that dispatching itself needs no stack.
[[gnu::noinline]] void write_through_hook(const OBS* value, const std::int32_t* type,
                                          const std::int64_t* width, const std::int64_t* decimals,
                                          char* text, std::int64_t* status,
                                          std::int64_t text_length) {
  const std::int64_t code = *type;  // the hook reads all 64 bits
  *status = obocvext_(value, &code, width, decimals, text, text_length);
}

}  // namespace

extern "C" void obocv_(const OBS* value, const std::int32_t* type, const std::int64_t* width,
                       const std::int64_t* decimals, char* text, std::int64_t* status,
                       std::int64_t text_length) {
  iocv::WriteLeaf* leaf = iocv::writer_of(*type);
  return (leaf ? leaf : write_through_hook)(value, type, width, decimals, text, status,
                                            text_length);
}
