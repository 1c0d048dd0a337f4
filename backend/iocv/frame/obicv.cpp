// The input dispatcher: which reader serves which format type.
#include <iocv/convert.h>
#include <iocv/hook.h>

#include <algorithm>
#include <array>
#include <functional>

#include "datetime/obidat.h"
#include "datetime/obidtm.h"
#include "datetime/obidtt.h"
#include "datetime/obijdt.h"
#include "datetime/obimon.h"
#include "datetime/obiqyr.h"
#include "datetime/obitim.h"
#include "datetime/obiwky.h"
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
#include "numeric/obif.h"
#include "numeric/obin.h"
#include "numeric/obiz.h"

namespace iocv {
namespace {

struct Row {
  FormatCode code;
  ReadLeaf* leaf;
};

constexpr Row kRows[] = {
    {FormatCode::a, read_string_leaf<read_a>},
    {FormatCode::ahex, read_string_leaf<read_ahex>},
    {FormatCode::comma, read_leaf<read_number>},
    {FormatCode::dollar, read_leaf<read_number>},
    {FormatCode::f, read_leaf<read_number>},
    {FormatCode::ib, read_leaf<read_ib>},
    {FormatCode::pibhex, read_leaf<read_pibhex>},
    {FormatCode::p, read_leaf<read_p>},
    {FormatCode::pib, read_leaf<read_pib>},
    {FormatCode::pk, read_leaf<read_pk>},
    {FormatCode::rb, read_leaf<read_rb>},
    {FormatCode::rbhex, read_leaf<read_rbhex>},
    {FormatCode::z, read_leaf<read_z>},
    {FormatCode::n, read_leaf<read_n>},
    {FormatCode::e, read_leaf<read_number>},
    {FormatCode::date, read_leaf<read_date>},
    {FormatCode::time, read_leaf<read_time>},
    {FormatCode::datetime, read_leaf<read_datetime>},
    {FormatCode::adate, read_leaf<read_date>},
    {FormatCode::jdate, read_leaf<read_jdate>},
    {FormatCode::dtime, read_leaf<read_dtime>},
    {FormatCode::wkday, read_leaf<read_wkday>},
    {FormatCode::month, read_leaf<read_month>},
    {FormatCode::moyr, read_leaf<read_moyr>},
    {FormatCode::qyr, read_leaf<read_qyr>},
    {FormatCode::wkyr, read_leaf<read_wkyr>},
    {FormatCode::pct, read_leaf<read_number>},
    {FormatCode::dot, read_leaf<read_number>},
    {FormatCode::edate, read_leaf<read_date>},
    {FormatCode::sdate, read_leaf<read_date>},
    {FormatCode::year_first, read_leaf<read_datetime>},
};

// In the order of the codes, none twice.
static_assert(std::ranges::is_sorted(kRows, std::ranges::less_equal(), &Row::code));

constexpr std::size_t kCodes = static_cast<std::size_t>(FormatCode::year_first) + 1;

constexpr std::array<ReadLeaf*, kCodes> kReaders = [] {
  std::array<ReadLeaf*, kCodes> table = {};
  for (const Row& row : kRows) table[static_cast<std::size_t>(row.code)] = row.leaf;
  return table;
}();

}  // namespace

ReadLeaf* reader_of(std::int64_t code) noexcept {
  const auto index = static_cast<std::uint64_t>(code);  // a negative code is beyond the table
  return index < kReaders.size() ? kReaders[index] : nullptr;
}

}  // namespace iocv

extern "C" void obicv_(const char* text, const std::int32_t* type, const std::int64_t* width,
                       const std::int64_t* decimals, OBS* value, std::int64_t* status,
                       std::int64_t text_length) {
  if (iocv::ReadLeaf* leaf = iocv::reader_of(*type)) {
    return leaf(text, type, width, decimals, value, status, text_length);
  }
  const std::int64_t code = *type;  // the hook reads all 64 bits
  *status = obicvext_(text, &code, width, decimals, value, text_length);
}
