// Which writer serves which format type.
#pragma once

#include "datetime/obodt.h"
#include "datetime/oboida.h"
#include "datetime/obotim.h"
#include "frame/obia.h"
#include "frame/obiah.h"
#include "frame/obiib.h"
#include "frame/obip.h"
#include "frame/obipib.h"
#include "frame/obipih.h"
#include "frame/obipk.h"
#include "frame/obirb.h"
#include "frame/obirbh.h"
#include "frame/oboib_fast.h"
#include "frame/obop_fast.h"
#include "frame/rows.h"
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
#include "numeric/qobosp_fast.h"

namespace iocv {

// A writer of dates. The doors above leave the fields of its date in the exported records.
template <FormatCode Code, auto Core>
struct DateRow : Row<Code, Core> {};

// clang-format off
using WriterRows = RowList<
    Row<FormatCode::a, write_a>,
    Row<FormatCode::ahex, write_ahex>,
    Row<FormatCode::comma, write_currency>,
    Row<FormatCode::dollar, write_currency>,
    Row<FormatCode::f, write_f>,
    Row<FormatCode::ib, write_ib>,
    Row<FormatCode::pibhex, write_pibhex>,
    Row<FormatCode::p, write_p>,
    Row<FormatCode::pib, write_pib>,
    Row<FormatCode::pk, write_pk>,
    Row<FormatCode::rb, write_rb>,
    Row<FormatCode::rbhex, write_rbhex>,
    Row<FormatCode::z, write_z>,
    Row<FormatCode::n, write_n>,
    Row<FormatCode::e, write_e>,
    DateRow<FormatCode::date, write_date>,
    Row<FormatCode::time, write_time>,
    DateRow<FormatCode::datetime, write_date_time>,
    DateRow<FormatCode::adate, write_numeric_date>,
    DateRow<FormatCode::jdate, write_day_of_year>,
    Row<FormatCode::dtime, write_time>,
    DateRow<FormatCode::wkday, write_name>,
    DateRow<FormatCode::month, write_name>,
    DateRow<FormatCode::moyr, write_month_or_quarter>,
    DateRow<FormatCode::qyr, write_month_or_quarter>,
    DateRow<FormatCode::wkyr, write_week>,
    Row<FormatCode::pct, write_percent>,
    Row<FormatCode::dot, write_currency>,
    Row<FormatCode::cca, write_currency>,
    Row<FormatCode::ccb, write_currency>,
    Row<FormatCode::ccc, write_currency>,
    Row<FormatCode::ccd, write_currency>,
    Row<FormatCode::cce, write_currency>,
    DateRow<FormatCode::edate, write_numeric_date>,
    DateRow<FormatCode::sdate, write_numeric_date>,
    Row<FormatCode::general, write_general>>;
// clang-format on
static_assert(WriterRows::in_order());

}  // namespace iocv
