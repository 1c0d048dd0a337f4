// What the tool needs to know about a format beside the library's table.
#pragma once

#include <iocv/format.h>

#include "value_text.h"

namespace iocv::tool {

// The types beyond the table that the library converts: elapsed minutes and seconds, and date-times
// that begin with the year.
inline constexpr int kElapsed = 85;
inline constexpr int kYearFirst = 86;

// Fields of IB, P, PIB, PK and RB are bytes and no text; the tool shows and takes them as
// hexadecimal digits.
bool is_raw(int code) noexcept;

// Whether a field of the type can be read.
bool reads(int code) noexcept;

// How the values of a type look in ISO 8601; none for weekdays, months and all that is no date.
IsoForm iso_form(int code) noexcept;

// Whether values of the type may be typed as dates and times, too.
bool takes_iso(int code) noexcept;

}  // namespace iocv::tool
