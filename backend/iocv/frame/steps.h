// A conversion as its steps.
#pragma once

namespace iocv {

// Fast attempts in the order in which they are tried, and the plain way for what none of them
// answers. An attempt is made for a format and settings (make(width, decimals, settings, attempt)
// -> whether it serves them; the settings outlive it) and then called for each value or field:
//   writers: (first, value) -> whether it has written;
//   readers: (first, value) -> whether value is what the field holds;
//   or (first, value and status) -> whether these are what the plain way answers.
// But for the latter, what an attempt answers has status 0.
template <auto Plain, class... Attempts>
struct Steps {};

}  // namespace iocv
