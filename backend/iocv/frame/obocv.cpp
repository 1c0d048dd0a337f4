// The output dispatcher: which writer serves which format type.
#include <iocv/convert.h>
#include <iocv/hook.h>

#include <algorithm>
#include <array>
#include <functional>

#include "datetime/obodt.h"
#include "datetime/oboida.h"
#include "datetime/obotim.h"
#include "frame/leaf.h"
#include "frame/obia.h"
#include "frame/obiah.h"
#include "frame/obiib.h"
#include "frame/obip.h"
#include "frame/obipib.h"
#include "frame/obipih.h"
#include "frame/obipk.h"
#include "frame/obirb.h"
#include "frame/obirbh.h"
#include "numeric/obocom.h"
#include "numeric/oboe.h"
#include "numeric/obof.h"
#include "numeric/obog.h"
#include "numeric/obon.h"
#include "numeric/obopct.h"
#include "numeric/oboz.h"

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

// In the order of the codes, none twice.
static_assert(std::ranges::is_sorted(kRows, std::ranges::less_equal(), &Row::code));

constexpr std::size_t kCodes = static_cast<std::size_t>(FormatCode::general) + 1;

constexpr std::array<WriteLeaf*, kCodes> kWriters = [] {
  std::array<WriteLeaf*, kCodes> table = {};
  for (const Row& row : kRows) table[static_cast<std::size_t>(row.code)] = row.leaf;
  return table;
}();

}  // namespace

WriteLeaf* writer_of(std::int64_t code) noexcept {
  const auto index = static_cast<std::uint64_t>(code);  // a negative code is beyond the table
  return index < kWriters.size() ? kWriters[index] : nullptr;
}

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
