#include "format_traits.h"

namespace iocv::tool {

bool is_raw(int code) noexcept {
  switch (code) {
    case VELT_Format::IB:
    case VELT_Format::P:
    case VELT_Format::PIB:
    case VELT_Format::PK:
    case VELT_Format::RB: return true;
    default: return false;
  }
}

bool reads(int code) noexcept {
  if (code == kElapsed || code == kYearFirst) return true;
  const FormatInfo* const row = format_info(code);
  return row && row->reads;
}

IsoForm iso_form(int code) noexcept {
  switch (code) {
    case VELT_Format::TIME:
    case kElapsed: return IsoForm::time;
    case VELT_Format::DTIME: return IsoForm::duration;
    case VELT_Format::DATETIME:
    case kYearFirst: return IsoForm::date_time;
    default: break;
  }
  const FormatInfo* const row = format_info(code);
  return row && row->kind == FormatKind::date ? IsoForm::date : IsoForm::none;
}

bool takes_iso(int code) noexcept {
  const FormatInfo* const row = format_info(code);
  return iso_form(code) != IsoForm::none || (row && row->kind == FormatKind::date_part);
}

}  // namespace iocv::tool
