// Stored values as text for people and programs: shortest decimals and ISO 8601.
#pragma once

#include <iocv/base.h>

#include <cstdint>
#include <string>

namespace iocv::tool {

// True for the system-missing number, bit for bit.
bool is_missing(double value) noexcept;

// The fewest digits that read back as the same double; in plain notation from 0.00001 to below
// 1e17, else with an exponent; "inf", "-inf" and "nan". The system-missing number is a number here.
// Example: 100000 -> "100000", -0.1 -> "-0.1", 1e300 -> "1e+300".
void append_number(std::string& text, double value);

// How a format's values look in ISO 8601.
enum class IsoForm { none, date, date_time, time, duration };

// Appends stored seconds in the given form and returns true; false, with nothing appended, for a
// value without such a form: not finite, system-missing, or 2^53 seconds and more. Fractions stand
// in full, so that the text names the same double.
//   date       2000-01-01; the form date_time when it is not the first second of a day
//   date_time  2000-01-01T12:30:15.5; years outside 0..9999 have a sign
//   time       12:30:15, -00:30:00, 100:00:00.25
//   duration   P1DT12H30M15S, PT0H0M0.5S, -P2DT0H0M0S
bool append_iso(std::string& text, double value, IsoForm form);

}  // namespace iocv::tool
