/* The flat interface of iocv, for C, C++ and Fortran hosts, and for C++ the value and format types.
 * Each header it includes stands alone. */
#ifndef IOCV_IOCV_H
#define IOCV_IOCV_H

#include <iocv/base.h>
#include <iocv/binary_formats.h>
#include <iocv/calendar.h>
#include <iocv/clocks.h>
#include <iocv/convert.h>
#include <iocv/currencies.h>
#include <iocv/date_input.h>
#include <iocv/date_output.h>
#include <iocv/digits.h>
#include <iocv/fields.h>
#include <iocv/hook.h>
#include <iocv/number_formats.h>
#include <iocv/number_input.h>
#include <iocv/records.h>
#include <iocv/settings.h>
#include <iocv/status.h>
#include <iocv/string_formats.h>

#endif
