// The format types as the core names them: the 45 of the table and two beyond it.
#pragma once

#include <iocv/format.h>

#include <cstdint>

namespace iocv {

// As wide as the code that the dispatchers hand on, so that no value is cut.
enum class FormatCode : std::int64_t {
  a = VELT_Format::A,
  ahex = VELT_Format::AHEX,
  comma = VELT_Format::COMMA,
  dollar = VELT_Format::DOLLAR,
  f = VELT_Format::F,
  ib = VELT_Format::IB,
  pibhex = VELT_Format::PIBHEX,
  p = VELT_Format::P,
  pib = VELT_Format::PIB,
  pk = VELT_Format::PK,
  rb = VELT_Format::RB,
  rbhex = VELT_Format::RBHEX,
  z = VELT_Format::Z,
  n = VELT_Format::N,
  e = VELT_Format::E,
  date = VELT_Format::DATE,
  time = VELT_Format::TIME,
  datetime = VELT_Format::DATETIME,
  adate = VELT_Format::ADATE,
  jdate = VELT_Format::JDATE,
  dtime = VELT_Format::DTIME,
  wkday = VELT_Format::WKDAY,
  month = VELT_Format::MONTH,
  moyr = VELT_Format::MOYR,
  qyr = VELT_Format::QYR,
  wkyr = VELT_Format::WKYR,
  pct = VELT_Format::PCT,
  dot = VELT_Format::DOT,
  cca = VELT_Format::CCA,
  ccb = VELT_Format::CCB,
  ccc = VELT_Format::CCC,
  ccd = VELT_Format::CCD,
  cce = VELT_Format::CCE,
  edate = VELT_Format::EDATE,
  sdate = VELT_Format::SDATE,
  general = VELT_Format::UNUSED40,
  elapsed = 85,     // minutes and seconds
  year_first = 86,  // date and time, year first
};

}  // namespace iocv
