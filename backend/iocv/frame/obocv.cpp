// The output dispatcher.
#include <iocv/convert.h>
#include <iocv/hook.h>

#include <algorithm>
#include <array>

#include "datetime/obodt.h"
#include "datetime/oboida.h"
#include "datetime/obotim.h"
#include "frame/leaf.h"
#include "frame/writer_rows.h"

namespace iocv {
namespace {

struct Row {
  FormatCode code;
  WriteLeaf* leaf;
};

constexpr Row kRows[] = {
    {FormatCode::a, write_string_leaf<write_a>},
    {FormatCode::ahex, write_string_leaf<write_ahex>},
    {FormatCode::comma, write_leaf<write_currency>},
    {FormatCode::dollar, write_leaf<write_currency>},
    {FormatCode::f, write_leaf<write_f>},
    {FormatCode::ib, write_leaf<write_ib>},
    {FormatCode::pibhex, write_leaf<write_pibhex>},
    {FormatCode::p, write_leaf<write_p>},
    {FormatCode::pib, write_leaf<write_pib>},
    {FormatCode::pk, write_leaf<write_pk>},
    {FormatCode::rb, write_leaf<write_rb>},
    {FormatCode::rbhex, write_leaf<write_rbhex>},
    {FormatCode::z, write_leaf<write_z>},
    {FormatCode::n, write_leaf<write_n>},
    {FormatCode::e, write_leaf<write_e>},
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
    {FormatCode::pct, write_leaf<write_percent>},
    {FormatCode::dot, write_leaf<write_currency>},
    {FormatCode::cca, write_leaf<write_currency>},
    {FormatCode::ccb, write_leaf<write_currency>},
    {FormatCode::ccc, write_leaf<write_currency>},
    {FormatCode::ccd, write_leaf<write_currency>},
    {FormatCode::cce, write_leaf<write_currency>},
    {FormatCode::edate, write_date_leaf<write_numeric_date>},
    {FormatCode::sdate, write_date_leaf<write_numeric_date>},
    {FormatCode::general, write_leaf<write_general>},
};

static_assert(std::ranges::is_sorted(kRows, std::ranges::less_equal(), &Row::code));
template <FormatCode Code, auto Core>
constexpr WriteLeaf* leaf_of(Row<Code, Core>) {
  if constexpr (kWritesString<Core>) {
    return write_string_leaf<Core>;
  } else {
    return write_leaf<Core>;
  }
}

template <FormatCode Code, auto Core>
constexpr WriteLeaf* leaf_of(DateRow<Code, Core>) {
  return write_date_leaf<Core>;
}

constexpr CodeTable<WriteLeaf> kWriters =
    WriterRows::by_code<WriteLeaf>([](auto row) { return leaf_of(row); });

}  // namespace

WriteLeaf* writer_of(std::int64_t code) noexcept { return entry_of(kWriters, code); }

}  // namespace iocv

extern "C" void obocv_(const OBS* value, const std::int32_t* type, const std::int64_t* width,
                       const std::int64_t* decimals, char* text, std::int64_t* status,
                       std::int64_t text_length) {
  if (iocv::WriteLeaf* leaf = iocv::writer_of(*type)) {
    return leaf(value, type, width, decimals, text, status, text_length);
  }
  const std::int64_t code = *type;  // the hook reads all 64 bits
  *status = obocvext_(value, &code, width, decimals, text, text_length);
}
