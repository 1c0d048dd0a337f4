// Which reader serves which format type.
#pragma once

#include "datetime/obidat.h"
#include "datetime/obidtm.h"
#include "datetime/obidtt.h"
#include "datetime/obijdt.h"
#include "datetime/obimon.h"
#include "datetime/obiqyr.h"
#include "datetime/obitim.h"
#include "datetime/obiwky.h"
#include "frame/obia.h"
#include "frame/obiah.h"
#include "frame/obiib.h"
#include "frame/obip.h"
#include "frame/obipib.h"
#include "frame/obipih.h"
#include "frame/obipk.h"
#include "frame/obirb.h"
#include "frame/obirbh.h"
#include "frame/rows.h"
#include "numeric/obif.h"
#include "numeric/obin.h"
#include "numeric/obiz.h"

namespace iocv {

// clang-format off
using ReaderRows = RowList<
    Row<FormatCode::a, read_a>,
    Row<FormatCode::ahex, read_ahex>,
    Row<FormatCode::comma, read_number_as<FormatCode::comma>>,
    Row<FormatCode::dollar, read_number_as<FormatCode::dollar>>,
    Row<FormatCode::f, read_number_as<FormatCode::f>>,
    Row<FormatCode::ib, read_ib>,
    Row<FormatCode::pibhex, read_pibhex>,
    Row<FormatCode::p, read_p>,
    Row<FormatCode::pib, read_pib>,
    Row<FormatCode::pk, read_pk>,
    Row<FormatCode::rb, read_rb>,
    Row<FormatCode::rbhex, read_rbhex>,
    Row<FormatCode::z, read_z>,
    Row<FormatCode::n, read_n>,
    Row<FormatCode::e, read_number_as<FormatCode::e>>,
    Row<FormatCode::date, read_date>,
    Row<FormatCode::time, read_time>,
    Row<FormatCode::datetime, read_datetime>,
    Row<FormatCode::adate, read_date>,
    Row<FormatCode::jdate, read_jdate>,
    Row<FormatCode::dtime, read_dtime>,
    Row<FormatCode::wkday, read_wkday>,
    Row<FormatCode::month, read_month>,
    Row<FormatCode::moyr, read_moyr>,
    Row<FormatCode::qyr, read_qyr>,
    Row<FormatCode::wkyr, read_wkyr>,
    Row<FormatCode::pct, read_number_as<FormatCode::pct>>,
    Row<FormatCode::dot, read_number_as<FormatCode::dot>>,
    Row<FormatCode::edate, read_date>,
    Row<FormatCode::sdate, read_date>,
    Row<FormatCode::year_first, read_datetime>>;
// clang-format on
static_assert(ReaderRows::in_order());

}  // namespace iocv
